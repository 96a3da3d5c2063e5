// mgrs.cpp - letters of squares of 100 km.
// SPDX-License-Identifier: MIT
#include <geobasics/mgrs.h>

#include <algorithm>
#include <array>
#include <cmath>

#include <geobasics/position_tokens.h>
#include <geobasics/ups.h>
#include <geobasics/utm.h>
#include <platform/base/text_format.h>

namespace zav {

namespace {

using detail::FailPosition;

constexpr double Square = 100000;
constexpr int MaxDigits = 8;
constexpr std::string_view Bands = "CDEFGHJKLMNPQRSTUVWX";
constexpr std::string_view RowLetters = "ABCDEFGHJKLMNPQRSTUV";
constexpr std::array<std::string_view, 3> ColumnLetters{"STUVWXYZ", "ABCDEFGH", "JKLMNPQR"};

// The squares of UPS: first column and row, letters of the western and eastern half and of rows.
struct TCap {
  int First;
  std::string_view West, East, Rows;
};
constexpr TCap NorthCap{13, "RSTUXYZ", "ABCFGHJ", "ABCDEFGHJKLMNP"};
constexpr TCap SouthCap{8, "JKLPQRSTUXYZ", "ABCFGHJKLPQR", "ABCDEFGHJKLMNPQRSTUVWXYZ"};
constexpr int PoleColumn = 20;  // of 100 km, where the eastern half begins

int SquareOf(double Metres) { return static_cast<int>(std::floor(Metres / Square)); }

std::string DigitsOf(double Metres, int Digits) {
  const double Unit = std::pow(10.0, 5 - Digits);
  const double Rest = Metres - SquareOf(Metres) * Square;
  // The scale is a whole number wherever that is possible, for digits that are exact.
  const double Count = Digits > 5 ? Rest * std::pow(10.0, Digits - 5) : Rest / Unit;
  const double Most = std::pow(10.0, Digits) - 1;
  std::string Text = IntegerText(static_cast<int64_t>(std::clamp(std::floor(Count), 0.0, Most)));
  return std::string(static_cast<size_t>(Digits) - Text.size(), '0') + Text;
}

std::string WithDigits(std::string Text, double Easting, double Northing, int Digits) {
  if (Digits == 0) return Text;
  return Text + ' ' + DigitsOf(Easting, Digits) + ' ' + DigitsOf(Northing, Digits);
}

std::string CapReference(double Lat, double Long, int Digits, TGeoEllipsoid Ellipsoid) {
  const bool South = Lat < 0;
  const TCap& Cap = South ? SouthCap : NorthCap;
  double X = 0;
  double Y = 0;
  LatLongToUPS(Lat, Long, Ellipsoid, X, Y);
  const int Column = SquareOf(X);
  const bool East = Column >= PoleColumn;
  std::string Text(1, South ? (East ? 'B' : 'A') : (East ? 'Z' : 'Y'));
  Text += ' ';
  Text += East ? Cap.East.at(static_cast<size_t>(Column - PoleColumn))
               : Cap.West.at(static_cast<size_t>(Column - Cap.First));
  Text += Cap.Rows.at(static_cast<size_t>(SquareOf(Y) - Cap.First));
  return WithDigits(Text, X, Y, Digits);
}

size_t RowLetterAt(int Zone, int Row) {
  return static_cast<size_t>((Row + (Zone % 2 == 0 ? 5 : 0)) % 20);
}

// --- reading -------------------------------------------------------------------------------------

bool IsDigit(char C) { return C >= '0' && C <= '9'; }
bool IsLetter(char C) { return (C >= 'a' && C <= 'z') || (C >= 'A' && C <= 'Z'); }
bool IsBlank(char C) { return C == ' ' || C == '\t'; }
char Upper(char C) { return static_cast<char>(C & ~0x20); }

// The parts of a reference and where they stand.
struct TParts {
  std::string_view Zone;  // 0 to 2 digits
  std::string Letters;    // three, in upper case
  int LetterColumn[3] = {};
  bool Joined = true;        // the three letters stand together
  std::string_view Runs[2];  // of digits
  int RunColumn[2] = {};
  int RunCount = 0;
};

// Nothing when the text has another shape. Shaped texts are ASCII, so bytes are columns.
std::optional<TParts> PartsOf(std::string_view Text) {
  TParts Parts;
  size_t i = 0;
  const auto SkipBlanks = [&] {
    while (i < Text.size() && IsBlank(Text[i])) ++i;
  };
  const auto TakeDigits = [&] {
    const size_t Start = i;
    while (i < Text.size() && IsDigit(Text[i])) ++i;
    return Text.substr(Start, i - Start);
  };
  SkipBlanks();
  Parts.Zone = TakeDigits();
  if (Parts.Zone.size() > 2) return std::nullopt;
  for (int k = 0; k < 3; ++k) {
    const size_t Before = i;
    SkipBlanks();
    // The square's two letters stand together.
    if (i == Text.size() || !IsLetter(Text[i]) || (k == 2 && i != Before)) return std::nullopt;
    if (k == 1 && i != Before) Parts.Joined = false;
    Parts.Letters += Upper(Text[i]);
    Parts.LetterColumn[k] = static_cast<int>(++i);
  }
  SkipBlanks();
  while (i < Text.size() && IsDigit(Text[i])) {
    if (Parts.RunCount == 2) return std::nullopt;
    Parts.RunColumn[Parts.RunCount] = static_cast<int>(i) + 1;
    Parts.Runs[Parts.RunCount++] = TakeDigits();
    SkipBlanks();
  }
  return i == Text.size() ? std::optional(Parts) : std::nullopt;
}

// "12 deg 30" is shaped like a reference, too.
bool IsUnit(const TParts& Parts) {
  const bool Unit = Parts.Letters == "DEG" || Parts.Letters == "MIN" || Parts.Letters == "SEC";
  const size_t Digits = Parts.Runs[0].size() + Parts.Runs[1].size();
  return Unit && Parts.Joined && !Parts.Zone.empty() && Digits < 4;
}

double Coordinate(std::string_view Digits) {
  double Value = 0;
  for (const char C : Digits) Value = Value * 10 + (C - '0');
  // Up to five digits are metres or more; of more the power is in the denominator.
  return Digits.size() <= 5 ? Value * std::pow(10.0, 5 - static_cast<int>(Digits.size()))
                            : Value / std::pow(10.0, static_cast<int>(Digits.size()) - 5);
}

void ReadDigits(const TParts& Parts, TMGRSSquare& Found, int EndColumn) {
  std::string_view East = Parts.Runs[0];
  std::string_view North = Parts.Runs[1];
  if (Parts.RunCount == 1) {
    if (East.size() % 2 != 0)
      FailPosition("A grid reference has as many digits for the easting as for the northing.",
                   EndColumn);
    North = East.substr(East.size() / 2);
    East = East.substr(0, East.size() / 2);
  }
  if (East.size() != North.size())
    FailPosition("A grid reference has as many digits for the easting as for the northing.",
                 Parts.RunColumn[1]);
  if (East.size() > MaxDigits)
    FailPosition("A grid reference has at most 8 digits for each coordinate.", Parts.RunColumn[0]);
  Found.Easting += Coordinate(East);
  Found.Northing += Coordinate(North);
  Found.Size = std::pow(10.0, 5 - static_cast<int>(East.size()));
}

[[noreturn]] void FailSquare(const TParts& Parts, int Letter) {
  FailPosition("There is no square " + Parts.Letters.substr(1) + " in " + std::string(Parts.Zone) +
                   Parts.Letters[0] + ".",
               Parts.LetterColumn[Letter]);
}

TMGRSSquare ReadCap(const TParts& Parts) {
  TMGRSSquare Found;
  const char Half = Parts.Letters[0];
  Found.South = Half <= 'B';
  const bool East = Half == 'B' || Half == 'Z';
  const TCap& Cap = Found.South ? SouthCap : NorthCap;
  const size_t Column = (East ? Cap.East : Cap.West).find(Parts.Letters[1]);
  if (Column == std::string_view::npos) FailSquare(Parts, 1);
  const size_t Row = Cap.Rows.find(Parts.Letters[2]);
  if (Row == std::string_view::npos) FailSquare(Parts, 2);
  Found.Easting = (static_cast<int>(Column) + (East ? PoleColumn : Cap.First)) * Square;
  Found.Northing = (static_cast<int>(Row) + Cap.First) * Square;
  return Found;
}

// The rows of squares, counted from the equator or from the southern false origin, that a band
// has somewhere in its zones. Northings of one latitude grow to the sides of a zone, or fall in the
// south; the widest zones, of Norway and Svalbard, reach 6 degrees to one side. The slack is for
// other ellipsoids and spheres.
std::pair<int, int> RowsOfBand(size_t Band) {
  const double Low = -80 + 8.0 * static_cast<double>(Band);
  const double High = Band + 1 == Bands.size() ? 84 : Low + 8;
  int First = 1000;
  int Last = -1;
  for (const double Lat : {Low, High})
    for (const double Side : {0.0, 6.0}) {
      double Easting = 0;
      double Northing = 0;
      LatLongToUTMZone(Lat, 3 + Side, 31, TGeoEllipsoid::gelWGS84, Easting, Northing);
      // The equator is the southern bands' end, with the southern false northing.
      if (Lat == 0 && Low < 0) Northing = 10000000 - 1;
      constexpr double Slack = 25000;
      First = std::min(First, SquareOf(std::max(Northing - Slack, 0.0)));
      Last = std::max(Last, SquareOf(Northing + (Low < 0 && Lat == 0 ? 0 : Slack)));
    }
  return {First, Last};
}

TMGRSSquare ReadZoned(const TParts& Parts) {
  TMGRSSquare Found;
  Found.Zone = Parts.Zone[0] - '0';
  if (Parts.Zone.size() == 2) Found.Zone = Found.Zone * 10 + (Parts.Zone[1] - '0');
  if (Found.Zone < 1 || Found.Zone > 60)
    FailPosition("The UTM zone " + std::string(Parts.Zone) + " is not a number from 1 to 60.",
                 Parts.LetterColumn[0] - static_cast<int>(Parts.Zone.size()));
  const size_t Band = Bands.find(Parts.Letters[0]);
  if (Band == std::string_view::npos)
    FailPosition(std::string("There is no UTM band \"") + Parts.Letters[0] +
                     "\"; bands are C to X without I and O.",
                 Parts.LetterColumn[0]);
  if (Parts.Letters[0] == 'X' && (Found.Zone == 32 || Found.Zone == 34 || Found.Zone == 36))
    FailPosition("There is no zone " + std::string(Parts.Zone) + "X.", Parts.LetterColumn[0]);
  Found.South = Parts.Letters[0] < 'N';
  const size_t Column = ColumnLetters[static_cast<size_t>(Found.Zone % 3)].find(Parts.Letters[1]);
  if (Column == std::string_view::npos) FailSquare(Parts, 1);
  const auto [First, Last] = RowsOfBand(Band);
  int Row = First;
  while (Row <= Last && RowLetters[RowLetterAt(Found.Zone, Row)] != Parts.Letters[2]) ++Row;
  if (Row > Last) FailSquare(Parts, 2);
  Found.Easting = (static_cast<int>(Column) + 1) * Square;
  Found.Northing = Row * Square;
  return Found;
}

}  // namespace

std::string ToMGRS(double Lat, double Long, int Digits, TGeoEllipsoid Ellipsoid) {
  if (!(std::fabs(Lat) <= 90) || !std::isfinite(Long))
    throw EZAVGeoBasicsError("the position is not on the globe");
  const int Count = std::clamp(Digits, 0, MaxDigits);
  if (std::fabs(Long) > 180) Long = std::remainder(Long, 360);
  if (Long == 180) Long = -180;
  int Zone = 0;
  char Band = ' ';
  GeoToUTMZone(Lat, Long, Zone, Band);
  if (Zone == 0) return CapReference(Lat, Long, Count, Ellipsoid);
  if (Band >= 'N') Lat = std::max(Lat, 0.0);  // a hair south of the equator
  double Easting = 0;
  double Northing = 0;
  LatLongToUTMZone(Lat, Long, Zone, Ellipsoid, Easting, Northing);
  // Where the sum with the false northing rounds up to the equator's.
  if (Lat < 0) Northing = std::min(Northing, std::nextafter(10000000.0, 0.0));
  const auto Column = static_cast<size_t>(std::clamp(SquareOf(Easting), 1, 8) - 1);
  std::string Text = IntegerText(Zone) + Band + ' ';
  Text += ColumnLetters[static_cast<size_t>(Zone % 3)][Column];
  Text += RowLetters[RowLetterAt(Zone, SquareOf(Northing))];
  return WithDigits(Text, Easting, Northing, Count);
}

bool LooksLikeMGRS(std::string_view Text) noexcept {
  try {
    const auto Parts = PartsOf(Text);
    if (!Parts || IsUnit(*Parts)) return false;
    return !Parts->Zone.empty() ||
           std::string_view("ABYZ").find(Parts->Letters[0]) != std::string_view::npos;
  } catch (const std::exception&) {
    return false;  // no memory
  }
}

TMGRSSquare ParseMGRS(std::string_view Text) {
  const auto Parts = PartsOf(Text);
  if (!Parts) FailPosition("That is no grid reference, as 32T MS 70693 50563.", 1);
  const bool Cap = Parts->Zone.empty();
  if (Cap && std::string_view("ABYZ").find(Parts->Letters[0]) == std::string_view::npos)
    FailPosition("A grid reference begins with its zone, or near a pole with A, B, Y or Z.",
                 Parts->LetterColumn[0]);
  TMGRSSquare Found = Cap ? ReadCap(*Parts) : ReadZoned(*Parts);
  ReadDigits(*Parts, Found, detail::ColumnsOf(Text) + 1);
  return Found;
}

}  // namespace zav

// position_parse.cpp - the grammar of typed positions.
//
// The text is cut into numbers, units, letters and separators. A comma between two digits may be a
// decimal comma or a separator: both are tried, the decimal comma first.
// SPDX-License-Identifier: MIT
#include <geobasics/mgrs.h>
#include <geobasics/position_angles.h>
#include <geobasics/position_text.h>
#include <geobasics/position_tokens.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include <geobasics/ups.h>
#include <geobasics/utm.h>
#include <platform/base/text_format.h>

namespace zav {

namespace {

using namespace detail;

constexpr double MaxEasting = 1000000;
constexpr double MaxNorthing = 10000000;
constexpr size_t MaxTextLength = 1000;
constexpr const char* UtmExample =
    "UTM positions are a zone, the easting and the northing, as 32T 470693 5150563.";
constexpr const char* UpsExample =
    "UPS positions are A, B, Y or Z, the easting and the northing, as Z 2426773 1530125.";

// --- metres --------------------------------------------------------------------------------------

// Metres with "mE" or "mN" behind them, "E" or "N" on either side, or nothing.
struct TMetre {
  double Value = 0;
  TAxis Of = TAxis::Unknown;  // Latitude = northing
  int Column = 0;
};

TAxis AxisOfMetres(const TToken& Word) {
  const std::string& Text = Word.Text;
  if (Text == "me" || Text == "e" || Text == "easting") return TAxis::Longitude;
  if (Text == "mn" || Text == "n" || Text == "northing") return TAxis::Latitude;
  if (Text == "m") return TAxis::Unknown;
  FailPosition("\"" + Text + "\" has no meaning beside grid metres; write mE and mN.", Word.Column);
}

std::vector<TMetre> ReadMetres(const TTokens& All, const char* Example) {
  std::vector<TMetre> Found;
  const bool LettersFirst = !All.empty() && All[0].Kind == TSymbol::Word;
  TAxis Told = TAxis::Unknown;
  for (const TToken& Each : All) {
    if (Each.Kind == TSymbol::Number) {
      if (Each.Minus) FailPosition("Grid metres are not negative.", Each.Column);
      Found.push_back({Each.Value, std::exchange(Told, TAxis::Unknown), Each.Column});
    } else if (Each.Kind == TSymbol::Word) {
      const TAxis Axis = AxisOfMetres(Each);
      if (Axis == TAxis::Unknown) continue;  // "m" alone
      TAxis& Place = LettersFirst || Found.empty() ? Told : Found.back().Of;
      if (Place != TAxis::Unknown) FailPosition("Metres have one letter.", Each.Column);
      Place = Axis;
    } else if (Each.Kind != TSymbol::Separator) {
      FailPosition(Example, Each.Column);
    }
  }
  return Found;
}

// Easting and northing of what is left behind the zone. CanSwap: a number that is no easting may
// stand first.
void TakeMetres(const TTokens& All, const char* Example, bool CanSwap, int EndColumn,
                TWrittenPosition& Result, int& NorthingColumn) {
  std::vector<TMetre> Found = ReadMetres(All, Example);
  if (Found.size() != 2 || CountOf(All, TSymbol::Separator) > 1)
    FailPosition(Example, Found.size() > 2 ? Found[2].Column : EndColumn);
  if (Found[0].Of != TAxis::Unknown && Found[0].Of == Found[1].Of)
    FailPosition("Both numbers are eastings, or both are northings.", Found[1].Column);
  const bool Told = Found[0].Of != TAxis::Unknown || Found[1].Of != TAxis::Unknown;
  if (Found[0].Of == TAxis::Latitude || Found[1].Of == TAxis::Longitude ||
      (!Told && CanSwap && Found[0].Value >= MaxEasting && Found[1].Value < MaxEasting))
    std::swap(Found[0], Found[1]);
  Result.Easting = Found[0].Value;
  Result.Northing = Found[1].Value;
  NorthingColumn = Found[1].Column;
  if (!CanSwap) return;
  // No easting is a million or more.
  if (Result.Easting > MaxEasting)
    FailPosition(
        "The easting " + FormatFixedNumber(Result.Easting, 1, 0) + " is beyond 1000000 metres.",
        Found[0].Column);
  if (Result.Northing > MaxNorthing)
    FailPosition(
        "The northing " + FormatFixedNumber(Result.Northing, 1, 0) + " is beyond 10000000 metres.",
        Found[1].Column);
}

TToken TakeFirst(TTokens& All) {
  TToken First = std::move(All.front());
  All.erase(All.begin());
  return First;
}

bool StartsWith(const TTokens& All, std::string_view Word) {
  return !All.empty() && All[0].Kind == TSymbol::Word && All[0].Text == Word;
}

void SkipSeparator(TTokens& All) {
  if (!All.empty() && All[0].Kind == TSymbol::Separator) TakeFirst(All);
}

// --- UTM -----------------------------------------------------------------------------------------

bool IsBandLetter(const std::string& Word) {
  return Word.size() == 1 &&
         std::string_view("cdefghjklmnpqrstuvwx").find(Word[0]) != std::string_view::npos;
}

// Whether a word behind a number of one or two digits makes it a zone; an easting has more digits,
// so that "E" behind it is no band.
bool IsZoneWord(const TToken& Number, const TToken& Word) {
  if (Number.Text.size() > 2) return false;
  if (Word.Text.size() == 1 && !IsBandLetter(Word.Text))
    FailPosition(std::string("There is no UTM band \"") + static_cast<char>(Word.Text[0] & ~0x20) +
                     "\"; bands are C to X without I and O.",
                 Word.Column);
  return IsBandLetter(Word.Text) || Word.Text == "north" || Word.Text == "south";
}

// Takes the zone off the front: "32T", "32 north", "zone 32 south". 0 when there is none.
int TakeZone(TTokens& All, TToken& HemisphereOrBand) {
  while (StartsWith(All, "zone") || StartsWith(All, "utm")) TakeFirst(All);
  const bool ZoneFirst = All.size() > 1 && All[0].Kind == TSymbol::Number &&
                         (All[1].Kind == TSymbol::Word ? IsZoneWord(All[0], All[1])
                                                       : CountOf(All, TSymbol::Number) == 3);
  if (!ZoneFirst) return 0;
  const TToken Number = TakeFirst(All);
  if (Number.Signed || Number.HasFraction || Number.Value < 1 || Number.Value > 60)
    FailPosition("The UTM zone " + Number.Text + " is not a number from 1 to 60.", Number.Column);
  if (All[0].Kind != TSymbol::Word)
    FailPosition("The zone " + Number.Text + " lacks its band or hemisphere: write " + Number.Text +
                     "T, or " + Number.Text + " north.",
                 All[0].Column);
  HemisphereOrBand = TakeFirst(All);
  SkipSeparator(All);
  return static_cast<int>(Number.Value);
}

// Whether the band letter S can be meant: 32 to 40 degrees north.
bool LiesInBandS(double Northing) { return Northing >= 3520000 && Northing <= 4440000; }

// The hemisphere of the word. A band that the northing does not lie in is a slip of the pen; N and
// S are hemispheres, too.
bool SouthOf(const TToken& Word, TWrittenPosition& Result, int NorthingColumn) {
  if (Word.Text == "south" || Word.Text == "north") return Word.Text == "south";
  const std::string Zone = IntegerText(Result.Zone);
  if (Word.Text == "s") {
    const bool South = !LiesInBandS(Result.Northing);
    Result.Note = South ? Zone + "S was read as the southern hemisphere."
                        : Zone + "S was read as band S, 32 to 40 degrees north; write \"" + Zone +
                              " south\" for the southern hemisphere.";
    return South;
  }
  const bool South = Word.Text < "n";
  if (Word.Text == "n") return South;
  double Lat = 0;
  double Long = 0;
  UTMToLatLong(Result.Easting, Result.Northing, Result.Zone, South, TGeoEllipsoid::gelWGS84, Lat,
               Long);
  const auto Band = std::string_view("cdefghjklmnpqrstuvwx").find(Word.Text[0]);
  const double Low = -80 + 8.0 * static_cast<double>(Band);
  const double High = Word.Text == "x" ? 84 : Low + 8;
  constexpr double Slack = 0.3;  // of other ellipsoids and spheres
  if (!(Lat >= Low - Slack && Lat <= High + Slack)) {
    const char Letter = static_cast<char>(Word.Text[0] & ~0x20);
    FailPosition(std::string("The northing does not lie in band ") + Letter + ", " +
                     FormatFixedNumber(std::fabs(South ? High : Low), 1, 0) + " to " +
                     FormatFixedNumber(std::fabs(South ? Low : High), 1, 0) + " degrees " +
                     (South ? "south." : "north."),
                 NorthingColumn);
  }
  return South;
}

TWrittenPosition ReadUtm(TTokens All, int EndColumn) {
  TWrittenPosition Result;
  Result.Notation = TNotation::ntUTM;
  TToken Word{TSymbol::Word, 0, {}};
  Result.Zone = TakeZone(All, Word);
  int NorthingColumn = 0;
  TakeMetres(All, UtmExample, true, EndColumn, Result, NorthingColumn);
  if (Result.Zone != 0) Result.South = SouthOf(Word, Result, NorthingColumn);
  return Result;
}

// --- UPS -----------------------------------------------------------------------------------------

bool IsPoleLetter(const TToken& Token) {
  return Token.Kind == TSymbol::Word && Token.Text.size() == 1 &&
         std::string_view("abyz").find(Token.Text[0]) != std::string_view::npos;
}

bool BeginsUps(const TTokens& All) {
  return StartsWith(All, "ups") || (!All.empty() && IsPoleLetter(All[0])) ||
         StartsWith(All, "north") || StartsWith(All, "south");
}

TWrittenPosition ReadUps(TTokens All, int EndColumn) {
  TWrittenPosition Result;
  Result.Notation = TNotation::ntUPS;
  if (StartsWith(All, "ups")) TakeFirst(All);
  if (All.empty() || All[0].Kind != TSymbol::Word)
    FailPosition("UPS lacks its hemisphere: write A, B, Y or Z, or north or south.",
                 All.empty() ? EndColumn : All[0].Column);
  const TToken Word = TakeFirst(All);
  const std::string& Text = Word.Text;
  const bool Letter = IsPoleLetter(Word);
  if (!Letter && Text != "n" && Text != "s" && Text != "north" && Text != "south")
    FailPosition("\"" + Text + "\" is no hemisphere: write A, B, Y or Z, or north or south.",
                 Word.Column);
  Result.South = Letter ? Text < "c" : Text[0] == 's';
  SkipSeparator(All);
  int NorthingColumn = 0;
  TakeMetres(All, UpsExample, false, EndColumn, Result, NorthingColumn);
  const double Off = std::hypot(Result.Easting - 2000000, Result.Northing - 2000000);
  if (!(Off <= 1500000))
    FailPosition("That is further than 1500 km from the pole, where UPS is not used.",
                 NorthingColumn);
  const bool East = Result.Easting >= 2000000;
  if (Letter && (Text == "b" || Text == "z") != East && std::fabs(Result.Easting - 2000000) > 1)
    FailPosition(std::string("The easting does not lie in ") + static_cast<char>(Text[0] & ~0x20) +
                     ": A and Y are below 2000000.",
                 Word.Column);
  return Result;
}

// --- the whole text ------------------------------------------------------------------------------

// No angle has four digits, and every easting has.
bool HoldsMetres(const TTokens& All) {
  return std::any_of(All.begin(), All.end(), [](const TToken& Each) {
    return Each.Kind == TSymbol::Number && Each.Value >= 1000;
  });
}

TWrittenPosition ReadTokens(const TTokens& All, int EndColumn) {
  if (HoldsMetres(All)) return BeginsUps(All) ? ReadUps(All, EndColumn) : ReadUtm(All, EndColumn);
  TWrittenPosition Result;
  Result.Degrees = ReadTwoAngles(All, EndColumn, Result.Notation);
  return Result;
}

TWrittenPosition ReadMGRS(std::string_view Text) {
  const TMGRSSquare Square = ParseMGRS(Text);
  TWrittenPosition Result;
  Result.Notation = TNotation::ntMGRS;
  Result.Zone = Square.Zone;
  Result.South = Square.South;
  Result.Easting = Square.Easting + Square.Size / 2;
  Result.Northing = Square.Northing + Square.Size / 2;
  return Result;
}

bool IsEmpty(std::string_view Text) {
  return Text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

void CheckLength(std::string_view Text) {
  if (Text.size() > MaxTextLength)
    FailPosition("The text is too long for a position.", static_cast<int>(MaxTextLength) + 1);
}

double ParseAngle(std::string_view Text, TAxis Of) {
  CheckLength(Text);
  if (IsEmpty(Text)) FailPosition("Type an angle, as 10.5 or 10 30 E.", 1);
  return ReadOneAngle(CutPosition(Text, true), Of, ColumnsOf(Text) + 1);
}

}  // namespace

TWrittenPosition ParsePositionText(std::string_view Text) {
  CheckLength(Text);
  if (IsEmpty(Text)) FailPosition("Type a position, as 47.5 8.25 or 32T 470693 5150563.", 1);
  if (LooksLikeMGRS(Text)) return ReadMGRS(Text);
  const int EndColumn = ColumnsOf(Text) + 1;
  if (Text.find(',') == std::string_view::npos)
    return ReadTokens(CutPosition(Text, false), EndColumn);
  std::optional<EPositionTextError> First;
  try {
    return ReadTokens(CutPosition(Text, true), EndColumn);
  } catch (const EPositionTextError& Error) {
    First = Error;
  }
  try {
    return ReadTokens(CutPosition(Text, false), EndColumn);
  } catch (const EPositionTextError&) {
    throw *First;
  }
}

std::optional<TGeoPosition> DegreesOf(const TWrittenPosition& Typed, TGeoEllipsoid Ellipsoid) {
  if (Typed.Notation <= TNotation::ntDegreesMinutesSeconds) return Typed.Degrees;
  const bool Ups = Typed.Notation == TNotation::ntUPS ||
                   (Typed.Notation == TNotation::ntMGRS && Typed.Zone == 0);
  TGeoPosition Found;
  if (Ups) {
    UPSToLatLong(Typed.Easting, Typed.Northing, Typed.South, Ellipsoid, Found.Lat, Found.Long);
    return Found;
  }
  if (Typed.Zone == 0) return std::nullopt;
  UTMToLatLong(Typed.Easting, Typed.Northing, Typed.Zone, Typed.South, Ellipsoid, Found.Lat,
               Found.Long);
  // Beyond its limits the grid soon means nothing; a degree is for points beside its edge.
  if (!(Found.Lat >= -81 && Found.Lat <= 85)) return std::nullopt;
  Found.Long = std::remainder(Found.Long, 360);
  return Found;
}

TGeoPosition PositionFromText(std::string_view Text, TGeoEllipsoid Ellipsoid) {
  const TWrittenPosition Written = ParsePositionText(Text);
  const auto Found = DegreesOf(Written, Ellipsoid);
  if (Found) return *Found;
  if (Written.Zone == 0)
    FailPosition("The UTM zone is missing: write it in front, as 32T 470693 5150563.", 1);
  FailPosition("That lies outside UTM, 80 degrees south to 84 degrees north.", 1);
}

double LatitudeFromText(std::string_view Text) { return ParseAngle(Text, TAxis::Latitude); }
double LongitudeFromText(std::string_view Text) { return ParseAngle(Text, TAxis::Longitude); }

}  // namespace zav

// position_parser.cpp - a position as a person types it.
//
// The text is cut into numbers, units, letters and separators. A comma between two digits may be a
// decimal comma or a separator: both are tried, the decimal comma first.
// SPDX-License-Identifier: MIT
#include "position_parser.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iterator>
#include <utility>
#include <vector>

#include <QCoreApplication>
#include <QHash>

#include <geobasics/utm.h>

#include "position_lexer.h"

namespace zav {

namespace {

using Symbol = PositionSymbol;
using Token = PositionToken;
using Tokens = PositionTokens;

constexpr double MaxEasting = 1000000;
constexpr double MaxNorthing = 10000000;
constexpr int MaxTextLength = 1000;

QString Tr(const char* Text) { return QCoreApplication::translate("PositionParser", Text); }

// --- angles --------------------------------------------------------------------------------------

enum class Axis { Unknown, Latitude, Longitude };

struct Angle {
  double Degrees = 0;
  Axis Of = Axis::Unknown;
};

struct Side {
  Axis Of;
  bool Negative;
};

std::optional<Side> SideOf(const QString& Word) {
  static const QHash<QString, Side> Sides{
      {"n", {Axis::Latitude, false}},  {"north", {Axis::Latitude, false}},
      {"s", {Axis::Latitude, true}},   {"south", {Axis::Latitude, true}},
      {"e", {Axis::Longitude, false}}, {"east", {Axis::Longitude, false}},
      {"w", {Axis::Longitude, true}},  {"west", {Axis::Longitude, true}}};
  const auto Found = Sides.find(Word);
  if (Found != Sides.end()) return *Found;
  return std::nullopt;
}

Side RequireSide(const QString& Word) {
  if (const auto Found = SideOf(Word)) return *Found;
  if (Word == QLatin1String("o"))
    FailPosition(Tr("\"O\" is east in German and west in French and Spanish; write E or W."));
  FailPosition(Tr("\"%1\" has no meaning in a position; directions are N, S, E and W.").arg(Word));
}

// The unit that a number is in: the one of its symbol, else the one after the number before.
int UnitOf(const Tokens& Group, size_t Index, int Before) {
  if (Index + 1 < Group.size()) {
    if (Group[Index + 1].Kind == Symbol::Degree) return 0;
    if (Group[Index + 1].Kind == Symbol::Minute) return 1;
    if (Group[Index + 1].Kind == Symbol::Second) return 2;
  }
  return Before + 1;
}

// Degrees, minutes and seconds of a group of tokens.
class AngleReader {
 public:
  Angle Read(const Tokens& Group) {
    for (size_t i = 0; i < Group.size(); ++i) {
      if (Group[i].Kind == Symbol::Number) {
        TakeNumber(Group, i);
      } else if (Group[i].Kind == Symbol::Word) {
        TakeSide(RequireSide(Group[i].Text), i == 0 || i + 1 == Group.size());
      } else if (i == 0 || Group[i - 1].Kind != Symbol::Number) {
        FailPosition(Tr("A sign for degrees, minutes or seconds has no number before it."));
      }
    }
    if (FUnit < 0) FailPosition(Tr("A coordinate has no number."));
    return Result();
  }

 private:
  void TakeNumber(const Tokens& Group, size_t Index) {
    const Token& Number = Group[Index];
    const int Unit = UnitOf(Group, Index, FUnit);
    if (Unit <= FUnit || Unit > 2 || (FUnit < 0 && Unit > 0))
      FailPosition(
          Tr("A coordinate is degrees, then minutes, then seconds, as 47\u00b0 30' 15\"."));
    if (FFraction) FailPosition(Tr("Only the last number of a coordinate may have decimals."));
    if (Number.Signed && FUnit >= 0) FailPosition(Tr("Only the degrees may have a sign."));
    if (Unit > 0 && Number.Value >= 60)
      FailPosition(Tr("Minutes and seconds are below 60, not %1.").arg(Number.Text));
    FSigned |= Number.Signed;
    FMinus |= Number.Minus;
    FFraction = Number.HasFraction;
    FValues[static_cast<size_t>(Unit)] = Number.Value;
    FUnit = Unit;
  }

  void TakeSide(Side Side, bool AtEnd) {
    if (FSide.has_value() || !AtEnd)
      FailPosition(Tr("A coordinate has one letter, before or after it."));
    FSide = Side;
  }

  Angle Result() const {
    if (FSide && FSigned)
      FailPosition(Tr("A coordinate has a sign and a letter; leave one of them out."));
    // One division at the end, in more digits than a double has, so that no digit is lost.
    const long double Seconds = static_cast<long double>(FValues[0]) * 3600 +
                                static_cast<long double>(FValues[1]) * 60 + FValues[2];
    const double Degrees = FUnit == 0 ? FValues[0] : static_cast<double>(Seconds / 3600);
    const bool Negative = FMinus || (FSide && FSide->Negative);
    return {Negative ? -Degrees : Degrees, FSide ? FSide->Of : Axis::Unknown};
  }

  std::array<double, 3> FValues{};
  int FUnit = -1;  // of the last number
  bool FFraction = false;
  bool FSigned = false;
  bool FMinus = false;
  std::optional<Side> FSide;
};

void CheckRange(double Degrees, Axis Of) {
  const double Most = Of == Axis::Latitude ? 90 : 360;
  if (std::abs(Degrees) <= Most) return;
  if (Of == Axis::Latitude)
    FailPosition(
        Tr("The latitude %1 is beyond 90 degrees. The latitude comes first, unless letters tell, "
           "as in 8.25 E 47.5 N.")
            .arg(Degrees));
  FailPosition(Tr("The longitude %1 is beyond 360 degrees.").arg(Degrees));
}

// --- two coordinates -----------------------------------------------------------------------------

size_t CountOf(const Tokens& All, Symbol Kind) {
  return static_cast<size_t>(
      std::count_if(All.begin(), All.end(), [=](const Token& Each) { return Each.Kind == Kind; }));
}

// Where the second coordinate begins, by what tells it: a separator, letters, degree signs, or as
// many numbers on either side. Separators are taken out.
size_t SplitPlace(Tokens& All) {
  const auto Is = [](Symbol Kind) {
    return [Kind](const Token& Each) { return Each.Kind == Kind; };
  };
  if (CountOf(All, Symbol::Separator) > 1)
    FailPosition(
        Tr("There are too many commas. Put a semicolon or a blank between the two coordinates."));
  const auto Separator = std::find_if(All.begin(), All.end(), Is(Symbol::Separator));
  if (Separator != All.end()) return static_cast<size_t>(All.erase(Separator) - All.begin());
  const auto Letter = std::find_if(All.begin(), All.end(), Is(Symbol::Word));
  if (Letter == All.begin() && !All.empty()) {
    const auto Second = std::find_if(All.begin() + 1, All.end(), Is(Symbol::Word));
    if (Second != All.end()) return static_cast<size_t>(Second - All.begin());
  } else if (Letter != All.end() && Letter + 1 != All.end()) {
    return static_cast<size_t>(Letter + 1 - All.begin());
  }
  if (CountOf(All, Symbol::Degree) == 2) {
    const auto First = std::find_if(All.begin(), All.end(), Is(Symbol::Degree));
    const auto Second = std::find_if(First + 1, All.end(), Is(Symbol::Degree));
    return static_cast<size_t>(Second - All.begin()) - 1;
  }
  const size_t Numbers = CountOf(All, Symbol::Number);
  if (Numbers % 2 != 0 || Numbers == 0)
    FailPosition(Numbers == 1
                     ? Tr("That is one coordinate; a position has two, as 47.5 8.25.")
                     : Tr("It is not clear where the second coordinate begins. Put a semicolon "
                          "between them, as 47 30; 8.25."));
  size_t Place = 0;
  for (size_t Seen = 0; Seen <= Numbers / 2; ++Place)
    if (All[Place].Kind == Symbol::Number) ++Seen;
  return Place - 1;
}

// "47d 30 min": a letter that is a band in UTM.
void TakeDegreeLetters(Tokens& All) {
  for (Token& Each : All)
    if (Each.Kind == Symbol::Word && Each.Text == QLatin1String("d")) Each.Kind = Symbol::Degree;
}

CalibPosition ReadAngles(Tokens All) {
  TakeDegreeLetters(All);
  const size_t Place = SplitPlace(All);
  const auto Middle = All.begin() + static_cast<std::ptrdiff_t>(Place);
  Angle First = AngleReader().Read(Tokens(All.begin(), Middle));
  Angle Second = AngleReader().Read(Tokens(Middle, All.end()));
  if (First.Of != Axis::Unknown && First.Of == Second.Of)
    FailPosition(First.Of == Axis::Latitude ? Tr("Both coordinates are latitudes (N or S).")
                                            : Tr("Both coordinates are longitudes (E or W)."));
  if (First.Of == Axis::Longitude || Second.Of == Axis::Latitude) std::swap(First, Second);
  CheckRange(First.Degrees, Axis::Latitude);
  CheckRange(Second.Degrees, Axis::Longitude);
  return CalibPosition::OfDegrees(First.Degrees, Second.Degrees);
}

// --- UTM -----------------------------------------------------------------------------------------

bool IsBandLetter(const QString& Word) {
  return Word.size() == 1 && QStringLiteral("cdefghjklmnpqrstuvwx").contains(Word);
}

// What stands before the two coordinates: "32T", "32 north", "zone 32 south".
class ZoneReader {
 public:
  // Takes the zone off the front of the tokens.
  explicit ZoneReader(Tokens& All) : FAll(All) {}

  int Read(QString& HemisphereOrBand) {
    if (!FAll.empty() && FAll[0].Kind == Symbol::Word &&
        (FAll[0].Text == QLatin1String("zone") || FAll[0].Text == QLatin1String("utm")))
      TakeFirst();
    const bool ZoneFirst = FAll.size() > 1 && FAll[0].Kind == Symbol::Number &&
                           (FAll[1].Kind == Symbol::Word ? IsZoneWord(FAll[1].Text)
                                                         : CountOf(FAll, Symbol::Number) == 3);
    if (!ZoneFirst) return 0;
    const Token Number = TakeFirst();
    if (Number.Signed || Number.HasFraction || Number.Value < 1 || Number.Value > 60)
      FailPosition(Tr("The UTM zone %1 is not a number from 1 to 60.").arg(Number.Text));
    if (FAll[0].Kind == Symbol::Word) HemisphereOrBand = TakeFirst().Text;
    if (HemisphereOrBand.isEmpty())
      FailPosition(
          Tr("The zone %1 lacks its band or hemisphere: write %1T, or %1 north.").arg(Number.Text));
    if (!FAll.empty() && FAll[0].Kind == Symbol::Separator) TakeFirst();
    return static_cast<int>(Number.Value);
  }

 private:
  // A zone has one or two digits, an easting has more, so that "E" behind it is no band.
  bool IsZoneWord(const QString& Word) const {
    if (FAll[0].Text.size() > 2) return false;
    if (Word.size() == 1 && !IsBandLetter(Word))
      FailPosition(
          Tr("There is no UTM band \"%1\"; bands are C to X without I and O.").arg(Word.toUpper()));
    return IsBandLetter(Word) || Word == QLatin1String("north") || Word == QLatin1String("south");
  }

  Token TakeFirst() {
    Token First = std::move(FAll.front());
    FAll.erase(FAll.begin());
    return First;
  }

  Tokens& FAll;
};

// Metres with "mE" or "mN" behind them or not.
struct Metre {
  double Value = 0;
  Axis Of = Axis::Unknown;  // Latitude = northing
};

std::vector<Metre> ReadMetres(const Tokens& All) {
  std::vector<Metre> Found;
  for (const Token& Each : All) {
    if (Each.Kind == Symbol::Number) {
      if (Each.Minus) FailPosition(Tr("UTM metres are not negative."));
      Found.push_back({Each.Value});
    } else if (Each.Kind == Symbol::Word && !Found.empty()) {
      if (Each.Text == QLatin1String("me") || Each.Text == QLatin1String("e"))
        Found.back().Of = Axis::Longitude;
      else if (Each.Text == QLatin1String("mn") || Each.Text == QLatin1String("n"))
        Found.back().Of = Axis::Latitude;
      else if (Each.Text != QLatin1String("m"))
        FailPosition(
            Tr("\"%1\" has no meaning behind UTM metres; write mE and mN.").arg(Each.Text));
    } else if (Each.Kind != Symbol::Separator) {
      FailPosition(
          Tr("UTM positions are a zone, the easting and the northing, as 32T 470693 5150563."));
    }
  }
  return Found;
}

// Whether the band letter S can be meant: 32 to 40 degrees north.
bool LiesInBandS(double Northing) { return Northing >= 3520000 && Northing <= 4440000; }

TypedPosition ReadUtm(Tokens All) {
  QString Band;
  const int Zone = ZoneReader(All).Read(Band);
  std::vector<Metre> Found = ReadMetres(All);
  if (Found.size() != 2 || CountOf(All, Symbol::Separator) > 1)
    FailPosition(
        Tr("UTM positions are a zone, the easting and the northing, as 32T 470693 5150563."));
  if (Found[0].Of != Axis::Unknown && Found[0].Of == Found[1].Of)
    FailPosition(Tr("Both numbers are eastings, or both are northings."));
  // The easting comes first; no easting is a million or more.
  const bool Told = Found[0].Of != Axis::Unknown || Found[1].Of != Axis::Unknown;
  if (Found[0].Of == Axis::Latitude || Found[1].Of == Axis::Longitude ||
      (!Told && Found[0].Value >= MaxEasting && Found[1].Value < MaxEasting))
    std::swap(Found[0], Found[1]);
  const double Easting = Found[0].Value;
  const double Northing = Found[1].Value;
  if (Easting > MaxEasting)
    FailPosition(Tr("The easting %1 is beyond 1000000 metres.").arg(Easting, 0, 'f', 0));
  if (Northing > MaxNorthing)
    FailPosition(Tr("The northing %1 is beyond 10000000 metres.").arg(Northing, 0, 'f', 0));

  TypedPosition Result;
  bool South = Band == QLatin1String("south") || (Band.size() == 1 && Band < QLatin1String("n"));
  if (Band == QLatin1String("s")) {
    South = !LiesInBandS(Northing);
    Result.Note = South ? Tr("%1S was read as the southern hemisphere.").arg(Zone)
                        : Tr("%1S was read as band S, 32 to 40 degrees north; write \"%1 south\" "
                             "for the southern hemisphere.")
                              .arg(Zone);
  }
  Result.Position = CalibPosition::OfUtm(Northing, Easting, Zone, South);
  return Result;
}

// --- the whole text ------------------------------------------------------------------------------

QString Prepared(const QString& Text) {
  if (Text.size() > MaxTextLength) FailPosition(Tr("The text is too long for a position."));
  return QString(Text).replace(QChar(0x2212), QLatin1Char('-')).trimmed();
}

// No angle has four digits, and every easting has.
bool HoldsMetres(const Tokens& All) {
  return std::any_of(All.begin(), All.end(), [](const Token& Each) {
    return Each.Kind == Symbol::Number && Each.Value >= 1000;
  });
}

TypedPosition ReadTokens(const Tokens& All) {
  if (HoldsMetres(All)) return ReadUtm(All);
  TypedPosition Result;
  Result.Position = ReadAngles(All);
  return Result;
}

QString FixedNumber(double Value) {
  char Buffer[400];
  const auto [End, Error] =
      std::to_chars(std::begin(Buffer), std::end(Buffer), Value, std::chars_format::fixed);
  return QString::fromLatin1(Buffer, static_cast<qsizetype>(End - Buffer));
}

}  // namespace

TypedPosition ParseTypedPosition(const QString& Text) {
  TypedPosition Refused;
  try {
    const QString Clean = Prepared(Text);
    if (Clean.isEmpty()) FailPosition(Tr("Type a position, as 47.5 8.25 or 32T 470693 5150563."));
    if (!Clean.contains(QLatin1Char(','))) return ReadTokens(CutPosition(Clean, false));
    try {
      return ReadTokens(CutPosition(Clean, true));
    } catch (const EPositionProblem& Problem) {
      Refused.Problem = Problem.Text;
    }
    return ReadTokens(CutPosition(Clean, false));
  } catch (const EPositionProblem& Problem) {
    if (Refused.Problem.isEmpty()) Refused.Problem = Problem.Text;
  }
  return Refused;
}

TypedAngle ParseTypedAngle(const QString& Text, TGratLineKind Kind) {
  const bool Meridian = Kind == TGratLineKind::gtlMeridian;
  const Axis Of = Meridian ? Axis::Longitude : Axis::Latitude;
  try {
    const QString Clean = Prepared(Text);
    if (Clean.isEmpty()) FailPosition(Tr("Type an angle, as 10.5 or 10 30 E."));
    Tokens All = CutPosition(Clean, true);
    TakeDegreeLetters(All);
    if (CountOf(All, Symbol::Separator) > 0)
      FailPosition(Tr("One angle is wanted, as 10.5 or 10 30 E."));
    const Angle Found = AngleReader().Read(All);
    if (Found.Of != Axis::Unknown && Found.Of != Of)
      FailPosition(Meridian ? Tr("A meridian lies east or west (E, W).")
                            : Tr("A parallel lies north or south (N, S)."));
    if (std::abs(Found.Degrees) > (Meridian ? 360 : 90))
      FailPosition(Meridian ? Tr("The longitude of a meridian is at most 360 degrees.")
                            : Tr("The latitude of a parallel is at most 90 degrees."));
    return {Found.Degrees, {}};
  } catch (const EPositionProblem& Problem) {
    return {std::nullopt, Problem.Text};
  }
}

QString TypedText(const CalibPosition& Position) {
  if (!Position.IsUtm)
    return FixedNumber(Position.Degrees.Latit) + QStringLiteral(", ") +
           FixedNumber(Position.Degrees.Longit);
  QString Text = FixedNumber(Position.Metres.Easting) + QStringLiteral(" mE ") +
                 FixedNumber(Position.Metres.Northing) + QStringLiteral(" mN");
  if (Position.Zone == 0) return Text;
  QString Letter;
  if (const auto Degrees = DegreesOf(Position, {})) {
    const std::string ZoneAndBand = GeoToUTMZone(Degrees->Latit, 0);
    if (!ZoneAndBand.empty()) Letter = QLatin1Char(ZoneAndBand.back());
  }
  // On the equator the letter could tell the other hemisphere.
  const bool LetterIsSouth = Letter < QLatin1String("N");
  if (Letter.isEmpty() || LetterIsSouth != Position.South)
    Letter = Position.South ? QStringLiteral(" south") : QStringLiteral(" north");
  return QString::number(Position.Zone) + Letter + QLatin1Char(' ') + Text;
}

}  // namespace zav

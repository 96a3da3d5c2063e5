// position_angles.cpp - degrees, minutes and seconds with signs or letters.
// SPDX-License-Identifier: MIT
#include <geobasics/position_angles.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include <platform/base/text_format.h>

namespace zav::detail {

namespace {

struct TSide {
  std::string_view Word;
  TAxis Of;
  bool Negative;
  bool Names = false;  // "lat": tells the axis, leaves the sign to the number
};

constexpr TSide Sides[] = {
    {"n", TAxis::Latitude, false},          {"north", TAxis::Latitude, false},
    {"s", TAxis::Latitude, true},           {"south", TAxis::Latitude, true},
    {"e", TAxis::Longitude, false},         {"east", TAxis::Longitude, false},
    {"w", TAxis::Longitude, true},          {"west", TAxis::Longitude, true},
    {"lat", TAxis::Latitude, false, true},  {"latitude", TAxis::Latitude, false, true},
    {"lon", TAxis::Longitude, false, true}, {"long", TAxis::Longitude, false, true},
    {"lng", TAxis::Longitude, false, true}, {"longitude", TAxis::Longitude, false, true},
};

const TSide& SideOf(const TToken& Word) {
  for (const TSide& Each : Sides)
    if (Each.Word == Word.Text) return Each;
  if (Word.Text == "o")
    FailPosition("\"O\" is east in German and west in French and Spanish; write E or W.",
                 Word.Column);
  FailPosition("\"" + Word.Text + "\" has no meaning in a position; directions are N, S, E and W.",
               Word.Column);
}

struct TAngle {
  double Degrees = 0;
  TAxis Of = TAxis::Unknown;
  int Unit = 0;  // of the last number: 0 degrees, 1 minutes, 2 seconds
  int Column = 0;
};

// The unit that a number is in: the one of its symbol, else the one after the number before.
int UnitOf(const TTokens& Group, size_t Index, int Before) {
  if (Index + 1 < Group.size()) {
    if (Group[Index + 1].Kind == TSymbol::Degree) return 0;
    if (Group[Index + 1].Kind == TSymbol::Minute) return 1;
    if (Group[Index + 1].Kind == TSymbol::Second) return 2;
  }
  return Before + 1;
}

// Degrees, minutes and seconds of a group of tokens.
class TAngleReader {
 public:
  TAngle Read(const TTokens& Group, int EndColumn) {
    for (size_t i = 0; i < Group.size(); ++i) {
      if (Group[i].Kind == TSymbol::Number) {
        TakeNumber(Group, i);
      } else if (Group[i].Kind == TSymbol::Word) {
        TakeSide(Group[i], i == 0, i + 1 == Group.size());
      } else if (i == 0 || Group[i - 1].Kind != TSymbol::Number) {
        FailPosition("A sign for degrees, minutes or seconds has no number before it.",
                     Group[i].Column);
      }
    }
    if (FUnit < 0)
      FailPosition("A coordinate has no number.", Group.empty() ? EndColumn : Group[0].Column);
    return Result(Group);
  }

 private:
  void TakeNumber(const TTokens& Group, size_t Index) {
    const TToken& Number = Group[Index];
    const int Unit = UnitOf(Group, Index, FUnit);
    if (Unit <= FUnit || Unit > 2 || (FUnit < 0 && Unit > 0))
      FailPosition("A coordinate is degrees, then minutes, then seconds, as 47\xC2\xB0 30' 15\".",
                   Number.Column);
    if (FFraction)
      FailPosition("Only the last number of a coordinate may have decimals.", Number.Column);
    if (Number.Signed && FUnit >= 0)
      FailPosition("Only the degrees may have a sign.", Number.Column);
    if (Unit > 0 && Number.Value >= 60)
      FailPosition("Minutes and seconds are below 60, not " + Number.Text + ".", Number.Column);
    FSigned |= Number.Signed;
    FMinus |= Number.Minus;
    FFraction = Number.HasFraction;
    FValues[static_cast<size_t>(Unit)] = Number.Value;
    FUnit = Unit;
  }

  void TakeSide(const TToken& Word, bool AtStart, bool AtEnd) {
    const TSide& Side = SideOf(Word);
    if (FSide != nullptr || (!AtStart && (!AtEnd || Side.Names)))
      FailPosition("A coordinate has one letter, before or after it.", Word.Column);
    FSide = &Side;
  }

  TAngle Result(const TTokens& Group) const {
    const int Column = Group[0].Column;
    if (FSide != nullptr && !FSide->Names && FSigned)
      FailPosition("A coordinate has a sign and a letter; leave one of them out.", Column);
    // One division at the end, in more digits than a double has, so that no digit is lost.
    const long double Seconds = static_cast<long double>(FValues[0]) * 3600 +
                                static_cast<long double>(FValues[1]) * 60 + FValues[2];
    const double Degrees = FUnit == 0 ? FValues[0] : static_cast<double>(Seconds / 3600);
    const bool Negative = FMinus || (FSide != nullptr && FSide->Negative);
    return {Negative ? -Degrees : Degrees, FSide != nullptr ? FSide->Of : TAxis::Unknown, FUnit,
            Column};
  }

  std::array<double, 3> FValues{};
  int FUnit = -1;  // of the last number
  bool FFraction = false;
  bool FSigned = false;
  bool FMinus = false;
  const TSide* FSide = nullptr;
};

void CheckRange(const TAngle& Angle, TAxis Of) {
  const double Most = Of == TAxis::Latitude ? 90 : 360;
  if (std::abs(Angle.Degrees) <= Most) return;
  const std::string Value = ShortestNumber(Angle.Degrees);
  if (Of == TAxis::Latitude)
    FailPosition("The latitude " + Value +
                     " is beyond 90 degrees. The latitude comes first, unless letters tell, as in "
                     "8.25 E 47.5 N.",
                 Angle.Column);
  FailPosition("The longitude " + Value + " is beyond 360 degrees.", Angle.Column);
}

// "47d 30 min": a letter that is a band in UTM.
void TakeDegreeLetters(TTokens& All) {
  for (TToken& Each : All)
    if (Each.Kind == TSymbol::Word && Each.Text == "d") Each.Kind = TSymbol::Degree;
}

// Where the second coordinate begins, by what tells it: a separator, letters, degree signs, or as
// many numbers on either side. Separators are taken out.
size_t SplitPlace(TTokens& All, int EndColumn) {
  const auto Is = [](TSymbol Kind) {
    return [Kind](const TToken& Each) { return Each.Kind == Kind; };
  };
  const auto Separator = std::find_if(All.begin(), All.end(), Is(TSymbol::Separator));
  if (Separator != All.end()) {
    const auto More = std::find_if(Separator + 1, All.end(), Is(TSymbol::Separator));
    if (More != All.end())
      FailPosition(
          "There are too many commas. Put a semicolon or a blank between the two coordinates.",
          More->Column);
    return static_cast<size_t>(All.erase(Separator) - All.begin());
  }
  const auto Letter = std::find_if(All.begin(), All.end(), Is(TSymbol::Word));
  if (Letter == All.begin() && !All.empty()) {
    const auto Second = std::find_if(All.begin() + 1, All.end(), Is(TSymbol::Word));
    if (Second != All.end()) return static_cast<size_t>(Second - All.begin());
  } else if (Letter != All.end() && Letter + 1 != All.end()) {
    return static_cast<size_t>(Letter + 1 - All.begin());
  }
  if (CountOf(All, TSymbol::Degree) == 2) {
    const auto First = std::find_if(All.begin(), All.end(), Is(TSymbol::Degree));
    const auto Second = std::find_if(First + 1, All.end(), Is(TSymbol::Degree));
    return static_cast<size_t>(Second - All.begin()) - 1;
  }
  const size_t Numbers = CountOf(All, TSymbol::Number);
  if (Numbers == 1)
    FailPosition("That is one coordinate; a position has two, as 47.5 8.25.", EndColumn);
  // One degree sign among many numbers: "12 deg 30" is half a position.
  const bool HalfTold = CountOf(All, TSymbol::Degree) != 0 && All[0].Kind == TSymbol::Number;
  if (Numbers % 2 != 0 || Numbers == 0 || HalfTold)
    FailPosition(
        "It is not clear where the second coordinate begins. Put a semicolon between them, as 47 "
        "30; 8.25.",
        EndColumn);
  size_t Place = 0;
  for (size_t Seen = 0; Seen <= Numbers / 2; ++Place)
    if (All[Place].Kind == TSymbol::Number) ++Seen;
  return Place - 1;
}

}  // namespace

size_t CountOf(const TTokens& All, TSymbol Kind) {
  return static_cast<size_t>(
      std::count_if(All.begin(), All.end(), [=](const TToken& Each) { return Each.Kind == Kind; }));
}

TGeoPosition ReadTwoAngles(TTokens All, int EndColumn, TNotation& Notation) {
  TakeDegreeLetters(All);
  const auto Middle = All.begin() + static_cast<std::ptrdiff_t>(SplitPlace(All, EndColumn));
  TAngle First = TAngleReader().Read(TTokens(All.begin(), Middle), EndColumn);
  TAngle Second = TAngleReader().Read(TTokens(Middle, All.end()), EndColumn);
  if (First.Of != TAxis::Unknown && First.Of == Second.Of)
    FailPosition(First.Of == TAxis::Latitude ? "Both coordinates are latitudes (N or S)."
                                             : "Both coordinates are longitudes (E or W).",
                 Second.Column);
  if (First.Of == TAxis::Longitude || Second.Of == TAxis::Latitude) std::swap(First, Second);
  CheckRange(First, TAxis::Latitude);
  CheckRange(Second, TAxis::Longitude);
  Notation = static_cast<TNotation>(std::max(First.Unit, Second.Unit));
  return {First.Degrees, Second.Degrees};
}

double ReadOneAngle(TTokens All, TAxis Of, int EndColumn) {
  TakeDegreeLetters(All);
  const auto Separator = std::find_if(
      All.begin(), All.end(), [](const TToken& Each) { return Each.Kind == TSymbol::Separator; });
  if (Separator != All.end())
    FailPosition("One angle is wanted, as 10.5 or 10 30 E.", Separator->Column);
  const TAngle Found = TAngleReader().Read(All, EndColumn);
  const bool Meridian = Of == TAxis::Longitude;
  if (Found.Of != TAxis::Unknown && Found.Of != Of)
    FailPosition(Meridian ? "A meridian lies east or west (E, W)."
                          : "A parallel lies north or south (N, S).",
                 Found.Column);
  if (std::abs(Found.Degrees) > (Meridian ? 360 : 90))
    FailPosition(Meridian ? "The longitude of a meridian is at most 360 degrees."
                          : "The latitude of a parallel is at most 90 degrees.",
                 Found.Column);
  return Found.Degrees;
}

}  // namespace zav::detail

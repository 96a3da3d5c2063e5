// calib_warnings.cpp - what a person should look at before trusting a calibration, in plain words.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cmath>

#include <QLocale>
#include <QStringList>

#include <platform/base/text_format.h>

#include "calib_document.h"
#include "calib_figures.h"
#include "common/calibration_doubts.h"
#include "map_source.h"

namespace zav {

namespace {

using enum CalibWarningKind;

// How often an error of one pixel may grow towards a corner before it is worth a word.
constexpr double MuchGrowth = 3;
// A point that would be as near as this when typed otherwise was mistyped.
constexpr double MistypedPixels = 5;
// The calibration file stores degrees to five decimals, metres on a meridian.
constexpr double StoredStep = 1.11;

QString Number(double Value, int Decimals) { return QLocale().toString(Value, 'f', Decimals); }

class Collector {
 public:
  Collector(const CalibState& State, const CalibFit& Fit) : FState(State), FFit(Fit) {}

  std::vector<CalibWarning> All() {
    if (FState.Model == TCalibModel::cmUndefined) {
      Add(NoModel,
          CalibDocument::tr(
              "No model is chosen, so the map tells no positions. Choose one; \"%1\" needs "
              "the fewest points.")
              .arg(ModelName(TCalibModel::cmEquiRect)));
      return std::move(FWarnings);
    }
    CheckZones();
    for (const TDoubt& Doubt : FindDoubts(FFit.Calibration, FFit.Table)) Tell(Doubt);
    if (FState.Model == TCalibModel::cmParabolicIp) CheckLines();
    CheckCorners();
    CheckStorage();
    std::stable_sort(FWarnings.begin(), FWarnings.end(),
                     [](const CalibWarning& A, const CalibWarning& B) { return A.Kind < B.Kind; });
    return std::move(FWarnings);
  }

 private:
  void Add(CalibWarningKind Kind, const QString& Text, int ItemId = 0) {
    FWarnings.push_back({Kind, Text, ItemId});
  }
  void Tell(const TDoubt& Doubt);
  void TellTooFew();
  QString Mistyping(size_t Item) const;
  void CheckZones();
  void CheckLines();
  void CheckCorners();
  void CheckStorage();

  const CalibItem& ItemOfRow(size_t Row) const { return *FState.Items[FFit.Record.Rows[Row]]; }
  QString TitleOfRow(size_t Row) const { return ItemTitle(FState, FFit.Record.Rows[Row]); }

  const CalibState& FState;
  const CalibFit& FFit;
  std::vector<CalibWarning> FWarnings;
};

void Collector::TellTooFew() {
  const int Count = FFit.Record.Data.NumCalQuads;
  const int Needed = PointsNeeded(FState.Model);
  const QString Model = ModelName(FState.Model);
  const QString Text = Count == 0 ? CalibDocument::tr(
                                        "\"%1\" needs at least %2 points, and there is none. Add "
                                        "%3 more, spread over the map.")
                       : Count == 1 ? CalibDocument::tr(
                                          "\"%1\" needs at least %2 points, and there is 1. Add %3 "
                                          "more, spread over the map.")
                                    : CalibDocument::tr(
                                          "\"%1\" needs at least %2 points, and there are %n. Add "
                                          "%3 more, spread over the map.",
                                          nullptr, Count);
  Add(TooFew, Text.arg(Model).arg(Needed).arg(Needed - Count));
}

void Collector::Tell(const TDoubt& Doubt) {
  switch (Doubt.Kind) {
    case TDoubtKind::TooFew:
      return TellTooFew();
    case TDoubtKind::Undetermined:
      return Add(
          Undetermined,
          FState.Model == TCalibModel::cmBiquadraticPn
              ? CalibDocument::tr(
                    "The points lie in a row or on one curve, so the map is not determined "
                    "away from it. Add points in the middle and in the corners.")
              : CalibDocument::tr(
                    "The points lie in a row, so the map is not determined to its sides. Add "
                    "a point far from that row."));
    case TDoubtKind::NothingToCheck:
      return Add(NothingToCheck,
                 CalibDocument::tr(
                     "The points are just enough for this model: it meets them all, even wrong "
                     "ones. Add one more to see how good they are."));
    case TDoubtKind::OutsideImage:
      return Add(OutsideImage,
                 CalibDocument::tr("%1 is outside the image, at pixel %2, %3.")
                     .arg(TitleOfRow(Doubt.Index))
                     .arg(ItemOfRow(Doubt.Index).Pixel.X)
                     .arg(ItemOfRow(Doubt.Index).Pixel.Y),
                 ItemOfRow(Doubt.Index).Id);
    case TDoubtKind::PoleAstray:
      return Add(PoleAstray,
                 CalibDocument::tr(
                     "The search for the point in which the meridians meet has gone astray with "
                     "these points, though they are good for about %1 pixels. Add points in other "
                     "parts of the map, best in all corners.")
                     .arg(Number(Doubt.Pixels, 1)));
    case TDoubtKind::Disagrees:
      return Add(Disagrees,
                 CalibDocument::tr(
                     "%1 disagrees with the rest: the others put it %2 pixels away. Check its "
                     "position and its pixel.")
                         .arg(TitleOfRow(Doubt.Index), Number(Doubt.Pixels, 1)) +
                     Mistyping(FFit.Record.Rows[Doubt.Index]),
                 ItemOfRow(Doubt.Index).Id);
    case TDoubtKind::IncompleteGraticule:  // CheckLines knows more
    case TDoubtKind::ShortLine:
      return;
  }
}

// Whether a usual slip explains why a point is far off: the others tell where it belongs.
QString Collector::Mistyping(size_t Item) const {
  const CalibItem& Wrong = *FState.Items[Item];
  if (Wrong.IsLinePoint() || Wrong.Position.IsUtm) return {};
  const TCoords P = Wrong.Position.Degrees;
  const struct {
    TCoords Meant;
    QString Text;
  } Slips[] = {
      {{P.Longit, P.Latit}, CalibDocument::tr("It fits with latitude and longitude exchanged.")},
      {{-P.Latit, P.Longit}, CalibDocument::tr("It fits on the other side of the equator (N, S).")},
      {{P.Latit, -P.Longit}, CalibDocument::tr("It fits on the other side of Greenwich (E, W).")},
  };
  for (const auto& Slip : Slips) {
    if (std::abs(Slip.Meant.Latit) > 90) continue;
    CalibState Others = FState;
    Others.Items.erase(Others.Items.begin() + static_cast<std::ptrdiff_t>(Item));
    CalibItem Typed = Wrong;
    Typed.Position.Degrees = Slip.Meant;
    Typed.Enabled = false;  // measured, not fitted
    Others.Items.push_back(std::make_shared<const CalibItem>(Typed));
    const CalibFit Fit(Others);
    const CalibResidual& Miss = Fit.Residuals.back();
    if (Miss.Valid && Miss.Pixels < MistypedPixels) return QLatin1Char(' ') + Slip.Text;
  }
  return {};
}

void Collector::CheckZones() {
  const bool Utm = FState.Model == TCalibModel::cmUTM;
  if (Utm && FState.Grid.Zone == 0) {
    Add(ZoneMissing,
        CalibDocument::tr("The map has no UTM zone, so it tells no positions. Set zone and "
                          "hemisphere; they are printed on the sheet's margin."));
    return;
  }
  int Others = 0;
  for (size_t i = FState.Items.size(); i-- > 0;) {  // the first one is told
    const CalibItem& Item = *FState.Items[i];
    if (Item.IsLinePoint() || !Item.Enabled) continue;
    if (!DegreesOf(Item.Position, FState.Grid)) {
      Add(ZoneMissing,
          CalibDocument::tr(
              "%1 is in UTM metres without a zone and is not used. Set the map's zone, or type the "
              "position with one.")
              .arg(ItemTitle(FState, i)),
          Item.Id);
      continue;
    }
    const UtmGrid Own = GridOf(Item.Position, FState.Grid.Ellipsoid);
    if (!Utm || Own.Zone == 0 || Own.Zone == FState.Grid.Zone) continue;
    ++Others;
    const QString Text =
        Others == 1
            ? CalibDocument::tr(
                  "%1 lies in zone %2, the map is in zone %3. It is converted; check the zone.")
            : CalibDocument::tr(
                  "%n points do not lie in the map's zone %3, first of all %1 in zone %2. "
                  "They are converted; check the zones.",
                  nullptr, Others);
    std::erase_if(FWarnings, [](const CalibWarning& Each) { return Each.Kind == OtherZone; });
    Add(OtherZone,
        Text.arg(ItemTitle(FState, i), QString::number(Own.Zone),
                 QString::number(FState.Grid.Zone)),
        Item.Id);
  }
}

void Collector::CheckLines() {
  std::array<int, 2> Complete{};  // meridians, parallels
  for (const LineCount& Line : CountLinePoints(FState.Items)) {
    const bool Parallel = Line.Kind == CalibItemKind::Parallel;
    if (Line.Points >= MinLinePoints) {
      ++Complete[Parallel ? 1 : 0];
    } else if (Line.Points > 0) {
      const int Missing = MinLinePoints - Line.Points;
      Add(LineNotUsed,
          (Parallel ? CalibDocument::tr(
                          "Parallel %1 is not used yet: a line needs 3 points, add %n more.",
                          nullptr, Missing)
                    : CalibDocument::tr(
                          "Meridian %1 is not used yet: a line needs 3 points, add %n more.",
                          nullptr, Missing))
              .arg(QString::fromStdString(ShortestNumber(Line.Value))));
    }
  }
  if (Complete[0] < 2 || Complete[1] < 2)
    Add(TooFew,
        CalibDocument::tr("\"%1\" needs two meridians and two parallels of at least 3 points each; "
                          "complete are %2 and %3.")
            .arg(ModelName(FState.Model))
            .arg(Complete[0])
            .arg(Complete[1]));
}

void Collector::CheckCorners() {
  const std::vector<double> Growth = GrowthAtCorners(FFit.Calibration, FFit.Table);
  const std::array Names{CalibDocument::tr("top left"), CalibDocument::tr("bottom left"),
                         CalibDocument::tr("bottom right"), CalibDocument::tr("top right")};
  QStringList Far;
  double Most = 0;
  for (size_t i = 0; i < Growth.size(); ++i) {
    if (Growth[i] < MuchGrowth) continue;
    Far.append(Names[i]);
    Most = std::max(Most, Growth[i]);
  }
  if (Far.isEmpty()) return;
  Add(FarCorner, CalibDocument::tr(
                     "The map is a guess in its corners (%1): an error of one pixel in the points "
                     "grows to about %2 pixels there. Add points nearer to them.")
                     .arg(Far.join(QStringLiteral(", ")), Number(Most, 0)));
}

void Collector::CheckStorage() {
  if (FState.Grid.Zone == 60)
    Add(NotStored, CalibDocument::tr(
                       "Calibration files cannot hold zone 60. This program keeps it in a file of "
                       "its own beside; other programs will find no zone."));
  const double Resolution = FFit.Calibration.Data().Resolution;
  if (FState.Model == TCalibModel::cmUTM || FState.Model == TCalibModel::cmParabolicIp ||
      Resolution <= 0 || Resolution >= StoredStep)
    return;
  const bool Cut = std::any_of(
      FFit.Record.Data.CalQuads.begin(),
      FFit.Record.Data.CalQuads.begin() + FFit.Record.Data.NumCalQuads, [](const TCalQuad& Quad) {
        const auto Finer = [](double Degrees) {
          return std::abs(Degrees * 1e5 - std::round(Degrees * 1e5)) > 1e-3;
        };
        return Finer(Quad.Latitude) || Finer(Quad.Longitude);
      });
  if (Cut)
    Add(PixelsTooFine,
        CalibDocument::tr(
            "Calibration files hold degrees to five decimals, about 1 metre, and a pixel of this "
            "map is %1 metres. Other programs will find the points off by up to a pixel or more; "
            "\"%2\" stores metres and has no such limit.")
            .arg(Number(Resolution, 2), ModelName(TCalibModel::cmUTM)));
}

}  // namespace

std::vector<CalibWarning> WarningsOf(const CalibState& State, const CalibFit& Fit) {
  return Collector(State, Fit).All();
}

}  // namespace zav

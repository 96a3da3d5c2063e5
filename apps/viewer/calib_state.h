// calib_state.h - what the calibration document undoes and redoes.
//
// States share their items, so that keeping thousands of them costs little.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_CALIB_STATE_H
#define ZAV_APPS_VIEWER_CALIB_STATE_H

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <QSize>
#include <QString>

#include <geomap/calibration/calib_data.h>

#include "calib_items.h"

namespace zav {

using CalibItemPtr = std::shared_ptr<const CalibItem>;

// Items removed in one step with the places where they were, and those removed before.
struct RemovedItems {
  std::vector<std::pair<size_t, CalibItemPtr>> Items;  // in ascending order of places
  std::shared_ptr<const RemovedItems> Before;
};

struct CalibState {
  std::vector<CalibItemPtr> Items;
  TCalibModel Model = TCalibModel::cmUndefined;
  UtmGrid Grid;
  std::string Caption;    // as it stands in the file, whatever its bytes
  std::string ImageName;  // as the file names it; used when the image is missing
  QString ImagePath;      // absolute, empty when missing
  QSize ImageSize;
  TCornerArray Corners{};  // of the file; kept where the image's size is not known
  double Resolution = 0;
  std::shared_ptr<const RemovedItems> Removed;

  // Whether both look the same to a person; what can be restored does not count.
  bool SameAs(const CalibState& Other) const;
};

// The state as the calibration's record, with the items by their index.
struct CalibRecord {
  TCalibData Data;
  std::vector<size_t> Rows;  // those that the model uses, in the order of the record
  std::vector<bool> Stored;  // of all items, whether the record has them
};
CalibRecord RecordOf(const CalibState& State);

// Whether the model uses items of the kind.
bool UsesKind(TCalibModel Model, CalibItemKind Kind);

// The zone and hemisphere for a map whose points are these: the first one that was typed, else that
// of the points' middle. Zone 0 when they do not tell.
UtmGrid GridOfItems(const std::vector<CalibItemPtr>& Items, TGeoEllipsoid Ellipsoid);

// Why the items cannot be in one document: more than 200 control points, 25 lines, 10 points a
// line. Empty when they can.
QString LimitProblem(const std::vector<CalibItemPtr>& Items);

// How many switched-on points a line has.
struct LineCount {
  CalibItemKind Kind;
  double Value;
  int Points = 0;
};
std::vector<LineCount> CountLinePoints(const std::vector<CalibItemPtr>& Items);

// A line of fewer points cannot be fitted.
inline constexpr int MinLinePoints = 3;

inline TGratLineKind LineKindOf(CalibItemKind Kind) {
  return Kind == CalibItemKind::Parallel ? TGratLineKind::gtlParallel : TGratLineKind::gtlMeridian;
}
inline CalibItemKind ItemKindOf(TGratLineKind Kind) {
  return Kind == TGratLineKind::gtlParallel ? CalibItemKind::Parallel : CalibItemKind::Meridian;
}

}  // namespace zav

#endif

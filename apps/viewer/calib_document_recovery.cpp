// calib_document_recovery.cpp - the calibration document's unsaved work through a crash.
// SPDX-License-Identifier: MIT
#include <utility>

#include <geobasics/ellipsoids.h>
#include <geomap/calibration/calib_file.h>
#include <platform/qt/qt_convert.h>

#include "calib_document.h"
#include "calib_document_private.h"
#include "calib_side_file.h"
#include "calib_side_text.h"
#include "field_line.h"

namespace zav {

namespace {

constexpr double MostPixels = 1e9;

// What is not among the items.
std::string MapLine(const CalibState& State) {
  FieldLine Line("map");
  Line << CalibModelKeyword(State.Model);
  Line.whole(State.Grid.Zone).whole(State.Grid.South ? 1 : 0);
  Line.whole(static_cast<int64_t>(State.Grid.Ellipsoid));
  Line << State.Caption << State.ImageName << FromQString(State.ImagePath);
  return Line.whole(State.ImageSize.width()).whole(State.ImageSize.height()).Take();
}

void ReadMapLine(const std::vector<std::string>& Fields, CalibState& State) {
  FieldReader Reader(Fields);
  const auto Model = FindCalibModel(Reader.Text());
  if (!Model) throw EFieldLine();
  State.Model = *Model;
  State.Grid.Zone = static_cast<int>(Reader.Whole(60));
  State.Grid.South = Reader.Whole(1) != 0;
  const int64_t Ellipsoid = Reader.Whole(NumGeoEllipsoids - 1);
  if (Ellipsoid < 0 || State.Grid.Zone < 0) throw EFieldLine();
  State.Grid.Ellipsoid = static_cast<TGeoEllipsoid>(Ellipsoid);
  State.Caption = Reader.Text();
  State.ImageName = Reader.Text();
  State.ImagePath = ToQString(Reader.Text());
  const auto Width = static_cast<int>(Reader.Whole(MostPixels));
  State.ImageSize = {Width, static_cast<int>(Reader.Whole(MostPixels))};
}

}  // namespace

std::string CalibDocument::recoveryText() const {
  std::string Text = MapLine(*F->State);
  for (const CalibItemPtr& Item : F->State->Items) Text += SideItemLine(*Item, false);
  return Text;
}

QString CalibDocument::recover(const std::vector<std::vector<std::string>>& Lines) {
  return F->Edit(tr("Recover unsaved work"), [&](CalibState& State) {
    const QString Damaged = tr("The unsaved work cannot be read.");
    try {
      if (Lines.empty() || Lines.front().front() != "map") return Damaged;
      ReadMapLine(Lines.front(), State);
      State.Items.clear();
      for (size_t i = 1; i < Lines.size(); ++i) {
        SideItem Side = ReadSideItem(Lines[i]);
        Side.Item.Enabled = Side.State != SideState::Off;
        State.Items.push_back(F->NewItem(std::move(Side.Item)));
      }
    } catch (const EFieldLine&) {
      return Damaged;
    }
    return LimitProblem(State.Items);
  });
}

}  // namespace zav

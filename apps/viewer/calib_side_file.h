// calib_side_file.h - what the viewer knows of a calibration that its file cannot hold.
//
// docs/formats/viewer-points.md tells the format. Nothing here throws for what a file contains.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_CALIB_SIDE_FILE_H
#define ZAV_APPS_VIEWER_CALIB_SIDE_FILE_H

#include <string>
#include <vector>

#include <QStringList>

#include "calib_state.h"

namespace zav {

std::string SideFileName(const std::string& CalibrationFile);

// The line of an item with its end. Stored: the calibration file has it too.
std::string SideItemLine(const CalibItem& Item, bool Stored);

// The items of a record in their order, as a calibration file alone gives them; ids are 0.
std::vector<CalibItem> ItemsOfRecord(const TCalibData& Data, TCalibModel Model);

// A state as a calibration file alone gives it, and the items with the side file's text applied.
struct SideMerge {
  std::vector<CalibItem> Items;  // ids are 0
  TCalibModel Model = TCalibModel::cmUndefined;
  UtmGrid Grid;
  QStringList Notes;  // what could not be used, for people
};
SideMerge MergeSideText(const std::string& SideText, const std::string& Id, const TCalibData& Data,
                        TCalibModel Model);

// The side file's text with the part of the id made from the state, other ids' parts kept. Empty
// when there is nothing to store. Damaged receives whether something of the old text was not
// understood.
std::string UpdatedSideText(const std::string& OldText, const std::string& Id,
                            const CalibState& State, bool& Damaged);

}  // namespace zav

#endif

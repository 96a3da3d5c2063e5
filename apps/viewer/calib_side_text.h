// calib_side_text.h - the text of the viewer's side file, taken apart.
//
// docs/formats/viewer-points.md tells the format. Nothing here throws for what a file contains.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_CALIB_SIDE_TEXT_H
#define ZAV_APPS_VIEWER_CALIB_SIDE_TEXT_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "calib_items.h"

namespace zav {

inline constexpr std::string_view SideSignature = "zavgeo-viewer-points";
inline constexpr std::string_view SideVersion = "1";

enum class SideState { On, Off, Waiting };

struct SideItem {
  CalibItem Item;
  SideState State = SideState::On;
};

// An item from the fields of its line. Throws EFieldLine.
SideItem ReadSideItem(const std::vector<std::string>& Line);

struct SidePart {
  std::string Image;
  std::optional<TCalibModel> Model;
  std::optional<bool> Zone60South;
  std::vector<SideItem> Items;
};

// The parts of a side file: their ids with their lines.
struct SideText {
  struct Part {
    std::string Id;
    std::vector<std::string_view> Lines;  // without the first
  };
  std::vector<Part> Parts;
  int Damaged = 0;       // lines
  bool Unknown = false;  // no side file, or one of another version
};

// Text must outlive the result.
SideText SidePartsOf(std::string_view Text);

// The part read; lines that are not as they should be are left out and counted.
SidePart ReadSidePart(const SideText::Part& Text, int& Damaged);

}  // namespace zav

#endif

// calib_file_text.h - where the calibrations lie in the text of a file.
//
// Readers of calibrations give names in lower case, and savers write files that hold nothing else.
// A person's file is not to lose its spelling, nor what else is in it.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_CALIB_FILE_TEXT_H
#define ZAV_APPS_VIEWER_CALIB_FILE_TEXT_H

#include <string>
#include <vector>

namespace zav {

struct CalibElement {
  std::string Id;  // as spelled in the file, like the next two
  std::string Map;
  std::string Caption;
  // Its bytes in the text, with the comment and the empty line before it and with its line's end.
  size_t Begin = 0;
  size_t End = 0;
};

// The calibrations in a file's text, in their order.
std::vector<CalibElement> FindCalibElements(const std::string& Text);

// The one of the id, in any case; the first one for an empty id. nullptr when there is none.
const CalibElement* FindCalibElement(const std::vector<CalibElement>& Elements,
                                     const std::string& Id);

}  // namespace zav

#endif

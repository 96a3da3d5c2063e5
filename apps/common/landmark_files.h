// landmark_files.h - landmark files as a whole: what is in them, and reading them with reasons.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_COMMON_LANDMARK_FILES_H
#define ZAV_APPS_COMMON_LANDMARK_FILES_H

#include <string>
#include <string_view>
#include <vector>

#include <geomap/landmarks/landmark_list.h>

namespace zav {

struct TLandMarkFileParts {
  std::vector<std::string> Ids;  // of the sets, as they are spelled, in their order
  bool Other = false;            // there is more than sets, comments and empty lines
  // Whether writing its landmarks to it loses nothing: a single set and nothing else.
  bool IsOneSet() const { return Ids.size() == 1 && !Other; }
};

// Looks at the lines only.
TLandMarkFileParts InspectLandMarks(std::string_view Text);

struct TLandMarkFile {
  TLandMarkList List;
  TLandMarkFileParts Parts;
};

// Reads the set of the id, the first one for an empty id, and those behind it. Throws EInOutError
// when the file cannot be read or holds no such set.
TLandMarkFile LoadLandMarkFile(const std::string& FileName, const std::string& Id);

}  // namespace zav

#endif

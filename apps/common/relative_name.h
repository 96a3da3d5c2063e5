// relative_name.h - how a file is named in another one.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_COMMON_RELATIVE_NAME_H
#define ZAV_APPS_COMMON_RELATIVE_NAME_H

#include <string>

namespace zav {

// The image's name as it is to stand in the calibration file: from the file's folder, with "/", so
// that both can be moved together. The image's name as it is where there is no such way.
std::string NameFromFolderOf(const std::string& File, const std::string& Image);

}  // namespace zav

#endif

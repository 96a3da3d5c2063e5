/// @file
/// atlas_list.h - the file that names the maps of an atlas.
///
/// A record file of lines in the manner of XML; docs/formats/atlas.md describes it. Calibration
/// files below the list's own folder are named from there, so that the folder can be moved and
/// renamed as a whole; others are named in full.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOATLAS_ATLAS_LIST_H
#define ZAV_GEOATLAS_ATLAS_LIST_H

#include <string>
#include <vector>

#include <platform/base/api.h>

namespace zav {

class TStream;

/// The calibration files that a list names, in its order, each where it is found: as named, or
/// beside the list. One that is not found comes as it would be found as named. Throws EInOutError
/// when the file cannot be read or is no list.
ZAVGEO_API std::vector<std::string> ReadAtlasList(const std::string& Path);
/// The same from a stream with the content of a file at Path.
ZAVGEO_API std::vector<std::string> ReadAtlasList(TStream& Stream, const std::string& Path);

/// Writes a list in place of an older one, which stays as it was when anything fails. Relative
/// names count from the working folder. Throws EInOutError, also for a name that the format cannot
/// hold (a double quote, a line break); nothing is written then.
ZAVGEO_API void SaveAtlasList(const std::string& Path, const std::vector<std::string>& MapFNames);

}  // namespace zav

#endif

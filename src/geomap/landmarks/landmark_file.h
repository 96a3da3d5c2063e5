/// @file
/// landmark_file.h - sets of landmarks in files and streams; docs/formats/landmarks.md tells the
/// format.
///
/// A set is found by its id, upper and lower case alike; an empty id takes the first one. Trouble
/// with the file itself is EInOutError.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_LANDMARKS_LANDMARK_FILE_H
#define ZAV_GEOMAP_LANDMARKS_LANDMARK_FILE_H

#include <string>
#include <string_view>

#include <geomap/errors.h>
#include <geomap/landmarks/landmark_list.h>
#include <platform/base/api.h>
#include <platform/base/stream.h>
#include <platform/base/text_file.h>

namespace zav {

/// Reads from the current position on, to the end: sets that follow are read too. False, and List
/// is as before, when there is no such set; nothing in a file is an error. Throws std::bad_alloc,
/// and List is as before, when it cannot be held in memory.
ZAVGEO_API bool ReadLandMarks(TextFile& F, std::string_view DataID, TLandMarkList& List);
/// The same from a stream.
ZAVGEO_API bool ReadLandMarks(TStream& S, std::string_view DataID, TLandMarkList& List);

/// Writes a set, from its opening to its closing line. What the format cannot hold (a double quote,
/// a line break or a NUL in a text, a number that is not finite, a time outside the years 1 to
/// 9999) throws EZAVGeoMapError with the prefix before the reason, and nothing is written. Read
/// back, the landmarks are the same, but for lmPlus and lmUserDef, which become lmCross, and for
/// fractions of seconds.
ZAVGEO_API void WriteLandMarks(TextFile& F, const std::string& DataID, const TLandMarkList& List,
                               const std::string& ErrorPrefix);
/// The same to a stream.
ZAVGEO_API void WriteLandMarks(TStream& S, const std::string& DataID, const TLandMarkList& List,
                               const std::string& ErrorPrefix);
/// Makes or replaces a file that holds this set only. On any error an older file stays whole.
ZAVGEO_API void SaveLandMarks(const std::string& FileName, const std::string& DataID,
                              const TLandMarkList& List, const std::string& ErrorPrefix);

}  // namespace zav

#endif

/// @file
/// paths.h - file names taken apart and looked up.
///
/// Paths are UTF-8. Files name other files in the manner of any system, so "/" and "\" both
/// separate the parts of a path, and so does the colon of a drive letter ("C:map.jpg").
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_BASE_PATHS_H
#define ZAV_PLATFORM_BASE_PATHS_H

#include <string>
#include <string_view>

#include <platform/base/api.h>

namespace zav {

/// Everything up to and with the last separator; empty when there is none.
ZAVGEO_API std::string DirectoryOf(std::string_view Path);

/// The file's name without directory.
ZAVGEO_API std::string StripPath(std::string_view Path);

/// The extension with its dot, as it is spelled; empty when there is none. Dots of directories and
/// a dot at the beginning of the name make no extension.
ZAVGEO_API std::string ExtensionOf(std::string_view Path);

/// The path without its last extension, dot included.
ZAVGEO_API std::string StripExtension(std::string_view Path);

/// The text reduced to the characters that may stand in a short file name of eight and three
/// letters: blanks, control characters, separators and any of * ? : " < > | + , ; = [ ] are left
/// out, other characters, also beyond ASCII, stay. A text of dots only gives the empty text, so
/// that the result never leads to another folder.
ZAVGEO_API std::string ReduceStringToFN83CompliantChars(std::string_view Text);

/// Whether the path names something that exists and is no folder.
ZAVGEO_API bool FileExists(const std::string& Path);

/// The path under which the file is found: the very path first, else with "\" read as "/", then
/// component by component without regard to case in any script; where several spellings exist, the
/// exact one and then the first in byte order wins. Empty when there is no such file.
ZAVGEO_API std::string ResolveFile(const std::string& Path);

/// The same for a file that is named in another one: a relative name in the folder of BesideFile,
/// so that a file of this name in the working folder is not taken for it; then the name as it
/// stands, then its bare name in that folder.
ZAVGEO_API std::string ResolveFile(const std::string& Path, const std::string& BesideFile);

}  // namespace zav

#endif

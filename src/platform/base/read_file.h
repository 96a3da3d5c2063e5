/// @file
/// read_file.h - whole files in memory.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_BASE_READ_FILE_H
#define ZAV_PLATFORM_BASE_READ_FILE_H

#include <cstdint>
#include <string>
#include <vector>

#include <platform/base/api.h>

namespace zav {

/// Larger files are refused unless the caller says otherwise.
constexpr int64_t MaxWholeFile = int64_t{1} << 30;

/// The bytes of a file or pipe. Throws EInOutError with the path and the system's reason when it
/// cannot be read, is a folder or a device or has more than MaxSize bytes; no more memory is taken
/// than the file has bytes.
ZAVGEO_API std::vector<uint8_t> ReadWholeFile(const std::string& Path,
                                              int64_t MaxSize = MaxWholeFile);
/// The same as text.
ZAVGEO_API std::string ReadWholeTextFile(const std::string& Path, int64_t MaxSize = MaxWholeFile);

}  // namespace zav

#endif

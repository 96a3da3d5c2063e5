// geo_columns.h - columns that several commands read, and hemispheres in words.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_COMMON_GEO_COLUMNS_H
#define ZAV_APPS_COMMON_GEO_COLUMNS_H

#include <platform/base/text.h>

#include <string>

#include "common/table.h"

namespace zav {

inline constexpr TColumn LatColumn{"lat|latitude"};
inline constexpr TColumn LongColumn{"long|lon|lng|longitude"};

// "north", "south" or their first letters, in any case; true for the south. Throws ELineError.
inline bool IsSouth(const std::string& Text) {
  if (SameText(Text, "north") || SameText(Text, "n")) return false;
  if (SameText(Text, "south") || SameText(Text, "s")) return true;
  throw ELineError("hemisphere \"" + Text + "\" is neither north nor south");
}

}  // namespace zav

#endif

// landmark_fields.h - the fields of a landmark as text: columns of tables, options.
//
// What LandMarkFieldText gives, SetLandMarkField takes again with the same value; times to the
// second.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_COMMON_LANDMARK_FIELDS_H
#define ZAV_APPS_COMMON_LANDMARK_FIELDS_H

#include <optional>
#include <string>
#include <string_view>

#include <geomap/landmarks/landmark.h>

#include "common/table.h"

namespace zav {

// In the order of the columns in tables.
enum class TLandMarkField : size_t {
  lfName,
  lfLat,
  lfLong,
  lfAltitude,
  lfClass,
  lfTag,
  lfId,
  lfTime,
  lfSymbol,
  lfSymbolSize,
  lfSymbolColor,
  lfSymbolFill,
  lfSymbolFilled,
  lfSymbolDirection,
  lfSymbolLength,
  lfCaptionSize,
  lfCaptionFont,
  lfCaptionStyle,
  lfCaptionColor,
  lfCaptionGround,
  lfCaptionFilled,
  lfCaptionDX,
  lfCaptionDY,
  lfCaptionDirection,
  lfCaptionHAlign,
  lfCaptionVAlign
};
inline constexpr size_t NumLandMarkFields = 26;

// The field's column: its name, and others that are taken for it. Latitude and longitude must be
// there, others need not.
const TColumn& LandMarkColumn(TLandMarkField Field);
std::string_view LandMarkFieldName(TLandMarkField Field);
// By its name, in any case.
std::optional<TLandMarkField> FindLandMarkField(std::string_view Name);

std::string LandMarkFieldText(const TLandMark& LandMark, TLandMarkField Field);
// Throws ELineError for a text that is no value of the field, or that a landmark file cannot hold.
// A text that is too long is cut; false then.
bool SetLandMarkField(TLandMark& LandMark, TLandMarkField Field, const std::string& Text,
                      bool DecimalComma = false);

// A time as "2024-02-29 13:45:01", empty for 0; and back, also without seconds, without a time of
// the day, and with "T" between. Nothing when it is no time.
std::string TimeText(TDateTime Time);
std::optional<TDateTime> ParseTime(std::string_view Text);

}  // namespace zav

#endif

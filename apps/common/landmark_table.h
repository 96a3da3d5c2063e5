// landmark_table.h - landmarks from and to tables of comma-separated values.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_COMMON_LANDMARK_TABLE_H
#define ZAV_APPS_COMMON_LANDMARK_TABLE_H

#include <array>
#include <functional>
#include <optional>
#include <string>

#include <geomap/landmarks/landmark_list.h>

#include "common/landmark_fields.h"
#include "common/table.h"
#include "common/table_row.h"

namespace zav {

// For each field of a landmark the field of the table, from 0, that it is taken from.
using TLandMarkSources = std::array<std::optional<size_t>, NumLandMarkFields>;

// By the names in the header. A table without one is name, latitude, longitude.
TLandMarkSources ProposeSources(const TTable& Table);

// Where a line, or a part of it, could not be taken as it is: "FILE:LINE: reason".
struct TImportProblem {
  std::string Text;
  bool Taken = false;  // only a text was cut
};

// Adds a landmark for each line of the table to List; what the line does not give, or leaves empty,
// is the template's. A line that fails is told and passed over. Problem returns whether to go on;
// the list is then as far as it went. Returns the number added. Throws EInOutError when latitude or
// longitude has no source, or the table cannot be read.
int32_t ImportLandMarks(TTable& Table, const TLandMarkSources& Sources, const TLandMark& Template,
                        TLandMarkList& List,
                        const std::function<bool(const TImportProblem&)>& Problem);

// The header line, and the line of a landmark with all its fields.
TRow LandMarkHeader();
TRow LandMarkRow(const TLandMark& LandMark);

}  // namespace zav

#endif

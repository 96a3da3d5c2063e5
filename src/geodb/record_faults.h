// record_faults.h - what can be wrong with a record, and how each fault is mended.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEODB_RECORD_FAULTS_H
#define ZAV_GEODB_RECORD_FAULTS_H

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include <geodb/store.h>
#include <platform/base/api.h>

namespace zav {

enum class TRecordFault : uint8_t {
  BadId,          // below 1
  BadKind,        // none of TgdbItem
  BadName,        // longer than its field
  BadClosed,      // neither 0 nor 1
  BadBlock,       // not in the data file, or with a negative size
  NeedlessBlock,  // an item whose kind has none
  BadBox,   // a point list's that does not hold all points, or one of another kind upside down
  NoNumber  // a coordinate that is NaN
};

ZAVGEO_API const char* FaultText(TRecordFault Fault) noexcept;
ZAVGEO_API const char* DeedText(TRecordFault Fault) noexcept;

// The faults of one record. Reads its point list.
ZAVGEO_API std::vector<TRecordFault> FaultsOf(const TGdbStore& Store, const TgdbData& Data);

// Mends a fault; false when that cannot be done. NextId is given to a record without identifier,
// and counted on.
ZAVGEO_API bool Mend(const TGdbStore& Store, TRecordFault Fault, TgdbData& Data, int32_t& NextId);

// Pairs of positions with the same identifier; the second of each pair is the later one.
ZAVGEO_API std::vector<std::pair<size_t, size_t>> SameIds(const TRecordTable& Records);

}  // namespace zav

#endif

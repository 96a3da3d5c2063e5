// check.h - disagreements within a database, named and mended.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEODB_CHECK_H
#define ZAV_GEODB_CHECK_H

#include <string>
#include <vector>

#include <geodb/store.h>
#include <platform/base/api.h>

namespace zav {

// One line for each disagreement among header, records, indexes and data file.
ZAVGEO_API std::vector<std::string> CheckStore(TGdbStore& Store);

// Mends what CheckStore names but items that share bytes, which cannot be told apart. One line for
// each deed.
ZAVGEO_API std::vector<std::string> RepairStore(TGdbStore& Store);

}  // namespace zav

#endif

/// @file
/// geodb.h - everything of the geographic database.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEODB_GEODB_H
#define ZAV_GEODB_GEODB_H

#include <geodb/gdb_records.h>
#include <geodb/geo_db.h>
#include <geodb/search/box_tree.h>
#include <geodb/search/geo_box.h>
#include <geodb/search/name_index.h>
#include <geodb/search/packed_boxes.h>
#include <geodb/search/ring_test.h>

#endif

// fuzz_geojson.cpp - any bytes as GeoJSON with items for a database.
// SPDX-License-Identifier: MIT
#include "item_check.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Data, size_t Size) {
  zav::fuzz::CheckItemBytes(Data, Size, true);
  return 0;
}

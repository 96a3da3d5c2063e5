// fuzz_atlas.cpp - any bytes as a list of maps.
// SPDX-License-Identifier: MIT
#include <geoatlas/atlas_list.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include <platform/base/errors.h>
#include <platform/base/stream.h>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Data, size_t Size) {
  zav::TMemoryStream Stream;
  Stream.Write(Data, Size);
  Stream.SetPosition(0);
  try {
    for (const std::string& Map : zav::ReadAtlasList(Stream, "/nowhere/atlas.zavatlas")) {
      if (Map.empty() || Map.front() != '/' || Map.find('"') != std::string::npos) {
        std::fputs("a name that is no path\n", stderr);
        std::abort();
      }
    }
  } catch (const zav::EInOutError&) {
    // The right answer to what is no list.
  }
  return 0;
}

// fuzz_landmarks.cpp - any bytes as a landmark file.
// SPDX-License-Identifier: MIT
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "../tests/geomap/landmarks/record_check.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Data, size_t Size) {
  const std::string Bytes(Data, Data + Size);
  const std::string Fault = zav::test::CheckLandMarkBytes(Bytes);
  if (!Fault.empty()) {
    std::fputs(Fault.c_str(), stderr);
    std::abort();
  }
  return 0;
}

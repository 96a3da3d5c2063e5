// fuzz_database.cpp - a set of seven arbitrary files, and perhaps a journal, opened and used.
// SPDX-License-Identifier: MIT
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "../tests/geodb/any_files_check.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Data, size_t Size) {
  const std::string Fault = zav::test::CheckAnyFiles(Data, Size);
  if (!Fault.empty()) {
    std::fputs(Fault.c_str(), stderr);
    std::abort();
  }
  return 0;
}

// any_files_test.cpp - files of a database with bytes changed at random, and the fuzz target's
// seeds.
// SPDX-License-Identifier: MIT
#include "any_files_check.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>

namespace zav::test {
namespace {

std::vector<std::string> Seeds() {
  std::vector<std::string> Seeds;
  for (const auto& Entry :
       std::filesystem::directory_iterator(std::string(ZAVGEO_CORPUS) + "/fuzz_database")) {
    Seeds.push_back(ReadWholeTextFile(Entry.path().string()));
  }
  return Seeds;
}

std::string Check(const std::string& Bytes) {
  return CheckAnyFiles(reinterpret_cast<const uint8_t*>(Bytes.data()), Bytes.size());
}

TEST(DatabaseAnyFiles, NothingButErrorsOfTheLibrary) {
  const auto All = Seeds();
  ASSERT_GE(All.size(), 3u);
  std::mt19937 Random(1);
  for (const std::string& Seed : All) {
    EXPECT_EQ(Check(Seed), "");
    for (int i = 0; i < 60; ++i) {
      std::string Bytes = Seed;
      for (uint32_t n = 1 + static_cast<uint32_t>(Random()) % 6; n > 0 && !Bytes.empty(); --n) {
        const size_t At = Random() % Bytes.size();
        const char Values[] = {'\0', '\x01', '\x7F', '\xFF', static_cast<char>(Random())};
        Bytes[At] = Values[Random() % 5];
        if (Random() % 10 == 0) Bytes.resize(At);
      }
      EXPECT_EQ(Check(Bytes), "");
    }
  }
}

}  // namespace
}  // namespace zav::test

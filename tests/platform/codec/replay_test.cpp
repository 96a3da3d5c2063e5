// Replays the files that the fuzzers start from, and those that were once made to break a reader.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <filesystem>

#include <platform/base/read_file.h>
#include <platform/codec/image_file.h>

#include "damage.h"

namespace zav::test {
namespace {

// Calls Check with the reason of refusal for every file of a folder.
template <typename TCheck>
void ForFiles(const std::string& Folder, TCheck Check) {
  int Count = 0;
  for (const auto& Entry : std::filesystem::directory_iterator(Folder)) {
    const std::string Path = Entry.path().string();
    SCOPED_TRACE(Path);
    Check(Refusal(ReadWholeFile(Path), ImageKindOfName(Path)));
    ++Count;
  }
  EXPECT_GT(Count, 0);
}

TEST(ImageReplay, DamagedFilesAreRefused) {
  ForFiles(ZAVGEO_TEST_DATA "/images/damaged", [](const std::string& Reason) {
    EXPECT_NE(Reason, "");
    EXPECT_EQ(Reason.find("not a kind"), std::string::npos);
  });
}

TEST(ImageReplay, OddFilesLoad) {
  ForFiles(ZAVGEO_TEST_DATA "/images/odd",
           [](const std::string& Reason) { EXPECT_EQ(Reason, ""); });
}

TEST(ImageReplay, FuzzSeedsEndWell) {
  for (const char* Target : {"/fuzz_bmp", "/fuzz_jpeg"}) {
    ForFiles(std::string(ZAVGEO_CORPUS) + Target, [](const std::string&) {});
  }
}

}  // namespace
}  // namespace zav::test

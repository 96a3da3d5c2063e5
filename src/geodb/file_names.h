// file_names.h - the names of the files of a database.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEODB_FILE_NAMES_H
#define ZAV_GEODB_FILE_NAMES_H

#include <array>
#include <string>

namespace zav {

constexpr size_t IndexCount = 5;

struct TFileNames {
  TFileNames() = default;
  explicit TFileNames(const std::string& BasePath)
      : Base(BasePath),
        Records(BasePath + ".zavgds"),
        Data(BasePath + ".zavgdd"),
        Journal(BasePath + ".zavgjn"),
        NewRecords(Records + "~"),
        NewData(Data + "~") {
    for (size_t i = 0; i < IndexCount; ++i) {
      Index[i] = BasePath + ".zavgi" + static_cast<char>('0' + i);
    }
  }

  std::string Base;
  std::string Records;
  std::string Data;
  std::array<std::string, IndexCount> Index;
  std::string Journal;
  std::string NewRecords;  // of files that are to replace the old ones
  std::string NewData;
};

}  // namespace zav

#endif

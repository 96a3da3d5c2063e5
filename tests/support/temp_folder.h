// temp_folder.h - a folder of a test's own, removed with everything in it at the end.
// SPDX-License-Identifier: MIT
#ifndef ZAV_TESTS_SUPPORT_TEMP_FOLDER_H
#define ZAV_TESTS_SUPPORT_TEMP_FOLDER_H

#include <stdlib.h>

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

namespace zav {

class TTempFolder {
 public:
  TTempFolder() : FPath((std::filesystem::temp_directory_path() / "zavgeo-XXXXXX").string()) {
    if (::mkdtemp(FPath.data()) == nullptr) throw std::runtime_error("no temporary folder");
  }
  ~TTempFolder() {
    std::error_code error;
    std::filesystem::remove_all(FPath, error);
  }
  TTempFolder(const TTempFolder&) = delete;
  TTempFolder& operator=(const TTempFolder&) = delete;

  // The folder, with "/" at its end.
  std::string Path() const { return FPath + "/"; }
  std::string operator/(const std::string& Name) const { return Path() + Name; }

  // The names of all that lies directly in it, sorted.
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(FPath)) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

 private:
  std::string FPath;
};

}  // namespace zav

#endif

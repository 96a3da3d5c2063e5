// relative_name.cpp - how a file is named in another one.
// SPDX-License-Identifier: MIT
#include "common/relative_name.h"

#include <filesystem>

namespace zav {

std::string NameFromFolderOf(const std::string& File, const std::string& Image) {
  namespace fs = std::filesystem;
  std::error_code Error;
  const fs::path Folder = fs::weakly_canonical(fs::absolute(File), Error).parent_path();
  const fs::path Relative = fs::weakly_canonical(Image, Error).lexically_relative(Folder);
  return Error || Relative.empty() ? Image : Relative.generic_string();
}

}  // namespace zav

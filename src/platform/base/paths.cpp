// paths.cpp - see paths.h.
// SPDX-License-Identifier: MIT
#include <platform/base/paths.h>

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <vector>

#include <platform/base/text.h>

namespace zav {
namespace {

namespace fs = std::filesystem;

bool IsLetter(char Char) noexcept {
  return (Char >= 'a' && Char <= 'z') || (Char >= 'A' && Char <= 'Z');
}

// The 0-based byte at which the file's name begins.
size_t NameStart(std::string_view Path) noexcept {
  const size_t separator = Path.find_last_of("/\\");
  if (separator != std::string_view::npos) return separator + 1;
  return Path.size() >= 2 && Path[1] == ':' && IsLetter(Path[0]) ? 2 : 0;
}

// The byte at which the extension begins; the length when there is none.
size_t ExtensionStart(std::string_view Path) noexcept {
  const size_t dot = Path.rfind('.');
  return dot == std::string_view::npos || dot <= NameStart(Path) ? Path.size() : dot;
}

bool IsFolder(const std::string& Path) {
  std::error_code error;
  return fs::is_directory(Path, error);
}

// The entries of a folder that are called Name but for case, in byte order.
std::vector<std::string> OtherSpellings(const std::string& Folder, const std::string& Name) {
  std::vector<std::string> names;
  std::error_code error;
  const std::string place = Folder.empty() ? "." : Folder;
  for (fs::directory_iterator it(place, error), end; !error && it != end; it.increment(error)) {
    std::string found = it->path().filename().string();
    if (found != Name && SameText(found, Name)) names.push_back(std::move(found));
  }
  std::sort(names.begin(), names.end());
  return names;
}

// Looks for the file Rest below Folder, which exists and is empty or ends in "/".
std::string FindBelow(const std::string& Folder, const std::string& Rest) {
  const size_t slash = Rest.find('/');
  const std::string name = Rest.substr(0, slash);
  const size_t next = Rest.find_first_not_of('/', slash);
  if (name.empty() || (slash != std::string::npos && next == std::string::npos)) return {};
  const auto tryName = [&](const std::string& spelling) -> std::string {
    const std::string path = Folder + spelling;
    if (slash == std::string::npos) return FileExists(path) ? path : std::string();
    return IsFolder(path) ? FindBelow(path + "/", Rest.substr(next)) : std::string();
  };
  // The folder is listed only when it must be: it may be large, or be closed to listing.
  std::string found = tryName(name);
  if (!found.empty()) return found;
  for (const std::string& spelling : OtherSpellings(Folder, name)) {
    found = tryName(spelling);
    if (!found.empty()) return found;
  }
  return {};
}

}  // namespace

std::string DirectoryOf(std::string_view Path) {
  return std::string(Path.substr(0, NameStart(Path)));
}

std::string StripPath(std::string_view Path) { return std::string(Path.substr(NameStart(Path))); }

std::string ExtensionOf(std::string_view Path) {
  return std::string(Path.substr(ExtensionStart(Path)));
}

std::string StripExtension(std::string_view Path) {
  return std::string(Path.substr(0, ExtensionStart(Path)));
}

std::string ReduceStringToFN83CompliantChars(std::string_view Text) {
  constexpr std::string_view Refused = "/\\*?:\"<>|+,;=[]\x7F";
  std::string result;
  for (const char c : Text) {
    const bool control = static_cast<unsigned char>(c) <= ' ';
    if (!control && Refused.find(c) == std::string_view::npos) result += c;
  }
  return result.find_first_not_of('.') == std::string::npos ? std::string() : result;
}

bool FileExists(const std::string& Path) {
  std::error_code error;
  const fs::file_status status = fs::status(Path, error);
  return fs::exists(status) && !fs::is_directory(status);
}

std::string ResolveFile(const std::string& Path) {
  // A NUL would silently end the name for the system.
  if (Path.empty() || Path.find('\0') != std::string::npos) return {};
  if (FileExists(Path)) return Path;
  std::string path = Path;
  std::replace(path.begin(), path.end(), '\\', '/');
  const size_t first = path.find_first_not_of('/');
  if (first == std::string::npos) return {};
  return FindBelow(first > 0 ? "/" : "", path.substr(first));
}

std::string ResolveFile(const std::string& Path, const std::string& BesideFile) {
  if (Path.empty()) return {};
  const std::string folder = DirectoryOf(BesideFile);
  const bool absolute = Path.front() == '/' || Path.front() == '\\';
  std::string found = absolute ? std::string() : ResolveFile(folder + Path);
  if (found.empty()) found = ResolveFile(Path);
  if (found.empty()) found = ResolveFile(folder + StripPath(Path));
  return found;
}

}  // namespace zav

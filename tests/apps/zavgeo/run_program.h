// run_program.h - runs the command line as a person's shell does.
// SPDX-License-Identifier: MIT
#ifndef ZAV_TESTS_APPS_ZAVGEO_RUN_PROGRAM_H
#define ZAV_TESTS_APPS_ZAVGEO_RUN_PROGRAM_H

#include <platform/base/atomic_file.h>
#include <platform/base/read_file.h>
#include <sys/wait.h>

#include <charconv>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "support/temp_folder.h"

namespace zav {

struct TRun {
  int Status = -1;
  std::string Out;
  std::string Err;
};

// Arguments are a shell's words; Environment is put before the program ("LC_ALL=de_DE.UTF-8").
inline TRun RunProgram(const std::string& Arguments, const std::string& Input = {},
                       const std::string& Environment = {}) {
  const TTempFolder Folder;
  WriteWholeFile(Folder / "in", Input);
  WriteWholeFile(Folder / "out", "");
  WriteWholeFile(Folder / "err", "");
  const std::string Command = "env -u DISPLAY -u WAYLAND_DISPLAY " + Environment +
                              " '" ZAVGEO_PROGRAM "' " + Arguments + " <" + (Folder / "in") + " >" +
                              (Folder / "out") + " 2>" + (Folder / "err");
  const int Status = std::system(Command.c_str());  // NOLINT: this is what is tested
  return {WIFEXITED(Status) ? WEXITSTATUS(Status) : -1, ReadWholeTextFile(Folder / "out"),
          ReadWholeTextFile(Folder / "err")};
}

// Without the CR that ends the lines of some files.
inline std::vector<std::string> SplitText(const std::string& Text, char Separator) {
  std::vector<std::string> Parts;
  std::istringstream Stream(Text);
  for (std::string Part; std::getline(Stream, Part, Separator);) {
    if (!Part.empty() && Part.back() == '\r') Part.pop_back();
    Parts.push_back(Part);
  }
  return Parts;
}

inline double ToNumber(const std::string& Text) {
  double Value = 0;
  const auto [End, Error] = std::from_chars(Text.data(), Text.data() + Text.size(), Value);
  if (Error != std::errc() || End != Text.data() + Text.size())
    throw std::runtime_error("\"" + Text + "\" is not a number");
  return Value;
}

// The fields of each data line of a table: no header, no comments.
inline std::vector<std::vector<std::string>> DataRows(const std::string& Table) {
  std::vector<std::vector<std::string>> Rows;
  for (const std::string& Line : SplitText(Table, '\n'))
    if (!Line.empty() && Line[0] != '#') Rows.push_back(SplitText(Line, ','));
  if (!Rows.empty()) Rows.erase(Rows.begin());
  return Rows;
}

inline std::string Sample(const std::string& Name) {
  return std::string(ZAVGEO_SAMPLES "/maps/") + Name;
}

}  // namespace zav

#endif

// format_example.h - the worked examples of the format pages.
// SPDX-License-Identifier: MIT
#ifndef ZAV_TESTS_GEOMAP_LANDMARKS_FORMAT_EXAMPLE_H
#define ZAV_TESTS_GEOMAP_LANDMARKS_FORMAT_EXAMPLE_H

#include <platform/base/read_file.h>

#include <string>

namespace zav::test {

// The example of a format's page, with the line ends of a file.
inline std::string ExampleOf(const std::string& Page) {
  const std::string Text = ReadWholeTextFile(ZAVGEO_SOURCE "/docs/formats/" + Page);
  const size_t From = Text.find("```xml\n") + 7;
  std::string Bytes;
  for (const char C : Text.substr(From, Text.find("```", From) - From)) {
    if (C == '\n') Bytes += '\r';
    Bytes += C;
  }
  return Bytes;
}

}  // namespace zav::test

#endif

// landmark_files.cpp - see landmark_files.h.
// SPDX-License-Identifier: MIT
#include "common/landmark_files.h"

#include <geomap/landmarks/landmark_file.h>
#include <geomap/landmarks/xml_records.h>
#include <platform/base/errors.h>
#include <platform/base/paths.h>
#include <platform/base/read_file.h>
#include <platform/base/text.h>

namespace zav {

namespace {

constexpr std::string_view Root = "<gmlandmarks";

bool BeginsWith(std::string_view Text, std::string_view Beginning) {
  return SameText(Text.substr(0, Beginning.size()), Beginning);
}
bool EndsWith(std::string_view Text, std::string_view End) {
  return Text.size() >= End.size() && Text.substr(Text.size() - End.size()) == End;
}

void InspectLine(std::string_view Line, TLandMarkFileParts& Parts) {
  const bool InSet = !Parts.Ids.empty();
  if (Line.empty() || BeginsWith(Line, "<?xml")) return;
  if (InSet && BeginsWith(Line, "<landmark ") && EndsWith(Line, "/>")) return;
  if (InSet && SameText(Line, "</gmlandmarks>")) return;
  // A comment on a line of its own, and nothing behind it.
  if (BeginsWith(Line, "<!--") && Line.find("-->") == Line.size() - 3) return;
  if (BeginsWith(Line, Root) && EndsWith(Line, ">") &&
      LowerCase(Line).find(LowerCase(XmlSignature)) != std::string::npos) {
    const std::string Id = FindAttribute(Line.substr(Root.size()), "id");
    Parts.Ids.emplace_back(TrimBlanks(Id));
    return;
  }
  Parts.Other = true;
}

}  // namespace

TLandMarkFileParts InspectLandMarks(std::string_view Text) {
  TLandMarkFileParts Parts;
  while (!Text.empty()) {
    const size_t End = std::min(Text.find_first_of("\r\n"), Text.size());
    InspectLine(TrimBlanks(Text.substr(0, End)), Parts);
    Text.remove_prefix(std::min(End + 1, Text.size()));
  }
  return Parts;
}

TLandMarkFile LoadLandMarkFile(const std::string& FileName, const std::string& Id) {
  const std::string Path = ResolveFile(FileName);
  if (Path.empty()) throw EInOutError(FileName, "there is no such file");
  const std::string Text = ReadWholeTextFile(Path);
  TMemoryStream Stream;
  Stream.Write(Text.data(), Text.size());
  Stream.SetPosition(0);
  TLandMarkFile File;
  if (!ReadLandMarks(Stream, Id, File.List)) {
    throw EInOutError(FileName, Id.empty()
                                    ? "holds no landmarks"
                                    : "holds no set of landmarks with the id \"" + Id + "\"");
  }
  File.Parts = InspectLandMarks(Text);
  return File;
}

}  // namespace zav

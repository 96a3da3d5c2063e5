// calib_file_text.cpp - where the calibrations lie in the text of a file.
// SPDX-License-Identifier: MIT
#include "calib_file_text.h"

#include <algorithm>
#include <string_view>

#include <geomap/landmarks/xml_records.h>
#include <platform/base/stream.h>
#include <platform/base/text.h>

namespace zav {

namespace {

constexpr std::string_view Root = "<geomap";

// The position behind the line that Pos is in, with its end.
size_t LineEnd(std::string_view Text, size_t Pos) {
  Pos = Text.find_first_of("\r\n", Pos);
  if (Pos == std::string_view::npos) return Text.size();
  return Text.substr(Pos, 2) == "\r\n" ? Pos + 2 : Pos + 1;
}

// The beginning of the line before the one that begins at Pos.
size_t LineBefore(std::string_view Text, size_t Pos) {
  if (Pos == 0) return 0;
  --Pos;
  if (Pos > 0 && Text[Pos] == '\n' && Text[Pos - 1] == '\r') --Pos;
  while (Pos > 0 && Text[Pos - 1] != '\n' && Text[Pos - 1] != '\r') --Pos;
  return Pos;
}

bool IsRootLine(std::string_view Line) {
  const std::string Lower = LowerCase(Line);
  return Lower.find(Root) != std::string::npos &&
         Lower.find(LowerCase(XmlSignature)) != std::string::npos;
}

// The attributes of the opening line, as they are spelled.
std::string_view AttributesOf(std::string_view Line) {
  for (size_t Pos = Line.find('<'); Pos != std::string_view::npos; Pos = Line.find('<', Pos + 1))
    if (SameText(Line.substr(Pos, Root.size()), Root)) return Line.substr(Pos + Root.size());
  return {};
}

// The writer puts an empty line and a comment before each element.
size_t WithComment(std::string_view Text, size_t Begin) {
  const size_t Comment = LineBefore(Text, Begin);
  const std::string_view Line = TrimBlanks(Text.substr(Comment, Begin - Comment));
  if (Comment == Begin || Line.substr(0, 21) != "<!-- TGeoMap Calibrat") return Begin;
  const size_t Empty = LineBefore(Text, Comment);
  const bool IsEmpty =
      Text.substr(Empty, Comment - Empty).find_first_not_of("\r\n ") == std::string_view::npos;
  return Empty < Comment && IsEmpty ? Empty : Comment;
}

// The position behind the element's closing tag, found by the reader of the tags itself.
size_t ElementEnd(const std::string& Text, size_t Body) {
  TMemoryStream Stream;
  Stream.Write(Text.data() + Body, Text.size() - Body);
  Stream.SetPosition(0);
  std::string Attributes;
  std::string Contents;
  for (;;) {
    const TXmlTag Tag = ReadNextTagInStream(Stream, Attributes, Contents);
    if (Tag == TXmlTag::Invalid) return Text.size();
    if (Tag != TXmlTag::EndGeomap) continue;
    return Body + Stream.Position() - Contents.size();
  }
}

}  // namespace

std::vector<CalibElement> FindCalibElements(const std::string& Text) {
  std::vector<CalibElement> Elements;
  for (size_t Pos = 0; Pos < Text.size();) {
    const size_t Next = LineEnd(Text, Pos);
    const std::string_view Line = std::string_view(Text).substr(Pos, Next - Pos);
    if (!IsRootLine(Line)) {
      Pos = Next;
      continue;
    }
    const std::string_view Trimmed = Line.substr(0, Line.find_first_of("\r\n"));
    const std::string_view Attributes = AttributesOf(Trimmed);
    CalibElement Element;
    Element.Id = FindAttribute(Attributes, "id");
    Element.Map = FindAttribute(Attributes, "map");
    Element.Caption = FindAttribute(Attributes, "caption");
    Element.Begin = WithComment(Text, Pos);
    Element.End = ElementEnd(Text, Next);
    const size_t RestEnd = LineEnd(Text, Element.End);
    const std::string_view Rest = std::string_view(Text).substr(Element.End, RestEnd - Element.End);
    if (Rest.find_first_not_of("\r\n ") == std::string_view::npos) Element.End = RestEnd;
    Pos = std::max(Element.End, Next);
    Elements.push_back(std::move(Element));
  }
  return Elements;
}

const CalibElement* FindCalibElement(const std::vector<CalibElement>& Elements,
                                     const std::string& Id) {
  const auto Found = std::find_if(Elements.begin(), Elements.end(), [&](const CalibElement& Each) {
    return Id.empty() || SameText(Id, std::string(TrimBlanks(Each.Id)));
  });
  return Found == Elements.end() ? nullptr : &*Found;
}

}  // namespace zav

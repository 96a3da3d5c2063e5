// xml_records.cpp - see xml_records.h.
// SPDX-License-Identifier: MIT
#include <geomap/landmarks/xml_records.h>

#include <platform/base/text.h>

#include <algorithm>
#include <limits>

namespace zav {
namespace {

constexpr size_t None = std::string_view::npos;

// Bytes of a file or stream, one after the other. What has not been taken is left unread at the
// end.
class TByteSource {
 public:
  explicit TByteSource(TextFile& File) : FFile(&File), FChunk(File.Rest()) {}
  explicit TByteSource(TStream& Stream) : FStream(&Stream) {}
  ~TByteSource() {
    if (FFile != nullptr) {
      FFile->Skip(FPos);
    } else {
      FStream->SetPosition(FStream->Position() - (FChunk.size() - FPos));
    }
  }
  TByteSource(const TByteSource&) = delete;
  TByteSource& operator=(const TByteSource&) = delete;

  // -1 at the end.
  int Next() {
    if (FPos == FChunk.size() && !NextChunk()) return -1;
    return static_cast<unsigned char>(FChunk[FPos++]);
  }

  // Takes back the last Count bytes.
  void Back(size_t Count) {
    if (Count <= FPos) {
      FPos -= Count;
      return;
    }
    FStream->SetPosition(FStream->Position() - (FChunk.size() - FPos) - Count);
    FChunk = {};
    FPos = 0;
  }

 private:
  // About the length of some records: what is too much is read again by the next call.
  static constexpr size_t ChunkSize = 1024;

  bool NextChunk() {
    if (FStream == nullptr) return false;
    FChunk = {FBuffer.data(), FStream->Read(FBuffer.data(), FBuffer.size())};
    FPos = 0;
    return !FChunk.empty();
  }

  TextFile* FFile = nullptr;
  TStream* FStream = nullptr;
  std::string_view FChunk;
  size_t FPos = 0;
  std::array<char, ChunkSize> FBuffer;
};

// Reads up to and with a "<"; false at the end.
bool SkipToTag(TByteSource& Source) {
  for (int byte = Source.Next(); byte >= 0; byte = Source.Next()) {
    if (byte == '<') return true;
  }
  return false;
}

// Reads up to and with the end of a comment, or to the end of the file.
void SkipComment(TByteSource& Source) {
  int dashes = 0;
  for (int byte = Source.Next(); byte >= 0; byte = Source.Next()) {
    if (byte == '>' && dashes >= 2) return;
    dashes = byte == '-' ? dashes + 1 : 0;
  }
}

// Reads the text between "<" and ">". False when it is no tag: a comment, which is skipped, or a
// tag that is not closed; the "<" or the end of the file that cut it off is then read next.
bool ReadTagText(TByteSource& Source, std::string& Text) {
  Text.clear();
  size_t quote = None;  // where the quote that is open began
  for (;;) {
    const int byte = Source.Next();
    const bool lineEnd = byte == '\r' || byte == '\n' || byte < 0;
    if (quote != None && lineEnd) {
      const size_t end = Text.find('>', quote);
      if (end != None) {
        Source.Back(Text.size() - end - 1 + (byte < 0 ? 0 : 1));
        Text.resize(end);
        return true;
      }
      quote = None;
    }
    if (byte < 0) return false;
    if (byte == '"') {
      quote = quote == None ? Text.size() : None;
    } else if (quote == None && byte == '>') {
      return true;
    } else if (quote == None && byte == '<') {
      Source.Back(1);
      return false;
    }
    const bool asBlank = quote == None && (lineEnd || byte == '\t');
    Text += asBlank ? ' ' : static_cast<char>(byte);
    if (Text.size() == 3 && Text == "!--") {
      SkipComment(Source);
      return false;
    }
  }
}

// Reads up to the next "<", which is read next, or to the end.
void ReadContents(TByteSource& Source, std::string& Contents) {
  Contents.clear();
  for (int byte = Source.Next(); byte >= 0; byte = Source.Next()) {
    if (byte == '<') {
      Source.Back(1);
      return;
    }
    Contents += static_cast<char>(byte);
  }
}

// The tag's text behind its name, without the "/" of an empty element.
std::string_view AttributesOf(std::string_view TagText, size_t NameLength) {
  std::string_view text = TagText.substr(NameLength);
  const size_t last = text.find_last_not_of(' ');
  if (last != None && text[last] == '/') text = text.substr(0, last);
  return text;
}

int32_t ReadNextTag(TByteSource& Source, std::span<const std::string_view> TagList,
                    int32_t HighIndex, std::string& Attributes, std::string& Contents) {
  std::string text;
  while (SkipToTag(Source)) {
    if (!ReadTagText(Source, text)) continue;
    const size_t nameLength = std::min(text.find_first_of(" /", 1), text.size());
    const std::string name = LowerCase(std::string_view(text).substr(0, nameLength));
    const int32_t index = StringIx(name, TagList, HighIndex) - 1;
    if (index < 0) continue;
    Attributes = AttributesOf(text, nameLength);
    ReadContents(Source, Contents);
    return index;
  }
  Attributes.clear();
  Contents.clear();
  return HighIndex;
}

// The text from behind id=" to the next double quote of a root line.
std::string_view IdentifierOf(std::string_view RootLine) {
  constexpr std::string_view Beginning = "id=\"";
  const size_t start = RootLine.find(Beginning);
  if (start == None) return {};
  const int32_t end = PosNthOccurrence("\"", RootLine.substr(start), 1, 2, false);
  if (end == 0) return {};
  return TrimBlanks(
      RootLine.substr(start + Beginning.size(), static_cast<size_t>(end) - 1 - Beginning.size()));
}

// NextLine(Line) is false at the end.
template <class TNextLine>
bool FindRootLineWith(const TNextLine& NextLine, TXmlTag Root, std::string_view DataID,
                      std::string& RootLine) {
  const std::string wanted = LowerCase(DataID);
  const std::string beginning = std::string(1, '<').append(XmlTagName(Root));
  const std::string signature = LowerCase(XmlSignature);
  while (NextLine(RootLine)) {
    RootLine = LowerCase(RootLine);
    if (RootLine.find(beginning) == None || RootLine.find(signature) == None) continue;
    if (wanted.empty() || wanted == IdentifierOf(RootLine)) return true;
  }
  RootLine.clear();
  return false;
}

// NextAttribute on views; Offset is 0-based. The states are those of a walk along the characters:
// the name up to "=", then blanks, then a value that ends with its quote or at a blank.
int32_t NextPair(std::string_view Text, size_t& Offset, std::string_view& Name,
                 std::string_view& Value) {
  Name = Value = {};
  if (Offset >= Text.size()) return 4;
  const auto endOf = [&](size_t from, std::string_view ends) {
    while (from < Text.size() && ends.find(Text[from]) == None) ++from;
    return from;
  };
  const auto behind = [&](size_t at) { return std::min(at + 1, Text.size()); };
  const size_t nameEnd = endOf(Offset, "=\"");
  Name = TrimBlanks(Text.substr(Offset, nameEnd - Offset));
  Offset = behind(nameEnd);
  if (nameEnd == Text.size()) return 0;
  if (Text[nameEnd] == '"') return 1;
  const size_t start = std::min(Text.find_first_not_of(' ', Offset), Text.size());
  Offset = start;
  if (start == Text.size()) return 0;
  if (Text[start] == '=') {
    ++Offset;
    return 2;
  }
  const bool quoted = Text[start] == '"';
  const size_t first = quoted ? start + 1 : start;
  const size_t valueEnd = endOf(start + 1, quoted ? "\"" : " \"=");
  Value = Text.substr(first, valueEnd - first);
  Offset = behind(valueEnd);
  return !quoted && valueEnd < Text.size() && Text[valueEnd] == '=' ? 3 : 0;
}

}  // namespace

bool IsRecordText(std::string_view Text) noexcept {
  return Text.find_first_of(std::string_view("\"\r\n\0", 4)) == None;
}

int32_t NextAttribute(std::string_view TagText, int32_t& Pos, std::string& Name,
                      std::string& Value) {
  const std::string_view text = TagText.substr(0, std::numeric_limits<int32_t>::max() - 1);
  std::string_view name;
  std::string_view value;
  Pos = std::max(Pos, 1);
  auto offset = static_cast<size_t>(Pos) - 1;
  const int32_t result = NextPair(text, offset, name, value);
  if (result != 4) Pos = static_cast<int32_t>(offset) + 1;
  Name = name;
  Value = value;
  return result;
}

std::string FindAttribute(std::string_view TagText, std::string_view Name) {
  std::string_view name;
  std::string_view value;
  size_t offset = 0;
  while (NextPair(TagText, offset, name, value) == 0) {
    if (SameText(name, Name)) return std::string(value);
  }
  return {};
}

int32_t ReadNextTagInTextFile(TextFile& File, std::span<const std::string_view> TagList,
                              int32_t HighIndex, std::string& Attributes, std::string& Contents) {
  TByteSource source(File);
  return ReadNextTag(source, TagList, HighIndex, Attributes, Contents);
}

int32_t ReadNextTagInStream(TStream& Stream, std::span<const std::string_view> TagList,
                            int32_t HighIndex, std::string& Attributes, std::string& Contents) {
  TByteSource source(Stream);
  return ReadNextTag(source, TagList, HighIndex, Attributes, Contents);
}

TXmlTag ReadNextTagInTextFile(TextFile& File, std::string& Attributes, std::string& Contents) {
  constexpr auto HighIndex = static_cast<int32_t>(TXmlTag::Invalid);
  return static_cast<TXmlTag>(
      ReadNextTagInTextFile(File, XmlTagNames, HighIndex, Attributes, Contents));
}

TXmlTag ReadNextTagInStream(TStream& Stream, std::string& Attributes, std::string& Contents) {
  constexpr auto HighIndex = static_cast<int32_t>(TXmlTag::Invalid);
  return static_cast<TXmlTag>(
      ReadNextTagInStream(Stream, XmlTagNames, HighIndex, Attributes, Contents));
}

std::string ReadLineFromStream(TStream& Stream, bool& Eof, int32_t LineEndMode) {
  constexpr char LineFeed = 10;
  constexpr char Return = 13;
  const auto isLineEnd = [](char c) { return c == LineFeed || c == Return; };
  std::string line;
  char last = 0;
  for (;;) {
    char c = 0;
    if (Stream.Read(&c, 1) == 0) {
      Eof = true;
      return line;
    }
    line += c;
    const bool complete = LineEndMode == 0   ? c == LineFeed
                          : LineEndMode == 1 ? c == Return
                          : LineEndMode == 3 ? c == Return && last == LineFeed
                          : LineEndMode == 4 ? c == LineFeed && last == Return
                                             : isLineEnd(c);
    last = c;
    if (complete) break;
  }
  for (int i = 0; i < 2 && !line.empty() && isLineEnd(line.back()); ++i) line.pop_back();
  return line;
}

bool FindRootLine(TextFile& File, TXmlTag Root, std::string_view DataID, std::string& RootLine) {
  const auto nextLine = [&](std::string& line) {
    if (File.Eof()) return false;
    line = File.ReadLn();
    return true;
  };
  return FindRootLineWith(nextLine, Root, DataID, RootLine);
}

bool FindRootLine(TStream& Stream, TXmlTag Root, std::string_view DataID, std::string& RootLine) {
  bool eof = false;
  const auto nextLine = [&](std::string& line) {
    if (eof) return false;
    line = ReadLineFromStream(Stream, eof, 2);
    return true;
  };
  return FindRootLineWith(nextLine, Root, DataID, RootLine);
}

}  // namespace zav

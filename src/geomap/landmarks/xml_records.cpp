// xml_records.cpp - see xml_records.h.
// SPDX-License-Identifier: MIT
#include <geomap/landmarks/xml_records.h>

#include <platform/base/text.h>

#include <algorithm>
#include <limits>

namespace zav {
namespace {

constexpr size_t None = std::string_view::npos;

// Bytes of a file or stream, one after the other.
class TByteSource {
 public:
  virtual ~TByteSource() = default;
  // -1 at the end.
  virtual int Next() = 0;
  // Takes back the last Count bytes.
  virtual void Back(size_t Count) = 0;
};

class TFileBytes final : public TByteSource {
 public:
  explicit TFileBytes(TextFile& File) : FFile(File) {}
  int Next() override { return FFile.ReadByte(); }
  void Back(size_t Count) override { FFile.Unread(Count); }

 private:
  TextFile& FFile;
};

class TStreamBytes final : public TByteSource {
 public:
  explicit TStreamBytes(TStream& Stream) : FStream(Stream) {}
  int Next() override {
    unsigned char byte = 0;
    return FStream.Read(&byte, 1) == 1 ? byte : -1;
  }
  void Back(size_t Count) override { FStream.SetPosition(FStream.Position() - Count); }

 private:
  TStream& FStream;
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
    if (Text == "!--") {
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
  const std::string beginning = "<" + std::string(XmlTagName(Root));
  const std::string signature = LowerCase(XmlSignature);
  while (NextLine(RootLine)) {
    RootLine = LowerCase(RootLine);
    if (RootLine.find(beginning) == None || RootLine.find(signature) == None) continue;
    if (wanted.empty() || wanted == IdentifierOf(RootLine)) return true;
  }
  RootLine.clear();
  return false;
}

enum class TAttributeState { Name, BeforeValue, QuotedValue, PlainValue };

}  // namespace

bool IsRecordText(std::string_view Text) noexcept {
  return Text.find_first_of(std::string_view("\"\r\n\0", 4)) == None;
}

int32_t NextAttribute(std::string_view TagText, int32_t& Pos, std::string& Name,
                      std::string& Value) {
  const std::string_view text = TagText.substr(0, std::numeric_limits<int32_t>::max() - 1);
  Name.clear();
  Value.clear();
  Pos = std::max(Pos, 1);
  if (static_cast<size_t>(Pos) > text.size()) return 4;
  TAttributeState state = TAttributeState::Name;
  bool done = false;
  while (!done && static_cast<size_t>(Pos) <= text.size()) {
    const char c = text[static_cast<size_t>(Pos) - 1];
    ++Pos;
    switch (state) {
      case TAttributeState::Name:
        if (c == '"') return 1;
        if (c == '=') {
          state = TAttributeState::BeforeValue;
        } else {
          Name += c;
        }
        break;
      case TAttributeState::BeforeValue:
        if (c == '=') return 2;
        if (c == '"') {
          state = TAttributeState::QuotedValue;
        } else if (c != ' ') {
          Value += c;
          state = TAttributeState::PlainValue;
        }
        break;
      case TAttributeState::QuotedValue:
        done = c == '"';
        if (!done) Value += c;
        break;
      case TAttributeState::PlainValue:
        if (c == '=') return 3;
        done = c == ' ' || c == '"';
        if (!done) Value += c;
        break;
    }
  }
  Name = std::string(TrimBlanks(Name));
  return 0;
}

std::string FindAttribute(std::string_view TagText, std::string_view Name) {
  const std::string wanted = LowerCase(Name);
  std::string name;
  std::string value;
  int32_t pos = 1;
  while (NextAttribute(TagText, pos, name, value) == 0) {
    if (LowerCase(name) == wanted) return value;
  }
  return {};
}

int32_t ReadNextTagInTextFile(TextFile& File, std::span<const std::string_view> TagList,
                              int32_t HighIndex, std::string& Attributes, std::string& Contents) {
  TFileBytes source(File);
  return ReadNextTag(source, TagList, HighIndex, Attributes, Contents);
}

int32_t ReadNextTagInStream(TStream& Stream, std::span<const std::string_view> TagList,
                            int32_t HighIndex, std::string& Attributes, std::string& Contents) {
  TStreamBytes source(Stream);
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

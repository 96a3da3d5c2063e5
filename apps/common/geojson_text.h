// geojson_text.h - a text as the JSON parser takes it, with its lines counted.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_COMMON_GEOJSON_TEXT_H
#define ZAV_APPS_COMMON_GEOJSON_TEXT_H

#include <platform/base/errors.h>
#include <platform/base/text_format.h>

#include <cstddef>
#include <cstdint>
#include <istream>
#include <iterator>
#include <string>

namespace zav {

// The characters of a stream, one by one. Throws EInOutError when the stream cannot be read, and
// for a text or number of more than a megabyte, which the parser would hold in memory.
class TTextSource {
 public:
  TTextSource(std::istream& Input, const std::string& Name) : FBuffer(*Input.rdbuf()), FName(Name) {
    Advance();
  }
  bool AtEnd() const { return FAtEnd; }
  char Current() const { return FCurrent; }
  int64_t Line() const { return FLine; }

  void Advance() {
    using TTraits = std::istream::traits_type;
    if (FCurrent == '\n') ++FLine;
    try {
      const auto Next = FBuffer.sbumpc();
      FAtEnd = TTraits::eq_int_type(Next, TTraits::eof());
      FCurrent = FAtEnd ? '\0' : TTraits::to_char_type(Next);
    } catch (const std::ios_base::failure&) {  // a folder, a failing disk
      throw EInOutError(FName, "cannot be read");
    }
    Measure();
  }

 private:
  static bool EndsWord(char C) {
    return C == ',' || C == ':' || C == '[' || C == ']' || C == '{' || C == '}' || C == ' ' ||
           C == '\n' || C == '\r' || C == '\t';
  }
  // The parser holds a whole text or number in memory.
  void Measure() {
    constexpr int64_t MaxLength = 1 << 20;
    if (FEscaped) {
      FEscaped = false;
    } else if (FInText && FCurrent == '\\') {
      FEscaped = true;
    } else if (FCurrent == '"') {
      FInText = !FInText;
      FLength = 0;
    } else if (!FInText && EndsWord(FCurrent)) {
      FLength = 0;
    }
    if (++FLength > MaxLength)
      throw EInOutError(FName + ":" + IntegerText(FLine), "a text of more than a megabyte");
  }

  std::streambuf& FBuffer;
  const std::string& FName;
  char FCurrent = '\0';
  bool FAtEnd = false;
  int64_t FLine = 1;
  int64_t FLength = 0;
  bool FInText = false;
  bool FEscaped = false;
};

// What the parser takes for a place in the text.
class TTextIterator {
 public:
  using iterator_category = std::input_iterator_tag;
  using value_type = char;
  using difference_type = std::ptrdiff_t;
  using pointer = const char*;
  using reference = char;

  explicit TTextIterator(TTextSource* Source) : FSource(Source) {}
  char operator*() const { return FSource->Current(); }
  TTextIterator& operator++() {
    FSource->Advance();
    return *this;
  }
  // Beside the end only, which has no source.
  bool operator==(const TTextIterator& Other) const { return IsEnd() == Other.IsEnd(); }
  bool operator!=(const TTextIterator& Other) const { return !(*this == Other); }

 private:
  bool IsEnd() const { return FSource == nullptr || FSource->AtEnd(); }
  TTextSource* FSource;
};

}  // namespace zav

#endif

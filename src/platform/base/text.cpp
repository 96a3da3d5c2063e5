// text.cpp - see text.h.
// SPDX-License-Identifier: MIT
#include <platform/base/text.h>

#include <algorithm>
#include <iterator>

#include <platform/base/utf8.h>

namespace zav {
namespace {

// First, First + Step, ..., Last are mapped Delta further.
struct TCaseRange {
  char32_t First;
  char32_t Last;
  char32_t Step;
  int32_t Delta;
};

// A character and the one or two that it becomes.
struct TFold {
  char32_t Code;
  char32_t First;
  char32_t Second;
};

#include <platform/base/case_table.inc>

template <size_t N>
char32_t Mapped(const TCaseRange (&Ranges)[N], char32_t Code) noexcept {
  const TCaseRange* range =
      std::upper_bound(std::begin(Ranges), std::end(Ranges), Code,
                       [](char32_t code, const TCaseRange& r) { return code < r.First; });
  if (range == std::begin(Ranges)) return Code;
  --range;
  if (Code > range->Last || (Code - range->First) % range->Step != 0) return Code;
  return static_cast<char32_t>(static_cast<int32_t>(Code) + range->Delta);
}

char32_t Lower(char32_t Code) noexcept {
  if (Code < 0x80) return Code >= 'A' && Code <= 'Z' ? Code + 32 : Code;
  return Mapped(LowerRanges, Code);
}

char32_t Upper(char32_t Code) noexcept {
  if (Code < 0x80) return Code >= 'a' && Code <= 'z' ? Code - 32 : Code;
  return Mapped(UpperRanges, Code);
}

// Calls Take(character, its bytes) for each character of the text.
template <class TTake>
void ForEachCharacter(std::string_view Text, const TTake& Take) {
  for (size_t i = 0; i < Text.size();) {
    const TUtf8Char c = DecodeUtf8(Text, i);
    Take(c, Text.substr(i, c.Length));
    i += c.Length;
  }
}

template <class TConvert>
std::string ConvertedText(std::string_view Text, const TConvert& Convert) {
  std::string result;
  result.reserve(Text.size());
  ForEachCharacter(Text, [&](const TUtf8Char& c, std::string_view bytes) {
    if (c.Valid) {
      AppendUtf8(result, Convert(c.Code));
    } else {
      result.append(bytes);
    }
  });
  return result;
}

// The form in which two spellings of a letter are the same: both forms of the small sigma have one
// capital, so upper case comes first.
char32_t CaseKey(const TUtf8Char& Char) noexcept {
  return Char.Valid ? Lower(Upper(Char.Code)) : Char.Code | 0x80000000U;
}

}  // namespace

std::string_view TrimBlanks(std::string_view Text) noexcept {
  const size_t first = Text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return Text.substr(first, Text.find_last_not_of(' ') - first + 1);
}

int32_t PosNthOccurrence(std::string_view Sub, std::string_view Text, int32_t Start, int32_t Count,
                         bool IgnoreCase) {
  if (IgnoreCase) return PosNthOccurrence(LowerCase(Sub), LowerCase(Text), Start, Count, false);
  if (Sub.empty() || Count < 1) return 0;
  size_t from = static_cast<size_t>(std::max(Start, 1) - 1);
  size_t found = 0;
  for (int32_t i = 0; i < Count; ++i) {
    found = Text.find(Sub, from);
    if (found == std::string_view::npos) return 0;
    from = found + Sub.size();
  }
  return static_cast<int32_t>(found) + 1;
}

std::string LowerCase(std::string_view Text) { return ConvertedText(Text, Lower); }

std::string UpperCase(std::string_view Text) { return ConvertedText(Text, Upper); }

bool SameText(std::string_view A, std::string_view B) noexcept {
  size_t a = 0;
  size_t b = 0;
  while (a < A.size() && b < B.size()) {
    const TUtf8Char charA = DecodeUtf8(A, a);
    const TUtf8Char charB = DecodeUtf8(B, b);
    if (CaseKey(charA) != CaseKey(charB)) return false;
    a += charA.Length;
    b += charB.Length;
  }
  return a == A.size() && b == B.size();
}

std::string FoldAccents(std::string_view Text) {
  std::string result;
  result.reserve(Text.size());
  bool folds = false;  // whether marks that follow belong to a letter that loses its marks
  ForEachCharacter(Text, [&](const TUtf8Char& c, std::string_view bytes) {
    const bool combiningMark = c.Valid && c.Code >= 0x300 && c.Code <= 0x36F;
    if (combiningMark && folds) return;
    if (c.Code < 0x80) {
      result.append(bytes);
      folds = true;
      return;
    }
    folds = c.Valid && (c.Code < 0x530 || (c.Code >= 0x1E00 && c.Code < 0x2000));
    const TFold* fold =
        std::lower_bound(std::begin(Folds), std::end(Folds), c.Code,
                         [](const TFold& f, char32_t code) { return f.Code < code; });
    if (!c.Valid || fold == std::end(Folds) || fold->Code != c.Code) {
      result.append(bytes);
      return;
    }
    AppendUtf8(result, fold->First);
    if (fold->Second != 0) AppendUtf8(result, fold->Second);
  });
  return result;
}

std::string SearchKey(std::string_view Text) {
  std::string Key;
  Key.reserve(Text.size());
  const bool Ascii = std::none_of(Text.begin(), Text.end(), [](char c) { return (c & 0x80) != 0; });
  if (!Ascii) return LowerCase(UpperCase(FoldAccents(DisplayText(Text))));
  for (const char c : Text) Key += static_cast<char>(Lower(static_cast<char32_t>(c)));
  return Key;
}

int32_t StringIx(std::string_view Text, std::span<const std::string_view> List,
                 int32_t HighIndex) noexcept {
  for (int32_t i = 0; i <= HighIndex && static_cast<size_t>(i) < List.size(); ++i) {
    if (List[static_cast<size_t>(i)] == Text) return i + 1;
  }
  return 0;
}

}  // namespace zav

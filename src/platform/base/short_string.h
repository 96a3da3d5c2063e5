/// @file
/// short_string.h - text of limited length in a record of fixed size.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_BASE_SHORT_STRING_H
#define ZAV_PLATFORM_BASE_SHORT_STRING_H

#include <platform/base/utf8.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace zav {

/// A length byte and N bytes of text, 1 <= N <= 255, as they stand in files: trivially copyable,
/// N + 1 bytes, no padding. A text that does not fit is cut at a character boundary. A length above
/// N, which a damaged file may hold, counts as N. Bytes behind the text are kept but never
/// compared.
template <size_t N>
struct TShortString {
  static_assert(N >= 1 && N <= 255);
  /// The most bytes that fit.
  static constexpr size_t Capacity = N;

  uint8_t Length = 0;  ///< bytes of text; counts as N when above
  char Chars[N] = {};  ///< the text, not ended by a zero

  TShortString() = default;
  /// The text, cut where it does not fit.
  TShortString(std::string_view Text) noexcept { Set(Text); }
  /// The same from a text that a zero ends.
  TShortString(const char* Text) noexcept { Set(Text); }
  /// The same from a string.
  TShortString(const std::string& Text) noexcept { Set(Text); }

  /// Takes over a text, cut where it does not fit; the bytes behind it stay.
  void Set(std::string_view Text) noexcept {
    const std::string_view cut = CutAtCharacter(Text, N);
    std::copy(cut.begin(), cut.end(), Chars);
    Length = static_cast<uint8_t>(cut.size());
  }
  /// Valid until the string changes.
  std::string_view View() const noexcept { return {Chars, std::min<size_t>(Length, N)}; }
  /// A copy of the text.
  std::string Text() const { return std::string(View()); }

  friend bool operator==(const TShortString& A, const TShortString& B) noexcept {
    return A.View() == B.View();
  }
};

}  // namespace zav

#endif

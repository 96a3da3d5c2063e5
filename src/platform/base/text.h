/// @file
/// text.h - blanks, positions, case and accents of text.
///
/// Text is UTF-8; positions are bytes counted from 1. Case does not depend on the locale; bytes
/// that are no UTF-8 are kept as they are.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_BASE_TEXT_H
#define ZAV_PLATFORM_BASE_TEXT_H

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include <platform/base/api.h>

namespace zav {

/// The text without leading and trailing blanks (character 32 only; tabs stay).
ZAVGEO_API std::string_view TrimBlanks(std::string_view Text) noexcept;

/// The position of the Count-th occurrence of Sub in Text, from position Start on; below 1 counts
/// as 1. Occurrences do not overlap. 0 when there are fewer, Sub is empty or Count is below 1. With
/// IgnoreCase both texts are lower-cased first, and the position is one of the lower-cased text.
ZAVGEO_API int32_t PosNthOccurrence(std::string_view Sub, std::string_view Text, int32_t Start,
                                    int32_t Count, bool IgnoreCase);

/// Every letter in lower or upper case, one character for one (so the capital of sharp s is
/// itself).
ZAVGEO_API std::string LowerCase(std::string_view Text);
/// The same in upper case.
ZAVGEO_API std::string UpperCase(std::string_view Text);

/// Whether the texts differ in nothing but case, in any script.
ZAVGEO_API bool SameText(std::string_view A, std::string_view B) noexcept;

/// The text without accents: Latin, Greek and Cyrillic letters lose their marks, combining marks
/// after them too; ligatures and letters such as the sharp s are spelled out. Case is kept.
ZAVGEO_API std::string FoldAccents(std::string_view Text);

/// The form in which names are compared when one is searched: without accents, in one case, bytes
/// that are no UTF-8 read as DisplayText does.
ZAVGEO_API std::string SearchKey(std::string_view Text);

/// The 1-based position of the entry among List[0..HighIndex] that equals Text; 0 when none does.
ZAVGEO_API int32_t StringIx(std::string_view Text, std::span<const std::string_view> List,
                            int32_t HighIndex) noexcept;

}  // namespace zav

#endif

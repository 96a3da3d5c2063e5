// user_locale.cpp - every test program runs in the locale of its user, as most desktop programs do.
// SPDX-License-Identifier: MIT
#include <clocale>
#include <locale>
#include <stdexcept>

namespace {

[[maybe_unused]] const bool Done = [] {
  std::setlocale(LC_ALL, "");
  try {
    std::locale::global(std::locale(""));  // for streams
  } catch (const std::runtime_error&) {
    // There is no such locale here: the classic one stays.
  }
  return true;
}();

}  // namespace

// damage.h - image files cut short or with changed bytes, and what decoding makes of them.
// SPDX-License-Identifier: MIT
#ifndef ZAV_TESTS_PLATFORM_CODEC_DAMAGE_H
#define ZAV_TESTS_PLATFORM_CODEC_DAMAGE_H

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include <platform/codec/image_file.h>

namespace zav::test {

using TBytes = std::vector<uint8_t>;

// The reason why the bytes are refused; empty when they are decoded.
inline std::string Refusal(const TBytes& Bytes, TImageKind Kind) {
  try {
    DecodeImage(Bytes, Kind, "name");
  } catch (const EInOutError& Error) {
    EXPECT_EQ(Error.Path(), "name");
    return Error.Reason();
  }
  return {};
}

// Every file that is cut short by Step, 2 * Step ... bytes must be refused.
inline void ExpectNoCutFileLoads(const TBytes& Bytes, TImageKind Kind, size_t Step) {
  for (size_t Cut = Step; Cut <= Bytes.size(); Cut += Step) {
    const TBytes Short(Bytes.begin(), Bytes.end() - static_cast<ptrdiff_t>(Cut));
    EXPECT_NE(Refusal(Short, Kind), "") << Cut << " bytes missing";
  }
}

// Files with a few wrong bytes are decoded or refused, and do nothing else. Pictures that a damaged
// header makes huge are left out for their time.
inline void DecodeWithWrongBytes(const TBytes& Bytes, TImageKind Kind, int Times) {
  std::mt19937 Engine(4711);
  for (int i = 0; i < Times; ++i) {
    TBytes Wrong = Bytes;
    for (unsigned Changes = 1 + Engine() % 4; Changes > 0; --Changes) {
      const size_t Range = Engine() % 2 == 0 ? std::min<size_t>(Wrong.size(), 128) : Wrong.size();
      Wrong[Engine() % Range] = static_cast<uint8_t>(Engine());
    }
    try {
      const TSize Size = ReadImageSize(Wrong, Kind, "name");
      if (int64_t{Size.Width} * Size.Height > 1000000) continue;
    } catch (const EInOutError&) {
      continue;
    }
    Refusal(Wrong, Kind);
  }
}

}  // namespace zav::test

#endif

// stream_bytes.h - memory streams of given bytes, and back.
// SPDX-License-Identifier: MIT
#ifndef ZAV_TESTS_SUPPORT_STREAM_BYTES_H
#define ZAV_TESTS_SUPPORT_STREAM_BYTES_H

#include <platform/base/stream.h>

#include <string>
#include <string_view>

namespace zav::test {

inline TMemoryStream StreamOf(std::string_view Bytes) {
  TMemoryStream Stream;
  Stream.Write(Bytes.data(), Bytes.size());
  Stream.SetPosition(0);
  return Stream;
}

inline std::string BytesOf(const TMemoryStream& Stream) {
  return {Stream.Memory(), Stream.Memory() + Stream.Size()};
}

}  // namespace zav::test

#endif

// stream.cpp - see stream.h.
// SPDX-License-Identifier: MIT
#include <platform/base/stream.h>

#include <algorithm>

namespace zav {

size_t TMemoryStream::Read(void* Buffer, size_t Count) {
  const size_t count = std::min(Count, FBytes.size() - FPosition);
  std::copy_n(FBytes.data() + FPosition, count, static_cast<uint8_t*>(Buffer));
  FPosition += count;
  return count;
}

void TMemoryStream::Write(const void* Data, size_t Count) {
  if (FBytes.size() - FPosition < Count) FBytes.resize(FPosition + Count);
  std::copy_n(static_cast<const uint8_t*>(Data), Count, FBytes.data() + FPosition);
  FPosition += Count;
}

void TMemoryStream::SetPosition(size_t Position) { FPosition = std::min(Position, FBytes.size()); }

void TMemoryStream::SetSize(size_t Size) {
  FBytes.resize(Size);
  FPosition = std::min(FPosition, Size);
}

void WriteLnStream(TStream& Stream, std::string_view Text) {
  Stream.Write(Text.data(), Text.size());
  Stream.Write("\r\n", 2);
}

}  // namespace zav

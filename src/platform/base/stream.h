/// @file
/// stream.h - bytes read and written at a position.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_BASE_STREAM_H
#define ZAV_PLATFORM_BASE_STREAM_H

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include <platform/base/api.h>

namespace zav {

/// Bytes with a position, to read and to write.
class ZAVGEO_API TStream {
 public:
  virtual ~TStream() = default;

  /// Reads up to Count bytes and moves on; returns how many there were, 0 at the end.
  virtual size_t Read(void* Buffer, size_t Count) = 0;
  /// Writes over what stands at the position, lengthens the stream as needed and moves on.
  virtual void Write(const void* Data, size_t Count) = 0;

  /// Bytes in the stream.
  virtual size_t Size() const = 0;
  /// Where the next operation begins, 0..Size().
  virtual size_t Position() const = 0;
  /// A position behind the end counts as the end.
  virtual void SetPosition(size_t Position) = 0;
};

/// A stream in memory; copies are deep.
class ZAVGEO_API TMemoryStream : public TStream {
 public:
  size_t Read(void* Buffer, size_t Count) override;
  void Write(const void* Data, size_t Count) override;
  size_t Size() const override { return FBytes.size(); }
  size_t Position() const override { return FPosition; }
  void SetPosition(size_t Position) override;

  /// Cuts the stream or lengthens it by zero bytes.
  void SetSize(size_t Size);
  /// The bytes, Size() of them.
  const uint8_t* Memory() const noexcept { return FBytes.data(); }
  /// The same for writing.
  uint8_t* Memory() noexcept { return FBytes.data(); }

 private:
  std::vector<uint8_t> FBytes;
  size_t FPosition = 0;
};

/// Writes the text and CR LF.
ZAVGEO_API void WriteLnStream(TStream& Stream, std::string_view Text);

}  // namespace zav

#endif

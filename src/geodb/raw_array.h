// raw_array.h - an array of plain records that grows without copying and is read without clearing.
//
// A database of a million items holds 160 megabytes of records. std::vector would write all of them
// twice when they are read from a file, and hold them twice while it grows.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEODB_RAW_ARRAY_H
#define ZAV_GEODB_RAW_ARRAY_H

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <initializer_list>
#include <new>
#include <type_traits>
#include <utility>

#include <platform/base/api.h>

namespace zav {

// Memory of at least a few megabytes comes in large pages where the system has them.
ZAVGEO_API void* ReallocateRaw(void* Memory, size_t NewBytes);

// Has the part of std::vector's manners that is needed here. Throws std::bad_alloc.
template <class T>
class TRawArray {
  static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>);

 public:
  using value_type = T;

  TRawArray() = default;
  TRawArray(std::initializer_list<T> Items) { append(Items.begin(), Items.size()); }
  TRawArray(const TRawArray& Other) { append(Other.data(), Other.size()); }
  TRawArray(TRawArray&& Other) noexcept { swap(Other); }
  TRawArray& operator=(TRawArray Other) noexcept {
    swap(Other);
    return *this;
  }
  ~TRawArray() { std::free(FItems); }

  size_t size() const noexcept { return FSize; }
  bool empty() const noexcept { return FSize == 0; }
  T* data() noexcept { return FItems; }
  const T* data() const noexcept { return FItems; }
  T* begin() noexcept { return FItems; }
  T* end() noexcept { return FItems + FSize; }
  const T* begin() const noexcept { return FItems; }
  const T* end() const noexcept { return FItems + FSize; }
  T& operator[](size_t Index) noexcept { return FItems[Index]; }
  const T& operator[](size_t Index) const noexcept { return FItems[Index]; }
  T& back() noexcept { return FItems[FSize - 1]; }
  const T& back() const noexcept { return FItems[FSize - 1]; }

  void clear() noexcept { FSize = 0; }
  // Gives the memory back, too.
  void release() noexcept { TRawArray().swap(*this); }
  void reserve(size_t Size) {
    if (Size > FCapacity) Grow(std::max(Size, FCapacity + FCapacity / 2));
  }
  // New items are as T() makes them.
  void resize(size_t Size) {
    const size_t Old = FSize;
    resize_raw(Size);
    for (size_t i = Old; i < Size; ++i) FItems[i] = T();
  }
  // New items are to be written before they are read.
  void resize_raw(size_t Size) {
    if (Size > FCapacity) Grow(FSize == 0 ? Size : std::max(Size, FCapacity + FCapacity / 2));
    FSize = Size;
  }
  void push_back(const T& Item) {
    const T Copy = Item;  // may lie in this array
    resize_raw(FSize + 1);
    FItems[FSize - 1] = Copy;
  }
  void pop_back() noexcept { --FSize; }
  void append(const T* Items, size_t Count) {
    const size_t Old = FSize;
    resize_raw(Old + Count);
    std::copy_n(Items, Count, FItems + Old);
  }
  void swap(TRawArray& Other) noexcept {
    std::swap(FItems, Other.FItems);
    std::swap(FSize, Other.FSize);
    std::swap(FCapacity, Other.FCapacity);
  }
  friend bool operator==(const TRawArray& A, const TRawArray& B) noexcept {
    return std::equal(A.begin(), A.end(), B.begin(), B.end());
  }

 private:
  void Grow(size_t Capacity) {
    if (Capacity > static_cast<size_t>(-1) / 2 / sizeof(T)) throw std::bad_alloc();
    FItems = static_cast<T*>(ReallocateRaw(FItems, Capacity * sizeof(T)));
    FCapacity = Capacity;
  }

  T* FItems = nullptr;
  size_t FSize = 0;
  size_t FCapacity = 0;
};

}  // namespace zav

#endif

/// @file
/// raw_array.h - an array of plain records that grows without copying and is read without clearing.
///
/// A database of a million items holds 160 megabytes of records. std::vector would write all of
/// them twice when they are read from a file, and hold them twice while it grows.
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

/// Memory of at least a few megabytes comes in large pages where the system has them.
ZAVGEO_API void* ReallocateRaw(void* Memory, size_t NewBytes);

/// Has the part of std::vector's manners that is needed here. Throws std::bad_alloc.
template <class T>
class TRawArray {
  static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>);

 public:
  /// As in std::vector.
  using value_type = T;

  TRawArray() = default;
  /// The items in their order.
  TRawArray(std::initializer_list<T> Items) { append(Items.begin(), Items.size()); }
  /// A copy of all items.
  TRawArray(const TRawArray& Other) { append(Other.data(), Other.size()); }
  /// Takes the items; Other is empty then.
  TRawArray(TRawArray&& Other) noexcept { swap(Other); }
  /// Takes the items of a copy, or of what is moved here.
  TRawArray& operator=(TRawArray Other) noexcept {
    swap(Other);
    return *this;
  }
  ~TRawArray() { std::free(FItems); }

  size_t size() const noexcept { return FSize; }                  ///< items
  bool empty() const noexcept { return FSize == 0; }              ///< whether there is none
  T* data() noexcept { return FItems; }                           ///< the items side by side
  const T* data() const noexcept { return FItems; }               ///< the items side by side
  T* begin() noexcept { return FItems; }                          ///< the first item
  T* end() noexcept { return FItems + FSize; }                    ///< behind the last item
  const T* begin() const noexcept { return FItems; }              ///< the first item
  const T* end() const noexcept { return FItems + FSize; }        ///< behind the last item
  T& operator[](size_t Index) noexcept { return FItems[Index]; }  ///< not checked
  const T& operator[](size_t Index) const noexcept { return FItems[Index]; }  ///< not checked
  T& back() noexcept { return FItems[FSize - 1]; }                            ///< not checked
  const T& back() const noexcept { return FItems[FSize - 1]; }                ///< not checked

  void clear() noexcept { FSize = 0; }  ///< no items; the memory stays
  /// Gives the memory back, too.
  void release() noexcept { TRawArray().swap(*this); }
  /// Makes room for so many items.
  void reserve(size_t Size) {
    if (Size > FCapacity) Grow(std::max(Size, FCapacity + FCapacity / 2));
  }
  /// New items are as T() makes them.
  void resize(size_t Size) {
    const size_t Old = FSize;
    resize_raw(Size);
    for (size_t i = Old; i < Size; ++i) FItems[i] = T();
  }
  /// New items are to be written before they are read.
  void resize_raw(size_t Size) {
    if (Size > FCapacity) Grow(FSize == 0 ? Size : std::max(Size, FCapacity + FCapacity / 2));
    FSize = Size;
  }
  /// Appends an item.
  void push_back(const T& Item) {
    const T Copy = Item;  // may lie in this array
    resize_raw(FSize + 1);
    FItems[FSize - 1] = Copy;
  }
  void pop_back() noexcept { --FSize; }  ///< not checked
  /// Appends Count items, which must not lie in this array.
  void append(const T* Items, size_t Count) {
    const size_t Old = FSize;
    resize_raw(Old + Count);
    std::copy_n(Items, Count, FItems + Old);
  }
  /// Exchanges the items.
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

/// @file
/// landmark_list.h - landmarks in their order, in blocks that copies share.
///
/// The list grows by whole blocks, and growing copies no record. A copy of the list is cheap at any
/// length: it shares the blocks, and the first of the two that changes a block gets one of its own.
/// So a picture that is drawn, or a step of an undo history, keeps what it was made from.
///
/// Landmarks are numbered from 1. An operation that runs out of memory throws std::bad_alloc and
/// changes nothing.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_LANDMARKS_LANDMARK_LIST_H
#define ZAV_GEOMAP_LANDMARKS_LANDMARK_LIST_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include <geomap/landmarks/landmark.h>
#include <platform/base/api.h>

namespace zav {

/// Landmarks, numbered from 1. A value whose copies share their blocks until one of them changes.
class ZAVGEO_API TLandMarkList {
 public:
  static constexpr int32_t BlockSize = 1000;  ///< landmarks in a full block

  /// Up to BlockSize landmarks. Version changes with every change made in place, so a block that is
  /// still the same object with the same version still holds the same landmarks.
  struct TBlock {
    std::vector<TLandMark> Records;  ///< its landmarks
    uint64_t Version = 0;            ///< of the last change

    TBlock() { Records.reserve(BlockSize); }
    /// Another block with the same landmarks.
    TBlock(const TBlock& From) : TBlock() { Records = From.Records; }
    TBlock& operator=(const TBlock&) = delete;
  };

  /// How many landmarks there are.
  int32_t Count() const noexcept { return FCount; }
  /// For how many there is room: whole blocks, at least one.
  int32_t Allocated() const noexcept;
  /// 1..Count(); valid until the list changes. Another index gives a landmark of default values.
  const TLandMark& operator[](int32_t Index) const noexcept;

  /// Throws std::bad_alloc beyond the largest int32_t, too.
  void Append(const TLandMark& LandMark);
  /// Only 1..Count() for these.
  void Replace(int32_t Index, const TLandMark& LandMark);
  /// The last landmark takes the place of the removed one.
  void Remove(int32_t Index);
  /// Removes those whose flag (Marked[0] is landmark 1; as many as Count) is set. From both ends:
  /// the last one that stays moves into the first place that became free, and so on. The room stays
  /// unless none is left. The flags are used up.
  void RemoveMarked(std::vector<bool>& Marked);
  /// Removes all.
  void Clear() noexcept;

  /// All but the last that holds any are full; then there may be empty ones.
  size_t NumBlocks() const noexcept { return FBlocks.size(); }
  /// A block, not checked: Index < NumBlocks().
  std::shared_ptr<const TBlock> Block(size_t Index) const noexcept { return FBlocks[Index]; }

  friend bool operator==(const TLandMarkList& A, const TLandMarkList& B) noexcept;

 private:
  static size_t BlockOf(int32_t Index) noexcept {
    return static_cast<size_t>(Index - 1) / BlockSize;
  }
  static size_t PlaceOf(int32_t Index) noexcept {
    return static_cast<size_t>(Index - 1) % BlockSize;
  }
  // The block for changing: an own one, with a new version.
  TBlock& Own(size_t Block);
  TLandMark& Record(int32_t Index) noexcept {
    return FBlocks[BlockOf(Index)]->Records[PlaceOf(Index)];
  }
  void CutTo(int32_t Count) noexcept;

  std::vector<std::shared_ptr<TBlock>> FBlocks;
  int32_t FCount = 0;
};

}  // namespace zav

#endif

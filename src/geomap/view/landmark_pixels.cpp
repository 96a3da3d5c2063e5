// landmark_pixels.cpp - see landmark_pixels.h.
// SPDX-License-Identifier: MIT
#include <geomap/view/landmark_pixels.h>

#include <algorithm>
#include <cmath>

namespace zav {
namespace {

using TChunk = TLandMarkPixels::TChunk;

std::shared_ptr<const TChunk> MakeChunk(const TLandMarkList::TBlock& Block,
                                        const TCalibration& Calibration) {
  const auto Chunk = std::make_shared<TChunk>();
  const bool HasModel = Calibration.Model() != TCalibModel::cmUndefined;
  for (const TLandMark& Each : Block.Records) {
    const size_t I = Chunk->Count++;
    Chunk->X[I] = Chunk->Y[I] = 0;
    Chunk->OnMap[I] = HasModel && Calibration.CalcPixelCoords(Each.Latitude, Each.Longitude,
                                                              Chunk->X[I], Chunk->Y[I]);
    Chunk->Class[I] = Each.ClassFlag;
    Chunk->Latitude[I] = Each.Latitude;
    Chunk->Longitude[I] = Each.Longitude;
  }
  return Chunk;
}

template <typename T>
bool SameObject(const std::weak_ptr<T>& A, const std::shared_ptr<T>& B) noexcept {
  return !A.owner_before(B) && !B.owner_before(A);
}

// An interval that surely holds all values from A to B, whatever is rounded.
struct TInterval {
  double Low, High;
  static TInterval Around(double A, double B) noexcept {
    const double Margin = 1e-9 * (std::fabs(A) + std::fabs(B));
    return {A - Margin, B + Margin};
  }
};

size_t CountInChunk(const TChunk& Chunk, const TInterval& Lat, const TInterval& Long,
                    const TCornerArray& Corners, const TClassVisibility& ClassVisible) {
  // First those in the box, without a branch that cannot be predicted.
  TChunk::TColumn<uint16_t> InBox;
  size_t Count = 0;
  for (size_t I = 0; I < Chunk.Count; ++I) {
    InBox[Count] = static_cast<uint16_t>(I);
    const int Inside = static_cast<int>(Chunk.Latitude[I] >= Lat.Low) &
                       static_cast<int>(Chunk.Latitude[I] <= Lat.High) &
                       static_cast<int>(Chunk.Longitude[I] >= Long.Low) &
                       static_cast<int>(Chunk.Longitude[I] <= Long.High);
    Count += static_cast<size_t>(Inside);
  }
  return static_cast<size_t>(std::count_if(InBox.begin(), InBox.begin() + Count, [&](uint16_t I) {
    return ClassVisible[Chunk.Class[I]] &&
           PositionInMap(Chunk.Latitude[I], Chunk.Longitude[I], Corners);
  }));
}

}  // namespace

bool TLandMarkPixels::Holds(size_t Index,
                            const std::shared_ptr<const TLandMarkList::TBlock>& Block) const {
  const TSource& Source = FSources[Index];
  return FChunks[Index] && SameObject(Source.Block, Block) && Source.Version == Block->Version;
}

TLandMarkPixels::TChunks TLandMarkPixels::Update(const TLandMarkList& List,
                                                 const TCalibration& Calibration) {
  if (!(FCalibration == Calibration)) {
    FChunks.clear();
    FCalibration = Calibration;
  }
  constexpr size_t Size = TLandMarkList::BlockSize;
  const size_t NumBlocks = (static_cast<size_t>(List.Count()) + Size - 1) / Size;
  FChunks.resize(NumBlocks);
  FSources.resize(NumBlocks);
  for (size_t I = 0; I < NumBlocks; ++I) {
    const auto Block = List.Block(I);
    if (Holds(I, Block)) continue;
    FChunks[I] = MakeChunk(*Block, Calibration);
    FSources[I] = {Block, Block->Version};
  }
  return FChunks;
}

size_t CountInside(const TLandMarkPixels::TChunks& Chunks, const TCornerArray& Corners,
                   const TClassVisibility& ClassVisible) {
  // Who is to the same side of all four edges is inside the box about the corners, even where the
  // edges cross each other.
  const auto [LowLat, HighLat] =
      std::minmax({Corners[0].Latit, Corners[1].Latit, Corners[2].Latit, Corners[3].Latit});
  const auto [LowLong, HighLong] =
      std::minmax({Corners[0].Longit, Corners[1].Longit, Corners[2].Longit, Corners[3].Longit});
  const TInterval Lat = TInterval::Around(LowLat, HighLat);
  const TInterval Long = TInterval::Around(LowLong, HighLong);
  size_t Count = 0;
  for (const auto& Chunk : Chunks) {
    Count += CountInChunk(*Chunk, Lat, Long, Corners, ClassVisible);
  }
  return Count;
}

}  // namespace zav

/// @file
/// landmark_pixels.h - where landmarks lie on the map image, kept from one picture to the next.
///
/// Converting a million positions takes longer than drawing a picture. So the pixels are kept,
/// block by block as the list holds its landmarks, and converted again only where landmarks or
/// calibration have changed; what a picture must know of a landmark that it does not draw lies
/// close together.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_VIEW_LANDMARK_PIXELS_H
#define ZAV_GEOMAP_VIEW_LANDMARK_PIXELS_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include <geomap/calibration/calibration.h>
#include <geomap/landmarks/landmark_list.h>
#include <geomap/landmarks/landmark_store.h>
#include <platform/base/api.h>

namespace zav {

/// The pixels of the list that was given last.
class ZAVGEO_API TLandMarkPixels {
 public:
  /// Of one block; as many entries as it has landmarks.
  struct TChunk {
    /// One value of each landmark.
    template <typename T>
    using TColumn = std::array<T, TLandMarkList::BlockSize>;

    size_t Count = 0;           ///< landmarks
    TColumn<int32_t> X;         ///< column of the map pixel
    TColumn<int32_t> Y;         ///< its row
    TColumn<bool> OnMap;        ///< whether there is one
    TColumn<uint8_t> Class;     ///< class of the landmark
    TColumn<double> Latitude;   ///< degrees
    TColumn<double> Longitude;  ///< degrees
  };
  /// The chunks of a list.
  using TChunks = std::vector<std::shared_ptr<const TChunk>>;

  /// The landmarks' pixels, a chunk for each block that is not empty. Without a calibration model
  /// none is on the map. What is returned stays as it is, whatever happens here later.
  TChunks Update(const TLandMarkList& List, const TCalibration& Calibration);

 private:
  struct TSource {
    std::weak_ptr<const TLandMarkList::TBlock> Block;
    uint64_t Version = 0;
  };
  bool Holds(size_t Index, const std::shared_ptr<const TLandMarkList::TBlock>& Block) const;

  TCalibration FCalibration;
  TChunks FChunks;
  std::vector<TSource> FSources;  // of each chunk
};

/// How many landmarks of visible classes lie inside the quadrilateral (PositionInMap).
ZAVGEO_API size_t CountInside(const TLandMarkPixels::TChunks& Chunks, const TCornerArray& Corners,
                              const TClassVisibility& ClassVisible);

}  // namespace zav

#endif

/// @file
/// map_register.h - the maps of an atlas: registered, and chosen by place and detail.
///
/// Works without a control and without images. Maps are numbered from 1, 0 means none. A smaller
/// resolution (metres per pixel) is a more detailed map.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOATLAS_MAP_REGISTER_H
#define ZAV_GEOATLAS_MAP_REGISTER_H

#include <cstdint>
#include <string>
#include <vector>

#include <geomap/calibration/calib_data.h>
#include <platform/base/api.h>
#include <platform/base/geometry.h>

namespace zav {

/// A registered map.
struct TMapDefinition {
  std::string MapFName;    ///< the calibration file's name in lower case
  std::string Caption;     ///< for people, may be empty
  double Resolution = 0;   ///< metres per pixel
  TCornerArray Corners{};  ///< positions of the image's corners
  friend bool operator==(const TMapDefinition&, const TMapDefinition&) = default;
};

/// The maps of an atlas, numbered from 1 in the order of coming.
class ZAVGEO_API TMapRegister {
 public:
  static constexpr int32_t Capacity = 200;  ///< maps at most

  /// How many maps there are.
  int32_t Count() const noexcept { return FCount; }

  /// Reads the first calibration of a file and adds it at the end; a file that is registered, in
  /// upper or lower case, is read again in its place. False, and nothing changes, when it holds no
  /// calibration, is damaged or cannot be read, and for a 201st map.
  bool Register(const std::string& MapFName);
  /// Why the last Register was false, for people; empty when it was true.
  const std::string& Problem() const noexcept { return FProblem; }
  /// Removes a map; those after it move up. False for an index outside 1..Count().
  bool Unregister(int32_t Index);
  /// Removes all.
  void UnregisterAll() noexcept { FCount = 0; }

  /// A copy of a slot. Slots from Count() + 1 to 200 hold what they held last; any other index
  /// gives an empty definition.
  TMapDefinition Definition(int32_t Index) const;
  /// The file's name as it was registered, to be opened; empty outside 1..Count().
  std::string Path(int32_t Index) const;
  /// What a list shows: the caption, or the file's name when there is none.
  std::string Title(int32_t Index) const;
  /// The number of a registered file, upper and lower case alike.
  int32_t Find(const std::string& MapFName) const;

  /// Of the maps that cover a position and are more detailed than Resolution by more than
  /// MinResDiff percent, the least detailed; of equal ones the first. Maps without resolution
  /// never.
  int32_t Finer(double Lat, double Long, double Resolution, double MinResDiff) const;
  /// Of the maps that cover a position and are less detailed, by however little, the most detailed.
  int32_t Coarser(double Lat, double Long, double Resolution) const;

 private:
  struct TSlot {
    TMapDefinition Map;
    std::string Path;
  };
  const TMapDefinition* MapAt(int32_t Index) const;
  bool Refuse(const std::string& Why);

  int32_t FCount = 0;
  std::string FProblem;
  std::vector<TSlot> FSlots;  // FCount in use, then those that were
};

/// Reads the calibration that a map has. Throws an EZAVError that tells people why there is none.
ZAVGEO_API TCalibData ReadMapCalibration(const std::string& MapFName);

/// The lines of a map's outline on another map. PixelOf(Position, Pixel) tells whether a corner has
/// a pixel; one that has none is left out and the line runs on to the next.
template <class TPixelOf>
std::vector<TPoint> MapOutline(const TCornerArray& Corners, const TPixelOf& PixelOf) {
  std::vector<TPoint> Points;
  for (const size_t i : {size_t{3}, size_t{0}, size_t{1}, size_t{2}, size_t{3}}) {
    TPoint Pixel;
    if (PixelOf(Corners[i], Pixel)) Points.push_back(Pixel);
  }
  return Points;
}

}  // namespace zav

#endif

// map_file.cpp - loading a calibration with its image's size.
// SPDX-License-Identifier: MIT
#include "map_file.h"

#include <geomap/calibration/calib_file.h>
#include <platform/base/paths.h>
#include <platform/codec/image_file.h>

namespace zav {

TMapFile LoadMapFile(const std::string& File) {
  TMapFile Map;
  TCalibration& Calibration = Map.Calibration;
  if (!LoadCalibration(File, "", Calibration))
    throw EZAVGeoMapError(File + ": holds no calibration");
  if (!Calibration.Data().MapFName.empty())
    Map.ImagePath = ResolveFile(Calibration.Data().MapFName, File);
  if (Map.ImagePath.empty()) return Map;
  try {
    const TSize Size = ReadImageSize(Map.ImagePath, ImageKindOfName(Map.ImagePath));
    Calibration.SetImageSize(Size.Width, Size.Height);
    const TCalibData Data = Calibration.Data();
    Calibration.SetData(Data, Calibration.Model());
  } catch (const EInOutError&) {
    Map.ImagePath.clear();  // a damaged image is as good as none for a conversion
  }
  return Map;
}

}  // namespace zav

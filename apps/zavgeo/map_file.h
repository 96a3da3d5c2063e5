// map_file.h - a calibration file and the image that it names.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_ZAVGEO_MAP_FILE_H
#define ZAV_APPS_ZAVGEO_MAP_FILE_H

#include <geomap/calibration/calibration.h>

#include <string>

namespace zav {

struct TMapFile {
  TCalibration Calibration;
  std::string ImagePath;  // where the image was found, empty when it was not
};

// Loads and fits the first calibration of a file. The image's size is taken from its header;
// without the image, corners and resolution are those of the file. Throws EInOutError when the file
// cannot be read, EZAVGeoMapError when it holds no calibration or one that is damaged.
TMapFile LoadMapFile(const std::string& File);

}  // namespace zav

#endif

/// @file
/// calib_file.h - calibrations in files and streams; docs/formats/calibration.md tells the format.
///
/// Errors in the content are EZAVGeoMapError, with a prefix that the caller chooses before the
/// reason ("ParseCalibData: ", or a control's name). Trouble with the file itself is EInOutError.
/// An element is found by its id, upper and lower case alike; an empty id takes the first one. Map
/// name and caption come back in lower case. The map image need not be there.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_CALIBRATION_CALIB_FILE_H
#define ZAV_GEOMAP_CALIBRATION_CALIB_FILE_H

#include <optional>
#include <string>
#include <string_view>

#include <geomap/calibration/calib_data.h>
#include <geomap/calibration/calibration.h>
#include <platform/base/api.h>
#include <platform/base/stream.h>
#include <platform/base/text_file.h>

namespace zav {

/// The keyword of a model in files and on the command line, such as "equirect".
ZAVGEO_API std::string_view CalibModelKeyword(TCalibModel Model) noexcept;
/// The model of a keyword, upper and lower case alike; nothing for an unknown one. Unlike the
/// readers of files this knows "parabolicip".
ZAVGEO_API std::optional<TCalibModel> FindCalibModel(std::string_view Keyword) noexcept;

/// @name Writing
/// A double quote or a line break in Id, map name or caption, a number that is not finite in an
/// item, and counts beyond the arrays are refused before anything is written.
/// @{

/// Writes the element to a file that is open for writing; WithHeader begins with the XML line.
ZAVGEO_API void WriteRawCalDataToOpenXMLFile(
    TextFile& F, bool WithHeader, const std::string& Id, const TCalibData& Data, TCalibModel Model,
    const std::string& ErrorPrefix = "WriteRawCalDataToOpenXMLFile: ");
/// The same to a stream, at its position and with the XML line.
ZAVGEO_API void WriteCalDataToStream(TStream& S, const std::string& Id, const TCalibData& Data,
                                     TCalibModel Model, const std::string& ErrorPrefix);
/// Makes or replaces a file that holds this element only. On any error an older file stays whole.
ZAVGEO_API void SaveCalData(const std::string& FileName, const std::string& Id,
                            const TCalibData& Data, TCalibModel Model,
                            const std::string& ErrorPrefix);
/// @}

/// @name Reading
/// @{

/// Reads into a caller's record. True exactly when the element was found; otherwise nothing
/// changes. What was read before an error stays in Data.
ZAVGEO_API bool ParseCalibData(const std::string& FileName, const std::string& Id, TCalibData& Data,
                               TCalibModel& Model);
/// From the position of the stream on.
ZAVGEO_API bool ParseCalibData(TMemoryStream& S, const std::string& Id, TCalibData& Data,
                               TCalibModel& Model);

/// What a reader found.
struct TCalibReadResult {
  bool HeaderFound = false;        ///< the element is there
  bool GraticuleComplete = false;  ///< the result of RecalcGratMat
};

/// Reads into a calibration, from the current position on. When the element is found items and
/// model are replaced, even where an error ends the reading, and RecalcGratMat is run; the caller
/// then sets the image size, where it is known, and calls FitModel and CalcExtentsAndResolution.
ZAVGEO_API TCalibReadResult ReadCalibration(TextFile& F, const std::string& Id,
                                            TCalibration& Calibration,
                                            const std::string& ErrorPrefix);
/// The same from a stream.
ZAVGEO_API TCalibReadResult ReadCalibration(TStream& S, const std::string& Id,
                                            TCalibration& Calibration,
                                            const std::string& ErrorPrefix);

/// Reads and fits, for programs without a control. An undefined model with a complete graticule
/// becomes cmParabolicIp, which the format cannot tell. Corners and resolution are those of the
/// file unless the image size was set. False when the element was not found.
ZAVGEO_API bool LoadCalibration(const std::string& FileName, const std::string& Id,
                                TCalibration& Calibration);
/// @}

}  // namespace zav

#endif

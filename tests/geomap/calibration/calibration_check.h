// calibration_check.h - what must hold for any bytes given to the reader of calibration files.
// Shared by the fuzz target and the tests.
// SPDX-License-Identifier: MIT
#ifndef ZAV_TESTS_GEOMAP_CALIBRATION_CALIBRATION_CHECK_H
#define ZAV_TESTS_GEOMAP_CALIBRATION_CALIBRATION_CHECK_H

#include <geomap/calibration/calib_file.h>

#include <cmath>
#include <string>
#include <string_view>

#include "../../support/stream_bytes.h"

namespace zav::test {

// Numbers of fixed decimals come back within half of the last one.
inline bool Near(double A, double B, double Unit) {
  return std::fabs(A - B) <= 0.51 * Unit + 1e-15 * std::fabs(A);
}

inline bool SameInFile(const TCalibData& A, const TCalibData& B) {
  bool Same = A.MapFName == B.MapFName && A.Caption == B.Caption &&
              A.NumCalLines == B.NumCalLines && A.CalLines == B.CalLines &&
              A.NumCalQuads == B.NumCalQuads && A.Ellipsoid == B.Ellipsoid;
  Same = Same && Near(A.Resolution > 0 ? A.Resolution : 0, B.Resolution, 1e-3);
  const bool ZoneKept = A.UTMZone >= 1 && A.UTMZone <= 59;
  Same = Same && B.UTMZone == (ZoneKept ? A.UTMZone : -1) && B.UTMSouth == (ZoneKept && A.UTMSouth);
  for (size_t I = 0; I < 4; ++I) {
    Same = Same && Near(A.Corners[I].Latit, B.Corners[I].Latit, 1e-5) &&
           Near(A.Corners[I].Longit, B.Corners[I].Longit, 1e-5);
  }
  for (size_t I = 0; I < A.CalQuads.size(); ++I) {
    const TCalQuad& P = A.CalQuads[I];
    const TCalQuad& Q = B.CalQuads[I];
    Same = Same && Near(P.Latitude, Q.Latitude, 1e-5) && Near(P.Longitude, Q.Longitude, 1e-5) &&
           P.MapX == Q.MapX && P.MapY == Q.MapY;
  }
  return Same;
}

inline bool CountsInRange(const TCalibData& Data) {
  bool Result = Data.NumCalLines >= 0 && Data.NumCalLines <= MaxCalLines && Data.NumCalQuads >= 0 &&
                Data.NumCalQuads <= MaxCalQuads;
  for (const TCalibLine& Line : Data.CalLines) {
    Result = Result && Line.NumPoints >= 0 && Line.NumPoints <= MaxCalLinePoints;
  }
  return Result;
}

// Reads the bytes; writes and reads again what was accepted. Returns what is wrong, empty when
// nothing.
inline std::string CheckCalibrationBytes(std::string_view Bytes) {
  TCalibData Data;
  TCalibModel Model = TCalibModel::cmUTM;
  try {
    TMemoryStream Stream = StreamOf(Bytes);
    if (!ParseCalibData(Stream, "", Data, Model)) {
      return Data == TCalibData() && Model == TCalibModel::cmUTM ? "" : "changed without a header";
    }
  } catch (const EZAVGeoMapError& Error) {
    if (!std::string_view(Error.what()).starts_with("ParseCalibData: ")) return "wrong prefix";
    return CountsInRange(Data) ? "" : "counts out of range after an error";
  }
  if (!CountsInRange(Data)) return "counts out of range";

  TCalibData Again[2];
  for (int Round = 0; Round < 2; ++Round) {
    TMemoryStream Stream;
    try {
      WriteCalDataToStream(Stream, "", Round == 0 ? Data : Again[0], Model, "");
    } catch (const EZAVGeoMapError&) {
      const bool Nul = (Data.MapFName + Data.Caption).find('\0') != std::string::npos;
      return Nul && Stream.Size() == 0 ? "" : "what was read cannot be written";
    }
    Stream.SetPosition(0);
    TCalibModel ModelAgain = TCalibModel::cmUTM;
    if (!ParseCalibData(Stream, "", Again[Round], ModelAgain)) return "own header not found";
    if (ModelAgain != Model) return "another model after writing";
  }
  if (!SameInFile(Data, Again[0])) return "another calibration after writing";
  if (Again[0] != Again[1]) return "second writing differs";

  // Whatever was accepted can be fitted and evaluated.
  TCalibration Calibration;
  Calibration.SetImageSize(640, 480);
  Calibration.SetData(Data, Model);
  int32_t X = 0;
  int32_t Y = 0;
  Calibration.CalcPixelCoords(47.5, 8.25, X, Y);
  return {};
}

}  // namespace zav::test

#endif

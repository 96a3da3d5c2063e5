// geo_map_calibration.cpp - the control's calibration: changes, conversions, files.
// SPDX-License-Identifier: MIT
#include <geomap/geo_map.h>

#include <platform/base/paths.h>

namespace zav {

void TGeoMap::ReportCalibration() {
  const auto Alive = Life();
  Notify(&TGeoMapObserver::CalibrationChanged);
  if (!Alive.expired()) Paint();
}

void TGeoMap::SetCalibration(const TCalibData& Data, TCalibModel Model) {
  FCalibration.SetData(Data, Model);
  ReportCalibration();
}

void TGeoMap::SetCalibModel(TCalibModel Model) {
  FCalibration.SetModel(Model);
  ReportCalibration();
}

void TGeoMap::SetMapCaption(const std::string& Caption) {
  FCalibration.SetCaption(Caption);
  Notify(&TGeoMapObserver::CalibrationChanged);
}

void TGeoMap::SetUTMZone(int32_t Zone) {
  FCalibration.SetUTMZone(Zone);
  Notify(&TGeoMapObserver::CalibrationChanged);
}

THemisphere TGeoMap::GetUTMHemisphere() const noexcept {
  return CalibData().UTMSouth ? THemisphere::hemiSouth : THemisphere::hemiNorth;
}

void TGeoMap::SetUTMHemisphere(THemisphere Hemisphere) {
  FCalibration.SetUTMHemisphere(Hemisphere);
  Notify(&TGeoMapObserver::CalibrationChanged);
}

// --- items ---------------------------------------------------------------------------------------

bool TGeoMap::AddCalibPoint(TGratLineKind LineKind, double LineValue, int32_t X, int32_t Y) {
  const bool Result = Framed([&] { return FCalibration.AddCalibPoint(LineKind, LineValue, X, Y); });
  ReportCalibration();
  return Result;
}

bool TGeoMap::AddCalibPoint(double Lat, double Long, int32_t X, int32_t Y) {
  const bool Result = Framed([&] { return FCalibration.AddCalibPoint(Lat, Long, X, Y); });
  ReportCalibration();
  return Result;
}

bool TGeoMap::AddCalibPoint(double Northing, double Easting, int32_t Zone, THemisphere Hemisphere,
                            int32_t X, int32_t Y) {
  const bool Result =
      Framed([&] { return FCalibration.AddCalibPoint(Northing, Easting, Zone, Hemisphere, X, Y); });
  if (Result) ReportCalibration();
  return Result;
}

bool TGeoMap::RemoveCalibPoint(int32_t X, int32_t Y) {
  const bool Result = FCalibration.RemoveCalibPoint(X, Y);
  ReportCalibration();
  return Result;
}

bool TGeoMap::RemoveCalibPoint(TGratLineKind LineKind, double LineValue, int32_t X, int32_t Y) {
  const bool Result =
      Framed([&] { return FCalibration.RemoveCalibPoint(LineKind, LineValue, X, Y); });
  ReportCalibration();
  return Result;
}

void TGeoMap::RestoreLastDeletedCalPoint() {
  const TCalibData Before = CalibData();
  Framed([&] { FCalibration.RestoreLastDeletedCalPoint(); });
  if (CalibData() != Before) ReportCalibration();
}

void TGeoMap::ClearCalibData() {
  FCalibration.ClearCalibData();
  ReportCalibration();
}

void TGeoMap::RecalcCalibration() {
  FCalibration.RecalcCalibration();
  ReportCalibration();
}

void TGeoMap::CalcExtentsAndResolution() {
  FCalibration.CalcExtentsAndResolution();
  Notify(&TGeoMapObserver::CalibrationChanged);
}

void TGeoMap::CalibQuality(double& QualX, double& QualY) const {
  FCalibration.CalibQuality(QualX, QualY);
}

// --- conversion ----------------------------------------------------------------------------------

double TGeoMap::CalcLatitude(int32_t X, int32_t Y, bool& Valid) const {
  return FCalibration.CalcLatitude(X, Y, Valid);
}

double TGeoMap::CalcLatitude(TPoint P, bool& Valid) const {
  return FCalibration.CalcLatitude(P, Valid);
}

double TGeoMap::CalcLongitude(int32_t X, int32_t Y, bool& Valid) const {
  return FCalibration.CalcLongitude(X, Y, Valid);
}

double TGeoMap::CalcLongitude(TPoint P, bool& Valid) const {
  return FCalibration.CalcLongitude(P, Valid);
}

bool TGeoMap::CalcPixelCoords(double Lat, double Long, int32_t& X, int32_t& Y) const {
  return FCalibration.CalcPixelCoords(Lat, Long, X, Y);
}

bool TGeoMap::CalcPixelCoordsUTM(double Northing, double Easting, int32_t& X, int32_t& Y) const {
  return FCalibration.CalcPixelCoordsUTM(Northing, Easting, X, Y);
}

int32_t TGeoMap::CalcUTMyFromNorthingX(double Northing, int32_t X) const {
  return FCalibration.CalcUTMyFromNorthingX(Northing, X);
}

int32_t TGeoMap::CalcUTMxFromEastingY(double Easting, int32_t Y) const {
  return FCalibration.CalcUTMxFromEastingY(Easting, Y);
}

bool TGeoMap::IsPositionWithinMap(double Lat, double Long) const {
  return FCalibration.IsPositionWithinMap(Lat, Long);
}

double TGeoMap::GetLastMClickLatitude() const {
  bool Valid = false;
  const double Latitude = FCalibration.CalcLatitude(FMouse.LastClick(), Valid);
  return Valid ? Latitude : 0;
}

double TGeoMap::GetLastMClickLongitude() const {
  bool Valid = false;
  const double Longitude = FCalibration.CalcLongitude(FMouse.LastClick(), Valid);
  return Valid ? Longitude : 0;
}

// --- files ---------------------------------------------------------------------------------------

void TGeoMap::SetCalDatName(const std::string& Name) {
  const auto Alive = Life();
  if (ResolveFile(Name).empty()) {
    ForgetImage();
    Notify(&TGeoMapObserver::ImageChanged);
    if (!Alive.expired()) Paint();
    return;
  }
  FCalDatName = Name;
  if (!LoadCalibration(Name, "").HeaderFound && !Alive.expired()) Paint();
}

// Reads, loads the image that the calibration names, fits and paints once.
TCalibReadResult TGeoMap::LoadCalibration(const TReadCalibration& Read,
                                          const std::string& BesideFile) {
  const auto Alive = Life();
  TCalibReadResult Result;
  try {
    Result = Read(ComponentMessage(""));
    if (!Result.HeaderFound) return Result;
    if (!CalibData().MapFName.empty()) LoadImage(CalibData().MapFName, BesideFile);
  } catch (...) {
    // What was read before the error stays and is shown; an image that cannot be used does not keep
    // the calibration from converting.
    if (!Alive.expired()) {
      if (Result.HeaderFound) FCalibration.FitModel();
      ReportCalibration();
    }
    throw;
  }
  if (Alive.expired()) return Result;
  FCalibration.FitModel();
  // Without the image the file's own corners and resolution are the best there are.
  if (FImage.Width() > 0) FCalibration.CalcExtentsAndResolution();
  ReportCalibration();
  return Result;
}

TCalibReadResult TGeoMap::LoadCalibration(const std::string& FileName, const std::string& Id) {
  const std::string Found = ResolveFile(FileName);
  TextFile File;
  File.Reset(Found.empty() ? FileName : Found);
  const auto Read = [&](const std::string& Prefix) {
    return ReadCalibration(File, Id, FCalibration, Prefix);
  };
  return LoadCalibration(TReadCalibration(Read), File.Path());
}

bool TGeoMap::LoadCalDataFromXML(const std::string& FileName, const std::string& Id) {
  return LoadCalibration(FileName, Id).GraticuleComplete;
}

bool TGeoMap::LoadCalDataFromXML(TMemoryStream& Stream, const std::string& Id) {
  const auto Read = [&](const std::string& Prefix) {
    return ReadCalibration(Stream, Id, FCalibration, Prefix);
  };
  return LoadCalibration(TReadCalibration(Read), "").GraticuleComplete;
}

bool TGeoMap::ReadCalDataFromOpenXMLFile(TextFile& F, const std::string& Id) {
  const auto Read = [&](const std::string& Prefix) {
    return ReadCalibration(F, Id, FCalibration, Prefix);
  };
  return LoadCalibration(TReadCalibration(Read), F.Path()).GraticuleComplete;
}

void TGeoMap::SaveCalDataAsXML(const std::string& FileName, const std::string& Id) const {
  SaveCalData(FileName, Id, CalibData(), CalibModel(), ComponentMessage(""));
}

void TGeoMap::SaveCalDataAsXML(TStream& Stream, const std::string& Id) const {
  WriteCalDataToStream(Stream, Id, CalibData(), CalibModel(), ComponentMessage(""));
}

void TGeoMap::WriteCalDataToOpenXMLFile(TextFile& F, bool WithHeader, const std::string& Id) const {
  WriteRawCalDataToOpenXMLFile(F, WithHeader, Id, CalibData(), CalibModel(), ComponentMessage(""));
}

}  // namespace zav

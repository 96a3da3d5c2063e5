// geo_map_image.cpp - the control's map image: loaded, replaced, scaled.
// SPDX-License-Identifier: MIT
#include <geomap/geo_map.h>

#include <algorithm>
#include <optional>
#include <utility>

#include <platform/base/paths.h>

namespace zav {

void TGeoMap::SetMapImgName(const std::string& Name) {
  const auto Alive = Life();
  LoadImage(Name, "");
  if (!Alive.expired()) Paint();
}

void TGeoMap::SetMapBitMap(const TBitmap& Bitmap) {
  FImage.SetBitmap(Bitmap);
  AcceptImage(UnknownMapImgName);
  const auto Alive = Life();
  ReportImage();
  if (!Alive.expired()) Paint();
}

// Does not paint, so that loading a calibration paints once.
void TGeoMap::LoadImage(const std::string& Name, const std::string& BesideFile) {
  const auto Alive = Life();
  // A handler may change what Name refers to. NOLINTNEXTLINE(performance-unnecessary-copy-*)
  const std::string Given = Name;
  std::string FileName = Name;
  if (const TMapImgRequestEvent Request = OnMapImageRequest) {
    Request(this, FileName);
    if (Alive.expired()) return;
  }
  FImage.InvalidateCache();
  const std::string Path =
      BesideFile.empty() ? ResolveFile(FileName) : ResolveFile(FileName, BesideFile);
  if (Path.empty()) {
    ForgetImage();
    return Notify(&TGeoMapObserver::ImageChanged);
  }

  const auto Progress = [&](int Percent) {
    bool Cancel = false;
    if (const TProgressEvent Handler = OnDataLoading) Handler(this, Percent, Cancel);
    return !Alive.expired() && !Cancel;
  };
  std::optional<TBitmap> Bitmap;
  try {
    Bitmap = Framed([&] { return ReadMapBitmap(Path, Progress); });
  } catch (const EImageCancelled&) {
    if (Alive.expired()) return;  // there is no one left to tell
    throw;
  }
  if (Alive.expired()) return;
  if (Bitmap) FImage.SetBitmap(std::move(*Bitmap));
  AcceptImage(Given);
  ReportImage();
}

void TGeoMap::AcceptImage(const std::string& Name) {
  Framed([&] { FImage.Accept(Name); });
  FCalibration.SetImageSize(FImage.Width(), FImage.Height());
  SizePictureToMap();
}

void TGeoMap::ForgetImage() noexcept {
  FImage.Forget();
  FCalibration.SetImageSize(0, 0);
}

void TGeoMap::SizePictureToMap() {
  // A rendering under way draws on the picture; the next one sizes it as it needs.
  if (!FPainting) FInternalMapImg->SetSize(FImage.Width(), FImage.Height());
}

void TGeoMap::ReportImage() {
  const auto Alive = Life();
  Notify(&TGeoMapObserver::ImageChanged);
  if (!Alive.expired()) ChangeView({{0, 0}, FView.Magnification});
}

void TGeoMap::ResizeMap(int32_t LongestSide) {
  const int32_t Longest = std::max(FImage.Width(), FImage.Height());
  if (Longest > 0) ResizeMap(static_cast<double>(LongestSide) / Longest);
}

void TGeoMap::ResizeMap(double Factor) {
  if (!(Factor > 0) || FImage.Width() < 1 || FImage.Height() < 1) return;
  Framed([&] {
    FImage.Resize(Factor, AntiAlias() ? TStretchMode::smHalftone : TStretchMode::smColorOnColor);
  });
  FCalibration.SetImageSize(FImage.Width(), FImage.Height());
  FCalibration.ScalePixels(Factor);
  SizePictureToMap();
  const auto Alive = Life();
  ReportImage();
  if (!Alive.expired()) ReportCalibration();
}

}  // namespace zav

// geo_map_image.cpp - the control's map image: loaded, replaced, scaled, saved, copied.
// SPDX-License-Identifier: MIT
#include <geomap/geo_map.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

#include <platform/base/atomic_file.h>
#include <platform/base/file_ops.h>
#include <platform/base/paths.h>
#include <platform/codec/decoding.h>
#include <platform/codec/jpeg_writer.h>
#include <platform/host/host.h>
#include <platform/host/scaled_canvas.h>
#include <platform/raster/raster_canvas.h>

namespace zav {
namespace {

constexpr int SavedQuality = 95;

bool IsAnotherFile(const std::string& Path, const std::string& Than) {
  std::error_code Error;
  return std::filesystem::exists(Path, Error) && !std::filesystem::equivalent(Path, Than, Error);
}

}  // namespace

void TGeoMap::SetMapImgName(const std::string& Name) {
  const auto Alive = Life();
  LoadImage(Name, "");
  if (!Alive.expired()) Paint();
}

void TGeoMap::SetMapBitMap(const TBitmap& Bitmap) {
  const auto Alive = Life();
  TakeBitmap(Bitmap);
  if (!Alive.expired()) Paint();
}

void TGeoMap::TakeBitmap(const TBitmap& Bitmap) {
  FImage.SetBitmap(Bitmap);
  AcceptImage(UnknownMapImgName);
  FImageBeside.clear();
  ReportImage();
}

// Does not paint, so that loading a calibration paints once.
void TGeoMap::LoadImage(const std::string& Name, const std::string& BesideFile) {
  const auto Alive = Life();
  // A handler may change what the names refer to. NOLINTBEGIN(performance-unnecessary-copy-*)
  const std::string Given = Name;
  const std::string Beside = BesideFile;
  // NOLINTEND(performance-unnecessary-copy-*)
  std::string FileName = Name;
  if (const TMapImgRequestEvent Request = OnMapImageRequest) {
    Request(this, FileName);
    if (Alive.expired()) return;
  }
  NotifyWith([&](TGeoMapObserver& Each) { Each.ImageRequested(*this, FileName); });
  if (Alive.expired()) return;
  FImage.InvalidateCache();
  const std::string Path = Beside.empty() ? ResolveFile(FileName) : ResolveFile(FileName, Beside);
  if (Path.empty()) {
    ForgetImage();
    return Notify(&TGeoMapObserver::ImageChanged);
  }

  const TImageStamp File = ImageStampOf(Path);
  if (FKeptImages.Limit() == 0 || FImage.File() != File || !File.Known()) {
    std::optional<TBitmap> Bitmap = FKeptImages.Take(File);
    try {
      if (!Bitmap) Bitmap = Framed([&] { return ReadMapBitmap(Path, ImageProgress()); });
    } catch (const EImageCancelled&) {
      if (Alive.expired()) return;  // there is no one left to tell
      throw;
    }
    if (Alive.expired()) return;
    if (Bitmap) FKeptImages.Keep(FImage.Exchange({File, std::move(*Bitmap)}));
  }
  AcceptImage(Given);
  FImageBeside = Beside;
  ReportImage();
}

void TGeoMap::KeepImage(const std::string& Name) {
  const std::string Path = ResolveFile(Name);
  if (Path.empty()) throw EInOutError(Name, "no such file");
  const TImageStamp File = ImageStampOf(Path);
  if (FImage.File() == File || FKeptImages.Holds(File)) return;
  Framed([&] {
    TMapImage Image;
    if (std::optional<TBitmap> Bitmap = ReadMapBitmap(Path, nullptr))
      Image.Exchange({File, std::move(*Bitmap)});
    Image.Accept(Path);
    FKeptImages.Keep(Image.Exchange({}));
  });
}

// OnDataLoading as a progress handler; it cancels when the control is gone.
TImageProgress TGeoMap::ImageProgress() {
  return [this, Alive = Life()](int Percent) {
    bool Cancel = false;
    if (const TProgressEvent Handler = OnDataLoading) Handler(this, Percent, Cancel);
    if (!Alive.expired())
      NotifyWith([&](TGeoMapObserver& Each) { Each.DataLoading(*this, Percent); });
    return !Alive.expired() && !Cancel;
  };
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

// --- saving and copying --------------------------------------------------------------------------

void TGeoMap::SaveMap(const std::string& FileName, const std::string& Id) {
  const std::string Base = StripExtension(FileName);
  const std::string Name = StripPath(Base) + ".jpg";
  const std::string Path = DirectoryOf(FileName) + Name;
  if (StripPath(Base).empty()) throw EInOutError(FileName, "names no file");
  if (FImage.Empty()) throw EInOutError(Path, "there is no map image to save");
  TCalibData Data = CalibData();
  Data.MapFName = Name;
  const TCalibModel Model = CalibModel();
  const TBitmap Pixels = FImage.Bitmap();  // a progress handler may change the map

  const auto Alive = Life();
  const std::string Prefix = ComponentMessage("");
  TAtomicFile File(Path);
  try {
    const TImageProgress Progress = ImageProgress();
    TPercentReport Report(Progress);
    EncodeJpeg(Pixels, SavedQuality, Path, File, Report);
    Report.Report(100);
    File.Sync();
  } catch (const EImageCancelled&) {
    if (Alive.expired()) return;  // there is no one left to tell
    throw;
  }
  // The image is whole by now, so that hardly anything can come between the two files.
  SaveCalData(Base + ".xml", Id, Data, Model, Prefix);
  File.Commit();
  if (Alive.expired()) return;
  FCalibration.SetMapFName(Name);
  FImageBeside = Base + ".xml";
  FImage.Rename(Name);
  Notify(&TGeoMapObserver::ImageChanged);
}

// Where the image's file is now; empty when there is none.
std::string TGeoMap::ImagePath() const {
  return FImageBeside.empty() ? ResolveFile(FImage.Name())
                              : ResolveFile(FImage.Name(), FImageBeside);
}

bool TGeoMap::RenameMapImg(const std::string& NewName) {
  const std::string Base = StripExtension(StripPath(ReduceStringToFN83CompliantChars(NewName)));
  const std::string Path = ImagePath();
  if (Base.find_first_not_of('.') == std::string::npos || Path.empty()) return false;
  const std::string Name = Base + ExtensionOf(FImage.Name());
  const std::string NewPath = DirectoryOf(Path) + Name;
  if (IsAnotherFile(NewPath, Path)) return false;
  if (const int Error = FileOps().Rename(Path, NewPath); Error != 0) {
    throw EInOutError(Path, SystemReason(Error));
  }
  FImage.Rename(DirectoryOf(FImage.Name()) + Name);
  Notify(&TGeoMapObserver::ImageChanged);
  return true;
}

void TGeoMap::CopyToClipboard() {
  const TRenderScene Now = Scene();
  const TSize Size = Now.DeviceSize();
  const int32_t W = Width();
  const int32_t H = Height();
  TBitmap Copy(Size.Width, Size.Height, TPixelFormat::pf32bit);
  TRasterCanvas Device(Copy);
  TScaledCanvas Canvas(Device, Now.Scale);
  const TRect Inside = Canvas.DeviceRect({2, 2, W - 2, H - 2});
  Device.CopyRect(Inside.Left, Inside.Top, *FInternalMapImg, Inside);
  Canvas.Pen = {clBlack};
  Canvas.Brush.Style = TBrushStyle::bsClear;
  Canvas.Rectangle(1, 1, W - 1, H - 1);
  Host().Clipboard().SetBitmap(Copy);
}

void TGeoMap::CopyEntireMapToClipboard() {
  TBitmap Copy(TPixelFormat::pf32bit);
  THost& Owner = Host();  // a handler may destroy the control
  CopyToBMP(&Copy, {0, 0}, 1, 0, 0, FImage.Width(), FImage.Height());
  if (!Copy.Empty()) Owner.Clipboard().SetBitmap(Copy);
}

}  // namespace zav

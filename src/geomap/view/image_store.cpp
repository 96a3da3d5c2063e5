// image_store.cpp - see image_store.h.
// SPDX-License-Identifier: MIT
#include <geomap/view/image_store.h>

#include <algorithm>
#include <system_error>
#include <utility>

namespace zav {
namespace {

int64_t BytesOf(const TBitmap& Bitmap) {
  return static_cast<int64_t>(Bitmap.Stride()) * Bitmap.Height();
}

}  // namespace

TImageStamp ImageStampOf(const std::string& Path) {
  std::error_code Error;
  TImageStamp Stamp;
  Stamp.Size = std::filesystem::file_size(Path, Error);
  if (Error) return {};
  Stamp.Written = std::filesystem::last_write_time(Path, Error);
  if (Error) return {};
  Stamp.Path = Path;
  return Stamp;
}

void TImageStore::SetLimit(int64_t Bytes) {
  FLimit = std::max<int64_t>(Bytes, 0);
  Shrink(FLimit);
}

void TImageStore::Shrink(int64_t Bytes) {
  while (FUsed > Bytes) {
    FUsed -= BytesOf(FImages.back().Bitmap);
    FImages.pop_back();
  }
}

void TImageStore::Keep(TStampedBitmap Image) {
  const int64_t Bytes = BytesOf(Image.Bitmap);
  if (!Image.File.Known() || Bytes > FLimit) return;
  // What was read from an older state of the file is of no use any more.
  const auto Old = std::find_if(FImages.begin(), FImages.end(), [&](const TStampedBitmap& Each) {
    return Each.File.Path == Image.File.Path;
  });
  if (Old != FImages.end()) {
    FUsed -= BytesOf(Old->Bitmap);
    FImages.erase(Old);
  }
  Shrink(FLimit - Bytes);
  FImages.push_front(std::move(Image));
  FUsed += Bytes;
}

bool TImageStore::Holds(const TImageStamp& File) const {
  return std::any_of(FImages.begin(), FImages.end(),
                     [&](const TStampedBitmap& Each) { return Each.File == File; });
}

std::optional<TBitmap> TImageStore::Take(const TImageStamp& File) {
  const auto Found = std::find_if(FImages.begin(), FImages.end(),
                                  [&](const TStampedBitmap& Each) { return Each.File == File; });
  if (!File.Known() || Found == FImages.end()) return std::nullopt;
  std::optional<TBitmap> Bitmap(std::move(Found->Bitmap));
  FUsed -= BytesOf(*Bitmap);
  FImages.erase(Found);
  return Bitmap;
}

}  // namespace zav

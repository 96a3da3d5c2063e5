// decoding.cpp - see decoding.h.
// SPDX-License-Identifier: MIT
#include <platform/codec/decoding.h>

#include <algorithm>

namespace zav {

bool TPercentReport::Report(int64_t Percent) {
  Percent = std::clamp<int64_t>(Percent, 0, 100);
  if (FCancelled || Percent <= FLast) return !FCancelled;
  FLast = Percent;
  FCancelled = FHandler && !FHandler(static_cast<int>(Percent));
  return !FCancelled;
}

void CheckDecodable(TSize Size, const std::string& Name) {
  if (int64_t{Size.Width} * Size.Height <= MaxDecodablePixels) return;
  throw EInOutError(Name, "the picture is too large (" + std::to_string(Size.Width) + " x " +
                              std::to_string(Size.Height) + " pixels; at most " +
                              std::to_string(MaxDecodablePixels) + " pixels can be decoded)");
}

}  // namespace zav

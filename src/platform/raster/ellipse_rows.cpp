// SPDX-License-Identifier: MIT
#include "platform/raster/ellipse_rows.h"

#include <algorithm>
#include <cmath>

namespace zav {

namespace {

// The largest X <= W with (X/W)^2 + (Y/H)^2 <= 1, exactly. Y <= H; TSquare holds W^2 * H^2.
template <class TSquare>
uint64_t LargestInside(TSquare W, TSquare H, TSquare Y) {
  if (Y == 0) return static_cast<uint64_t>(W);
  const TSquare Height = H * H;
  const TSquare Most = W * W * (Height - Y * Y);
  const auto Inside = [&](TSquare X) { return X * X * Height <= Most; };
  const double Root = std::sqrt(static_cast<double>(H - Y) * static_cast<double>(H + Y));
  TSquare X =
      std::min(static_cast<TSquare>(static_cast<double>(W) * Root / static_cast<double>(H)), W);
  while (X > 0 && !Inside(X)) --X;
  while (X < W && Inside(X + 1)) ++X;
  return static_cast<uint64_t>(X);
}

uint64_t LargestInside(uint64_t W, uint64_t H, uint64_t Y) {
  using TLong = unsigned __int128;
  if (std::max(W, H) < 0x10000U) return LargestInside<uint64_t>(W, H, Y);
  return LargestInside<TLong>(W, H, Y);
}

}  // namespace

TEllipseRows::TExtent TEllipseRows::Extent(int64_t Row) const noexcept {
  if (Row < 0 || Row >= FHeight || FWidth <= 0) return {0, 0};
  // Doubled coordinates about the centre: the pixels of the box lie at -W, -W + 2, ..., W.
  const uint64_t W = static_cast<uint64_t>(FWidth - 1);
  const uint64_t H = static_cast<uint64_t>(FHeight - 1);
  const int64_t FromCentre = 2 * Row - (FHeight - 1);
  const uint64_t Y = static_cast<uint64_t>(FromCentre < 0 ? -FromCentre : FromCentre);
  const uint64_t Down = LargestInside(W, H, Y == 0 ? 0 : Y - 1);
  const uint64_t Across = LargestInside(W, H, Y) + 1;
  uint64_t X = std::min(std::max(Down, Across), W);
  if ((X ^ W) & 1U) --X;
  return {static_cast<int64_t>((W - X) / 2), static_cast<int64_t>((W + X) / 2 + 1)};
}

}  // namespace zav

// SPDX-License-Identifier: MIT
#include "platform/raster/ellipse_rows.h"

#include <algorithm>
#include <cmath>

namespace zav {

namespace {

using TSquare = unsigned __int128;

TSquare Square(uint64_t V) { return static_cast<TSquare>(V) * V; }

// The largest X <= W with (X/W)^2 + (Y/H)^2 <= 1, exactly. W, H < 2^32, Y <= H.
uint64_t LargestInside(uint64_t W, uint64_t H, uint64_t Y) {
  if (Y == 0) return W;
  const auto Inside = [&](uint64_t X) {
    return Square(X) * Square(H) <= Square(W) * (Square(H) - Square(Y));
  };
  const double Root = std::sqrt(static_cast<double>(H - Y) * static_cast<double>(H + Y));
  uint64_t X =
      std::min(static_cast<uint64_t>(static_cast<double>(W) * Root / static_cast<double>(H)), W);
  while (X > 0 && !Inside(X)) --X;
  while (X < W && Inside(X + 1)) ++X;
  return X;
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

// conic_pole.cpp - whether a conic fit has found the point in which the meridians meet.
// SPDX-License-Identifier: MIT
#include "common/conic_pole.h"

#include <algorithm>
#include <cmath>

namespace zav {

namespace {

// What a straight line through pairs of values leaves of the second ones: sums of squares.
class TLineRest {
 public:
  void Add(double X, double Y) {
    ++FCount;
    const double DX = X - FMeanX;
    const double DY = Y - FMeanY;
    FMeanX += DX / FCount;
    FMeanY += DY / FCount;
    FXX += DX * (X - FMeanX);
    FXY += DX * (Y - FMeanY);
    FYY += DY * (Y - FMeanY);
  }
  double Squares() const { return FXX > 0 ? std::max(0.0, FYY - FXY * FXY / FXX) : FYY; }

 private:
  double FCount = 0;
  double FMeanX = 0, FMeanY = 0;
  double FXX = 0, FXY = 0, FYY = 0;
};

// On a cone latitudes grow evenly with the distance from the pole, longitudes with the angle at it.
double SquaresAt(const TCalibData& Data, double PoleX, double PoleY) {
  TLineRest Latitudes;
  TLineRest Longitudes;
  for (size_t i = 0; i < static_cast<size_t>(Data.NumCalQuads); ++i) {
    const TCalQuad& Quad = Data.CalQuads[i];
    const double X = Quad.MapX - PoleX;
    const double Y = Quad.MapY - PoleY;
    Latitudes.Add(std::hypot(X, Y), Quad.Latitude);
    if (Y != 0) Longitudes.Add(std::atan(X / Y), Quad.Longitude);
  }
  return Latitudes.Squares() + Longitudes.Squares();
}

// Goes to the best neighbour as long as there is one, in steps that get smaller down to a pixel.
double Descend(const TCalibData& Data, double X, double Y, double Step) {
  double Best = SquaresAt(Data, X, Y);
  while (Step >= 1) {
    for (int Moves = 0; Moves < 8; ++Moves) {
      const double FromX = X;
      const double FromY = Y;
      const double Before = Best;
      for (int i = -1; i <= 1; ++i)
        for (int j = -1; j <= 1; ++j) {
          const double There = SquaresAt(Data, FromX + i * Step, FromY + j * Step);
          if (There >= Best) continue;
          Best = There;
          X = FromX + i * Step;
          Y = FromY + j * Step;
        }
      if (Best == Before) break;
    }
    Step /= 2;
  }
  return Best;
}

}  // namespace

double ConicSearchGain(const TCalibration& Calibration) {
  const TCalibData& Data = Calibration.Data();
  if (Calibration.Model() != TCalibModel::cmConicConformal || Data.NumCalQuads < 4) return 1;
  const auto Last = Data.CalQuads.begin() + Data.NumCalQuads;
  const auto [Left, Right] =
      std::minmax_element(Data.CalQuads.begin(), Last,
                          [](const TCalQuad& A, const TCalQuad& B) { return A.MapX < B.MapX; });
  const auto [Top, Bottom] =
      std::minmax_element(Data.CalQuads.begin(), Last,
                          [](const TCalQuad& A, const TCalQuad& B) { return A.MapY < B.MapY; });
  const double X = (Left->MapX + Right->MapX) / 2.0;
  const double Y = (Top->MapY + Bottom->MapY) / 2.0;
  const double Size = std::max(Right->MapX - Left->MapX, Bottom->MapY - Top->MapY);
  const auto& Pole = Calibration.Coefficients().ConicParams;
  const double Fitted = SquaresAt(Data, Pole[0], Pole[1]);
  double Best = Fitted;
  for (int Halves = 1; Halves <= 32; Halves *= 2) {
    const double Far = Size * Halves / 2;
    for (const double Side : {-1.0, 1.0})
      Best = std::min(Best, Descend(Data, X, Y + Side * Far, Far / 2));
  }
  return Best > 0 ? std::sqrt(Fitted / Best) : 1;
}

}  // namespace zav

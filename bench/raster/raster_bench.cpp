// raster_bench.cpp - lines and stretching beside Qt's painter, in the same process.
//
// Ours and Qt's run in turn, round after round.
// SPDX-License-Identifier: MIT
#include <platform/raster/raster_canvas.h>

#include <QImage>
#include <QPainter>
#include <cstdio>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "support/rounds.h"

using namespace zav;

namespace {

void Versus(const std::string& Name, double AtMost, const std::function<void()>& Ours,
            const std::function<void()>& Peer) {
  bench::Compare(Name, 1, 61, {{"zavgeo", Ours}, {"QPainter", Peer, AtMost}});
}

// A picture with detail at every scale, the same for both.
TBitmap Picture(int32_t Width, int32_t Height) {
  TBitmap Result(Width, Height, TPixelFormat::pf32bit);
  std::mt19937 Random(7);
  for (int32_t Y = 0; Y < Height; ++Y) {
    for (int32_t X = 0; X < Width; ++X) {
      const uint32_t Noise = Random() & 63U;
      Result.SetPixel(
          X, Y,
          RgbColor(static_cast<uint8_t>(X / 9 + Noise), static_cast<uint8_t>(Y / 7 + Noise),
                   static_cast<uint8_t>((X ^ Y) / 3 + Noise)));
    }
  }
  return Result;
}

QImage Wrapped(TBitmap& Bitmap) {
  return {
      Bitmap.Row(0), Bitmap.Width(), Bitmap.Height(), static_cast<qsizetype>(Bitmap.Stride()),
      Bitmap.PixelFormat() == TPixelFormat::pf15bit ? QImage::Format_RGB555 : QImage::Format_RGB32};
}

void CompareLines() {
  TBitmap Ours(1920, 1080, TPixelFormat::pf15bit);
  QImage Theirs(1920, 1080, QImage::Format_RGB555);
  Theirs.fill(0);
  std::vector<TPoint> From;
  std::vector<TPoint> To;
  std::mt19937 Random(15);
  for (int I = 0; I < 100000; ++I) {
    const TPoint A{static_cast<int32_t>(Random() % 1880 + 20),
                   static_cast<int32_t>(Random() % 1040 + 20)};
    const int32_t Other = static_cast<int32_t>(Random() % 31) - 15;
    const int32_t Long = Random() % 2 == 0 ? 15 : -15;
    From.push_back(A);
    To.push_back(Random() % 2 == 0 ? TPoint{A.X + Long, A.Y + Other}
                                   : TPoint{A.X + Other, A.Y + Long});
  }
  TRasterCanvas Raster(Ours);
  TCanvas& Canvas = Raster;
  QPainter Painter(&Theirs);
  Canvas.Pen.Color = clWhite;
  Painter.setPen(QColor(255, 255, 255));
  Versus(
      "lines-15px-15bit", 0.2,
      [&] {
        for (size_t I = 0; I < From.size(); ++I) {
          Canvas.MoveTo(From[I].X, From[I].Y);
          Canvas.LineTo(To[I].X, To[I].Y);
        }
      },
      [&] {
        for (size_t I = 0; I < From.size(); ++I) {
          Painter.drawLine(From[I].X, From[I].Y, To[I].X, To[I].Y);
        }
      });
}

void CompareShrinking(TBitmap& Map) {
  const QImage Image = Wrapped(Map);
  const TRectDouble Whole{0, 0, 2000, 1500};
  for (const TPixelFormat Format : {TPixelFormat::pf32bit, TPixelFormat::pf15bit}) {
    TBitmap Target(1333, 1000, Format);
    Versus(
        Format == TPixelFormat::pf32bit ? "shrink-1333x1000-32-32" : "shrink-1333x1000-32-15", 1.2,
        [&] {
          TRasterCanvas(Target).StretchDraw({0, 0, 1333, 1000}, Map, Whole,
                                            TStretchMode::smHalftone);
        },
        [&] {
          const QImage Scaled =
              Image.scaled(1333, 1000, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        });
  }
}

void PaintQt(QImage& Target, const QRectF& Dest, const QImage& Image, const QRectF& Source,
             bool Smooth) {
  QPainter Painter(&Target);
  Painter.setCompositionMode(QPainter::CompositionMode_Source);
  Painter.setRenderHint(QPainter::SmoothPixmapTransform, Smooth);
  Painter.drawImage(Dest, Image, Source);
}

// The map cache below the magnification of 2/3: the whole image is shrunk at once.
void CompareCaches(TBitmap& Map) {
  const QImage Image = Wrapped(Map);
  for (const int Percent : {50, 60}) {
    TBitmap Cache(2000 * Percent / 100, 1500 * Percent / 100, TPixelFormat::pf15bit);
    const TRect Dest{0, 0, Cache.Width(), Cache.Height()};
    QImage Target(Dest.Right, Dest.Bottom, QImage::Format_RGB555);
    Versus(
        Percent == 50 ? "cache-0.5-32-15" : "cache-0.6-32-15", 2.5,
        [&] {
          TRasterCanvas(Cache).StretchDraw(Dest, Map, {0, 0, 2000, 1500}, TStretchMode::smHalftone);
        },
        [&] {
          PaintQt(Target, QRectF(0, 0, Dest.Right, Dest.Bottom), Image, QRectF(0, 0, 2000, 1500),
                  true);
        });
  }
}

void CompareViews(TBitmap& Map) {
  const QImage Image = Wrapped(Map);
  TBitmap Ours(1920, 1080, TPixelFormat::pf15bit);
  QImage Theirs(1920, 1080, QImage::Format_RGB555);
  for (const bool Smooth : {true, false}) {
    for (const double Magnification : {1.0, 1.7, 2.0}) {
      const double Width = 1920 / Magnification;
      const double Height = 1080 / Magnification;
      char Name[40];
      std::snprintf(Name, sizeof(Name), "view-%s-%.1f-32-15", Smooth ? "smooth" : "plain",
                    Magnification);
      Versus(
          Name, Smooth ? 2.0 : 1.3,
          [&] {
            TRasterCanvas(Ours).StretchDraw(
                {0, 0, 1920, 1080}, Map, {31, 17, 31 + Width, 17 + Height},
                Smooth ? TStretchMode::smHalftone : TStretchMode::smColorOnColor);
          },
          [&] {
            PaintQt(Theirs, QRectF(0, 0, 1920, 1080), Image, QRectF(31, 17, Width, Height), Smooth);
          });
    }
  }
}

}  // namespace

int main() {
  CompareLines();
  TBitmap Map = Picture(2000, 1500);
  CompareShrinking(Map);
  CompareCaches(Map);
  CompareViews(Map);
  return 0;
}

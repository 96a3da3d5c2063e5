// pass_landmarks.cpp - symbols and captions of the landmarks, and the highlighted one.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>

#include <geomap/landmarks/caption_drawing.h>
#include <geomap/landmarks/symbol_drawing.h>
#include <geomap/view/passes.h>
#include <platform/base/random.h>
#include <platform/host/scaled_canvas.h>
#include <platform/raster/raster_canvas.h>

namespace zav {
namespace {

using TChunk = TLandMarkPixels::TChunk;

bool StrictlyInside(TPoint P, TSize Control) noexcept {
  return P.X > 0 && P.X < Control.Width && P.Y > 0 && P.Y < Control.Height;
}

// Draws landmarks one by one.
class TLandMarkDrawing {
 public:
  TLandMarkDrawing(const TRenderScene& Scene, TLandMarkCache& Cache, TCanvas& Device,
                   TCanvas& Control, const TDrawLandMarkHook& Hook)
      : FScene(Scene),
        FCache(Cache),
        FDevice(Device),
        FControl(Control),
        FRaster(dynamic_cast<TRasterCanvas*>(&Device)),
        FHook(Hook) {}

  // False when the picture ends. A symbol of another look than the landmark's is the highlighted
  // one, whose caption is already there.
  bool Draw(const TLandMark& LandMark, TPoint Map, const TSymbolProperties* Look = nullptr) {
    const TPoint P = MapImageToControl(FScene.View, Map);
    if (FHook) {
      const TDrawAnswer Answer = FHook(FControl, P, LandMark);
      if (Answer == TDrawAnswer::daGone) return false;
      if (Answer == TDrawAnswer::daHandled) return true;
    }
    if (!StrictlyInside(P, FScene.Control)) return true;
    const TPoint At = FScene.Scale == 1 ? P : FScene.ToDevice(Map.X, Map.Y);
    DrawSymbol(Look == nullptr ? LandMark.SymbolProps : *Look, At);
    if (Look == nullptr) DrawLandMarkCaption(FDevice, At, LandMark.Caption, FScene.Scale);
    return true;
  }

 private:
  void DrawSymbol(const TSymbolProperties& Symbol, TPoint At) {
    if (FRaster != nullptr) {
      return FCache.Stamps.Draw(FRaster->Target(), At, Symbol, FScene.Scale);
    }
    if (FScene.Scale != 1) {
      TScaledCanvas Canvas(FDevice, FScene.Scale, At.X, At.Y);
      return DrawLandMarkSymbolOnCanvas(Canvas, 0, 0, Symbol);
    }
    FDevice.Pen = {};
    FDevice.Brush = {};
    DrawLandMarkSymbolOnCanvas(FDevice, At.X, At.Y, Symbol);
  }

  const TRenderScene& FScene;
  TLandMarkCache& FCache;
  TCanvas& FDevice;
  TCanvas& FControl;
  TRasterCanvas* FRaster;
  const TDrawLandMarkHook& FHook;
};

// The probability with which a landmark is drawn.
double ShareDrawn(const TRenderScene& Scene, const TLandMarkPixels::TChunks& Chunks) {
  const TLandMarkLayer& Layer = Scene.LandMarks;
  if (Layer.DisplayThreshold >= Layer.List.Count()) return 1;
  const int32_t W = Scene.Control.Width;
  const int32_t H = Scene.Control.Height;
  TCornerArray View;
  size_t Corner = 0;
  for (const TPoint P : {TPoint{0, 0}, TPoint{0, H}, TPoint{W, H}, TPoint{W, 0}}) {
    const TPoint Map = ControlToMapImage(Scene.View, P);
    bool Ignored = false;
    View[Corner++] = {Scene.Calibration.CalcLatitude(Map, Ignored),
                      Scene.Calibration.CalcLongitude(Map, Ignored)};
  }
  const auto InView = static_cast<double>(CountInside(Chunks, View, Layer.ClassVisible));
  return Layer.DisplayThreshold < InView ? Layer.DisplayThreshold / InView : 1;
}

// Map pixels that are surely all in view, and some more; differences wrap around.
struct TMapRange {
  uint32_t Left, Top, Width, Height;

  TMapRange(const TViewState& View, TSize Control) noexcept
      : Left(static_cast<uint32_t>(View.TopLeft.X)),
        Top(static_cast<uint32_t>(View.TopLeft.Y)),
        Width(Extent(Control.Width, View.Magnification)),
        Height(Extent(Control.Height, View.Magnification)) {}

  static uint32_t Extent(int32_t Control, double Magnification) noexcept {
    return static_cast<uint32_t>(std::min(std::ceil(Control / Magnification) + 1, 4294967295.0));
  }
  // 1 or 0.
  unsigned Holds(int32_t X, int32_t Y) const noexcept {
    return static_cast<unsigned>(static_cast<uint32_t>(X) - Left <= Width) &
           static_cast<unsigned>(static_cast<uint32_t>(Y) - Top <= Height);
  }
};

// The entries of a chunk that are to be looked at: with a handler all, else those in the range.
size_t Candidates(const TChunk& Chunk, const TMapRange* Range, TChunk::TColumn<uint16_t>& Found) {
  size_t Count = 0;
  for (size_t I = 0; I < Chunk.Count; ++I) {
    Found[Count] = static_cast<uint16_t>(I);
    Count += Range == nullptr ? 1U : Range->Holds(Chunk.X[I], Chunk.Y[I]);
  }
  return Count;
}

}  // namespace

bool DrawLandMarks(const TRenderScene& Scene, TLandMarkCache& Cache, TCanvas& Device,
                   TCanvas& Control, const TDrawLandMarkHook& Hook) {
  const TLandMarkLayer& Layer = Scene.LandMarks;
  if (Layer.List.Count() == 0) return true;
  const TLandMarkPixels::TChunks Chunks = Cache.Pixels.Update(Layer.List, Scene.Calibration);
  const double Share = ShareDrawn(Scene, Chunks);
  const TMapRange InView(Scene.View, Scene.Control);
  TLandMarkDrawing Drawing(Scene, Cache, Device, Control, Hook);
  TChunk::TColumn<uint16_t> Found;
  int32_t Before = 0;  // landmarks of earlier chunks
  for (const auto& Chunk : Chunks) {
    const size_t Count = Candidates(*Chunk, Hook ? nullptr : &InView, Found);
    for (size_t K = 0; K < Count; ++K) {
      const size_t I = Found[K];
      if (!Chunk->OnMap[I] || !Layer.ClassVisible[Chunk->Class[I]]) continue;
      const int32_t Index = Before + static_cast<int32_t>(I) + 1;
      // Each landmark has a number of its own in the series, whichever others are looked at.
      if (Share < 1) {
        TRandom Random(Layer.ThinningSeed);
        Random.Skip(static_cast<uint64_t>(Index));
        if (!BRandom(Random, Share)) continue;
      }
      if (!Drawing.Draw(Layer.List[Index], {Chunk->X[I], Chunk->Y[I]})) return false;
    }
    Before += static_cast<int32_t>(Chunk->Count);
  }
  return true;
}

bool DrawHighLight(const TRenderScene& Scene, TLandMarkCache& Cache, TCanvas& Device,
                   TCanvas& Control, const TDrawLandMarkHook& Hook) {
  const TLandMarkLayer& Layer = Scene.LandMarks;
  const THighLight& HighLight = Layer.HighLight;
  if (HighLight.Index < 1 || HighLight.Index > Layer.List.Count()) return true;
  const TLandMark& LandMark = Layer.List[HighLight.Index];
  TPoint Map;
  if (!Layer.ClassVisible[LandMark.ClassFlag] ||
      Scene.Calibration.Model() == TCalibModel::cmUndefined ||
      !Scene.Calibration.CalcPixelCoords(LandMark.Latitude, LandMark.Longitude, Map.X, Map.Y)) {
    return true;
  }
  TSymbolProperties Look = LandMark.SymbolProps;
  Look.FGColor = HighLight.FGColor;
  Look.BGColor = HighLight.BGColor;
  Look.Transparent = HighLight.Transparent;
  return TLandMarkDrawing(Scene, Cache, Device, Control, Hook).Draw(LandMark, Map, &Look);
}

}  // namespace zav

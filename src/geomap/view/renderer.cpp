// renderer.cpp - see renderer.h.
// SPDX-License-Identifier: MIT
#include <geomap/view/renderer.h>

#include <algorithm>
#include <cmath>

#include <geomap/view/passes.h>
#include <platform/base/rounding.h>
#include <platform/host/frame.h>
#include <platform/host/scaled_canvas.h>

namespace zav {
namespace {

constexpr TPoint EmptyMsgPosition = {10, 10};

void DrawEmptyMessage(const TRenderScene& Scene, TCanvas& Device, TCanvas& Control) {
  const TSize Size = Scene.DeviceSize();
  Device.Brush = Control.Brush = {Scene.Look.ColorBackGnd, TBrushStyle::bsSolid};
  Device.FillRect({0, 0, Size.Width, Size.Height});
  Control.Font.Color = Scene.Look.ColorFrame;
  Control.TextOut(EmptyMsgPosition.X, EmptyMsgPosition.Y, Scene.Look.EmptyMsg);
}

void DrawMapFrame(const TRenderScene& Scene, TCanvas& Control) {
  const TMapLook& Look = Scene.Look;
  DrawFrame(Control, Look.FrameStyle, 0, 0, Scene.Control.Width - 1, Scene.Control.Height - 1,
            Look.ColorFrameLight, clSilver, Look.ColorFrameShadow, Look.ColorFrameDark, clBlack);
}

bool DrawMapLayers(const TRenderScene& Scene, const TRenderStores& Stores, TCanvas& Device,
                   TCanvas& Control, const TRenderHooks& Hooks) {
  DrawImage(Scene, Stores.Image, Device);
  if (Hooks.BeforeData && !Hooks.BeforeData(Control)) return false;
  DrawGraticule(Scene, Stores.Graticule, Device);
  DrawCalibLines(Scene, Device);
  DrawUTMGrid(Scene, Device);
  DrawMarkers(Scene, Device);
  Control.Pen = {clLime};
  TLandMarkCache Unkept;
  TLandMarkCache& Cache = Stores.LandMarks == nullptr ? Unkept : *Stores.LandMarks;
  if (!DrawLandMarks(Scene, Cache, Device, Control, Hooks.DrawLandMark)) return false;
  if (Hooks.DataRendered && !Hooks.DataRendered(Control)) return false;
  return DrawHighLight(Scene, Cache, Device, Control, Hooks.DrawLandMark);
}

}  // namespace

TSize TRenderScene::DeviceSize() const noexcept {
  return {RoundHalfEven(std::ceil(Control.Width * Scale)),
          RoundHalfEven(std::ceil(Control.Height * Scale))};
}

int32_t TRenderScene::PenWidth() const noexcept { return std::max(RoundHalfEven(Scale), 1); }

bool RenderMap(const TRenderScene& Scene, const TRenderStores& Stores, TCanvas& Device,
               const TRenderHooks& Hooks) {
  TScaledCanvas Scaled(Device, Scene.Scale);
  TCanvas& Control = Scene.Scale == 1 ? Device : Scaled;
  Control.Pen = {};
  if (!Scene.ShowMap) {
    DrawEmptyMessage(Scene, Device, Control);
  } else if (Scene.Visible) {
    if (!DrawMapLayers(Scene, Stores, Device, Control, Hooks)) return false;
  }
  DrawTrace(Scene.Trace, Scene.View, Scene.Scale, {0, 0}, Device);
  if (Scene.OnScreen) DrawMapFrame(Scene, Control);
  return true;
}

}  // namespace zav

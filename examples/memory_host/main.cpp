// The smallest host: no framework, no window; the control's picture is in memory and goes to a BMP
// file. docs/guide/host.md tells what a host for a framework does besides.
// SPDX-License-Identifier: MIT
#include <cmath>
#include <iostream>

#include <geomap/geo_map.h>
#include <platform/codec/image_file.h>
#include <platform/host/host.h>
#include <platform/host/scaled_canvas.h>
#include <platform/raster/raster_canvas.h>

// Text has a size, so that captions find their place, but no pixels.
class NoFonts final : public zav::TFontEngine {
 public:
  zav::TSize TextExtent(const zav::TFont& Font, std::string_view Text) override {
    return {static_cast<int32_t>(Font.Size * 0.75 * static_cast<double>(Text.size())),
            static_cast<int32_t>(Font.Size * 1.6)};
  }
  zav::TTextMask RenderText(const zav::TFont&, std::string_view) override { return {}; }
};

// The buffer of one control, Scale device pixels a control pixel.
class MemoryWindow final : public zav::TControlWindow {
 public:
  MemoryWindow(zav::TFontEngine& Fonts, double Scale)
      : FScale(Scale), FDevice(FBuffer, &Fonts), FControl(FDevice, Scale) {}

  double Scale() const override { return FScale; }
  void Resize(int32_t Width, int32_t Height) override {
    FBuffer.SetSize(static_cast<int32_t>(std::ceil(Width * FScale)),
                    static_cast<int32_t>(std::ceil(Height * FScale)));
  }
  zav::TCanvas& Canvas() override { return FControl; }
  zav::TCanvas& DeviceCanvas() override { return FDevice; }
  void Show(std::span<const zav::TRect>) override {}  // nobody looks at it

  const zav::TBitmap& Buffer() const { return FBuffer; }

 private:
  double FScale;
  zav::TBitmap FBuffer{zav::TPixelFormat::pf15bit};
  zav::TRasterCanvas FDevice;
  zav::TScaledCanvas FControl;
};

class MemoryHost final : public zav::THost {
 public:
  zav::TFontEngine& Fonts() override { return FFonts; }
  std::unique_ptr<zav::TControlWindow> CreateControlWindow(zav::TCustomControl&) override {
    return std::make_unique<MemoryWindow>(FFonts, 2);  // as on a screen of high resolution
  }
  // There are no events to wait for.
  bool ProcessMessages(const std::function<bool()>& Done) override { return Done(); }

 private:
  NoFonts FFonts;
};

int main(int argc, char** argv) {
  try {
    MemoryHost Host;
    zav::TGeoMap Map(nullptr, Host);
    Map.SetSize(600, 400);
    Map.SetShowGrat(zav::TShowGrat::sgLines);
    Map.SetGratLineDist(10);
    Map.LoadCalDataFromXML(argc > 1 ? argv[1] : "europe_conic.xml", "");
    Map.ZoomFitPage();
    const auto& Window = static_cast<const MemoryWindow&>(Map.Window());
    zav::SaveBmpFile(argc > 2 ? argv[2] : "map.bmp", Window.Buffer());
    std::cout << "Wrote " << Window.Buffer().Width() << " x " << Window.Buffer().Height()
              << " pixels.\n";
  } catch (const zav::EZAVError& Error) {
    std::cerr << Error.what() << '\n';
    return 1;
  }
  return 0;
}

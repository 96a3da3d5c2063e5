// test_host.h - a host without a display.
//
// A control's window is a bitmap of 15 bits a pixel; what is shown is written down.
// SPDX-License-Identifier: MIT
#ifndef ZAV_TESTS_SUPPORT_TEST_HOST_H
#define ZAV_TESTS_SUPPORT_TEST_HOST_H

#include <platform/host/host.h>
#include <platform/host/scaled_canvas.h>
#include <platform/raster/bitmap.h>
#include <platform/raster/raster_canvas.h>

#include <functional>
#include <memory>
#include <vector>

namespace zav {

// Every character is a filled block with a gap to its right and below; blanks are empty. At 8
// points a character takes 6 by 13 pixels, at other sizes in proportion. Bold, italic and the other
// styles change nothing.
class TTestFonts final : public TFontEngine {
 public:
  TSize TextExtent(const TFont& Font, std::string_view Text) override;
  TTextMask RenderText(const TFont& Font, std::string_view Text) override;
};

class TTestWindow final : public TControlWindow {
 public:
  TTestWindow(TFontEngine& Fonts, double Scale);

  double Scale() const override { return FScale; }
  void Resize(int32_t Width, int32_t Height) override;
  TCanvas& Canvas() override { return FScale == 1 ? FDevice : static_cast<TCanvas&>(*FScaled); }
  TCanvas& DeviceCanvas() override { return FDevice; }
  void Show(std::span<const TRect> Areas) override;

  // As when the window moves to another screen. The buffer gets its new size by the next Resize().
  void SetScale(double Scale);
  // The picture in device pixels.
  const TBitmap& Buffer() const { return FBuffer; }
  // The areas of each call of Show, in order.
  std::vector<std::vector<TRect>> Shows;

 private:
  double FScale;
  TBitmap FBuffer{TPixelFormat::pf15bit};
  TRasterCanvas FDevice;
  std::unique_ptr<TScaledCanvas> FScaled;
};

class TTestHost final : public THost {
 public:
  // Neither is there unless the test puts it there.
  TClipboard* TestClipboard = nullptr;
  TPrinter* TestPrinter = nullptr;
  TClipboard& Clipboard() override {
    return TestClipboard != nullptr ? *TestClipboard : THost::Clipboard();
  }
  TPrinter& Printer() override { return TestPrinter != nullptr ? *TestPrinter : THost::Printer(); }

  TFontEngine& Fonts() override { return FFonts; }
  std::unique_ptr<TControlWindow> CreateControlWindow(TCustomControl& Control) override;
  // Calls OnProcessMessages until it is done.
  bool ProcessMessages(const std::function<bool()>& Done) override;

  // The scale that windows made from now on have.
  double Scale = 1;
  // Stands for an event that ProcessMessages delivers.
  std::function<void()> OnProcessMessages;

  // The window of a control that was made with a TTestHost.
  static TTestWindow& WindowOf(TCustomControl& Control) {
    return static_cast<TTestWindow&>(Control.Window());
  }

 private:
  TTestFonts FFonts;
};

}  // namespace zav

#endif

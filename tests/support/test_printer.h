// test_printer.h - a clipboard and a printer that keep what they are given.
// SPDX-License-Identifier: MIT
#ifndef ZAV_TESTS_SUPPORT_TEST_PRINTER_H
#define ZAV_TESTS_SUPPORT_TEST_PRINTER_H

#include <platform/host/clipboard.h>
#include <platform/host/printer.h>
#include <platform/raster/bitmap.h>
#include <support/recording_canvas.h>

#include <memory>
#include <string>
#include <vector>

namespace zav {

class TTestClipboard final : public TClipboard {
 public:
  TBitmap Bitmap;
  void SetBitmap(const TBitmap& Copy) override { Bitmap = Copy; }
};

class TTestPrinter final : public TPrinter {
 public:
  TSize Page = {1600, 1200};
  double Resolution = 192;
  bool FailAtEnd = false;

  // What happened, one word or title each.
  std::vector<std::string> Log;
  // Each area that was drawn on, and what was drawn.
  struct TDrawn {
    TRect Area;
    std::unique_ptr<TRecordingCanvas> Canvas;
  };
  std::vector<TDrawn> Drawn;

  void BeginDoc(const std::string& Title) override {
    if (FOpen) throw EPrinterError("a document is open already");
    FOpen = true;
    Log.push_back("begin " + Title);
  }
  bool Printing() const override { return FOpen; }
  void NewPage() override { Log.push_back("page"); }
  void EndDoc() override {
    FOpen = false;
    if (FailAtEnd) throw EPrinterError("out of paper");
    Log.push_back("end");
  }
  void Abort() noexcept override {
    if (FOpen) Log.push_back("abort");
    FOpen = false;
  }
  TSize PageSize() const override { return Page; }
  double PixelsPerInch() const override { return Resolution; }
  TCanvas& PageCanvas(const TRect& Area) override {
    if (!FOpen) throw EPrinterError("no document is open");
    Drawn.push_back({Area, std::make_unique<TRecordingCanvas>()});
    return *Drawn.back().Canvas;
  }

 private:
  bool FOpen = false;
};

}  // namespace zav

#endif

/// @file
/// qt_printer.h - printers of the desktop, and PDF files, as printers of this library.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_QT_QT_PRINTER_H
#define ZAV_PLATFORM_QT_QT_PRINTER_H

#include <memory>
#include <string>

#include <QBuffer>
#include <QPageLayout>

#include <platform/base/api.h>
#include <platform/host/printer.h>

class QPagedPaintDevice;
class QPainter;
class QPdfWriter;

namespace zav {

class TQtPageCanvas;

/// Draws on a QPrinter, a QPdfWriter or any other device of pages, as it is set up when a document
/// begins: paper, margins, resolution. The device must outlive this object.
class ZAVGEO_API TQtPrinter final : public TPrinter {
 public:
  /// Nothing is asked of the device before BeginDoc.
  explicit TQtPrinter(QPagedPaintDevice& Device);
  /// Throws an open document away.
  ~TQtPrinter() override;

  void BeginDoc(const std::string& Title) override;
  bool Printing() const override { return FPainter != nullptr; }
  void NewPage() override;
  void EndDoc() override;
  void Abort() noexcept override;
  TSize PageSize() const override;
  double PixelsPerInch() const override;
  TCanvas& PageCanvas(const TRect& Area) override;

 private:
  QPagedPaintDevice& FDevice;
  std::unique_ptr<QPainter> FPainter;
  std::unique_ptr<TQtPageCanvas> FCanvas;
};

/// Makes a PDF file. It is written when the document ends, whole or not at all; until then an older
/// file stays.
class ZAVGEO_API TPdfPrinter final : public TPrinter {
 public:
  /// Pixels per inch where none is asked for.
  static constexpr int UsualResolution = 1200;

  /// A document for a file; nothing is written before EndDoc.
  TPdfPrinter(const std::string& Path, const QPageLayout& Layout,
              int PixelsPerInch = UsualResolution);
  ~TPdfPrinter() override;

  void BeginDoc(const std::string& Title) override;
  bool Printing() const override { return FPrinter->Printing(); }
  void NewPage() override { FPrinter->NewPage(); }
  /// Throws EInOutError when the file cannot be written.
  void EndDoc() override;
  void Abort() noexcept override { FPrinter->Abort(); }
  TSize PageSize() const override { return FPrinter->PageSize(); }
  double PixelsPerInch() const override { return FPrinter->PixelsPerInch(); }
  TCanvas& PageCanvas(const TRect& Area) override { return FPrinter->PageCanvas(Area); }

 private:
  std::string FPath;
  QBuffer FBuffer;
  std::unique_ptr<QPdfWriter> FWriter;
  std::unique_ptr<TQtPrinter> FPrinter;
};

}  // namespace zav

#endif

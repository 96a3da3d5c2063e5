// qt_printer.cpp - printers of the desktop, and PDF files, as printers of this library.
// SPDX-License-Identifier: MIT
#include <platform/qt/qt_printer.h>

#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>

#include <platform/base/atomic_file.h>
#include <platform/qt/qt_convert.h>
#include <platform/qt/qt_page_canvas.h>

namespace zav {

TQtPrinter::TQtPrinter(QPagedPaintDevice& Device) : FDevice(Device) {}

TQtPrinter::~TQtPrinter() { Abort(); }

void TQtPrinter::BeginDoc(const std::string& Title) {
  if (Printing()) throw EPrinterError("The printer has an open document already");
  if (auto* Printer = dynamic_cast<QPrinter*>(&FDevice)) Printer->setDocName(ToQString(Title));
  if (auto* Writer = dynamic_cast<QPdfWriter*>(&FDevice)) Writer->setTitle(ToQString(Title));
  auto Painter = std::make_unique<QPainter>();
  if (!Painter->begin(&FDevice)) throw EPrinterError("The printer does not take a document");
  FPainter = std::move(Painter);
}

void TQtPrinter::NewPage() {
  if (!Printing()) throw EPrinterError("There is no open document to print on");
  FCanvas.reset();
  if (!FDevice.newPage()) throw EPrinterError("The printer does not take another page");
}

void TQtPrinter::EndDoc() {
  if (!Printing()) throw EPrinterError("There is no open document to print on");
  FCanvas.reset();
  const bool Ended = FPainter->end();
  FPainter.reset();
  const auto* Printer = dynamic_cast<QPrinter*>(&FDevice);
  if (!Ended || (Printer != nullptr && Printer->printerState() == QPrinter::Error))
    throw EPrinterError("The printer has refused the document");
}

void TQtPrinter::Abort() noexcept {
  if (!Printing()) return;
  FCanvas.reset();
  if (auto* Printer = dynamic_cast<QPrinter*>(&FDevice)) Printer->abort();
  FPainter->end();
  FPainter.reset();
}

TSize TQtPrinter::PageSize() const { return {FDevice.width(), FDevice.height()}; }

double TQtPrinter::PixelsPerInch() const { return FDevice.logicalDpiX(); }

TCanvas& TQtPrinter::PageCanvas(const TRect& Area) {
  if (!Printing()) throw EPrinterError("There is no open document to print on");
  FCanvas.reset();  // gives the painter its state back
  FCanvas = std::make_unique<TQtPageCanvas>(*FPainter, Area);
  return *FCanvas;
}

TPdfPrinter::TPdfPrinter(const std::string& Path, const QPageLayout& Layout, int PixelsPerInch)
    : FPath(Path), FWriter(std::make_unique<QPdfWriter>(&FBuffer)) {
  FWriter->setResolution(PixelsPerInch);
  FWriter->setPageLayout(Layout);
  FPrinter = std::make_unique<TQtPrinter>(*FWriter);
}

TPdfPrinter::~TPdfPrinter() = default;

void TPdfPrinter::BeginDoc(const std::string& Title) {
  if (!Printing()) {
    FBuffer.close();
    FBuffer.open(QIODevice::WriteOnly | QIODevice::Truncate);
  }
  FPrinter->BeginDoc(Title);
}

void TPdfPrinter::EndDoc() {
  FPrinter->EndDoc();
  FBuffer.close();
  const QByteArray& Bytes = FBuffer.data();
  WriteWholeFile(FPath, std::string_view(Bytes.constData(), static_cast<size_t>(Bytes.size())));
}

}  // namespace zav

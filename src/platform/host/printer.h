/// @file
/// printer.h - a printer: documents of pages that are drawn on with a canvas.
///
/// Positions and sizes on a page are printer pixels from the top left of the printable area.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_HOST_PRINTER_H
#define ZAV_PLATFORM_HOST_PRINTER_H

#include <string>

#include <platform/base/api.h>
#include <platform/base/errors.h>
#include <platform/base/geometry.h>
#include <platform/host/canvas.h>

namespace zav {

/// Thrown when there is no printer, when it refuses a document, and when a page is drawn on without
/// one.
class ZAVGEO_API EPrinterError : public EZAVError {
 public:
  using EZAVError::EZAVError;
};

/// One document at a time, page after page.
class ZAVGEO_API TPrinter {
 public:
  virtual ~TPrinter() = default;

  /// Opens a document with its first page. Throws EPrinterError when one is open already, or when
  /// the printer does not take it.
  virtual void BeginDoc(const std::string& Title) = 0;
  /// Whether a document is open.
  virtual bool Printing() const = 0;
  /// Ends the page and begins the next. Throws EPrinterError when no document is open.
  virtual void NewPage() = 0;
  /// Closes the document and prints it. Throws what keeps it from being printed: EPrinterError, or
  /// EInOutError where it goes to a file. The document is closed all the same.
  virtual void EndDoc() = 0;
  /// Closes the document and throws it away. Does nothing when none is open.
  virtual void Abort() noexcept = 0;

  /// The printable area; the same for all pages of a document.
  virtual TSize PageSize() const = 0;
  /// Printer pixels per inch of paper, the same in both directions.
  virtual double PixelsPerInch() const = 0;

  /// A canvas on the open page whose pixel (0, 0) is the area's top left corner; nothing is drawn
  /// outside the area. It is usable until the next call of any of these functions. Throws
  /// EPrinterError when no document is open.
  ///
  /// A page has no exclusive-or: such pens draw in their own colour, white ones in black.
  virtual TCanvas& PageCanvas(const TRect& Area) = 0;
};

}  // namespace zav

#endif

// landmark_symbol_editor.cpp - see landmark_symbol_editor.h.
// SPDX-License-Identifier: MIT
#include "landmark_symbol_editor.h"

#include <algorithm>
#include <array>

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QFormLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QSpinBox>

#include <geomap/landmarks/symbol_drawing.h>
#include <platform/base/rounding.h>
#include <platform/qt/qt_convert.h>
#include <platform/qt/qt_image.h>
#include <platform/raster/bitmap.h>
#include <platform/raster/raster_canvas.h>

#include "sharp_pixmap.h"

namespace zav {

namespace {

constexpr TColor IconGround = RgbColor(0xf4, 0xf4, 0xee);

// What fits: large symbols and long arrows are drawn smaller.
TSymbolProperties Fitted(TSymbolProperties Symbol, int Side, double Ratio) {
  const int Reach = Side / 2 - 2;
  const bool Arrow =
      Symbol.Kind == TLandMarkElement::lmArrowFrom || Symbol.Kind == TLandMarkElement::lmArrowTo;
  const auto Scaled = [&](int32_t Length) {
    return RoundHalfEven(std::clamp<double>(Length * Ratio, -Reach, Reach));
  };
  Symbol.Size = Scaled(Symbol.Size);
  if (Arrow) Symbol.Length = Scaled(Symbol.Length);
  return Symbol;
}

}  // namespace

QIcon SymbolIcon(const TSymbolProperties& Symbol, int LogicalSide) {
  const double Ratio = qGuiApp->devicePixelRatio();
  const int32_t Side = RoundHalfEven(LogicalSide * Ratio);
  TBitmap Bitmap(Side, Side, TPixelFormat::pf32bit);
  TRasterCanvas Canvas(Bitmap);
  Canvas.Brush = {IconGround, TBrushStyle::bsSolid};
  Canvas.FillRect({0, 0, Side, Side});
  Canvas.Brush = {};
  DrawLandMarkSymbolOnCanvas(Canvas, Side / 2, Side / 2, Fitted(Symbol, Side, Ratio));
  const TBitmap& Drawn = Bitmap;
  QPixmap Pixmap = QPixmap::fromImage(WrapBitmap(Drawn).copy());
  Pixmap.setDevicePixelRatio(Ratio);
  return QIcon(Pixmap);
}

QString ShapeName(TLandMarkElement Shape) {
  switch (Shape) {
    case TLandMarkElement::lmPlus:
      return SymbolEditor::tr("Upright cross");
    case TLandMarkElement::lmSquare:
      return SymbolEditor::tr("Square");
    case TLandMarkElement::lmTriangle:
      return SymbolEditor::tr("Triangle");
    case TLandMarkElement::lmCircle:
      return SymbolEditor::tr("Circle");
    case TLandMarkElement::lmArrowFrom:
      return SymbolEditor::tr("Arrow from here");
    case TLandMarkElement::lmArrowTo:
      return SymbolEditor::tr("Arrow to here");
    case TLandMarkElement::lmCrossBox:
      return SymbolEditor::tr("Crossed square");
    case TLandMarkElement::lmSpade:
      return SymbolEditor::tr("Diamond");
    case TLandMarkElement::lmCross:
      return SymbolEditor::tr("Diagonal cross");
    default:
      return SymbolEditor::tr("None");
  }
}

// --- ColorButton

ColorButton::ColorButton(const QString& Name, QWidget* Parent) : QToolButton(Parent) {
  setAccessibleName(Name);
  setToolTip(Name);
  setColor(clBlack);
  connect(this, &QToolButton::clicked, this, &ColorButton::ask);
}

void ColorButton::setColor(TColor Color) {
  FColor = Color;
  QPixmap Patch = SharpPixmap({24, 14});
  Patch.fill(ToQColor(Color));
  setIcon(QIcon(Patch));
  setIconSize(Patch.deviceIndependentSize().toSize());
  setAccessibleDescription(ToQColor(Color).name());
}

void ColorButton::ask() {
  const QColor Chosen = QColorDialog::getColor(ToQColor(FColor), window(), accessibleName());
  if (!Chosen.isValid()) return;
  setColor(FromQColor(Chosen));
  emit chosen(FColor);
}

// --- SymbolEditor

SymbolEditor::SymbolEditor(QWidget* Parent)
    : QWidget(Parent),
      FShape(new QComboBox(this)),
      FColor(new ColorButton(tr("Colour of the symbol"), this)),
      FFill(new ColorButton(tr("Fill of the symbol"), this)),
      FFilled(new QCheckBox(tr("F&illed"), this)) {
  auto* Layout = new QFormLayout(this);
  Layout->setContentsMargins(0, 0, 0, 0);
  FShape->setAccessibleName(tr("Shape"));
  FShape->setIconSize(QSize(20, 20));
  for (int i = 0; i < static_cast<int>(LMTypeNames.size()); ++i) {
    const auto Kind = static_cast<TLandMarkElement>(i);
    const TSymbolProperties Sample{Kind, 6, clBlack, clWhite, false, 45, 8};
    FShape->addItem(SymbolIcon(Sample, 20), ShapeName(Kind));
  }
  Layout->addRow(tr("Sha&pe:"), FShape);
  FSize = addNumber(tr("Size"), 0, 500, &TSymbolProperties::Size);
  Layout->addRow(tr("Si&ze:"), FSize);
  auto* Colors = new QHBoxLayout;
  for (QWidget* Each : std::initializer_list<QWidget*>{FColor, FFilled, FFill})
    Colors->addWidget(Each);
  Colors->addStretch(1);
  Layout->addRow(tr("Colours:"), Colors);
  FDirection = addNumber(tr("Direction"), -360, 360, &TSymbolProperties::Direction);
  FDirection->setSuffix(tr("\302\260"));
  FDirection->setToolTip(tr("Degrees from up to the right: of arrows and triangles"));
  Layout->addRow(tr("Di&rection:"), FDirection);
  FLength = addNumber(tr("Length"), 0, 2000, &TSymbolProperties::Length);
  FLength->setToolTip(tr("Of arrows"));
  Layout->addRow(tr("Le&ngth:"), FLength);

  connect(FShape, &QComboBox::activated, this,
          [this](int Row) { change([&] { FSymbol.Kind = static_cast<TLandMarkElement>(Row); }); });
  connect(FColor, &ColorButton::chosen, this,
          [this](TColor Color) { change([&] { FSymbol.FGColor = Color; }); });
  connect(FFill, &ColorButton::chosen, this,
          [this](TColor Color) { change([&] { FSymbol.BGColor = Color; }); });
  connect(FFilled, &QCheckBox::clicked, this,
          [this](bool On) { change([&] { FSymbol.Transparent = !On; }); });
  showFields();
}

QSpinBox* SymbolEditor::addNumber(const QString& Name, int Low, int High,
                                  int32_t TSymbolProperties::*Field) {
  auto* Box = new QSpinBox(this);
  Box->setRange(Low, High);
  Box->setAccessibleName(Name);
  connect(Box, &QSpinBox::valueChanged, this, [this, Field](int Value) {
    if (!FShowing) change([&] { FSymbol.*Field = Value; });
  });
  return Box;
}

void SymbolEditor::change(const std::function<void()>& Change) {
  Change();
  showFields();
  emit edited();
}

void SymbolEditor::setSymbol(const TSymbolProperties& Symbol) {
  if (FSymbol == Symbol) return;
  FSymbol = Symbol;
  showFields();
}

void SymbolEditor::showFields() {
  FShowing = true;
  FShape->setCurrentIndex(static_cast<int>(FSymbol.Kind));
  FSize->setValue(FSymbol.Size);
  FColor->setColor(FSymbol.FGColor);
  FFill->setColor(FSymbol.BGColor);
  FFilled->setChecked(!FSymbol.Transparent);
  FDirection->setValue(FSymbol.Direction);
  FLength->setValue(FSymbol.Length);
  const bool Arrow =
      FSymbol.Kind == TLandMarkElement::lmArrowFrom || FSymbol.Kind == TLandMarkElement::lmArrowTo;
  FDirection->setEnabled(Arrow || FSymbol.Kind == TLandMarkElement::lmTriangle);
  FLength->setEnabled(Arrow);
  FFill->setEnabled(!FSymbol.Transparent);
  FShowing = false;
}

}  // namespace zav

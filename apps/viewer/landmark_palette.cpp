// landmark_palette.cpp - see landmark_palette.h.
// SPDX-License-Identifier: MIT
#include "landmark_palette.h"

#include <QDir>
#include <QFileInfo>

#include <platform/qt/qt_convert.h>

#include "landmark_symbol_editor.h"
#include "reason_text.h"

namespace zav {

namespace {
constexpr int IconSide = 30;
}  // namespace

void FillWithDefaults(TSymbolRepository& Symbols) {
  using enum TLandMarkElement;
  constexpr TColor Orange = RgbColor(0xff, 0x90, 0x00);
  constexpr TColor Green = RgbColor(0x00, 0x80, 0x20);
  constexpr TColor Brown = RgbColor(0x7a, 0x45, 0x10);
  const struct {
    const char* Name;
    TSymbolProperties Look;
  } Defaults[] = {
      {QT_TRANSLATE_NOOP("zav::LandmarkPalette", "Cross"),
       {lmCross, 7, clBlue, clWhite, false, 0, 10}},
      {QT_TRANSLATE_NOOP("zav::LandmarkPalette", "Small cross"),
       {lmCross, 4, clBlack, clWhite, false, 0, 10}},
      {QT_TRANSLATE_NOOP("zav::LandmarkPalette", "Large town"),
       {lmSquare, 6, clBlack, clRed, false, 0, 10}},
      {QT_TRANSLATE_NOOP("zav::LandmarkPalette", "Town"),
       {lmCircle, 5, clBlack, clWhite, false, 0, 10}},
      {QT_TRANSLATE_NOOP("zav::LandmarkPalette", "Village"),
       {lmCircle, 3, clBlack, clWhite, false, 0, 10}},
      {QT_TRANSLATE_NOOP("zav::LandmarkPalette", "Summit"),
       {lmTriangle, 7, Brown, Orange, false, 0, 10}},
      {QT_TRANSLATE_NOOP("zav::LandmarkPalette", "Church"),
       {lmCrossBox, 5, clBlack, clWhite, false, 0, 10}},
      {QT_TRANSLATE_NOOP("zav::LandmarkPalette", "Forest"),
       {lmSpade, 6, Green, Green, false, 0, 10}},
      {QT_TRANSLATE_NOOP("zav::LandmarkPalette", "Water"),
       {lmSpade, 5, clBlue, RgbColor(0x80, 0xc0, 0xff), false, 0, 10}},
      {QT_TRANSLATE_NOOP("zav::LandmarkPalette", "Sight"),
       {lmCircle, 6, clRed, clYellow, false, 0, 10}},
      {QT_TRANSLATE_NOOP("zav::LandmarkPalette", "Area"),
       {lmCircle, 12, clRed, clWhite, true, 0, 10}},
      {QT_TRANSLATE_NOOP("zav::LandmarkPalette", "View to"),
       {lmArrowFrom, 8, clBlack, clYellow, false, 90, 30}},
      {QT_TRANSLATE_NOOP("zav::LandmarkPalette", "Look here"),
       {lmArrowTo, 10, clRed, clRed, false, 45, 30}},
  };
  Symbols.SetNEntries(static_cast<int32_t>(std::size(Defaults)));
  int32_t Index = 0;
  for (const auto& Each : Defaults)
    Symbols.SetValues(++Index, {Each.Look, FromQString(LandmarkPalette::tr(Each.Name)), 0});
}

LandmarkPalette::LandmarkPalette(QWidget* Parent) : QListWidget(Parent) {
  setAccessibleName(tr("Symbols"));
  setViewMode(QListView::IconMode);
  setMovement(QListView::Static);
  setResizeMode(QListView::Adjust);
  setUniformItemSizes(true);
  setIconSize(QSize(IconSide, IconSide));
  setGridSize(QSize(IconSide + 8, IconSide + 8));
  setSpacing(2);
  setSelectionMode(QAbstractItemView::SingleSelection);
  const auto Choose = [this](const QListWidgetItem* Item) {
    emit chosen(FSymbols.GetValues(row(Item) + 1).Properties);
  };
  connect(this, &QListWidget::itemClicked, this, Choose);
  connect(this, &QListWidget::itemActivated, this, Choose);
  FillWithDefaults(FSymbols);
  showSymbols();
}

void LandmarkPalette::showSymbols() {
  clear();
  for (int32_t Index = 1; Index <= FSymbols.NumEntries(); ++Index) {
    const TSymbol Symbol = FSymbols.GetValues(Index);
    auto* Item = new QListWidgetItem(SymbolIcon(Symbol.Properties, IconSide), QString(), this);
    const QString Name = ToQString(Symbol.Name.View());
    Item->setToolTip(Name.isEmpty() ? ShapeName(Symbol.Properties.Kind) : Name);
    Item->setData(Qt::AccessibleTextRole, Item->toolTip());
  }
}

void LandmarkPalette::setFile(const QString& FileName) {
  FFile = FileName;
  if (!FFile.isEmpty()) FSymbols.LoadFromFile(FromQString(FFile), "");
  showSymbols();
}

QString LandmarkPalette::save() {
  if (FFile.isEmpty()) return {};
  try {
    QDir().mkpath(QFileInfo(FFile).absolutePath());
    FSymbols.StoreOnFile(FromQString(FFile), "");
    return {};
  } catch (const std::exception& Error) {
    return tr("The symbols cannot be saved: %1").arg(ReasonText(Error.what()));
  }
}

}  // namespace zav

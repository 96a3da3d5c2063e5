// landmark_symbol_editor.h - the look of a symbol as fields, as an icon, and a button for a colour.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_LANDMARK_SYMBOL_EDITOR_H
#define ZAV_APPS_VIEWER_LANDMARK_SYMBOL_EDITOR_H

#include <functional>

#include <QIcon>
#include <QToolButton>
#include <QWidget>

#include <geomap/landmarks/landmark.h>

class QCheckBox;
class QComboBox;
class QSpinBox;

namespace zav {

// As it is drawn on the map, on a light ground.
QIcon SymbolIcon(const TSymbolProperties& Symbol, int Side = 32);
// Name of a shape for people.
QString ShapeName(TLandMarkElement Shape);

class ColorButton final : public QToolButton {
  Q_OBJECT

 public:
  // The name is told to screen readers and stands over the dialog.
  ColorButton(const QString& Name, QWidget* Parent);

  TColor color() const { return FColor; }
  void setColor(TColor Color);

 signals:
  // By the user.
  void chosen(TColor Color);

 private:
  void ask();

  TColor FColor = clBlack;
};

class SymbolEditor final : public QWidget {
  Q_OBJECT

 public:
  explicit SymbolEditor(QWidget* Parent);

  void setSymbol(const TSymbolProperties& Symbol);
  const TSymbolProperties& symbol() const { return FSymbol; }

 signals:
  // A field was changed by the user; the others stay as they were set.
  void edited();

 private:
  QSpinBox* addNumber(const QString& Name, int Low, int High, int32_t TSymbolProperties::*Field);
  void change(const std::function<void()>& Change);
  void showFields();

  TSymbolProperties FSymbol;
  QComboBox* FShape;
  QSpinBox* FSize;
  ColorButton* FColor;
  ColorButton* FFill;
  QCheckBox* FFilled;
  QSpinBox* FDirection;
  QSpinBox* FLength;
  bool FShowing = false;
};

}  // namespace zav

#endif

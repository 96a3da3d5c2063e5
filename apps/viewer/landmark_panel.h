// landmark_panel.h - all fields of a landmark, or of how new ones look.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_LANDMARK_PANEL_H
#define ZAV_APPS_VIEWER_LANDMARK_PANEL_H

#include <functional>
#include <vector>

#include <QTabWidget>

#include <geomap/landmarks/landmark.h>

class QFormLayout;
class QLabel;
class QLineEdit;
class QSpinBox;

namespace zav {

class ColorButton;
class LandmarkPalette;
class SymbolEditor;

class LandmarkPanel final : public QTabWidget {
  Q_OBJECT

 public:
  // Shows the palette on the page of the symbol.
  LandmarkPanel(LandmarkPalette& Palette, QWidget* Parent);

  // The landmark, or with IsLook how new landmarks look, which has no place. Fields that are being
  // typed into stay as they are when their value is the one shown.
  void show(const TLandMark& LandMark, bool IsLook);
  const TLandMark& landmark() const { return FShown; }
  // For typing a name at once.
  void focusCaption();

 signals:
  // The user changed a field, whose name for people is given: landmark() has the new value.
  void edited(const QString& Field);
  // The user left the field: what follows is another edit.
  void finished();
  void refused(const QString& Reason);
  void captionEntered();

 private:
  using Store = std::function<QString(TLandMark&, const QString&)>;
  using Load = std::function<QString(const TLandMark&)>;

  QWidget* makeLandmarkPage();
  QWidget* makeSymbolPage(LandmarkPalette& Palette);
  QWidget* makeCaptionPage();
  // A field of text: Store returns why it is refused. AtOnce: each key counts.
  QLineEdit* addText(QFormLayout& Layout, const QString& Label, const QString& Name,
                     const Load& LoadText, const Store& StoreText, bool AtOnce);
  QSpinBox* addNumber(const QString& Name, int Low, int High,
                      const std::function<int(const TLandMark&)>& LoadNumber,
                      const std::function<void(TLandMark&, int)>& StoreNumber);
  ColorButton* addColor(const QString& Name, TColor TLMTextProperties::*Color);
  void addStyles(QFormLayout& Layout);
  void addAlignments(QFormLayout& Layout);
  void change(const QString& Field, const std::function<void(TLandMark&)>& Change);
  QString positionText(const TLandMark& LandMark) const;

  TLandMark FShown;
  bool FIsLook = true;
  bool FShowing = false;
  std::vector<std::function<void()>> FLoaders;  // from the landmark to the fields
  QLabel* FTitle = nullptr;
  QLineEdit* FCaption = nullptr;
  QLineEdit* FPosition = nullptr;
  std::vector<QWidget*> FOfPlace;  // fields that only a landmark has
  SymbolEditor* FSymbol = nullptr;
};

}  // namespace zav

#endif

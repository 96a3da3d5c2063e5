/// @file
/// qt_panel.h - the panel of a compound control as widgets: buttons with drawn glyphs, combo boxes.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_QT_QT_PANEL_H
#define ZAV_PLATFORM_QT_QT_PANEL_H

#include <functional>
#include <map>
#include <memory>

#include <QPointer>
#include <QWidget>

#include <platform/base/api.h>
#include <platform/host/widgets.h>

class QButtonGroup;

namespace zav {

/// Whose panel it is.
struct TQtPanelOwner {
  /// Runs what an event causes; nothing may be thrown out of it. All are required.
  std::function<void(const std::function<void()>& Handler)> Run;
  /// After that, if the panel still exists.
  std::function<void(TGlyph)> ButtonClicked;
  std::function<void(int Line)> LineChosen;  ///< counted from 0; called like ButtonClicked
};

/// The bar and what lies in it.
class ZAVGEO_API TQtPanel final : public TPanel {
 public:
  /// A bar of Height pixels; Parent owns it until this object dies and puts it where it belongs.
  TQtPanel(QWidget& Parent, int32_t Height, TQtPanelOwner Owner);
  ~TQtPanel() override;

  /// The bar itself.
  QWidget& Widget() { return *FWidget; }

  int32_t Height() const override { return FHeight; }
  bool Visible() const override { return FWidget && !FWidget->isHidden(); }
  void SetVisible(bool Visible) override;
  std::unique_ptr<TSpeedButton> AddSpeedButton(const TRect& Bounds, TGlyph Glyph,
                                               const std::string& Hint, int32_t Group) override;
  /// Becomes narrower where the panel is too narrow for it.
  std::unique_ptr<TComboBox> AddComboBox(const TRect& Bounds, const std::string& Hint) override;

 private:
  QPointer<QWidget> FWidget;
  int32_t FHeight;
  TQtPanelOwner FOwner;
  std::shared_ptr<int> FHandlers = std::make_shared<int>(0);  // that are running
  std::map<int32_t, QButtonGroup*> FGroups;
};

}  // namespace zav

#endif

// qt_panel.cpp - see qt_panel.h.
//
// A handler may destroy the panel with all its widgets; so what an event needs is copied before,
// and Qt's widgets, which go on after their signals, are deleted when the event is over.
// SPDX-License-Identifier: MIT
#include <platform/qt/qt_panel.h>

#include <algorithm>
#include <utility>

#include <QButtonGroup>
#include <QComboBox>
#include <QPaintEvent>
#include <QStyleOptionToolButton>
#include <QStylePainter>
#include <QToolButton>

#include <platform/qt/qt_convert.h>
#include <platform/qt/qt_glyphs.h>

namespace zav {
namespace {

constexpr int Margin = 3;
constexpr int GlyphSize = 20;

QRect ToQRect(const TRect& Bounds) {
  return {Bounds.Left, Bounds.Top, Bounds.Right - Bounds.Left, Bounds.Bottom - Bounds.Top};
}

// Of handlers that are running.
using TCount = std::shared_ptr<int>;

void Dispose(QWidget* Widget, const TCount& Handlers) {
  if (Widget == nullptr) return;
  if (*Handlers == 0) {
    delete Widget;
    return;
  }
  Widget->hide();
  Widget->setParent(nullptr);
  Widget->deleteLater();
}

// Calls what the control wants to be called, then Then if the panel still exists.
void RunHandler(const std::function<void()>& Handler, const TQtPanelOwner& Owner,
                const TCount& Handlers, const QPointer<QWidget>& Panel,
                const std::function<void()>& Then) {
  ++*Handlers;
  Owner.Run([&] {
    if (Handler) Handler();
  });
  if (Panel && Panel->parentWidget() != nullptr) Then();  // it loses its parent when it goes
  --*Handlers;
}

// Draws its glyph anew for each repaint, so that it follows colours and pixel ratio.
class GlyphButton final : public QToolButton {
 public:
  GlyphButton(QWidget* Parent, TGlyph Glyph) : QToolButton(Parent), FGlyph(Glyph) {}

 protected:
  void paintEvent(QPaintEvent* /*Event*/) override {
    QStylePainter Painter(this);
    QStyleOptionToolButton Option;
    initStyleOption(&Option);
    Painter.drawComplexControl(QStyle::CC_ToolButton, Option);
    const double Inset = (width() - GlyphSize) / 2.0;
    DrawGlyph(Painter, QRectF(Inset, (height() - GlyphSize) / 2.0, GlyphSize, GlyphSize), FGlyph,
              palette().color(QPalette::ButtonText));
  }

 private:
  TGlyph FGlyph;
};

// Keeps combo boxes within it.
class PanelWidget final : public QWidget {
 public:
  using QWidget::QWidget;
  void Add(QComboBox* Box, const QRect& Bounds) {
    FBoxes[Box] = Bounds;
    Place();
  }
  void Remove(QComboBox* Box) { FBoxes.erase(Box); }

 protected:
  void resizeEvent(QResizeEvent* /*Event*/) override { Place(); }

 private:
  void Place() {
    for (const auto& [Box, Bounds] : FBoxes) {
      QRect Area = Bounds;
      Area.setWidth(std::clamp(width() - Bounds.left() - Margin, 40, Bounds.width()));
      Box->setGeometry(Area);
    }
  }
  std::map<QComboBox*, QRect> FBoxes;
};

class TQtButton final : public TSpeedButton {
 public:
  TQtButton(QToolButton* Button, TCount Handlers)
      : FButton(Button), FHandlers(std::move(Handlers)) {}
  ~TQtButton() override { Dispose(FButton, FHandlers); }
  bool Down() const override { return FButton && FButton->isChecked(); }
  void SetDown(bool Down) override {
    if (Down && FButton) FButton->setChecked(true);
  }

 private:
  QPointer<QToolButton> FButton;
  TCount FHandlers;
};

class TQtComboBox final : public TComboBox {
 public:
  TQtComboBox(PanelWidget* Panel, QComboBox* Box, TCount Handlers)
      : FPanel(Panel), FBox(Box), FHandlers(std::move(Handlers)) {}
  ~TQtComboBox() override {
    if (FPanel && FBox) FPanel->Remove(FBox);
    Dispose(FBox, FHandlers);
  }
  void Clear() override { FBox->clear(); }
  void Add(const std::string& Line) override {
    // The first line would be chosen by itself.
    const int Chosen = FBox->currentIndex();
    FBox->addItem(ToQString(Line));
    FBox->setCurrentIndex(Chosen);
  }
  int32_t Count() const override { return FBox->count(); }
  int32_t ItemIndex() const override { return FBox->currentIndex(); }
  void SetItemIndex(int32_t Index) override {
    FBox->setCurrentIndex(Index < FBox->count() ? Index : -1);
  }

 private:
  QPointer<PanelWidget> FPanel;
  QPointer<QComboBox> FBox;
  TCount FHandlers;
};

}  // namespace

TQtPanel::TQtPanel(QWidget& Parent, int32_t Height, TQtPanelOwner Owner)
    : FWidget(new PanelWidget(&Parent)), FHeight(Height), FOwner(std::move(Owner)) {
  FWidget->setFixedHeight(Height);
  FWidget->setAutoFillBackground(true);
  FWidget->setCursor(Qt::ArrowCursor);
}

TQtPanel::~TQtPanel() { Dispose(FWidget, FHandlers); }

void TQtPanel::SetVisible(bool Visible) {
  if (FWidget) FWidget->setVisible(Visible);
}

std::unique_ptr<TSpeedButton> TQtPanel::AddSpeedButton(const TRect& Bounds, TGlyph Glyph,
                                                       const std::string& Hint, int32_t Group) {
  auto* Button = new GlyphButton(FWidget, Glyph);
  Button->setGeometry(ToQRect(Bounds));
  Button->setAutoRaise(true);
  Button->setCheckable(true);
  Button->setToolTip(ToQString(Hint));
  Button->setAccessibleName(ToQString(Hint));
  QButtonGroup*& Buttons = FGroups[Group];
  if (Buttons == nullptr) Buttons = new QButtonGroup(FWidget);
  Buttons->addButton(Button);
  auto Result = std::make_unique<TQtButton>(Button, FHandlers);
  QObject::connect(
      Button, &QToolButton::clicked, Button,
      [Control = Result.get(), Glyph, Owner = FOwner, Count = FHandlers, Alive = FWidget] {
        const TQtPanelOwner Whose = Owner;
        RunHandler(std::function(Control->OnClick), Whose, TCount(Count), QPointer(Alive),
                   [&Whose, Glyph] { Whose.ButtonClicked(Glyph); });
      });
  return Result;
}

std::unique_ptr<TComboBox> TQtPanel::AddComboBox(const TRect& Bounds, const std::string& Hint) {
  auto* Panel = static_cast<PanelWidget*>(FWidget.data());  // the constructor made it
  auto* Box = new QComboBox(FWidget);
  Panel->Add(Box, ToQRect(Bounds));
  Box->setToolTip(ToQString(Hint));
  Box->setAccessibleName(ToQString(Hint));
  auto Result = std::make_unique<TQtComboBox>(Panel, Box, FHandlers);
  // Not when the program chooses.
  QObject::connect(
      Box, &QComboBox::activated, Box,
      [Control = Result.get(), Owner = FOwner, Count = FHandlers, Alive = FWidget](int Line) {
        const TQtPanelOwner Whose = Owner;
        RunHandler(std::function(Control->OnChange), Whose, TCount(Count), QPointer(Alive),
                   [&Whose, Line] { Whose.LineChosen(Line); });
      });
  return Result;
}

}  // namespace zav

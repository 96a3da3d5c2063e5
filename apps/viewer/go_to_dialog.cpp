// go_to_dialog.cpp - see go_to_dialog.h.
// SPDX-License-Identifier: MIT
#include "go_to_dialog.h"

#include <QCompleter>
#include <QDialogButtonBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include <platform/qt/geo_map_widget.h>
#include <platform/qt/qt_convert.h>

namespace zav {

namespace {

constexpr int MarkSeconds = 8;
constexpr double Radius = 14;

}  // namespace

GoToDialog::GoToDialog(QWidget* Parent)
    : QDialog(Parent),
      FField(new QLineEdit),
      FProblem(new QLabel),
      FGo(new QPushButton(tr("&Go"))) {
  setWindowTitle(tr("Go To"));
  FField->setAccessibleName(tr("Position, country or capital"));
  FField->setPlaceholderText(tr("47.5 8.25, 32T 470693 5150563, Austria, Vienna ..."));
  FField->setMinimumWidth(fontMetrics().averageCharWidth() * 52);
  FField->setClearButtonEnabled(true);
  auto* Completer = new QCompleter(AllPlaceNames(), FField);
  Completer->setCaseSensitivity(Qt::CaseInsensitive);
  Completer->setFilterMode(Qt::MatchContains);
  Completer->setMaxVisibleItems(12);
  FField->setCompleter(Completer);
  FProblem->setTextFormat(Qt::PlainText);
  FProblem->setWordWrap(true);
  FProblem->setMinimumHeight(2 * fontMetrics().lineSpacing());
  FProblem->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  FProblem->setAccessibleName(tr("What is wrong"));
  auto* Buttons = new QDialogButtonBox;
  FGo->setDefault(true);
  Buttons->addButton(FGo, QDialogButtonBox::ActionRole);
  connect(Buttons->addButton(QDialogButtonBox::Close), &QPushButton::clicked, this,
          &QDialog::reject);
  auto* Text = new QLabel(tr("A &position in any notation, or a country or capital:"));
  Text->setBuddy(FField);
  auto* Layout = new QVBoxLayout(this);
  Layout->addWidget(Text);
  Layout->addWidget(FField);
  Layout->addWidget(FProblem);
  Layout->addWidget(Buttons);
  Layout->setSizeConstraint(QLayout::SetFixedSize);
  connect(FField, &QLineEdit::textChanged, this, &GoToDialog::check);
  connect(FGo, &QPushButton::clicked, this, &GoToDialog::go);
  check();
}

void GoToDialog::setEllipsoid(TGeoEllipsoid Ellipsoid) {
  FEllipsoid = Ellipsoid;
  check();
}

QString GoToDialog::problem() const { return FProblem->text(); }

void GoToDialog::setProblem(const QString& Text) { FProblem->setText(Text); }

// While a text is typed it is told only whether it can be gone to.
void GoToDialog::check() {
  setProblem({});
  FGo->setEnabled(!FField->text().simplified().isEmpty());
}

void GoToDialog::go() {
  const GoToResult Found = FindPlace(FField->text(), FEllipsoid);
  setProblem(Found.Problem);
  FField->selectAll();
  FField->setFocus();
  if (Found.Place) emit chosen(*Found.Place);
}

// --- the mark

PlaceMark::PlaceMark(GeoMapWidget& Widget) : QWidget(&Widget), FWidget(Widget) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  setGeometry(Widget.rect());
  Widget.installEventFilter(this);
  FTimer.setSingleShot(true);
  connect(&FTimer, &QTimer::timeout, this, &PlaceMark::clear);
  connect(&Widget, &GeoMapWidget::viewChanged, this, QOverload<>::of(&QWidget::update));
  connect(&Widget, &GeoMapWidget::mapChanged, this, &PlaceMark::clear);
  hide();
}

void PlaceMark::showAt(QPointF MapPixel) {
  FPlace = MapPixel;
  FTimer.start(MarkSeconds * 1000);
  show();
  raise();
  update();
}

void PlaceMark::clear() {
  FPlace.reset();
  hide();
}

bool PlaceMark::eventFilter(QObject* Watched, QEvent* Event) {
  if (Event->type() == QEvent::Resize) setGeometry(FWidget.rect());
  return QWidget::eventFilter(Watched, Event);
}

void PlaceMark::paintEvent(QPaintEvent* /*Event*/) {
  if (!FPlace) return;
  const TViewState& View = FWidget.map().View();
  const QPointF At = (*FPlace - ToQPoint(View.TopLeft)) * View.Magnification + QPointF(0.5, 0.5);
  QPainter Painter(this);
  Painter.setRenderHint(QPainter::Antialiasing);
  for (const QPen& Pen :
       {QPen(QColor(255, 255, 255, 230), 5), QPen(QColor(0xd0, 0x20, 0x20), 2.5)}) {
    Painter.setPen(Pen);
    Painter.drawEllipse(At, Radius, Radius);
    for (const QPointF& Way : {QPointF(1, 0), QPointF(-1, 0), QPointF(0, 1), QPointF(0, -1)})
      Painter.drawLine(At + Way * (Radius - 5), At + Way * (Radius + 6));
  }
}

}  // namespace zav

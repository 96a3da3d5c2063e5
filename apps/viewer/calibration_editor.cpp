// calibration_editor.cpp - a small panel over the map that asks for the position of a point.
// SPDX-License-Identifier: MIT
#include "calibration_editor.h"

#include <algorithm>
#include <optional>

#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "arrow_step.h"

namespace zav {

namespace {

constexpr int Distance = 28;  // from the point it stands beside
constexpr int Wide = 330;

}  // namespace

CalibrationEditor::CalibrationEditor(QWidget& Map)
    : QFrame(&Map),
      FMap(Map),
      FTitle(new QLabel(this)),
      FPosition(new QLineEdit(this)),
      FName(new QLineEdit(this)),
      FReading(new QLabel(this)),
      FAccept(new QPushButton(tr("&Accept"), this)) {
  setObjectName(QStringLiteral("calibrationEditor"));
  setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
  setAutoFillBackground(true);
  setFixedWidth(Wide);
  setCursor(Qt::ArrowCursor);
  setAccessibleName(tr("Position of the point"));

  QFont Bold = font();
  Bold.setBold(true);
  FTitle->setFont(Bold);
  FPosition->setAccessibleName(tr("Position"));
  FName->setAccessibleName(tr("Name"));
  FName->setPlaceholderText(tr("optional"));
  FReading->setTextFormat(Qt::PlainText);
  FReading->setWordWrap(true);
  FReading->setAccessibleName(tr("Understood as"));
  auto* Cancel = new QPushButton(tr("Cancel"), this);
  FAccept->setToolTip(tr("Takes the point (Enter)"));
  Cancel->setToolTip(tr("Takes no point (Esc)"));
  FAccept->setAutoDefault(false);
  Cancel->setAutoDefault(false);

  auto* Buttons = new QHBoxLayout;
  Buttons->addStretch(1);
  Buttons->addWidget(Cancel);
  Buttons->addWidget(FAccept);
  auto* Layout = new QFormLayout(this);
  Layout->setContentsMargins(10, 8, 10, 8);
  Layout->addRow(FTitle);
  Layout->addRow(tr("&Position:"), FPosition);
  Layout->addRow(FReading);
  Layout->addRow(tr("&Name:"), FName);
  Layout->addRow(Buttons);

  for (QLineEdit* Field : {FPosition, FName}) Field->installEventFilter(this);
  connect(FPosition, &QLineEdit::textChanged, this, &CalibrationEditor::read);
  connect(FPosition, &QLineEdit::returnPressed, this, &CalibrationEditor::accept);
  connect(FName, &QLineEdit::returnPressed, this, &CalibrationEditor::accept);
  connect(FAccept, &QPushButton::clicked, this, &CalibrationEditor::accept);
  connect(Cancel, &QPushButton::clicked, this, &CalibrationEditor::cancel);
  hide();
}

void CalibrationEditor::ask(const Question& Asked, QPoint Beside) {
  FRead = Asked.Read;
  FTitle->setText(Asked.Title);
  FPosition->setPlaceholderText(Asked.Example);
  FPosition->setText(Asked.Proposal);
  FName->setText(Asked.Name);
  read();
  show();
  placeBeside(Beside);
  raise();
  FPosition->setFocus(Qt::OtherFocusReason);
  FPosition->selectAll();
}

void CalibrationEditor::takeFocus() { FPosition->setFocus(Qt::OtherFocusReason); }

void CalibrationEditor::setTitle(const QString& Title) { FTitle->setText(Title); }

void CalibrationEditor::placeBeside(QPoint Point) {
  FBeside = Point;
  // A text of several lines makes it higher.
  layout()->activate();
  resize(width(), layout()->totalHeightForWidth(width()));
  QPoint At = Point + QPoint(Distance, Distance);
  if (At.x() + width() > FMap.width()) At.setX(Point.x() - Distance - width());
  if (At.y() + height() > FMap.height()) At.setY(Point.y() - Distance - height());
  At.setX(std::clamp(At.x(), 0, std::max(0, FMap.width() - width())));
  At.setY(std::clamp(At.y(), 0, std::max(0, FMap.height() - height())));
  move(At);
  emit placed();
}

void CalibrationEditor::cancel() {
  if (!isAsking()) return;
  FMap.setFocus();
  hide();
  emit canceled();
}

void CalibrationEditor::read() {
  const Reading Read =
      FRead && !FPosition->text().trimmed().isEmpty() ? FRead(FPosition->text()) : Reading{};
  FGood = Read.Good;
  FAccept->setEnabled(FGood);
  FReading->setText(Read.Text.isEmpty() ? FPosition->placeholderText() : Read.Text);
  FReading->setForegroundRole(FGood || Read.Text.isEmpty() ? QPalette::WindowText
                                                           : QPalette::LinkVisited);
  if (isAsking()) placeBeside(FBeside);
}

void CalibrationEditor::accept() {
  if (!FGood) return;
  FMap.setFocus();
  hide();
  emit accepted(FPosition->text(), FName->text().trimmed());
}

bool CalibrationEditor::handleKey(int Key, Qt::KeyboardModifiers Modifiers) {
  if (Key == Qt::Key_Escape) {
    cancel();
    return true;
  }
  const std::optional<QPoint> Step = ArrowStep(Key);
  if (!Step || !Modifiers.testFlag(Qt::AltModifier)) return false;
  emit nudged(*Step * (Modifiers.testFlag(Qt::ShiftModifier) ? 10 : 1));
  return true;
}

// The window's shortcuts of these keys stand back while the panel has the focus.
bool CalibrationEditor::eventFilter(QObject* Watched, QEvent* Event) {
  const bool Override = Event->type() == QEvent::ShortcutOverride;
  if (Override || Event->type() == QEvent::KeyPress) {
    const auto* Key = static_cast<QKeyEvent*>(Event);
    if (Override && (Key->key() == Qt::Key_Escape ||
                     (ArrowStep(Key->key()) && Key->modifiers().testFlag(Qt::AltModifier)))) {
      Event->accept();
      return true;
    }
    if (!Override && handleKey(Key->key(), Key->modifiers())) return true;
  }
  return QFrame::eventFilter(Watched, Event);
}

// What its children leave does not go on to the map below, such as a click beside a field.
bool CalibrationEditor::event(QEvent* Event) {
  switch (Event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
      Event->accept();
      return true;
    case QEvent::ShortcutOverride:
      if (eventFilter(this, Event)) return true;
      break;
    case QEvent::KeyPress:
      if (!eventFilter(this, Event)) QFrame::event(Event);  // Tab goes on to the next field
      Event->accept();
      return true;
    default:
      break;
  }
  return QFrame::event(Event);
}

}  // namespace zav

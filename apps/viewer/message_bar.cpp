// message_bar.cpp - a line in the window that tells what went wrong.
// SPDX-License-Identifier: MIT
#include "message_bar.h"

#include <utility>

#include <QAccessible>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>

#include "icons.h"

namespace zav {

namespace {
constexpr int StripeWidth = 5;
const QColor Stripe(0xd9, 0x7b, 0x16);
}  // namespace

MessageBar::MessageBar(QWidget* Parent)
    : QFrame(Parent),
      FSign(new QLabel(this)),
      FText(new QLabel(this)),
      FAnswer(new QPushButton(this)) {
  FText->setWordWrap(true);
  FText->setTextFormat(Qt::PlainText);
  FText->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  FText->setAccessibleName(tr("Message"));
  auto* Close = new QToolButton(this);
  Close->setAutoRaise(true);
  Close->setText(tr("Close"));
  Close->setToolTip(tr("Close this message (Esc)"));
  Close->setShortcut(Qt::Key_Escape);
  connect(Close, &QToolButton::clicked, this, &QWidget::hide);

  auto* Layout = new QHBoxLayout(this);
  Layout->setContentsMargins(StripeWidth + 8, 6, 8, 6);
  Layout->setSpacing(10);
  Layout->addWidget(FSign, 0, Qt::AlignTop);
  Layout->addWidget(FText, 1);
  Layout->addWidget(FAnswer, 0, Qt::AlignTop);
  Layout->addWidget(Close, 0, Qt::AlignTop);
  FAnswer->setObjectName(QStringLiteral("answer"));
  connect(FAnswer, &QPushButton::clicked, this, [this] {
    hide();
    // What it does may ask the next question.
    if (const std::function<void()> OnAnswer = FOnAnswer) OnAnswer();
  });
  updateColors();
  hide();
}

void MessageBar::showMessage(const QString& Text) { showQuestion(Text, {}, nullptr); }

void MessageBar::showQuestion(const QString& Text, const QString& Answer,
                              std::function<void()> OnAnswer) {
  FText->setText(Text);
  FAnswer->setText(Answer);
  FAnswer->setVisible(!Answer.isEmpty());
  FOnAnswer = std::move(OnAnswer);
  show();
  QAccessibleEvent Alert(FText, QAccessible::Alert);
  QAccessible::updateAccessibility(&Alert);
}

QString MessageBar::text() const { return isHidden() ? QString() : FText->text(); }

void MessageBar::paintEvent(QPaintEvent*) {
  QPainter Painter(this);
  QColor Ground = Stripe;
  Ground.setAlphaF(0.18F);
  Painter.fillRect(rect(), Ground);
  Painter.fillRect(QRect(0, 0, StripeWidth, height()), Stripe);
}

void MessageBar::changeEvent(QEvent* Event) {
  if (Event->type() == QEvent::PaletteChange) updateColors();
  QFrame::changeEvent(Event);
}

void MessageBar::updateColors() {
  const int Size = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
  FSign->setPixmap(MakeIcon(ViewerIcon::Warning).pixmap(QSize(Size, Size), devicePixelRatioF()));
}

}  // namespace zav

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
#include "theme.h"

namespace zav {

namespace {
constexpr int StripeWidth = 5;
}  // namespace

MessageBar::MessageBar(QWidget* Parent)
    : QFrame(Parent),
      FSign(new QLabel(this)),
      FText(new QLabel(this)),
      FAnswer(new QPushButton(this)),
      FClose(new QToolButton(this)),
      FLayout(new QHBoxLayout(this)) {
  FText->setWordWrap(true);
  FText->setTextFormat(Qt::PlainText);
  FText->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  FText->setAccessibleName(tr("Message"));
  FClose->setAutoRaise(true);
  FClose->setText(tr("Close"));
  FClose->setToolTip(tr("Close this message (Esc)"));
  FClose->setShortcut(Qt::Key_Escape);
  connect(FClose, &QToolButton::clicked, this, &QWidget::hide);

  FLayout->setContentsMargins(StripeWidth + 8, 6, 8, 6);
  FLayout->setSpacing(10);
  FLayout->addWidget(FSign, 0, Qt::AlignTop);
  FLayout->addWidget(FText, 1);
  FLayout->addWidget(FAnswer, 0, Qt::AlignTop);
  FLayout->addWidget(FClose, 0, Qt::AlignTop);
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
  for (QPushButton* Each : std::exchange(FChoices, {})) Each->deleteLater();
  FClose->show();
  FText->setText(Text);
  FAnswer->setText(Answer);
  FAnswer->setVisible(!Answer.isEmpty());
  FOnAnswer = std::move(OnAnswer);
  show();
  QAccessibleEvent Alert(FText, QAccessible::Alert);
  QAccessible::updateAccessibility(&Alert);
}

void MessageBar::showChoices(const QString& Text, const std::vector<Choice>& Choices) {
  showQuestion(Text, {}, nullptr);
  FClose->hide();
  for (const auto& [Answer, OnAnswer] : Choices) {
    auto* Button = new QPushButton(Answer, this);
    FChoices.push_back(Button);
    FLayout->insertWidget(FLayout->indexOf(FClose), Button, 0, Qt::AlignTop);
    connect(Button, &QPushButton::clicked, this, [this, Do = OnAnswer] {
      hide();
      Do();
    });
  }
}

QString MessageBar::text() const { return isHidden() ? QString() : FText->text(); }

void MessageBar::paintEvent(QPaintEvent*) {
  QPainter Painter(this);
  Painter.fillRect(rect(), MessageGround(palette()));
  Painter.fillRect(QRect(0, 0, StripeWidth, height()), MessageStripe(palette()));
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

// message_bar.h - a line in the window that tells what went wrong, until it is closed.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_MESSAGE_BAR_H
#define ZAV_APPS_VIEWER_MESSAGE_BAR_H

#include <functional>

#include <QFrame>
#include <QString>

class QLabel;
class QPushButton;
class QToolButton;

namespace zav {

class MessageBar final : public QFrame {
  Q_OBJECT

 public:
  explicit MessageBar(QWidget* Parent = nullptr);

  void showMessage(const QString& Text);
  // A message with a button that does something about it and closes the message.
  void showQuestion(const QString& Text, const QString& Answer, std::function<void()> OnAnswer);
  QString text() const;

 protected:
  void paintEvent(QPaintEvent* Event) override;
  void changeEvent(QEvent* Event) override;

 private:
  void updateColors();

  QLabel* FSign;
  QLabel* FText;
  QPushButton* FAnswer;
  std::function<void()> FOnAnswer;
};

}  // namespace zav

#endif

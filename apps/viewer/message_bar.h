// message_bar.h - a line in the window that tells what went wrong, until it is closed.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_MESSAGE_BAR_H
#define ZAV_APPS_VIEWER_MESSAGE_BAR_H

#include <functional>
#include <utility>
#include <vector>

#include <QFrame>
#include <QString>

class QLabel;
class QHBoxLayout;
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
  // A message that stays until one of its buttons is pressed.
  using Choice = std::pair<QString, std::function<void()>>;
  void showChoices(const QString& Text, const std::vector<Choice>& Choices);
  QString text() const;

 protected:
  void paintEvent(QPaintEvent* Event) override;
  void changeEvent(QEvent* Event) override;

 private:
  void updateColors();

  QLabel* FSign;
  QLabel* FText;
  QPushButton* FAnswer;
  QToolButton* FClose;
  QHBoxLayout* FLayout;
  std::vector<QPushButton*> FChoices;
  std::function<void()> FOnAnswer;
};

}  // namespace zav

#endif

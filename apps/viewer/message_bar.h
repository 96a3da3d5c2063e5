// message_bar.h - a line in the window that tells what went wrong, until it is closed.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_MESSAGE_BAR_H
#define ZAV_APPS_VIEWER_MESSAGE_BAR_H

#include <QFrame>
#include <QString>

class QLabel;
class QToolButton;

namespace zav {

class MessageBar final : public QFrame {
  Q_OBJECT

 public:
  explicit MessageBar(QWidget* Parent = nullptr);

  void showMessage(const QString& Text);
  QString text() const;

 protected:
  void paintEvent(QPaintEvent* Event) override;
  void changeEvent(QEvent* Event) override;

 private:
  void updateColors();

  QLabel* FSign;
  QLabel* FText;
};

}  // namespace zav

#endif

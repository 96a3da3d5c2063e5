// calibration_editor.h - a small panel over the map that asks for the position of a point.
//
// It is not modal: the map can be moved and the point placed better while it is open.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_CALIBRATION_EDITOR_H
#define ZAV_APPS_VIEWER_CALIBRATION_EDITOR_H

#include <functional>

#include <QFrame>
#include <QPoint>
#include <QString>

class QLabel;
class QLineEdit;
class QPushButton;

namespace zav {

class CalibrationEditor final : public QFrame {
  Q_OBJECT

 public:
  // What a text was taken for, or why it says nothing.
  struct Reading {
    bool Good = false;
    QString Text;
  };
  using Reader = std::function<Reading(const QString& Text)>;

  struct Question {
    QString Title;
    QString Proposal;  // what Enter accepts at once
    QString Name;
    QString Example;  // shown while the field is empty
    Reader Read;
  };

  explicit CalibrationEditor(QWidget& Map);

  void ask(const Question& Asked, QPoint Beside);
  void setTitle(const QString& Title);
  // Puts itself beside a point of the map, off the magnifier's side where there is room.
  void placeBeside(QPoint Point);
  // Back to the field, after the mouse was used on the map.
  void takeFocus();
  bool isAsking() const { return !isHidden(); }
  // Ends without an answer.
  void cancel();

 signals:
  // The text was understood; the panel is closed.
  void accepted(const QString& Position, const QString& Name);
  void canceled();
  // Alt and an arrow key.
  void nudged(QPoint Step);
  // It stands elsewhere, or has another size.
  void placed();

 protected:
  bool event(QEvent* Event) override;
  bool eventFilter(QObject* Watched, QEvent* Event) override;

 private:
  bool handleKey(int Key, Qt::KeyboardModifiers Modifiers);
  void read();
  void accept();

  QWidget& FMap;
  QLabel* FTitle;
  QLineEdit* FPosition;
  QLineEdit* FName;
  QLabel* FReading;
  QPushButton* FAccept;
  Reader FRead;
  bool FGood = false;
  QPoint FBeside;
};

}  // namespace zav

#endif

// qt_guard.cpp - see qt_guard.h.
// SPDX-License-Identifier: MIT
#include <platform/qt/qt_guard.h>

#include <exception>

#include <QCoreApplication>
#include <QPointer>
#include <QString>

#include <platform/qt/qt_convert.h>

namespace zav {

bool RunGuarded(QObject* Self, const std::function<void()>& Call,
                const std::function<void(const QString& Text)>& Report) {
  const QPointer<QObject> Alive(Self);
  QString Reason;
  try {
    Call();
    return !Alive.isNull();
  } catch (const std::exception& Error) {
    Reason = ToQString(Error.what());
  } catch (...) {
    Reason = QCoreApplication::translate("zav", "Unknown error");
  }
  try {
    if (Alive) Report(Reason);
  } catch (...) {
    // A slot that cannot take the message has nobody left to tell.
  }
  return false;
}

}  // namespace zav

/// @file
/// qt_guard.h - where exceptions end that must not get into Qt's event loop.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_QT_QT_GUARD_H
#define ZAV_PLATFORM_QT_QT_GUARD_H

#include <functional>

#include <platform/base/api.h>

class QObject;
class QString;

namespace zav {

/// Runs Call; the text of what it throws goes to Report, if Self still exists, and what Report
/// throws goes nowhere. True when nothing was thrown and Self still exists.
ZAVGEO_API bool RunGuarded(QObject* Self, const std::function<void()>& Call,
                           const std::function<void(const QString& Text)>& Report);

}  // namespace zav

#endif

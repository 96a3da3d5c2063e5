// reason_text.h - what the readers say is wrong, in the language of the window.
//
// Readers of positions and tables know no Qt and give their reasons in English, with names and
// numbers in them.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_REASON_TEXT_H
#define ZAV_APPS_VIEWER_REASON_TEXT_H

#include <string_view>

#include <QString>

namespace zav {

// The reason (UTF-8), also behind "FILE: " or "FILE:LINE: ", translated where it is one that people
// often see; as it is otherwise.
QString ReasonText(std::string_view Reason);

}  // namespace zav

#endif

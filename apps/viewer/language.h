// language.h - the language of the viewer's texts.
//
// The source texts are English; translations are compiled into the program. Numbers are written by
// the system's habits whatever the language of the texts.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_LANGUAGE_H
#define ZAV_APPS_VIEWER_LANGUAGE_H

#include <QString>
#include <QStringList>

namespace zav {

// The code behind --language in the program's arguments; empty when there is none. It is read ahead
// of the other options, whose help is translated too.
QString LanguageArgument(const QStringList& Arguments);

// Takes a language for all texts from now on: a code as "de" or "de_AT", or, when empty, the first
// of the system's languages that there is a translation for. English where there is none. Qt's own
// texts, as those of its file dialog, follow when their translation is installed. Needs the
// application object; may be called again. Returns the code of the language taken.
QString UseLanguage(const QString& Code);

}  // namespace zav

#endif

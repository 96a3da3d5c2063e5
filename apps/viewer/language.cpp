// language.cpp - see language.h.
// SPDX-License-Identifier: MIT
#include "language.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace zav {

namespace {

// Texts of Qt that nearly every dialog shows. They are translated here too, so that a dialog has
// one language where Qt's own translation is not installed.
[[maybe_unused]] constexpr const char* QtTexts[] = {
    QT_TRANSLATE_NOOP("QPlatformTheme", "OK"),
    QT_TRANSLATE_NOOP("QPlatformTheme", "Save"),
    QT_TRANSLATE_NOOP("QPlatformTheme", "Open"),
    QT_TRANSLATE_NOOP("QPlatformTheme", "&Yes"),
    QT_TRANSLATE_NOOP("QPlatformTheme", "&No"),
    QT_TRANSLATE_NOOP("QPlatformTheme", "Close"),
    QT_TRANSLATE_NOOP("QPlatformTheme", "Cancel"),
    QT_TRANSLATE_NOOP("QPlatformTheme", "Discard"),
    QT_TRANSLATE_NOOP("QCommandLineParser", "Usage: %1"),
    QT_TRANSLATE_NOOP("QCommandLineParser", "[options]"),
    QT_TRANSLATE_NOOP("QCommandLineParser", "Options:"),
    QT_TRANSLATE_NOOP("QCommandLineParser", "Arguments:"),
    QT_TRANSLATE_NOOP("QCommandLineParser", "Displays help on commandline options."),
    QT_TRANSLATE_NOOP("QCommandLineParser", "Displays help including Qt specific options."),
    QT_TRANSLATE_NOOP("QCommandLineParser", "Displays version information."),
    QT_TRANSLATE_NOOP("QCommandLineParser", "Unknown option '%1'."),
    QT_TRANSLATE_NOOP("QCommandLineParser", "Unexpected value after '%1'."),
    QT_TRANSLATE_NOOP("QCommandLineParser", "Missing value after '%1'."),
    QT_TRANSLATE_NOOP("QShortcut", "Ctrl"),
    QT_TRANSLATE_NOOP("QShortcut", "Shift"),
    QT_TRANSLATE_NOOP("QShortcut", "Del"),
    QT_TRANSLATE_NOOP("QShortcut", "Home"),
    QT_TRANSLATE_NOOP("QShortcut", "Space"),
    QT_TRANSLATE_NOOP("QShortcut", "Return"),
    QT_TRANSLATE_NOOP("QShortcut", "Left"),
    QT_TRANSLATE_NOOP("QShortcut", "Right"),
    QT_TRANSLATE_NOOP("QShortcut", "Up"),
    QT_TRANSLATE_NOOP("QShortcut", "Down"),
};

constexpr const char* TranslatorName = "language";

// A translator that lives as long as the application, or until another language is taken.
QTranslator* NewTranslator() {
  auto* Translator = new QTranslator(QCoreApplication::instance());
  Translator->setObjectName(QLatin1String(TranslatorName));
  return Translator;
}

bool LoadViewer(QTranslator& Translator, const QLocale& Locale) {
  return Translator.load(Locale, QStringLiteral("zavgeo-viewer"), QStringLiteral("_"),
                         QStringLiteral(":/translations"));
}

}  // namespace

QString LanguageArgument(const QStringList& Arguments) {
  const QString Option = QStringLiteral("--language");
  QString Code;
  for (qsizetype i = 1; i < Arguments.size() && Arguments[i] != QLatin1String("--"); ++i) {
    if (Arguments[i] == Option && i + 1 < Arguments.size())
      Code = Arguments[++i];
    else if (Arguments[i].startsWith(Option + QLatin1Char('=')))
      Code = Arguments[i].mid(Option.size() + 1);
  }
  return Code;
}

QString UseLanguage(const QString& Code) {
  qDeleteAll(QCoreApplication::instance()->findChildren<QTranslator*>(QLatin1String(TranslatorName),
                                                                      Qt::FindDirectChildrenOnly));
  const QLocale Wanted = Code.isEmpty() ? QLocale::system() : QLocale(Code);
  // English has a translation too, of the texts with a number in them. Without any (as built where
  // Qt's tools are missing) the source texts are shown.
  QTranslator* Viewer = NewTranslator();
  if (!LoadViewer(*Viewer, Wanted))
    static_cast<void>(LoadViewer(*Viewer, QLocale(QLocale::English)));
  const QLocale Taken(Viewer->isEmpty() ? QStringLiteral("en") : Viewer->language());
  QCoreApplication::installTranslator(Viewer);
  // The last one installed is asked first.
  if (Taken.language() != QLocale::English) {
    QTranslator* Qt = NewTranslator();
    if (Qt->load(Taken, QStringLiteral("qtbase"), QStringLiteral("_"),
                 QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
      QCoreApplication::installTranslator(Qt);
  }
  return QLocale::languageToCode(Taken.language());
}

}  // namespace zav

// theme.h - light, dark and high contrast colours of the program.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_THEME_H
#define ZAV_APPS_VIEWER_THEME_H

#include <array>
#include <optional>

#include <QColor>
#include <QPalette>
#include <QString>

class QActionGroup;
class QMenu;
class QSettings;

namespace zav {

enum class Theme { System, Light, Dark, Contrast };
inline constexpr std::array AllThemes{Theme::System, Theme::Light, Theme::Dark, Theme::Contrast};

// "system", "light", "dark", "contrast": on the command line and in settings.
QString ThemeKeyword(Theme Theme);
std::optional<Theme> ParseTheme(const QString& Keyword);

// The colours of a theme; those of the desktop for Theme::System.
QPalette PaletteOf(Theme Theme);
// Sets the program's style and colours; windows that are open follow.
void ApplyTheme(Theme Theme);
// What was applied last.
Theme CurrentTheme();

// The ground of messages, and the mark at their left, on windows of this palette.
QColor MessageStripe(const QPalette& Palette);
QColor MessageGround(const QPalette& Palette);

// From 1 to 21, by the formula of WCAG 2.1, "contrast ratio"; text is legible from 4.5 on.
double ContrastRatio(const QColor& A, const QColor& B);

// The theme that was chosen last.
Theme ThemeIn(const QSettings& Settings);

// The themes in a submenu; the choice is remembered where there are settings.
void AddThemeMenu(QMenu& Menu, QSettings* Settings);

}  // namespace zav

#endif

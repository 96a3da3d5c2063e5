// theme.cpp - see theme.h.
// SPDX-License-Identifier: MIT
#include "theme.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCoreApplication>
#include <QMenu>
#include <QSettings>
#include <QStyle>

namespace zav {

namespace {

constexpr const char* ThemeKey = "view/theme";

// Style and colours of the desktop come back when the system's theme is chosen again.
struct Applied {
  Theme Now = Theme::System;
  QString SystemStyle;
};

Applied& State() {
  static Applied State;
  return State;
}

struct Colors {
  QRgb Window, WindowText;
  QRgb Base, AlternateBase, Text;
  QRgb Button, ButtonText;
  QRgb Highlight, HighlightedText;
  QRgb Link, Placeholder, Disabled;
};

constexpr Colors LightColors{0xfff3f3f3, 0xff1a1a1a, 0xffffffff, 0xfff5f7fa,
                             0xff1a1a1a, 0xffebebeb, 0xff1a1a1a, 0xff1f5fa8,
                             0xffffffff, 0xff0b57a4, 0xff6a6a6a, 0xff767676};
constexpr Colors DarkColors{0xff2b2d30, 0xffe6e6e6, 0xff1f2123, 0xff26282b, 0xffe6e6e6, 0xff3a3d41,
                            0xffe6e6e6, 0xff2f6db5, 0xffffffff, 0xff7db8f5, 0xff9a9da1, 0xff9a9da1};
// Fields and buttons are a little lighter than the window, because the style draws edges darker.
constexpr Colors ContrastColors{0xff000000, 0xffffffff, 0xff1f1f1f, 0xff2e2e2e,
                                0xffffffff, 0xff333333, 0xffffff00, 0xffffff00,
                                0xff000000, 0xff66ffff, 0xffd0d0d0, 0xffa8a8a8};

const Colors& ColorsOf(Theme Theme) {
  if (Theme == Theme::Dark) return DarkColors;
  return Theme == Theme::Contrast ? ContrastColors : LightColors;
}

QPalette Made(const Colors& C, bool Contrast) {
  // Edges and shadows follow from the button and the window.
  QPalette Palette{QColor(C.Button), QColor(C.Window)};
  const std::pair<QPalette::ColorRole, QRgb> Roles[] = {
      {QPalette::Window, C.Window},
      {QPalette::WindowText, C.WindowText},
      {QPalette::Base, C.Base},
      {QPalette::AlternateBase, C.AlternateBase},
      {QPalette::Text, C.Text},
      {QPalette::Button, C.Button},
      {QPalette::ButtonText, C.ButtonText},
      {QPalette::BrightText, C.WindowText},
      {QPalette::Highlight, C.Highlight},
      {QPalette::HighlightedText, C.HighlightedText},
      {QPalette::ToolTipBase, C.Base},
      {QPalette::ToolTipText, C.Text},
      {QPalette::Link, C.Link},
      {QPalette::LinkVisited, C.Link},
      {QPalette::PlaceholderText, C.Placeholder},
  };
  for (const auto& [Role, Color] : Roles) Palette.setColor(Role, QColor(Color));
  for (const auto Role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    Palette.setColor(QPalette::Disabled, Role, QColor(C.Disabled));
  if (Contrast) {
    for (const auto Role :
         {QPalette::Light, QPalette::Midlight, QPalette::Mid, QPalette::Dark, QPalette::Shadow})
      Palette.setColor(Role, QColor(C.WindowText));
  }
  return Palette;
}

double Luminance(const QColor& Color) {
  const auto Linear = [](double Part) {
    return Part <= 0.03928 ? Part / 12.92 : std::pow((Part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * Linear(Color.redF()) + 0.7152 * Linear(Color.greenF()) +
         0.0722 * Linear(Color.blueF());
}

QColor Mixed(const QColor& Ground, const QColor& Over, double Part) {
  const auto Mix = [Part](int A, int B) {
    return static_cast<int>(std::lround(A + (B - A) * Part));
  };
  return {Mix(Ground.red(), Over.red()), Mix(Ground.green(), Over.green()),
          Mix(Ground.blue(), Over.blue())};
}

struct Texts {
  Q_DECLARE_TR_FUNCTIONS(Theme)
};

QString ThemeName(Theme Theme) {
  switch (Theme) {
    case Theme::Light:
      return Texts::tr("&Light");
    case Theme::Dark:
      return Texts::tr("&Dark");
    case Theme::Contrast:
      return Texts::tr("&High Contrast");
    default:
      return Texts::tr("As the &System");
  }
}

}  // namespace

QString ThemeKeyword(Theme Theme) {
  constexpr const char* Keywords[] = {"system", "light", "dark", "contrast"};
  return QString::fromLatin1(Keywords[static_cast<size_t>(Theme)]);
}

std::optional<Theme> ParseTheme(const QString& Keyword) {
  for (const Theme Each : AllThemes)
    if (Keyword.compare(ThemeKeyword(Each), Qt::CaseInsensitive) == 0) return Each;
  return std::nullopt;
}

QPalette PaletteOf(Theme Theme) {
  if (Theme == Theme::System) return QPalette();
  return Made(ColorsOf(Theme), Theme == Theme::Contrast);
}

Theme CurrentTheme() { return State().Now; }

void ApplyTheme(Theme Theme) {
  Applied& Before = State();
  if (Before.Now == Theme) return;
  if (Before.Now == Theme::System) Before.SystemStyle = QApplication::style()->name();
  Before.Now = Theme;
  // Styles of desktops may draw with colours of their own; this one takes all from the palette.
  QApplication::setStyle(Theme == Theme::System ? Before.SystemStyle : QStringLiteral("Fusion"));
  QApplication::setPalette(PaletteOf(Theme));
}

QColor MessageStripe(const QPalette& Palette) {
  // Yellow where the text of buttons is: high contrast.
  const QColor Orange(0xd9, 0x7b, 0x16);
  const QColor Window = Palette.color(QPalette::Window);
  return ContrastRatio(Window, Qt::black) < 1.05 ? Palette.color(QPalette::ButtonText) : Orange;
}

QColor MessageGround(const QPalette& Palette) {
  return Mixed(Palette.color(QPalette::Window), MessageStripe(Palette), 0.18);
}

double ContrastRatio(const QColor& A, const QColor& B) {
  const auto [Low, High] = std::minmax({Luminance(A), Luminance(B)});
  return (High + 0.05) / (Low + 0.05);
}

Theme ThemeIn(const QSettings& Settings) {
  return ParseTheme(Settings.value(ThemeKey).toString()).value_or(Theme::System);
}

void AddThemeMenu(QMenu& Menu, QSettings* Settings) {
  QMenu* Themes = Menu.addMenu(Texts::tr("&Theme"));
  auto* Group = new QActionGroup(Themes);
  for (const Theme Each : AllThemes) {
    QAction* Action = Themes->addAction(ThemeName(Each));
    Action->setCheckable(true);
    Group->addAction(Action);
    QObject::connect(Action, &QAction::triggered, Themes, [Settings, Each] {
      ApplyTheme(Each);
      if (Settings != nullptr) Settings->setValue(ThemeKey, ThemeKeyword(Each));
    });
  }
  // Another window may have chosen.
  QObject::connect(Themes, &QMenu::aboutToShow, Themes, [Group] {
    Group->actions().at(static_cast<int>(CurrentTheme()))->setChecked(true);
  });
}

}  // namespace zav

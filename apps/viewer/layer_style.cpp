// layer_style.cpp - how items of a database look on the map.
// SPDX-License-Identifier: MIT
#include "layer_style.h"

#include <QCoreApplication>
#include <QSettings>

namespace zav {

namespace {

struct Texts {
  Q_DECLARE_TR_FUNCTIONS(LayerStyle)
};

QString KeyOf(size_t Kind, const char* What) {
  const std::string_view Name = GDB_ITEMNAMES.at(Kind);
  return QStringLiteral("layers/%1/%2")
      .arg(QLatin1String(Name.data(), static_cast<int>(Name.size())), QLatin1String(What));
}

}  // namespace

// Quiet enough to lie over a coloured map, and different in lightness too.
LayerStyle::LayerStyle()
    : FKinds{{{true, QColor(0x8c, 0x1a, 0x6e), QColor(), 2},
              {true, QColor(0x80, 0x00, 0x00), QColor(0xff, 0xff, 0xff), 1},
              {true, QColor(0x60, 0x30, 0x30), QColor(0xe8, 0xd8, 0xc8), 1},
              {true, QColor(0x14, 0x4f, 0xa0), QColor(0x9c, 0xc8, 0xf0), 1},
              {true, QColor(0x14, 0x4f, 0xa0), QColor(), 1},
              {true, QColor(0xb0, 0x40, 0x10), QColor(), 2},
              {true, QColor(0x00, 0x70, 0x40), QColor(), 2},
              {true, QColor(0x40, 0x40, 0x40), QColor(0xff, 0xe0, 0x60), 1}}} {}

void LayerStyle::load(QSettings& Settings) {
  for (size_t Kind = 0; Kind < LayerKinds; ++Kind) {
    KindStyle& Style = FKinds[Kind];
    Style.Shown = Settings.value(KeyOf(Kind, "shown"), Style.Shown).toBool();
    const QColor Color(Settings.value(KeyOf(Kind, "color")).toString());
    if (Color.isValid()) Style.Color = Color;
  }
}

void LayerStyle::save(QSettings& Settings) const {
  for (size_t Kind = 0; Kind < LayerKinds; ++Kind) {
    Settings.setValue(KeyOf(Kind, "shown"), FKinds[Kind].Shown);
    Settings.setValue(KeyOf(Kind, "color"), FKinds[Kind].Color.name());
  }
}

QString LayerKindsName(TgdbItem Kind) {
  static constexpr const char* Names[] = {
      QT_TRANSLATE_NOOP("LayerStyle", "Borders"), QT_TRANSLATE_NOOP("LayerStyle", "Towns"),
      QT_TRANSLATE_NOOP("LayerStyle", "Cities"),  QT_TRANSLATE_NOOP("LayerStyle", "Lakes"),
      QT_TRANSLATE_NOOP("LayerStyle", "Rivers"),  QT_TRANSLATE_NOOP("LayerStyle", "Roads"),
      QT_TRANSLATE_NOOP("LayerStyle", "Routes"),  QT_TRANSLATE_NOOP("LayerStyle", "Files")};
  const auto Index = static_cast<size_t>(Kind);
  return Index < LayerKinds ? Texts::tr(Names[Index]) : Texts::tr("Others");
}

QString LayerKindName(TgdbItem Kind) {
  static constexpr const char* Names[] = {
      QT_TRANSLATE_NOOP("LayerStyle", "Border"), QT_TRANSLATE_NOOP("LayerStyle", "Town"),
      QT_TRANSLATE_NOOP("LayerStyle", "City"),   QT_TRANSLATE_NOOP("LayerStyle", "Lake"),
      QT_TRANSLATE_NOOP("LayerStyle", "River"),  QT_TRANSLATE_NOOP("LayerStyle", "Road"),
      QT_TRANSLATE_NOOP("LayerStyle", "Route"),  QT_TRANSLATE_NOOP("LayerStyle", "File")};
  const auto Index = static_cast<size_t>(Kind);
  return Index < LayerKinds ? Texts::tr(Names[Index]) : Texts::tr("Other");
}

}  // namespace zav

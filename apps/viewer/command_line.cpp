// command_line.cpp - what the viewer is told on its command line.
// SPDX-License-Identifier: MIT
#include "command_line.h"

#include <array>
#include <cstring>

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QRegularExpression>

#include "position_readout.h"

namespace zav {

namespace {

struct GraticuleName {
  const char* Name;
  GeoMapWidget::Graticule Kind;
};

constexpr std::array GraticuleNames{
    GraticuleName{"none", GeoMapWidget::Graticule::NoGraticule},
    GraticuleName{"points", GeoMapWidget::Graticule::Points},
    GraticuleName{"lines", GeoMapWidget::Graticule::Lines},
    GraticuleName{"points-and-lines", GeoMapWidget::Graticule::PointsAndLines},
    GraticuleName{"utm-grid", GeoMapWidget::Graticule::UtmGrid},
    GraticuleName{"points-and-utm-grid", GeoMapWidget::Graticule::PointsAndUtmGrid},
};

struct Texts {
  Q_DECLARE_TR_FUNCTIONS(CommandLine)
};

QString GraticuleList() {
  QStringList Names;
  for (const GraticuleName& Item : GraticuleNames) Names << QString::fromLatin1(Item.Name);
  return Names.join(QStringLiteral(", "));
}

std::optional<GeoMapWidget::Graticule> ParseGraticule(const QString& Text) {
  for (const GraticuleName& Item : GraticuleNames)
    if (Text.compare(QLatin1String(Item.Name), Qt::CaseInsensitive) == 0) return Item.Kind;
  return std::nullopt;
}

QString ThemeList() {
  QStringList Names;
  for (const Theme Each : AllThemes) Names << ThemeKeyword(Each);
  return Names.join(QStringLiteral(", "));
}

std::optional<QSize> ParseSize(const QString& Text) {
  static const QRegularExpression Form(QStringLiteral("^([0-9]{1,5})[xX]([0-9]{1,5})$"));
  const QRegularExpressionMatch Match = Form.match(Text);
  if (!Match.hasMatch()) return std::nullopt;
  const QSize Size(Match.captured(1).toInt(), Match.captured(2).toInt());
  if (Size.width() < 200 || Size.height() < 150 || Size.width() > 8000 || Size.height() > 8000)
    return std::nullopt;
  return Size;
}

std::optional<double> ParseMagnification(const QString& Text) {
  bool Ok = false;
  const double Value = Text.toDouble(&Ok);
  if (!Ok || !(Value >= 0.5 && Value <= 2.0)) return std::nullopt;
  return Value;
}

// Reads one option's value into Target, or notes what it should have been.
template <typename T, typename Parse>
void ReadOption(const QCommandLineParser& Parser, const char* Name, Parse Read,
                const QString& Wanted, std::optional<T>& Target, QString& Error) {
  const QString Option = QString::fromLatin1(Name);
  if (!Parser.isSet(Option)) return;
  Target = Read(Parser.value(Option));
  if (!Target && Error.isEmpty())
    Error = Texts::tr("--%1: \"%2\" will not do; it takes %3")
                .arg(Option, Parser.value(Option), Wanted);
}

void AddOptions(QCommandLineParser& Parser) {
  Parser.setApplicationDescription(
      Texts::tr("Shows calibrated maps and reads positions off them."));
  Parser.addHelpOption();
  Parser.addVersionOption();
  Parser.addPositionalArgument(
      QStringLiteral("files"),
      Texts::tr("Calibration files (.xml), images (.jpg, .bmp), folders of them, lists of maps "
                "(.zavatlas)."),
      QStringLiteral("[files...]"));
  Parser.addOptions({
      {QStringLiteral("graticule"),
       Texts::tr("What is drawn over the map: %1.").arg(GraticuleList()), QStringLiteral("KIND")},
      {QStringLiteral("fit"), Texts::tr("Show the whole map.")},
      {QStringLiteral("magnification"),
       Texts::tr("Screen pixels for a pixel of the map, 0.5 to 2."), QStringLiteral("M")},
      {QStringLiteral("center"), Texts::tr("Position in the middle of the view, in degrees."),
       QStringLiteral("LAT,LONG")},
      {QStringLiteral("language"),
       Texts::tr("Language of the texts, as de or en; without it that of the system."),
       QStringLiteral("CODE")},
      {QStringLiteral("screenshot"),
       Texts::tr("Write the window as a picture to FILE and end; needs no display."),
       QStringLiteral("FILE")},
      {QStringLiteral("size"), Texts::tr("Size of the window, 200x150 to 8000x8000."),
       QStringLiteral("WxH")},
      {QStringLiteral("theme"), Texts::tr("Colours of the window: %1.").arg(ThemeList()),
       QStringLiteral("THEME")},
  });
}

CommandLine ReadCommandLine(const QStringList& Arguments) {
  CommandLine Result;
  QCommandLineParser Parser;
  AddOptions(Parser);
  if (!Parser.parse(Arguments)) {
    Result.Error = Parser.errorText();
    return Result;
  }
  if (Parser.isSet(QStringLiteral("help"))) {
    Result.Text = Parser.helpText();
    return Result;
  }
  if (Parser.isSet(QStringLiteral("version"))) {
    Result.Text = QCoreApplication::applicationName() + QLatin1Char(' ') +
                  QCoreApplication::applicationVersion() + QLatin1Char('\n');
    return Result;
  }
  ViewerOptions& Options = Result.Options;
  Options.Paths = Parser.positionalArguments();
  Options.Fit = Parser.isSet(QStringLiteral("fit"));
  Options.Screenshot = Parser.value(QStringLiteral("screenshot"));
  ReadOption(Parser, "graticule", ParseGraticule, GraticuleList(), Options.Graticule, Result.Error);
  ReadOption(Parser, "magnification", ParseMagnification, Texts::tr("a number from 0.5 to 2"),
             Options.Magnification, Result.Error);
  ReadOption(Parser, "center", ParsePosition, Texts::tr("LAT,LONG in degrees, such as 46.5,8.25"),
             Options.Center, Result.Error);
  ReadOption(Parser, "size", ParseSize, Texts::tr("WxH in pixels, 200x150 to 8000x8000"),
             Options.Size, Result.Error);
  ReadOption(Parser, "theme", ParseTheme, ThemeList(), Options.Theme, Result.Error);
  if (Result.Error.isEmpty() && Options.Fit && Options.Magnification)
    Result.Error = Texts::tr("--fit chooses the magnification itself; leave out --magnification");
  if (Result.Error.isEmpty() && Parser.isSet(QStringLiteral("screenshot")) &&
      Options.Screenshot.isEmpty())
    Result.Error = Texts::tr("--screenshot takes the name of the file to write");
  return Result;
}

}  // namespace

CommandLine ParseCommandLine(const QStringList& Arguments) {
  CommandLine Result = ReadCommandLine(Arguments);
  if (!Result.Error.isEmpty())
    Result.Error = Texts::tr("%1 (zavgeo-viewer --help tells the options)").arg(Result.Error);
  return Result;
}

bool NeedsNoDisplay(int Count, const char* const* Arguments) {
  for (int i = 1; i < Count; ++i) {
    const char* Argument = Arguments[i];
    if (std::strcmp(Argument, "--") == 0) return false;
    for (const char* Name : {"--screenshot", "--help", "--help-all", "-h", "--version", "-v"}) {
      const size_t Length = std::strlen(Name);
      if (std::strncmp(Argument, Name, Length) == 0 &&
          (Argument[Length] == '\0' || Argument[Length] == '='))
        return true;
    }
  }
  return false;
}

}  // namespace zav

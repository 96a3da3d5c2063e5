// language_test.cpp - the viewer in another language: menus, translations, numbers.
// SPDX-License-Identifier: MIT
#include "language.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QCoreApplication>
#include <QDoubleSpinBox>
#include <QFile>
#include <QKeySequence>
#include <QLocale>
#include <QMap>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QTest>
#include <QTranslator>
#include <QXmlStreamReader>

#include <geobasics/position_text.h>

#include "main_window.h"
#include "measure_area.h"
#include "new_map_dialog.h"
#include "position_parser.h"
#include "reason_text.h"

namespace zav {
namespace {

// Leaves the source texts and the locale as they were.
class LanguageTest : public ::testing::TestWithParam<const char*> {
 protected:
  void TearDown() override {
    for (QTranslator* Each : QCoreApplication::instance()->findChildren<QTranslator*>())
      delete Each;
    QLocale::setDefault(FLocale);
  }

 private:
  QLocale FLocale;
};

QStringList TitlesOf(const QMenuBar& Bar) {
  QStringList Titles;
  for (const QAction* Each : Bar.actions()) Titles << Each->text();
  return Titles;
}

// The letter behind a "&"; none where there is none.
QString MnemonicOf(const QString& Text) { return QKeySequence::mnemonic(Text).toString(); }

void ExpectDistinct(const QList<QAction*>& Actions, const QString& Menu) {
  QMap<QString, QString> Taken;
  for (const QAction* Each : Actions) {
    if (!Each->isVisible()) continue;
    const QString Key = MnemonicOf(Each->text());
    if (!Key.isEmpty()) {
      EXPECT_FALSE(Taken.contains(Key))
          << qPrintable(Menu) << ": " << qPrintable(Taken[Key]) << ", " << qPrintable(Each->text());
      Taken[Key] = Each->text();
    }
    if (Each->menu() != nullptr) ExpectDistinct(Each->menu()->actions(), Each->text());
  }
}

TEST_P(LanguageTest, EntriesOfAMenuHaveDifferentLettersAndActionsDifferentShortcuts) {
  if (UseLanguage(GetParam()) != GetParam()) GTEST_SKIP() << "built without translations";
  const MainWindow Window(nullptr);
  ExpectDistinct(Window.menuBar()->actions(), "menu bar");
  QMap<QKeySequence, QString> Taken;
  for (const QAction* Each : Window.findChildren<QAction*>()) {
    if (Each->shortcutContext() != Qt::WindowShortcut || !Each->isVisible()) continue;
    for (const QKeySequence& Key : Each->shortcuts()) {
      EXPECT_FALSE(Taken.contains(Key))
          << qPrintable(Key.toString()) << ": " << qPrintable(Taken[Key] + ", " + Each->text());
      Taken[Key] = Each->text();
    }
  }
  EXPECT_GT(Taken.size(), 20);
}

INSTANTIATE_TEST_SUITE_P(Languages, LanguageTest, testing::Values("en", "de"));

TEST_F(LanguageTest, TheWindowSpeaksTheLanguageAndOtherwiseEnglish) {
  const QStringList English{"&File",        "&Edit",      "&View",  "&Graticule",
                            "&Calibration", "&Landmarks", "&Tools", "&Help"};
  const auto Titles = [] { return TitlesOf(*MainWindow(nullptr).menuBar()); };
  EXPECT_EQ(UseLanguage("tlh"), "en");
  EXPECT_EQ(Titles(), English);
  if (UseLanguage("de_AT") != "de") GTEST_SKIP() << "built without translations";
  EXPECT_EQ(Titles(), (QStringList{"&Datei", "&Bearbeiten", "&Ansicht", "&Gradnetz",
                                   "&Kalibrierung", "&Ortsmarken", "&Werkzeuge", "&Hilfe"}));
  EXPECT_EQ(QCoreApplication::translate("zav::LandmarkTool", "Deleted %n landmark(s)", nullptr, 1),
            "1 Ortsmarke gelöscht");
  EXPECT_EQ(UseLanguage("en"), "en");
  EXPECT_EQ(Titles(), English);
  EXPECT_EQ(QCoreApplication::translate("zav::LandmarkTool", "Deleted %n landmark(s)", nullptr, 1),
            "Deleted 1 landmark");
}

TEST_F(LanguageTest, TheArgumentIsFoundWhereverItStands) {
  EXPECT_EQ(LanguageArgument({"viewer", "a.xml", "--language", "de"}), "de");
  EXPECT_EQ(LanguageArgument({"viewer", "--language=de", "a.xml"}), "de");
  EXPECT_EQ(LanguageArgument({"viewer", "--", "--language=de"}), "");
  EXPECT_EQ(LanguageArgument({"viewer", "--language"}), "");
}

// What people type and read has a comma; notations of positions take a point as well.
TEST_F(LanguageTest, GermanNumbers) {
  QLocale::setDefault(QLocale(QLocale::German));
  UseLanguage("de");
  NewMapDialog Dialog(std::nullopt, nullptr);
  for (const auto& [Name, Text] :
       {std::pair{"Nord", "48,25"}, {"Süd", "46,5"}, {"West", "8,125"}, {"Ost", "10,75"}}) {
    QDoubleSpinBox* Box = nullptr;
    for (QDoubleSpinBox* Each : Dialog.findChildren<QDoubleSpinBox*>())
      if (Each->accessibleName() == QString::fromUtf8(Name)) Box = Each;
    if (Box == nullptr) GTEST_SKIP() << "built without translations";
    Box->selectAll();
    QTest::keyClicks(Box, Text);
    QTest::keyClick(Box, Qt::Key_Return);
  }
  const std::optional<TEmptyMap> Plan = Dialog.plan();
  ASSERT_TRUE(Plan) << qPrintable(Dialog.problem());
  EXPECT_EQ(Plan->LatHigh, 48.25);
  EXPECT_EQ(Plan->LatLow, 46.5);
  EXPECT_EQ(Plan->LongLow, 8.125);
  EXPECT_EQ(Plan->LongHigh, 10.75);
  for (const char* Text : {"47,5 8,25", "47.5 8.25", "47°30,0' N 8°15,0' E"}) {
    const TypedPosition Typed = ParseTypedPosition(QString::fromUtf8(Text));
    ASSERT_TRUE(Typed.Position) << Text << ": " << qPrintable(Typed.Problem);
    EXPECT_NEAR(Typed.Position->Degrees.Latit, 47.5, 1e-9) << Text;
    EXPECT_NEAR(Typed.Position->Degrees.Longit, 8.25, 1e-9) << Text;
  }
  EXPECT_EQ(AreaText(1.25e6), "1,25 km²");
}

// Reasons of the readers are known by their wording; one that changes there is found here.
TEST_F(LanguageTest, ReasonsOfTheReadersAreTranslated) {
  if (UseLanguage("de") != "de") GTEST_SKIP() << "built without translations";
  for (const char* Text : {"",
                           "47-3 8",
                           "+ 8",
                           "47..5 8",
                           "47,5,3,1 8",
                           ":30 8",
                           "1:2:3:4 8",
                           "4700 m x 5000",
                           "47 ! 8",
                           "47 8 O",
                           "47 q 8",
                           "-470693 5150563",
                           "470693 mE mN 5150563",
                           "32T 470693 5150563 1",
                           "470693 mE 5150563 mE",
                           "2470693 mE 5150563 mN",
                           "470693 mE 15150563 mN",
                           "32I 470693 5150563",
                           "61T 470693 5150563",
                           "32 470693 5150563",
                           "32T 470693 9150563",
                           "UPS 2000000 2000000",
                           "UPS T 2000000 2000000",
                           "Z 5000000 2000000",
                           "Z 1000000 2000000",
                           "Z 2000000",
                           "' 47 8",
                           "N E",
                           "47 30 15 20",
                           "47.5 30 8",
                           "47 -30 8",
                           "47 75 8 1",
                           "N 47 N 8 E",
                           "-47 N 8 E",
                           "95 8",
                           "8 E 47 E",
                           "8 E 947 N",
                           "N 47 N",
                           "47",
                           "47 30 8",
                           "32TMS123",
                           "32TMS123456789012345678",
                           "32TAA12",
                           "32X MS 12",
                           "TMS12"}) {
    const QString Problem = ParseTypedPosition(QString::fromUtf8(Text)).Problem;
    std::string English;
    try {
      static_cast<void>(ParsePositionText(Text));
    } catch (const EPositionTextError& Error) {
      English = Error.what();
    }
    // What is understood after all has no problem in either language.
    EXPECT_EQ(Problem.isEmpty(), English.empty()) << Text;
    EXPECT_TRUE(English.empty() || Problem.toStdString() != English) << English;
  }
  const struct {
    const char* English;
    const char* German;
  } Cases[] = {
      {"a.csv: there is no column pixel_y", "a.csv: es gibt keine Spalte pixel_y"},
      {"C: a.csv:3: lat \"%2 x\" is not a number", "C: a.csv:3: lat „%2 x“ ist keine Zahl"},
      {"a.csv:4: lat 95 is outside -90..90", "a.csv:4: lat 95 liegt nicht zwischen -90 und 90"},
      {"a.csv: line 2: a quote is not closed",
       "a.csv: Zeile 2: Ein Anführungszeichen ist nicht geschlossen"},
      {"as nobody has put it before: no", "as nobody has put it before: no"},
      {"", ""},
  };
  for (const auto& Case : Cases) EXPECT_EQ(ReasonText(Case.English).toStdString(), Case.German);
}

// --- the files of translations

struct Message {
  QString Source;
  QStringList Translations;  // one, or those of the plural forms
};

QList<Message> MessagesOf(const QString& FileName) {
  QFile File(FileName);
  EXPECT_TRUE(File.open(QIODevice::ReadOnly)) << qPrintable(FileName);
  QXmlStreamReader Reader(&File);
  QList<Message> Messages;
  while (!Reader.atEnd()) {
    if (Reader.readNext() != QXmlStreamReader::StartElement) continue;
    if (Reader.name() == QLatin1String("message")) Messages.append(Message{});
    if (Reader.name() == QLatin1String("source")) Messages.last().Source = Reader.readElementText();
    if (Reader.name() == QLatin1String("numerusform"))
      Messages.last().Translations << Reader.readElementText();
    if (Reader.name() == QLatin1String("translation")) {
      EXPECT_FALSE(Reader.attributes().hasAttribute("type")) << qPrintable(Messages.last().Source);
      // Of a text with plural forms the elements inside follow.
      if (Reader.readNext() == QXmlStreamReader::Characters && !Reader.isWhitespace())
        Messages.last().Translations << Reader.text().toString();
    }
  }
  EXPECT_FALSE(Reader.hasError()) << qPrintable(Reader.errorString());
  return Messages;
}

QStringList PlaceholdersOf(const QString& Text) {
  static const QRegularExpression Form("%L?([0-9n])");
  QStringList Found;
  for (auto Match = Form.globalMatch(Text); Match.hasNext();) Found << Match.next().captured(0);
  Found.sort();
  return Found;
}

TEST(Translations, KeepWhatTheProgramNeedsOfATextAndHaveAllForms) {
  for (const char* Language : {"de", "en"}) {
    const QString File = QStringLiteral(ZAVGEO_TRANSLATIONS "/zavgeo-viewer_%1.ts").arg(Language);
    const QList<Message> Messages = MessagesOf(File);
    EXPECT_GT(Messages.size(), 20) << Language;
    for (const auto& [Source, Translations] : Messages) {
      const bool Plural = Source.contains("%n") || Source.contains("%Ln");
      EXPECT_EQ(Translations.size(), Plural ? 2 : 1) << Language << ": " << qPrintable(Source);
      for (const QString& Each : Translations) {
        const std::string Told = (Source + " -> " + Each).toStdString();
        EXPECT_EQ(PlaceholdersOf(Each), PlaceholdersOf(Source)) << Told;
        EXPECT_EQ(MnemonicOf(Each).isEmpty(), MnemonicOf(Source).isEmpty()) << Told;
        EXPECT_EQ(Each.endsWith("..."), Source.endsWith("...")) << Told;
        EXPECT_EQ(Each.startsWith(' '), Source.startsWith(' ')) << Told;
        EXPECT_EQ(Each.contains(";;"), Source.contains(";;")) << Told;
      }
    }
  }
}

}  // namespace
}  // namespace zav

// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <limits>
#include <string>

#include <QFontDatabase>

#include <platform/qt/qt_fonts.h>

using namespace zav;

namespace {

std::string Picture(const TTextMask& Mask) {
  std::string Lines;
  for (const uint8_t Value : Mask.Coverage) {
    Lines += Value != 0 ? '#' : '.';
    if (Lines.size() % static_cast<size_t>(Mask.Width + 1) == static_cast<size_t>(Mask.Width))
      Lines += '\n';
  }
  return Lines;
}

bool IsSmooth(const TTextMask& Mask) {
  return std::any_of(Mask.Coverage.begin(), Mask.Coverage.end(),
                     [](uint8_t Value) { return Value != 0 && Value != 255; });
}

// The built-in face at 11 pixels; the same on every machine.
TEST(QtFonts, DefaultFontHasKnownPixels) {
  TQtFontEngine Fonts;
  const TTextMask Mask = Fonts.RenderText({}, "To AV 7");
  EXPECT_EQ(Picture(Mask),
            "######............##...#......#....####\n"
            "...#..............##....#....#........#\n"
            "...#...####......#..#...#....#........#\n"
            "...#...#..#......#..#....#..#........#.\n"
            "...#..#....#.....#..##...#..#........#.\n"
            "...#..#....#....######...#..#.......#..\n"
            "...#...#..#.....#....#....##........#..\n"
            "...#...####....#......#...##........#..\n");
  EXPECT_EQ(Mask.Left, 0);
  EXPECT_EQ(Mask.Top, 2);
  EXPECT_FALSE(IsSmooth(Mask));
  EXPECT_EQ(Picture(TQtFontEngine().RenderText({}, "To AV 7")), Picture(Mask));
  EXPECT_EQ(Fonts.TextExtent({}, "To AV 7"), (TSize{40, 12}));
  EXPECT_EQ(Fonts.TextExtent({}, ""), (TSize{0, 12}));
  EXPECT_EQ(Fonts.RenderText({}, "").Width, 0);
}

TEST(QtFonts, NameSizeAndStylesChooseTheFace) {
  TQtFontEngine Fonts;
  const auto Drawn = [&](const TFont& Font) { return Picture(Fonts.RenderText(Font, "Genova")); };
  const std::string Plain = Drawn({});
  for (const char* Name : {"ms sans serif", "", "No such family", "Liberation Sans"})
    EXPECT_EQ(Drawn({.Name = Name}), Plain) << Name;
  for (const TFontStyles Styles : {fsBold, fsItalic, fsUnderline, fsStrikeOut})
    EXPECT_NE(Drawn({.Styles = Styles}), Plain) << int{Styles};
  const TTextMask Underlined = Fonts.RenderText({.Styles = fsUnderline}, "nnn");
  const std::string Rows = Picture(Underlined);
  EXPECT_NE(Rows.find(std::string(static_cast<size_t>(Underlined.Width), '#')), std::string::npos);

  // Points at 96 dots per inch; absurd sizes neither crash nor take the memory.
  const std::array<std::pair<double, int32_t>, 4> Heights{{{8, 12}, {9, 15}, {16, 24}, {24, 36}}};
  for (const auto& [Size, Height] : Heights)
    EXPECT_NEAR(Fonts.TextExtent({.Size = Size}, "X").Height, Height, 1) << Size;
  for (const double Size : {0.0, -5.0, 1e300, std::numeric_limits<double>::quiet_NaN()}) {
    const TTextMask Mask = Fonts.RenderText({.Size = Size}, std::string(300, 'W'));
    EXPECT_EQ(Mask.Coverage.size(),
              static_cast<size_t>(Mask.Width) * static_cast<size_t>(Mask.Height));
  }
}

// Turned counter-clockwise about the top left corner of the text box, and smoothed.
TEST(QtFonts, TurnedTextLiesWhereItsBoxLies) {
  TQtFontEngine Fonts;
  const std::string Text = "Turned";
  const TSize Box = Fonts.TextExtent({.Size = 20}, Text);
  struct TCase {
    int32_t Direction;
    TRect Area;
  };
  const std::array<TCase, 4> Cases{{{90, {0, -Box.Width, Box.Height, 0}},
                                    {180, {-Box.Width, -Box.Height, 0, 0}},
                                    {-90, {-Box.Height, 0, 0, Box.Width}},
                                    {630, {-Box.Height, 0, 0, Box.Width}}}};
  for (const TCase& Case : Cases) {
    const TTextMask Mask = Fonts.RenderText({.Size = 20, .Direction = Case.Direction}, Text);
    EXPECT_TRUE(IsSmooth(Mask)) << Case.Direction;
    EXPECT_GE(Mask.Left, Case.Area.Left - 2) << Case.Direction;
    EXPECT_GE(Mask.Top, Case.Area.Top - 2) << Case.Direction;
    EXPECT_LE(Mask.Left + Mask.Width, Case.Area.Right + 2) << Case.Direction;
    EXPECT_LE(Mask.Top + Mask.Height, Case.Area.Bottom + 2) << Case.Direction;
    EXPECT_GT(Mask.Width * Mask.Height, Box.Width * Box.Height / 3) << Case.Direction;
  }
  EXPECT_EQ(Picture(Fonts.RenderText({.Size = 20, .Direction = 720}, Text)),
            Picture(Fonts.RenderText({.Size = 20}, Text)));
}

TEST(QtFonts, OtherScriptsAreNoBoxes) {
  TQtFontEngine Fonts;
  const auto Drawn = [&](const char* Text) { return Picture(Fonts.RenderText({}, Text)); };
  const std::string Missing = Drawn("\U0010FFFF");
  ASSERT_FALSE(Missing.empty());
  struct TCase {
    QFontDatabase::WritingSystem System;
    const char* One;
    const char* Other;
  };
  const std::array<TCase, 6> Cases{{{QFontDatabase::Cyrillic, "\u0416", "\u0429"},
                                    {QFontDatabase::Greek, "\u03A9", "\u03A8"},
                                    {QFontDatabase::Japanese, "\u65E5", "\u672C"},
                                    {QFontDatabase::Korean, "\uD55C", "\uAE00"},
                                    {QFontDatabase::Arabic, "\u0639", "\u0633"},
                                    {QFontDatabase::Thai, "\u0E01", "\u0E02"}}};
  for (const TCase& Case : Cases) {
    // The faces with Cyrillic and Greek are built in.
    if (QFontDatabase::families(Case.System).isEmpty()) continue;
    EXPECT_NE(Drawn(Case.One), Missing) << Case.One;
    EXPECT_NE(Drawn(Case.One), "") << Case.One;
    EXPECT_NE(Drawn(Case.One), Drawn(Case.Other)) << Case.One;
  }
  // A character from elsewhere leaves the others as they are.
  const std::string Alone = Drawn("Kyoto"), Mixed = Drawn("Kyoto \u4EAC");
  EXPECT_GT(Mixed.size(), Alone.size());
  EXPECT_EQ(Drawn("\xE9t\xE9"), Drawn("\u00E9t\u00E9")) << "bytes of older files";
  EXPECT_EQ(Drawn("a\tb\nc"), Drawn("a b c"));
}

}  // namespace

// Case, accents, positions and characters of text; numbers and dates read and written.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <platform/base/text.h>
#include <platform/base/text_format.h>
#include <platform/base/text_scan.h>
#include <platform/base/utf8.h>
#include <wctype.h>

#include <clocale>
#include <cmath>
#include <limits>
#include <locale>

namespace zav {
namespace {

TEST(Text, TrimsBlanksOnly) {
  EXPECT_EQ(TrimBlanks("  a b  "), "a b");
  EXPECT_EQ(TrimBlanks(" \ta\t "), "\ta\t");
  EXPECT_EQ(TrimBlanks("   "), "");
  EXPECT_EQ(TrimBlanks(""), "");
}

TEST(Text, FindsTheNthOccurrence) {
  EXPECT_EQ(PosNthOccurrence("\"", "id=\"abc\" x", 1, 2, false), 8);
  EXPECT_EQ(PosNthOccurrence("aa", "aaaa", 1, 2, false), 3) << "matches do not overlap";
  EXPECT_EQ(PosNthOccurrence("aa", "aaaa", 1, 3, false), 0);
  EXPECT_EQ(PosNthOccurrence("a", "aba", -5, 2, false), 3);
  EXPECT_EQ(PosNthOccurrence("a", "aba", 2, 1, false), 3);
  EXPECT_EQ(PosNthOccurrence("a", "aba", 4, 1, false), 0);
  EXPECT_EQ(PosNthOccurrence("a", "aba", 400, 1, false), 0);
  EXPECT_EQ(PosNthOccurrence("a", "aba", 1, 0, false), 0);
  EXPECT_EQ(PosNthOccurrence("", "aba", 1, 1, false), 0);
  EXPECT_EQ(PosNthOccurrence("ÄB", "xäbÄb", 1, 2, true), 5);
}

TEST(Text, SameTextInAnyScript) {
  EXPECT_TRUE(
      SameText("STRASSE Österreich МОСКВА ΟΔΟΣ 東京", "strasse öSTERREICH москва οδος 東京"));
  EXPECT_FALSE(SameText("ab", "abc"));
  EXPECT_FALSE(SameText("o", "ö"));
  EXPECT_TRUE(SameText("\xC4", "\xC4"));
  EXPECT_FALSE(SameText("\xC4", "\xE4")) << "bytes that are no UTF-8 have no case";
  EXPECT_FALSE(SameText("\xC4", "Ä")) << "nor are they the character of that number";
  EXPECT_EQ(LowerCase("A\xC4\xFFZ"), "a\xC4\xFFz");
  EXPECT_EQ(UpperCase("straße"), "STRAßE");
}

// The C library's tables are another generation of the same database.
TEST(Text, CaseAgreesWithTheCLibrary) {
  const locale_t locale = ::newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  if (locale == nullptr) GTEST_SKIP() << "no locale C.UTF-8";
  int differences = 0;
  for (char32_t code = 1; code < 0x20000; ++code) {
    if (code >= 0xD800 && code < 0xE000) continue;
    std::string text, lower, upper;
    AppendUtf8(text, code);
    AppendUtf8(lower, static_cast<char32_t>(::towlower_l(static_cast<wint_t>(code), locale)));
    AppendUtf8(upper, static_cast<char32_t>(::towupper_l(static_cast<wint_t>(code), locale)));
    EXPECT_TRUE(SameText(text, LowerCase(text))) << text << " is not found by its lower case";
    differences += LowerCase(text) != lower || UpperCase(text) != upper;
  }
  ::freelocale(locale);
  EXPECT_LE(differences, 20) << "more than the letters that a newer library may know";
}

TEST(Text, FoldsAccents) {
  EXPECT_EQ(FoldAccents("Zürich Łódź Århus Œuvre Þingvellir Großglockner Viêt İzmir"),
            "Zurich Lodz Arhus OEuvre THingvellir Grossglockner Viet Izmir");
  EXPECT_EQ(FoldAccents("Αθήνα Ёлка"), "Αθηνα Елка");
  EXPECT_EQ(FoldAccents("Zu\xCC\x88rich"), "Zurich") << "combining mark";
  EXPECT_EQ(FoldAccents("がぎ \xFF"), "がぎ \xFF") << "marks of other scripts make other letters";
}

TEST(Text, IndexesLists) {
  const std::string_view list[] = {"a", "b", "a"};
  EXPECT_EQ(StringIx("a", list, 2), 1);
  EXPECT_EQ(StringIx("b", list, 0), 0) << "beyond HighIndex";
  EXPECT_EQ(StringIx("B", list, 9), 0);
  EXPECT_EQ(StringIx("b", list, 9), 2);
}

TEST(Utf8, TakesInvalidBytesOneByOne) {
  for (const char* text : {"\x80", "\xC0\x80", "\xC3", "\xE0\x80\x80", "\xED\xA0\x80",
                           "\xF0\x80\x80\x80", "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80"}) {
    const TUtf8Char c = DecodeUtf8(text, 0);
    EXPECT_TRUE(!c.Valid && c.Length == 1 && c.Code == static_cast<uint8_t>(text[0])) << text;
  }
  EXPECT_EQ(DecodeUtf8("\xF4\x8F\xBF\xBF", 0).Code, 0x10FFFFU);
  EXPECT_EQ(DisplayText("Z\xFCrich \x80\x93 Zürich"), "Zürich €“ Zürich");
}

TEST(Utf8, CutsAtCharacters) {
  EXPECT_EQ(CutAtCharacter("aé", 2), "a");
  EXPECT_EQ(CutAtCharacter("a東", 3), "a");
  EXPECT_EQ(CutAtCharacter("東京", 3), "東");
  EXPECT_EQ(CutAtCharacter("\xF0\x9F\x98\x80", 3), "");
  EXPECT_EQ(CutAtCharacter("ab\xFF\xFF", 3), "ab\xFF");
}

// --- numbers

struct TFloatCase {
  const char* Text;
  bool Exponent;
  int32_t Mode;
  double Value;
  int32_t End;
};

constexpr double Max = std::numeric_limits<double>::max();

const TFloatCase FloatCases[] = {
    {"  -12,5e3", true, 3, -12500, 10},
    {"1.", true, 3, 1, 3},
    {"1.;", true, 3, 1, 3},
    {".", true, 3, 0, 2},
    {".5", true, 3, 0.5, 3},
    {"-", true, 3, 0, 2},
    {"+7", true, 3, 7, 3},
    {"", true, 3, 0, 1},
    {"x", true, 3, 0, 1},
    {"1e", true, 3, 1, 3},
    {"1e+", true, 3, 1, 4},
    {"1e+x", true, 3, 1, 4},
    {"1e ", true, 3, 0, 3},  // a blank in the exponent is an error
    {"1e2.5", true, 3, 100, 4},
    {"1.2.3", true, 3, 0, 4},
    {"1 2", true, 3, 1, 2},
    {"3-4", true, 3, 3, 2},
    {"- 4", true, 3, 0, 2},
    {"1,5", true, 1, 1, 2},
    {"1.5", true, 2, 1, 2},
    {"1e3", false, 3, 1, 2},
    {"1E3", true, 3, 1000, 4},
    {"1e99999", true, 3, Max, 8},
    {"-1e4201", true, 3, -Max, 8},
    {"1e-99999", true, 3, 0, 9},
    {"0e99999", true, 3, 0, 8},
    {"0.1", true, 3, 0.1, 4},
    {"179769313486231570814527423731704356798070e267", true, 3, Max, 47},
    {"2.2250738585072011e-308", true, 3, 2.2250738585072011e-308, 24},
};

TEST(Scan, Floats) {
  for (const TFloatCase& c : FloatCases) {
    int32_t pos = 1;
    EXPECT_EQ(ScanFloat(c.Text, c.Exponent, c.Mode, pos), c.Value) << c.Text;
    EXPECT_EQ(pos, c.End) << c.Text;
  }
  int32_t pos = 4;
  EXPECT_EQ(ScanFloat("[1,22]", true, 1, pos), 22);
  pos = 1;
  EXPECT_EQ(ScanFloat("1e-" + std::string(400, '9'), true, 3, pos), 0);
  EXPECT_EQ(pos, 404);
  // Beyond the range by digits before, and small by digits behind the point.
  pos = 1;
  EXPECT_EQ(ScanFloat(std::string(400, '9') + "e-10", true, 3, pos), Max);
  pos = 1;
  EXPECT_EQ(ScanFloat("0." + std::string(400, '0') + "1e10", true, 3, pos), 0);
}

TEST(Scan, IntegersAndHexadecimal) {
  struct TCase {
    const char* Text;
    int32_t Value, End;
  };
  for (const TCase& c : {TCase{"  42x", 42, 5},
                         {"-7", -7, 3},
                         {"+7,", 7, 3},
                         {"-", 0, 2},
                         {"x", 0, 1},
                         {"", 0, 1},
                         {"4294967297", 1, 11},
                         {"-2147483648", std::numeric_limits<int32_t>::min(), 12}}) {
    int32_t pos = 1;
    EXPECT_EQ(ScanInteger(c.Text, pos), c.Value) << c.Text;
    EXPECT_EQ(pos, c.End) << c.Text;
  }
  int32_t pos = -3;
  EXPECT_EQ(ScanInteger("", pos), 0);
  EXPECT_EQ(pos, -3) << "an empty text leaves the position alone";
  EXPECT_EQ(ScanInteger("12", pos), 12) << "positions below 1 count as 1";
  pos = std::numeric_limits<int32_t>::max();
  EXPECT_EQ(ScanInteger("12", pos), 0);
  pos = 1;
  EXPECT_EQ(ScanHex("00fF80Cg", pos), 0xFF80CU);
  EXPECT_EQ(pos, 8);
  EXPECT_EQ(ScanHex("", pos = 1), 0U);
}

TEST(Scan, Dates) {
  const auto scan = [](std::string_view text, int32_t pos = 1) {
    return ScanDateTime(text, "yyyymmddHHMMSS", pos);
  };
  EXPECT_EQ(scan("20000101120000"), 36526.5);
  EXPECT_EQ(scan("xx20040229000000", 3), 38046);
  for (const char* bad : {"", "2000", "20000101", "2000010112000x", "20030229000000",
                          "20001301000000", "20000100000000", "20000101240000", "00000101000000"}) {
    EXPECT_EQ(scan(bad), 0) << bad;
  }
  int32_t pos = 1;
  EXPECT_EQ(ScanDateTime("31.12.1899 6:00", "dd.mm.yyyy", pos), 1);
  EXPECT_EQ(pos, 11);
}

TEST(Format, FixedNumbers) {
  struct TCase {
    double Value;
    int32_t Width, Decimals;
    const char* Text;
  };
  for (const TCase& c : {TCase{47.5, 1, 5, "47.50000"},
                         {-3.5, -8, 3, "-003.500"},
                         {3.5, -8, 3, "0003.500"},
                         {-3.5, 8, 3, "  -3.500"},
                         {2.5, 1, 0, "2"},
                         {0.125, 1, 2, "0.12"},
                         {-0.000001, 1, 5, "0.00000"},
                         {1e20, 1, 1, "100000000000000000000.0"},
                         {9.9999999, 1, 3, "10.000"},
                         {-1234.56789, 20, -2, "-1.2345678900000E+03"},
                         {1234.56789, 20, -2, " 1.2345678900000E+03"},
                         {1e120, 1, -2, "********"},
                         {1e-100, 10, -2, "**********"},
                         {1.5e-7, -12, -2, "01.50000E-07"},
                         {-1.5, -12, -2, "-1.50000E+00"},
                         {NAN, 5, 2, "  nan"},
                         {-INFINITY, 1, -2, "-inf"}}) {
    EXPECT_EQ(FormatFixedNumber(c.Value, c.Width, c.Decimals), c.Text);
  }
  EXPECT_EQ(FormatFixedNumber(Max, 1, 99999).size(), 309U + 1 + 1100);
  EXPECT_EQ(FormatFixedNumber(Max, 99999, -2).size(), 99999U);
}

TEST(Format, TruthHexAndShortest) {
  const char* styles[][2] = {{"TRUE", "FALSE"}, {"T", "F"},   {".T.", ".F."}, {"1", "0"},
                             {"-1", "0"},       {"FF", "00"}, {"YES", "NO"},  {"GOOD", "BAD"}};
  for (int32_t style = 0; style < 8; ++style) {
    EXPECT_EQ(BoolToText(true, style), styles[style][0]);
    EXPECT_EQ(BoolToText(false, style), styles[style][1]);
  }
  EXPECT_EQ(BoolToText(true, -1) + BoolToText(false, 8), "TRUEFALSE");
  EXPECT_EQ(Hex(0xC0FFEE, 8), "00C0FFEE");
  EXPECT_EQ(Hex(0x123456, 2), "123456");
  EXPECT_EQ(Hex(0, 0), "0");
  EXPECT_EQ(ShortestNumber(0.1), "0.1");
  EXPECT_EQ(ShortestNumber(-12), "-12");
}

// A program that has set the user's locale must read and write the same files.
TEST(Format, IsTheSameUnderEveryLocale) {
  int tried = 0;
  for (const char* name : {"C", "de_DE.UTF-8", "ru_RU.UTF-8", "tr_TR.UTF-8"}) {
    if (std::setlocale(LC_ALL, name) == nullptr) {
      std::printf("locale %s is missing, not tried\n", name);
      continue;
    }
    ++tried;
    const std::locale old = std::locale::global(std::locale(name));
    int32_t pos = 1;
    EXPECT_EQ(ScanFloat("1234.5", true, 1, pos), 1234.5) << name;
    EXPECT_EQ(FormatFixedNumber(1234.5, 1, 2), "1234.50") << name;
    EXPECT_EQ(FormatFixedNumber(1234.5, 12, -2), " 1.23450E+03") << name;
    EXPECT_EQ(ShortestNumber(1234567.25) + IntegerText(1234567), "1234567.251234567") << name;
    EXPECT_EQ(LowerCase("TITLE ID"), "title id") << name;
    EXPECT_EQ(UpperCase("title id"), "TITLE ID") << name;
    std::locale::global(old);
    std::setlocale(LC_ALL, "C");
  }
  if (tried < 4) GTEST_SKIP() << "only " << tried << " of 4 locales are installed";
}

}  // namespace
}  // namespace zav

// Attributes, tags and lines of record files, well formed and not.
// SPDX-License-Identifier: MIT
#include <geomap/landmarks/xml_records.h>
#include <gtest/gtest.h>
#include <support/stream_bytes.h>
#include <support/temp_folder.h>

namespace zav {
namespace {

using test::StreamOf;

TEST(XmlRecords, TagTableIsTheOneOfTheFiles) {
  const char* names[] = {"geomap",     "/geomap",     "calline",      "corners",
                         "resolution", "gmlandmarks", "/gmlandmarks", "landmark",
                         "calquads",   "lmsymbols",   "/lmsymbols",   "symbol",
                         "utmzone",    "utmsouth",    "ellipsoid",    "invalidtag"};
  for (size_t i = 0; i < 16; ++i) EXPECT_EQ(XmlTagNames[i], names[i]);
  EXPECT_EQ(XmlTagName(TXmlTag::UtmSouth), "utmsouth");
  EXPECT_FALSE(IsRecordText("a\"b") || IsRecordText("a\nb") || IsRecordText("\r") ||
               IsRecordText(std::string_view("\0", 1)));
  EXPECT_TRUE(IsRecordText("Zürich <b> & 'c'\t"));
}

TEST(XmlRecords, NextAttribute) {
  struct TCase {
    const char* Text;
    int32_t Result;
    const char *Name, *Value;
    int32_t End;
  };
  for (const TCase& c : {TCase{"lat=\"47.5\" x", 0, "lat", "47.5", 11},
                         {" a b = \" v=1 \"", 0, "a b", " v=1 ", 15},
                         {"size=12 3", 0, "size", "12", 9},
                         {"size=12\"3", 0, "size", "12", 9},
                         {"size=", 0, "size", "", 6},
                         {"size=\"open", 0, "size", "open", 11},
                         {"alone", 0, "alone", "", 6},
                         {" =\"2\"", 0, "", "2", 6},
                         {"na\"me", 1, "na", "", 4},
                         {"a==1", 2, "a", "", 4},
                         {"a=1=2", 3, "a", "1", 5},
                         {"", 4, "", "", 1}}) {
    int32_t pos = 1;
    std::string name, value;
    EXPECT_EQ(NextAttribute(c.Text, pos, name, value), c.Result) << c.Text;
    EXPECT_EQ(name, c.Name) << c.Text;
    EXPECT_EQ(value, c.Value) << c.Text;
    EXPECT_EQ(pos, c.End) << c.Text;
  }
}

TEST(XmlRecords, FindAttribute) {
  const char* cases[][3] = {{"lat=\"47.5\" long=\"13.0\"", "LONG", "13.0"},
                            {"a==1 b=\"3\"", "b", ""},
                            {" =\"2\" b=\"3\"", "b", "3"},
                            {"Title=\"Ab\" title=\"second\"", "tITLE", "Ab"},
                            {"x=\"lat=5\" lat=\"6\"", "lat", "6"},
                            {"flat=\"5\"", "lat", ""},
                            {"ПОЛЕ=\"ж\"", "поле", "ж"},
                            {"a=1 b=2", "b", "2"}};
  for (const auto& c : cases) EXPECT_EQ(FindAttribute(c[0], c[1]), c[2]) << c[0];
}

TEST(XmlRecords, LineEndModes) {
  struct TCase {
    int32_t Mode;
    const char* Bytes;
    std::vector<std::string> Lines;  // the last one was returned with the end of the stream
  };
  for (const TCase& c : {TCase{0, "a\rb\nc", {"a\rb", "c"}},
                         {0, "a\r\n\r\nb", {"a", "", "b"}},
                         {1, "a\nb\rc", {"a\nb", "c"}},
                         {2, "a\rb\nc\r\nd", {"a", "b", "c", "", "d"}},
                         {3, "a\rb\n\rc\n", {"a\rb", "c\n"}},
                         {4, "ab\r\ncd", {"ab", "cd"}},
                         {4, "a\nb\r\n\r\n", {"a\nb", "", ""}},
                         {4, "a\n\n\r\n", {"a\n\n", ""}},  // at most two are taken off
                         {9, "a\nb", {"a", "b"}},
                         {2, "", {""}}}) {
    TMemoryStream stream = StreamOf(c.Bytes);
    std::vector<std::string> lines;
    for (bool eof = false; !eof;) lines.push_back(ReadLineFromStream(stream, eof, c.Mode));
    EXPECT_EQ(lines, c.Lines) << c.Mode;
  }
}

// Every tag as "index|attributes|contents", read from a stream and from a file, which must agree.
std::vector<std::string> TagsOf(std::string_view Text, const char* RootToFind = nullptr) {
  TMemoryStream stream = StreamOf(Text);
  const TTempFolder folder;
  WriteWholeFile(folder / "t.xml", Text);
  TextFile file;
  file.Reset(folder / "t.xml");
  if (RootToFind != nullptr) {
    std::string line;
    EXPECT_TRUE(FindRootLine(stream, TXmlTag::GmLandmarks, RootToFind, line));
    EXPECT_TRUE(FindRootLine(file, TXmlTag::GmLandmarks, RootToFind, line));
  }
  std::vector<std::string> tags;
  for (;;) {
    std::string attributes, contents, attributes2, contents2;
    const TXmlTag tag = ReadNextTagInStream(stream, attributes, contents);
    EXPECT_EQ(ReadNextTagInTextFile(file, attributes2, contents2), tag);
    EXPECT_TRUE(attributes == attributes2 && contents == contents2) << Text;
    if (tag == TXmlTag::Invalid) return tags;
    std::string text = std::to_string(static_cast<int>(tag));
    tags.push_back(text.append("|").append(attributes).append("|").append(contents));
  }
}

TEST(XmlRecords, WalksTagByTag) {
  using TTags = std::vector<std::string>;
  const std::pair<std::string, TTags> cases[] = {
      {"<?xml version=\"1.0\"?>\r\n<!-- a \"quote -- and <landmark a=\"1\" /> "
       "-->\r\n<corners>\r\n[1,2] "
       "\r\n</corners>\r\n<utmsouth>TRUE</utmsouth>",
       {"3||\r\n[1,2] \r\n", "13||TRUE"}},
      {"<landmark lat=\"1\" long=\"2\" />\n</geomap>", {"7| lat=\"1\" long=\"2\" |\n", "1||"}},
      {"<LANDMARK lat=\"1\"/><other a=\"1\"/><landmark/></geomap >",
       {"7| lat=\"1\"|", "7||", "1| |"}},
      {"<landmark title=\"a > b < c / \" x=\"1\"/>", {"7| title=\"a > b < c / \" x=\"1\"|"}},
      // a quote that is not closed on its line
      {"<landmark a=\"1>here\n<symbol b=\"2\"/>", {"7| a=\"1|here\n", "11| b=\"2\"|"}},
      {"<landmark a=\"1 b=\"2\" />x", {"7| a=\"1 b=\"2\" |x"}},
      {"<landmark a=\"1\n b=\"2\"/>", {"7| a=\"1  b=\"2\"|"}},
      // over several lines, and with tabs
      {"<landmark\r\n\ta=\"1\t2\"\n/>", {"7|   a=\"1\t2\" |"}},
      // cut off
      {"<landmark a=\"1\" <symbol/>", {"11||"}},
      {"<symbol/><landmark a=\"1\"", {"11||"}},
      {"<symbol/><landmark", {"11||"}},
      {"<symbol/><landmark a=\"1>", {"11||", "7| a=\"1|"}},
      {"<symbol/><!-- <landmark/>", {"11||"}},
      {"<symbol/><!--><landmark/>--><landmark/>", {"11||", "7||"}},
      {"<symbol/><", {"11||"}},
      {"<><//><landmarks/>< landmark/><symbol>", {"11||"}},
      {std::string("<symbol a=\"\0\"/>\0<", 17), {std::string("11| a=\"\0\"|\0", 11)}},
      {"", {}},
      {"no tags at all", {}},
  };
  for (const auto& [text, tags] : cases) EXPECT_EQ(TagsOf(text), tags) << text;
  // The last entry of the list is a tag like the others, and ends the walk.
  EXPECT_EQ(TagsOf("<symbol/><invalidtag/><symbol/>"), TTags{"11||"});
}

// Work grows with the size of the text, whatever is in it. A quadratic reader would take hours.
TEST(XmlRecords, WalksHugeTextsOfBrokenTags) {
  for (const char* piece :
       {"<", "<a \"", "<a \">", "<landmark a=\"1\n", "<!--", "\"<symbol>", "<symbol \"'\n>"}) {
    std::string text;
    while (text.size() < 2000000) text += piece;
    TMemoryStream stream = StreamOf(text);
    std::string attributes, contents;
    while (ReadNextTagInStream(stream, attributes, contents) != TXmlTag::Invalid) {
    }
    EXPECT_EQ(stream.Position(), text.size());
  }
}

constexpr const char* TwoSets =
    "<?xml version=\"1.0\"?>\r\n"
    "<gmlandmarks sig=\"Other\" vers=\"1.0\" id=\"b\">\r\n"
    "<GMLandmarks sig=\"TARVOLINE\" vers=\"2\" id=\" Ärger \"><landmark skipped=\"1\"/>\r\n"
    "<landmark n=\"1\" />\r\n"
    "</gmlandmarks>\r\n"
    "<gmlandmarks sig=\"Tarvoline\" vers=\"1.0\" id=\"b\">\r\n"
    "<landmark n=\"2\" />\r\n"
    "</gmlandmarks>\r\n"
    "<gmlandmarks tarvoline>\r\n"
    "<landmark n=\"3\" />";

TEST(XmlRecords, FindsTheRootLine) {
  using TTags = std::vector<std::string>;
  const TTags last = {"7| n=\"3\" |"};
  const TTags second = {"7| n=\"2\" |\r\n", "6||\r\n", last[0]};
  TTags first = {"7| n=\"1\" |\r\n", "6||\r\n", "5| sig=\"Tarvoline\" vers=\"1.0\" id=\"b\"|\r\n"};
  first.insert(first.end(), second.begin(), second.begin() + 2);
  TTags middle = second;
  middle.insert(middle.begin() + 2, "5| tarvoline|\r\n");
  first.insert(first.end(), {"5| tarvoline|\r\n", last[0]});
  EXPECT_EQ(TagsOf(TwoSets, ""), first);
  EXPECT_EQ(TagsOf(TwoSets, "äRGER"), first);
  EXPECT_EQ(TagsOf(TwoSets, "B"), middle);

  TMemoryStream stream = StreamOf(TwoSets);
  std::string line = "x";
  EXPECT_FALSE(FindRootLine(stream, TXmlTag::GmLandmarks, "rger", line));
  EXPECT_EQ(line, "");
  stream.SetPosition(0);
  EXPECT_FALSE(FindRootLine(stream, TXmlTag::Geomap, "", line));
  stream = StreamOf("<geomap sig=\"tarvoline\" id=\"open");
  EXPECT_FALSE(FindRootLine(stream, TXmlTag::Geomap, "open", line)) << "no closing quote, no id";
  stream.SetPosition(0);
  EXPECT_TRUE(FindRootLine(stream, TXmlTag::Geomap, "", line));
  EXPECT_EQ(line, "<geomap sig=\"tarvoline\" id=\"open");
}

}  // namespace
}  // namespace zav

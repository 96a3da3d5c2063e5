// format_test.cpp - the worked example of the format's page, byte for byte.
// SPDX-License-Identifier: MIT
#include <platform/base/file_ops.h>

#include <fstream>
#include <locale>
#include <sstream>

#include "db_fixture.h"

namespace zav::test {
namespace {

// The files shown on the page, by name.
std::map<std::string, std::vector<uint8_t>> ExampleFiles() {
  std::ifstream Page(std::string(ZAVGEO_SOURCE) + "/docs/formats/database.md");
  std::map<std::string, std::vector<uint8_t>> Files;
  std::vector<uint8_t>* File = nullptr;
  std::vector<uint8_t> Line;
  bool Repeat = false;
  for (std::string Text; std::getline(Page, Text);) {
    if (Text.rfind("`example.", 0) == 0) File = &Files[Text.substr(1, Text.find('`', 1) - 1)];
    if (File == nullptr || Text.rfind("    ", 0) != 0) continue;
    if (Text == "    *") {
      Repeat = true;
      continue;
    }
    std::istringstream Words(Text);
    Words.imbue(std::locale::classic());
    size_t Offset = 0;
    Words >> std::hex >> Offset;
    while (Repeat && File->size() < Offset) File->insert(File->end(), Line.begin(), Line.end());
    Repeat = false;
    EXPECT_EQ(File->size(), Offset) << Text;
    Line.clear();
    for (unsigned Byte = 0; Words >> std::hex >> Byte;) Line.push_back(static_cast<uint8_t>(Byte));
    File->insert(File->end(), Line.begin(), Line.end());
  }
  return Files;
}

TEST(DatabaseFormat, WorkedExampleIsWrittenAndRead) {
  const TTempFolder Folder;
  {
    TGeoDB DB;
    DB.SetGDBName(Folder / "example.any");
    DB.SetDescription("Alps");
    DB.SetRevision(7);
    DB.AddTown("Bregenz", 36526.5, 5, {47.5, 9.75}, 398.5, 2, 77);
    DB.AddLake("Bodensee", {{47.5, 9}, {47.75, 9.5}, {47.25, 9.75}}, 36527, 0, 1, 2, 3, 4, 395, 1,
               0);
    TMetaInfo Info;
    Info.Keywords = "photo";
    Info.Caption = "Pier";
    Info.FilePath = "pier.jpg";
    DB.AddBLOB("Pier", 36528.25, 0, 47.5, 47.625, 9.5, 9.625, 0, 0, -1, Info, "JPEG!", 5);
  }
  const auto Example = ExampleFiles();
  ASSERT_EQ(Example.size(), 7u);
  EXPECT_EQ(Example.at("example.zavgds").size(), 360u);
  EXPECT_EQ(Example.at("example.zavgdd").size(), 1313u);
  for (const auto& [Name, Bytes] : Example) EXPECT_EQ(ReadWholeFile(Folder / Name), Bytes) << Name;
  EXPECT_EQ(Folder.Names().size(), 7u);

  // The other way: files made from the page alone.
  for (const auto& [Name, Bytes] : Example) {
    std::ofstream(Folder / ("made" + Name.substr(7)), std::ios::binary)
        .write(reinterpret_cast<const char*>(Bytes.data()),
               static_cast<std::streamsize>(Bytes.size()));
  }
  TGeoDB DB;
  DB.SetReadOnly(true);
  DB.SetGDBName(Folder / "made");
  EXPECT_EQ(DB.Check(), std::vector<std::string>());
  EXPECT_EQ(DB.GetDescription(), "Alps");
  EXPECT_EQ(DB.GetRevision(), 7);
  EXPECT_EQ(DB.GetDBVersion(), 4);
  EXPECT_EQ(DB.GetHighestID(), 3);
  ASSERT_EQ(DB.NumEntries(), 3);
  const TgdbData Town = DB.GetSumdata(1);
  EXPECT_EQ(Town.Name.Text(), "Bregenz");
  EXPECT_EQ(Town.Altitude, 398.5F);
  EXPECT_EQ(Town.ClassFlag, 2);
  EXPECT_EQ(Town.Tag, 77);
  EXPECT_EQ(Town.StateFlag, 5);
  EXPECT_EQ(Town.Date, 36526.5);
  EXPECT_EQ(ExtractLocation(Town), (TSCoords{47.5F, 9.75F}));
  TgdbPolygon Points;
  ASSERT_TRUE(DB.RetrievePolygon(2, Points));
  EXPECT_EQ(Points, (TgdbPolygon{{47.5, 9}, {47.75, 9.5}, {47.25, 9.75}}));
  TMetaInfo Info;
  char Payload[5];
  ASSERT_TRUE(DB.RetrieveBLOB(3, Info, Payload, 5));
  EXPECT_EQ(std::string(Payload, 5), "JPEG!");
  EXPECT_EQ(Info.Keywords.Text(), "photo");
  EXPECT_EQ(Info.FilePath.Text(), "pier.jpg");
}

}  // namespace
}  // namespace zav::test

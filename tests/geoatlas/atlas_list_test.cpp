// atlas_list_test.cpp - lists of maps written, moved and damaged.
// SPDX-License-Identifier: MIT
#include <geoatlas/atlas_list.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>

#include <platform/base/errors.h>
#include <platform/base/read_file.h>

#include "support/failing_file_ops.h"
#include "support/temp_folder.h"

namespace zav {
namespace {

namespace fs = std::filesystem;

void Touch(const std::string& Path) { std::ofstream(Path) << "x"; }

TEST(AtlasList, NamesMapsFromTheirFolder) {
  const TTempFolder Folder;
  const TTempFolder Elsewhere;
  fs::create_directories(Folder / "Blätter/süd");
  Touch(Folder / "Blätter/süd/Alpen & Jura.xml");
  Touch(Elsewhere / "World.XML");
  const std::string List = Folder / "Blätter/atlas.zavatlas";
  SaveAtlasList(List, {Folder / "Blätter/süd/Alpen & Jura.xml", Elsewhere / "World.XML",
                       Folder / "Blätter/gone.xml"});
  EXPECT_EQ(ReadWholeTextFile(List),
            "<?xml version=\"1.0\"?>\r\n"
            "<geoatlas sig=\"Tarvoline\" vers=\"1.0\" id=\"\">\r\n"
            "<map file=\"süd/Alpen & Jura.xml\" />\r\n"
            "<map file=\"" +
                Elsewhere / "World.XML" +
                "\" />\r\n"
                "<map file=\"gone.xml\" />\r\n"
                "</geoatlas>\r\n");
  // The folder gets another name, and another map moves to the list.
  fs::rename(Folder / "Blätter", Folder / "maps");
  fs::rename(Elsewhere / "World.XML", Folder / "maps/world.xml");
  EXPECT_EQ(ReadAtlasList(Folder / "maps/atlas.zavatlas"),
            (std::vector<std::string>{Folder / "maps/süd/Alpen & Jura.xml",
                                      Folder / "maps/world.xml", Folder / "maps/gone.xml"}));
  // By hand, on a system with other separators and without regard to case.
  std::ofstream(Folder / "by hand") << "\xEF\xBB\xBF<GeoAtlas SIG=\"tarvoline\">\n<other/>\n"
                                       "<map file=\"MAPS\\World.xml\"/><map/></GEOATLAS>";
  EXPECT_EQ(ReadAtlasList(Folder / "by hand"), std::vector<std::string>{Folder / "maps/world.xml"});
}

TEST(AtlasList, RefusesWhatIsNoList) {
  const TTempFolder Folder;
  const auto Refused = [&](const std::string& Text) {
    std::ofstream(Folder / "list", std::ios::binary) << Text;
    try {
      ReadAtlasList(Folder / "list");
      return std::string();
    } catch (const EInOutError& Error) {
      return Error.Reason();
    }
  };
  const std::string Root = "<geoatlas sig=\"Tarvoline\" vers=\"1.0\" id=\"\">\n";
  EXPECT_EQ(Refused(""), "is no list of maps");
  EXPECT_EQ(Refused("<geoatlas sig=\"other\">\n<map file=\"a.xml\" />\n</geoatlas>"),
            "is no list of maps");
  EXPECT_EQ(Refused("<map file=\"a.xml\" />" + Root + "</geoatlas>"), "");
  EXPECT_TRUE(ReadAtlasList(Folder / "list").empty()) << "a map before the list";
  EXPECT_THROW(ReadAtlasList(Folder / "none"), EInOutError);
  EXPECT_THROW(ReadAtlasList(Folder.Path()), EInOutError);

  // Cut anywhere it has no end; with any byte changed it is read or refused.
  const std::string Whole = Root + "<map file=\"a.xml\" />\n<map file=\"b.xml\" />\n</geoatlas>";
  for (size_t Length = 0; Length < Whole.size(); ++Length)
    EXPECT_NE(Refused(Whole.substr(0, Length)), "") << Length;
  std::mt19937 Random(3);
  for (int i = 0; i < 400; ++i) {
    std::string Changed = Whole;
    for (int k = 0; k < 3; ++k) Changed[Random() % Whole.size()] = static_cast<char>(Random());
    if (Refused(Changed).empty()) {
      EXPECT_LE(ReadAtlasList(Folder / "list").size(), 2u);
    }
  }
}

TEST(AtlasList, AFailureLeavesTheOldList) {
  const TTempFolder Folder;
  const std::string List = Folder / "atlas";
  SaveAtlasList(List, {Folder / "old.xml"});
  const std::string Old = ReadWholeTextFile(List);
  EXPECT_THROW(SaveAtlasList(List, {Folder / "a\"b.xml"}), EInOutError);
  TFailingFileOps Ops;
  {
    const TFileOpsOverride With(Ops);
    for (int i = 1; i < 100; ++i) {
      Ops.Arm(i);
      try {
        SaveAtlasList(List, {Folder / "new.xml"});
        EXPECT_FALSE(Ops.Failed());
        break;
      } catch (const EInOutError&) {
        EXPECT_EQ(ReadWholeTextFile(List), Old) << i;
        EXPECT_EQ(Folder.Names(), std::vector<std::string>{"atlas"});
      }
    }
  }
  EXPECT_EQ(ReadAtlasList(List), std::vector<std::string>{Folder / "new.xml"});
}

}  // namespace
}  // namespace zav

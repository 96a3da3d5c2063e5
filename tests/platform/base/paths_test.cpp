// Paths taken apart, and files found under other spellings.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <platform/base/atomic_file.h>
#include <platform/base/paths.h>
#include <support/temp_folder.h>

#include <filesystem>

namespace zav {
namespace {

TEST(Paths, AreTakenApartInTheMannerOfAnySystem) {
  struct TCase {
    const char *Path, *Directory, *Name, *Extension, *Stripped;
  };
  for (const TCase& c : {
           TCase{"maps/city.jpg", "maps/", "city.jpg", ".jpg", "maps/city"},
           {"c:\\maps\\city.bmp", "c:\\maps\\", "city.bmp", ".bmp", "c:\\maps\\city"},
           {"C:city.JPEG", "C:", "city.JPEG", ".JPEG", "C:city"},
           {"a\\b/c.d.e", "a\\b/", "c.d.e", ".e", "a\\b/c.d"},
           {"maps.old/city", "maps.old/", "city", "", "maps.old/city"},
           {"maps.old\\city", "maps.old\\", "city", "", "maps.old\\city"},
           {"dir/.hidden", "dir/", ".hidden", "", "dir/.hidden"},
           {"name.", "", "name.", ".", "name"},
           {"1:20.jpg", "", "1:20.jpg", ".jpg", "1:20"},
           {"Zürich.карта", "", "Zürich.карта", ".карта", "Zürich"},
           {"dir/", "dir/", "", "", "dir/"},
           {"", "", "", "", ""},
       }) {
    EXPECT_EQ(DirectoryOf(c.Path), c.Directory) << c.Path;
    EXPECT_EQ(StripPath(c.Path), c.Name) << c.Path;
    EXPECT_EQ(ExtensionOf(c.Path), c.Extension) << c.Path;
    EXPECT_EQ(StripExtension(c.Path), c.Stripped) << c.Path;
  }
}

TEST(Paths, ReducedNamesStayInTheirFolder) {
  EXPECT_EQ(ReduceStringToFN83CompliantChars("Lake Zürich [1:50].jpg"), "LakeZürich150.jpg");
  EXPECT_EQ(ReduceStringToFN83CompliantChars("../../etc/passwd"), "....etcpasswd");
  EXPECT_EQ(ReduceStringToFN83CompliantChars("..\\ ."), "");
  EXPECT_EQ(ReduceStringToFN83CompliantChars("a\tb\x7F\n<>|+,;=*?\""), "ab");
  EXPECT_EQ(ReduceStringToFN83CompliantChars("!#$%&'()-@^_`{}~"), "!#$%&'()-@^_`{}~");
}

class ResolveFileTest : public testing::Test {
 protected:
  ResolveFileTest() {
    for (const char* name :
         {"Karten/Zürich/Österreich.JPG", "Карты/МОСКВА.bmp", "地图/東京.jpg", "both/Map.jpg",
          "both/map.jpg", "both/city.jpg", "MAPS/other.jpg", "Maps/wanted.jpg", "sets/city.xml",
          "sets/City.JPG", "sets/img/Lake.jpg", "back\\slash.jpg"}) {
      const std::string path = FFolder / name;
      std::filesystem::create_directories(std::filesystem::path(path).parent_path());
      WriteWholeFile(path, "x");
    }
  }
  std::string Find(const std::string& Name) {
    const std::string found = ResolveFile(FFolder / Name);
    return found.starts_with(FFolder.Path()) ? found.substr(FFolder.Path().size()) : found;
  }
  TTempFolder FFolder;
};

TEST_F(ResolveFileTest, FindsOtherSpellings) {
  EXPECT_EQ(Find("karten/ZÜRICH/österreich.jpg"), "Karten/Zürich/Österreich.JPG");
  EXPECT_EQ(Find("karten\\zürich\\österreich.jpg"), "Karten/Zürich/Österreich.JPG");
  EXPECT_EQ(Find("кАРТЫ//москва.BMP"), "Карты/МОСКВА.bmp");
  EXPECT_EQ(Find("地图\\東京.JPG"), "地图/東京.jpg");
  EXPECT_EQ(Find("maps/../Karten/./Zürich/österreich.jpg"),
            "MAPS/../Karten/./Zürich/Österreich.JPG");
}

TEST_F(ResolveFileTest, PrefersTheExactSpellingThenByteOrder) {
  EXPECT_EQ(Find("both/map.jpg"), "both/map.jpg");
  EXPECT_EQ(Find("both/MAP.JPG"), "both/Map.jpg");
  EXPECT_EQ(Find("MAPS/wanted.jpg"), "Maps/wanted.jpg") << "the exact folder lacks the file";
  EXPECT_EQ(Find("back\\slash.jpg"), "back\\slash.jpg") << "a real name of this system";
}

TEST_F(ResolveFileTest, SaysWhatIsNotThere) {
  for (const char* name : {"none.jpg", "Karten", "karten/zürich", "karten/zurich/österreich.jpg",
                           "sets/city.jpg/x", "sets/City.JPG/"}) {
    EXPECT_EQ(Find(name), "") << name;
  }
  EXPECT_EQ(ResolveFile(""), "");
  EXPECT_EQ(ResolveFile("/"), "");
  EXPECT_EQ(ResolveFile(std::string("/dev/null\0x", 11)), "");
}

TEST_F(ResolveFileTest, LooksBesideTheFileThatNamesIt) {
  const std::string beside = FFolder / "sets/city.xml";
  EXPECT_EQ(ResolveFile("city.jpg", beside), FFolder / "sets/City.JPG");
  EXPECT_EQ(ResolveFile("IMG\\lake.jpg", beside), FFolder / "sets/img/Lake.jpg");
  EXPECT_EQ(ResolveFile("c:\\maps\\city.jpg", beside), FFolder / "sets/City.JPG");
  EXPECT_EQ(ResolveFile(FFolder / "maps/Wanted.jpg", beside), FFolder / "Maps/wanted.jpg");
  EXPECT_EQ(ResolveFile("", beside), "");
  // A file of that name in the working folder is another one; it is taken only where there is none.
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(FFolder / "both");
  EXPECT_EQ(ResolveFile("city.jpg", beside), FFolder / "sets/City.JPG");
  EXPECT_EQ(ResolveFile("map.jpg", FFolder / "both/map.jpg"), FFolder / "both/map.jpg");
  EXPECT_EQ(ResolveFile("map.jpg", beside), "map.jpg");
  std::filesystem::current_path(before);
}

}  // namespace
}  // namespace zav

// sharing_test.cpp - several users of one set of files. Locks belong to open files, so two objects
// of one process are as strange to each other as two processes.
// SPDX-License-Identifier: MIT
#include <functional>

#include "db_fixture.h"

namespace zav::test {
namespace {

std::string ErrorOf(const std::function<void()>& Work) {
  try {
    Work();
  } catch (const EZAVError& Error) {
    return Error.what();
  }
  return "";
}

TEST(DatabaseSharing, OneWriterAtATime) {
  const TTempFolder Folder;
  TGeoDB First;
  TGeoDB Second;
  First.SetGDBName(Folder / "db");
  Second.SetGDBName(Folder / "db");
  AddTown(First, "a", 1, 2);
  EXPECT_NE(ErrorOf([&] { AddTown(Second, "b", 1, 2); }).find("another program is changing"),
            std::string::npos);
  // One who comes later reads what is there, lazy or not, and becomes the writer when the first
  // has gone.
  First.SetLazyWrite(true);
  AddTown(First, "b", 3, 4);
  TGeoDB Third;
  Third.SetGDBName(Folder / "db");
  EXPECT_EQ(Third.NumEntries(), 2);
  EXPECT_EQ(Third.SearchForItemID(2), 2);
  EXPECT_EQ(Third.GetClosestLatLowIx(2), 2);
  First.SetGDBName("");
  EXPECT_NE(ErrorOf([&] { AddTown(Second, "c", 1, 2); }).find("open it again"), std::string::npos);
  Second.SetGDBName(Folder / "db");
  EXPECT_EQ(AddTown(Second, "c", 1, 2), 3);
  EXPECT_NE(ErrorOf([&] { Third.SetRevision(1); }), "");
  EXPECT_EQ(Disagreement(Second), "");
  EXPECT_EQ(Folder.Names().size(), 7u);
}

TEST(DatabaseSharing, ReaderNoticesAReplacedDataFile) {
  const TTempFolder Folder;
  TGeoDB Writer;
  Writer.SetGDBName(Folder / "db");
  AddLake(Writer, "dead", {{1, 2}});
  AddLake(Writer, "live", {{3, 4}});
  Writer.DeleteData(1);
  TGeoDB Reader;
  Reader.SetReadOnly(true);
  Reader.SetGDBName(Folder / "db");
  EXPECT_NE(ErrorOf([&] { AddTown(Reader, "x", 1, 2); }).find("reading only"), std::string::npos);
  TgdbPolygon Points;
  EXPECT_TRUE(Reader.RetrievePolygon(1, Points));
  Writer.GarbageCollection();
  EXPECT_TRUE(Writer.RetrievePolygon(1, Points));
  EXPECT_EQ(Points, (TgdbPolygon{{3, 4}}));
  EXPECT_THROW(Reader.RetrievePolygon(1, Points), EInOutError);
  Reader.SetGDBName(Folder / "db");
  EXPECT_TRUE(Reader.RetrievePolygon(1, Points));
  // The writer still holds its lock, on the new files.
  TGeoDB Other;
  Other.SetGDBName(Folder / "db");
  EXPECT_NE(ErrorOf([&] { AddTown(Other, "x", 1, 2); }).find("is changing"), std::string::npos);
  AddTown(Writer, "y", 1, 2);
  EXPECT_EQ(Disagreement(Writer), "");
}

TEST(DatabaseSharing, ReadOnlyMakesAndChangesNothing) {
  const TTempFolder Folder;
  TGeoDB DB;
  DB.SetReadOnly(true);
  EXPECT_THROW(DB.SetGDBName(Folder / "db"), EInOutError);
  EXPECT_TRUE(Folder.Names().empty());
  {
    TGeoDB Writer;
    Writer.SetGDBName(Folder / "db");
    AddTown(Writer, "a", 1, 2);
  }
  const auto Before = FilesOf(Folder / "db");
  DB.SetGDBName(Folder / "db");
  for (const auto& Work : std::vector<std::function<void()>>{
           [&] { DB.DeleteData(1); }, [&] { DB.SaveIndex(0); }, [&] { DB.RecalcIndexes(); },
           [&] { DB.GarbageCollection(); }, [&] { DB.SetDescription("x"); }}) {
    EXPECT_NE(ErrorOf(Work).find("for reading only."), std::string::npos);
  }
  {
    TGeoDBUpdate Update(DB);
    EXPECT_NE(ErrorOf([&] { AddTown(DB, "b", 1, 2); }), "");
  }
  EXPECT_EQ(DB.NumEntries(), 1);
  EXPECT_EQ(FilesOf(Folder / "db"), Before);
}

}  // namespace
}  // namespace zav::test

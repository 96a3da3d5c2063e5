// Files read by lines, saved whole or not at all, and streams.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <platform/base/errors.h>
#include <platform/base/read_file.h>
#include <platform/base/stream.h>
#include <platform/base/text_file.h>
#include <support/failing_file_ops.h>
#include <support/temp_folder.h>
#include <unistd.h>

#include <filesystem>

namespace zav {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> LinesOf(const std::string& Path) {
  TextFile file;
  file.Reset(Path);
  std::vector<std::string> lines;
  while (!file.Eof()) lines.push_back(file.ReadLn());
  return lines;
}

TEST(TextFile, ReadsEitherLineEnd) {
  using TLines = std::vector<std::string>;
  const TTempFolder folder;
  const std::string path = folder / "t.txt";
  const std::string huge(3000000, 'x');
  const std::pair<std::string, TLines> cases[] = {
      {"", {}},
      {"\n", {""}},
      {"a\r\nb\nc\rd", {"a", "b", "c", "d"}},
      {"a\r\n\r\nb\n\n", {"a", "", "b", ""}},
      {"\xEF\xBB\xBF<x>", {"<x>"}},
      {std::string("a\0b\n", 4), {std::string("a\0b", 3)}},
      {huge, {huge}},
      {"Z\xFCrich\n", {"Z\xFCrich"}},
  };
  for (const auto& [bytes, lines] : cases) {
    WriteWholeFile(path, bytes);
    EXPECT_EQ(LinesOf(path), lines) << bytes.substr(0, 30);
  }
}

TEST(TextFile, ReadsLinesAndBytesInTurn) {
  const TTempFolder folder;
  WriteWholeFile(folder / "t.txt", "one\r\ntwo\nthree");
  TextFile file;
  file.Reset(folder / "t.txt");
  EXPECT_EQ(file.ReadLn(), "one");
  EXPECT_EQ(file.Rest(), "two\nthree");
  file.Skip(1);
  EXPECT_EQ(file.ReadLn(), "wo");
  file.Skip(99);
  EXPECT_TRUE(file.Eof());
  EXPECT_EQ(file.ReadLn(), "");
}

TEST(TextFile, WritesCrLfAndAppearsAtClose) {
  const TTempFolder folder;
  const std::string path = folder / std::string(251, 'n') + ".xml";  // the longest name there is
  {
    TextFile file;
    file.Rewrite(path);
    file.WriteLn("first");
    file.Write("se");
    file.WriteLn("cond");
    EXPECT_FALSE(fs::exists(path));
    file.Close();
    EXPECT_EQ(ReadWholeTextFile(path), "first\r\nsecond\r\n");
    EXPECT_THROW(file.WriteLn("late"), EInOutError);
    file.Rewrite(path);
    file.WriteLn("never closed");
  }
  EXPECT_EQ(ReadWholeTextFile(path), "first\r\nsecond\r\n");
  EXPECT_EQ(folder.Names().size(), 1U);
}

TEST(TextFile, SaysWhatIsWrong) {
  const TTempFolder folder;
  TextFile file;
  EXPECT_THROW(file.ReadLn(), EInOutError);
  try {
    file.Reset(folder / "none.xml");
    FAIL();
  } catch (const EInOutError& error) {
    EXPECT_EQ(error.Path(), folder / "none.xml");
    EXPECT_EQ(error.Reason(), "No such file or directory");
  }
  EXPECT_THROW(file.Reset(folder.Path()), EInOutError);
  EXPECT_THROW(file.Reset("/dev/zero"), EInOutError);
  WriteWholeFile(folder / "t.txt", "12345");
  EXPECT_THROW(file.Reset(folder / std::string("t.txt\0", 6)), EInOutError);
  EXPECT_THROW(ReadWholeFile(folder / "t.txt", 4), EInOutError);
  EXPECT_EQ(ReadWholeFile(folder / "t.txt", 5).size(), 5U);
}

// A save that is interrupted at any operation leaves the old file, or none, and no other.
TEST(AtomicFile, FailsAtEveryOperationWithoutLoss) {
  for (const bool exists : {true, false}) {
    const TTempFolder folder;
    const std::string path = folder / "map.xml";
    if (exists) WriteWholeFile(path, "old");
    TFailingFileOps ops;
    const TFileOpsOverride override(ops);
    int operation = 1;
    for (;; ++operation) {
      ops.Arm(operation);
      std::string reason;
      try {
        TextFile file;
        file.Rewrite(path);
        for (int i = 0; i < 3000; ++i)
          file.WriteLn("a line of some length, to make several writes");
        file.Close();
      } catch (const EInOutError& error) {
        EXPECT_EQ(error.Path(), path);
        reason = error.Reason();
      }
      if (!ops.Failed()) break;
      EXPECT_NE(reason, "") << "operation " << operation;
      ASSERT_EQ(folder.Names(),
                exists ? std::vector<std::string>{"map.xml"} : std::vector<std::string>{});
      if (exists) {
        ASSERT_EQ(ReadWholeTextFile(path), "old") << "operation " << operation;
      }
    }
    EXPECT_EQ(operation - 1, 7) << "create, three writes, sync, close, rename";
    EXPECT_EQ(ReadWholeTextFile(path).size(), 3000U * 47);
    EXPECT_EQ(folder.Names().size(), 1U);
  }
}

TEST(AtomicFile, KeepsLinksAndPermissions) {
  const TTempFolder folder;
  WriteWholeFile(folder / "real.xml", "old");
  fs::permissions(folder / "real.xml", fs::perms{0640});
  fs::create_symlink("real.xml", folder / "link.xml");
  WriteWholeFile(folder / "link.xml", "new");
  EXPECT_TRUE(fs::is_symlink(folder / "link.xml"));
  EXPECT_EQ(ReadWholeTextFile(folder / "real.xml"), "new");
  EXPECT_EQ(fs::status(folder / "real.xml").permissions(), fs::perms{0640});
  fs::create_symlink("later.xml", folder / "dangling.xml");
  WriteWholeFile(folder / "dangling.xml", "there");
  EXPECT_EQ(ReadWholeTextFile(folder / "later.xml"), "there");
}

TEST(AtomicFile, RefusesWhatIsNoFile) {
  const TTempFolder folder;
  EXPECT_THROW(WriteWholeFile(folder.Path(), "x"), EInOutError);
  EXPECT_THROW(WriteWholeFile("/dev/null", "x"), EInOutError);
  EXPECT_THROW(WriteWholeFile("", "x"), EInOutError);
  EXPECT_THROW(WriteWholeFile(folder / "none/map.xml", "x"), EInOutError);
  if (::geteuid() == 0) return;  // to whom no file is closed
  WriteWholeFile(folder / "closed.xml", "old");
  fs::permissions(folder / "closed.xml", fs::perms{0444});
  EXPECT_THROW(WriteWholeFile(folder / "closed.xml", "x"), EInOutError);
  EXPECT_EQ(ReadWholeTextFile(folder / "closed.xml"), "old");
}

TEST(MemoryStream, ReadsAndWritesAtItsPosition) {
  TMemoryStream stream;
  WriteLnStream(stream, "abc");
  EXPECT_EQ(stream.Size(), 5U);
  stream.SetPosition(1);
  stream.Write("XYZ12", 5);
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(stream.Memory()), stream.Size()), "aXYZ12");
  stream.SetPosition(99);
  EXPECT_EQ(stream.Position(), 6U);
  char buffer[8] = {};
  EXPECT_EQ(stream.Read(buffer, 8), 0U);
  stream.SetPosition(4);
  EXPECT_EQ(stream.Read(buffer, 8), 2U);
  stream.SetSize(2);
  EXPECT_EQ(stream.Position(), 2U);
}

}  // namespace
}  // namespace zav

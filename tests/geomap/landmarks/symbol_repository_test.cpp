// SPDX-License-Identifier: MIT
#include <geomap/landmarks/symbol_repository.h>
#include <gtest/gtest.h>
#include <platform/base/atomic_file.h>
#include <platform/base/read_file.h>
#include <support/failing_file_ops.h>
#include <support/temp_folder.h>

#include <filesystem>

#include "../view/map_support.h"
#include "failing_memory.h"
#include "format_example.h"
#include "record_check.h"

namespace zav {
namespace {

using enum TLandMarkElement;

TSymbol Named(const std::string& Name, TLandMarkElement Kind = lmSquare) {
  TSymbol Symbol = DefaultSymbolRecord();
  Symbol.Name = Name;
  Symbol.Properties.Kind = Kind;
  return Symbol;
}

TEST(SymbolRepository, EntriesBackupAndCopies) {
  const TSymbol Default = {{lmCross, 8, 0, 255, false, 90, 40}, "", 0};
  const TSymbol Zero = {{lmPlus, 0, 0, 0, false, 0, 0}, "", 0};
  TSymbolRepository Symbols;
  Symbols.SetName("Palette1");
  EXPECT_EQ(Symbols.NumEntries(), 0);
  EXPECT_EQ(Symbols.GetValues(0), Default);
  Symbols.SetNEntries(5);
  Symbols.SetNEntries(-1);
  EXPECT_EQ(Symbols.NumEntries(), 5);
  EXPECT_EQ(Symbols.GetValues(5), Zero);
  EXPECT_EQ(Symbols.GetValues(6), Default);
  Symbols.SetValues(5, Named("five"));
  Symbols.SetValues(0, Named("none"));
  Symbols.SetValues(6, Named("none"));
  Symbols.Backup();

  // A copy has its own entries, and its own backup.
  TSymbolRepository Copy;
  Symbols.AssignTo(Copy);
  Copy.SetValues(5, Named("changed"));
  EXPECT_EQ(Symbols.GetValues(5).Name, "five");
  Copy.Restore();
  EXPECT_EQ(Copy.GetValues(5).Name, "five");
  Copy.Assign(Copy);
  EXPECT_TRUE(test::SameSymbols(Copy, Symbols));
  EXPECT_THROW(Symbols.Assign(TComponent()), EConvertError);
  TComponent Other;
  EXPECT_THROW(Symbols.AssignTo(Other), EConvertError);

  Symbols.Clear();
  EXPECT_EQ(Symbols.GetValues(5), Default);
  EXPECT_EQ(Symbols.NumEntries(), 5);
  Symbols.SetNEntries(2);
  Symbols.SetNEntries(5);
  EXPECT_EQ(Symbols.GetValues(3), Zero) << "cut and added again";
  for (int Round = 0; Round < 2; ++Round) {
    Symbols.Restore();
    EXPECT_EQ(Symbols.NumEntries(), 5);
    EXPECT_EQ(Symbols.GetValues(5).Name, "five");
    EXPECT_EQ(Symbols.GetValues(1), Zero);
    Symbols.SetNEntries(0);
  }
  {
    const test::TNoLargeMemory Low(100000);
    EXPECT_EQ(ErrorOf<EZAVGeoMapError>([&] { Symbols.SetNEntries(100000); }),
              "Component \"Palette1\": insufficient memory");
  }
  EXPECT_EQ(Symbols.NumEntries(), 0);
}

TEST(SymbolRepository, ExampleOfTheFormatPage) {
  const std::string Bytes = test::ExampleOf("symbols.md");
  TTempFolder Folder;
  WriteWholeFile(Folder / "symbols.xml", Bytes);
  TSymbolRepository Symbols;
  Symbols.SetNEntries(9);
  Symbols.Backup();
  EXPECT_FALSE(Symbols.LoadFromFile(Folder / "none.xml", ""));
  EXPECT_FALSE(Symbols.LoadFromFile(Folder / "symbols.xml", "other"));
  EXPECT_EQ(Symbols.NumEntries(), 9);
  ASSERT_TRUE(Symbols.LoadFromFile(Folder / "SYMBOLS.xml", "palette"));
  ASSERT_EQ(Symbols.NumEntries(), 2);
  EXPECT_EQ(Symbols.GetValues(1), (TSymbol{{lmCross, 8, 0, clRed, false, 90, 40}, "Höhle", 2}));
  EXPECT_EQ(Symbols.GetValues(2),
            (TSymbol{{lmArrowTo, 5, 0xFF8000, clWhite, true, -45, 25}, "", -1}));
  Symbols.StoreOnFile(Folder / "again.xml", "Palette");
  EXPECT_EQ(ReadWholeTextFile(Folder / "again.xml"), Bytes);
  Symbols.Restore();
  EXPECT_EQ(Symbols.NumEntries(), 9) << "a file does not touch the backup";
}

TEST(SymbolRepository, FilesAndWhatTheyCannotHold) {
  TTempFolder Folder;
  TSymbolRepository Symbols;
  Symbols.SetName("P");
  Symbols.SetNEntries(2500);
  for (int32_t I = 1; I <= 2500; ++I) {
    Symbols.SetValues(I, Named(std::to_string(I), static_cast<TLandMarkElement>(I % 10)));
  }
  Symbols.StoreOnFile(Folder / "s.xml", "");
  TSymbolRepository Back;
  ASSERT_TRUE(Back.LoadFromFile(Folder / "s.xml", ""));
  for (int32_t I = 1; I <= 2500; ++I) {
    TSymbol Expected = Symbols.GetValues(I);
    if (I % 10 == 0 || I % 10 == 9) Expected.Properties.Kind = lmCross;
    ASSERT_EQ(Back.GetValues(I), Expected) << I;
  }
  // From the line of the second list to the end of the file; names are cut.
  const std::string TwoLists =
      "<lmsymbols sig=\"Tarvoline\" id=\"a\">\n<symbol name=\"1\" />\n</lmsymbols>\n"
      "<lmsymbols sig=\"Tarvoline\" id=\"b\">\n<symbol name=\"" +
      std::string(50, 'n') + "\" />\n</lmsymbols>\n<symbol element=\"spade\">";
  WriteWholeFile(Folder / "two.xml", TwoLists);
  ASSERT_TRUE(Back.LoadFromFile(Folder / "two.xml", "B"));
  ASSERT_EQ(Back.NumEntries(), 2);
  EXPECT_EQ(Back.GetValues(1).Name.View(), std::string(40, 'n'));
  EXPECT_EQ(Back.GetValues(2).Properties, (TSymbolProperties{lmSpade, 0, 0, 0, false, 0, 0}));

  const std::string Old = ReadWholeTextFile(Folder / "s.xml");
  Symbols.SetValues(7, Named("a \"b\""));
  EXPECT_TRUE(ErrorOf<EZAVGeoMapError>([&] {
                Symbols.StoreOnFile(Folder / "s.xml", "");
              }).starts_with("Component \"P\": the name of symbol 7 holds a double quote"));
  Symbols.SetValues(7, {});
  EXPECT_NE(ErrorOf<EZAVGeoMapError>([&] { Symbols.StoreOnFile(Folder / "s.xml", "\""); }), "");
  TFailingFileOps Ops;
  const TFileOpsOverride With(Ops);
  for (int Operation = 1;; ++Operation) {
    Ops.Arm(Operation);
    const std::string Error =
        ErrorOf<EInOutError>([&] { Symbols.StoreOnFile(Folder / "s.xml", ""); });
    if (!Ops.Failed()) break;
    EXPECT_NE(Error, "");
    EXPECT_EQ(ReadWholeTextFile(Folder / "s.xml"), Old);
  }
  EXPECT_EQ(Folder.Names(), (std::vector<std::string>{"s.xml", "two.xml"}));
}

TEST(SymbolRepository, DamagedFiles) {
  int Files = 0;
  for (const auto& Entry : std::filesystem::directory_iterator(ZAVGEO_CORPUS "/fuzz_symbols")) {
    const std::string Bytes = ReadWholeTextFile(Entry.path().string());
    ++Files;
    for (size_t Length = 0; Length <= Bytes.size(); Length += 7) {
      ASSERT_EQ(test::CheckSymbolBytes(Bytes.substr(0, Length)), "")
          << Entry.path() << ' ' << Length;
    }
  }
  EXPECT_GE(Files, 2);
}

}  // namespace
}  // namespace zav

// db_import.cpp - zavgeo db import: all items of a file, or none.
// SPDX-License-Identifier: MIT
#include <platform/base/paths.h>
#include <platform/base/text.h>
#include <platform/base/text_format.h>

#include <fstream>
#include <iostream>
#include <optional>

#include "common/item_reader.h"
#include "db_support.h"
#include "progress_bar.h"

namespace zav {

namespace {

struct TImportOptions {
  std::string Base, File, Kind, Format;
  bool KeepIds = false;
  bool SkipBad = false;
};

// An input that tells how much of it has been read.
class TInput {
 public:
  explicit TInput(const std::string& File) : FName(File == "-" ? "standard input" : File) {
    if (File == "-") return;
    FFile.open(File, std::ios::binary | std::ios::ate);
    if (!FFile) throw EInOutError(File, "cannot be opened");
    FSize = FFile.tellg();
    FFile.seekg(0);
  }
  std::istream& Stream() { return FFile.is_open() ? FFile : std::cin; }
  const std::string& Name() const { return FName; }
  // 0 while the size is unknown.
  int Percent() {
    return FSize <= 0 ? 0 : static_cast<int>(static_cast<int64_t>(FFile.tellg()) * 100 / FSize);
  }

 private:
  std::string FName;
  std::ifstream FFile;
  int64_t FSize = 0;
};

bool IsGeoJson(const TImportOptions& Options, TInput& Input) {
  if (!Options.Format.empty()) return SameText(Options.Format, "geojson");
  const std::string Extension = LowerCase(ExtensionOf(Options.File));
  if (Extension == ".geojson" || Extension == ".json") return true;
  if (Extension == ".csv" || Extension == ".tsv" || Extension == ".txt") return false;
  // The first character tells; a byte order mark may stand before it.
  while (std::string_view(" \t\r\n\xEF\xBB\xBF").find(static_cast<char>(Input.Stream().peek())) !=
         std::string_view::npos)
    Input.Stream().get();
  return Input.Stream().peek() == '{';
}

class TImport {
 public:
  TImport(TGeoDB& DB, const TImportOptions& Options, TInput& Input)
      : FDB(DB), FOptions(Options), FInput(Input), FBar("importing") {}

  void Run() {
    TGeoDBUpdate Update(FDB);
    TItemReader Reader;
    if (!FOptions.Kind.empty()) Reader.Kind = KindOfOption(FOptions.Kind);
    Reader.Take = [this](const TReadItem& Item) {
      Add(Item);
      return !TInterrupt::Requested();
    };
    Reader.Refuse = [this](int64_t Line, const std::string& Problem) {
      return Refuse(Line, Problem) && !TInterrupt::Requested();
    };
    FCounts = IsGeoJson(FOptions, FInput) ? Reader.ReadGeoJson(FInput.Stream(), FInput.Name())
                                          : Reader.ReadCsv(FInput.Stream(), FInput.Name());
    if (TInterrupt::Requested()) throw EInOutError(FInput.Name(), "stopped; nothing was imported");
    if (FRefused > 0 && !FOptions.SkipBad)
      throw EInOutError(FInput.Name(),
                        "has bad items; nothing was imported (--skip-bad leaves them "
                        "out)");
    Update.Commit();
  }

  void PrintSummary() const {
    PrintProperty("property", "value");
    PrintProperty("imported", FAdded);
    PrintProperty("refused", FRefused);
    PrintProperty("holes_left_out", FCounts.Holes);
    PrintProperty("without_geometry", FCounts.WithoutGeometry);
    PrintProperty("odd_values", FCounts.OddValues);
    PrintProperty("names_cut", FCut);
  }
  bool AllTaken() const { return FRefused == 0; }

 private:
  void PrintProperty(std::string_view Name, std::string_view Value) const {
    zav::PrintProperty(Name, Value);
  }
  void PrintProperty(std::string_view Name, int64_t Value) const {
    zav::PrintProperty(Name, IntegerText(Value));
  }

  void Add(const TReadItem& Item) {
    if (FOptions.KeepIds) KeepId(Item);
    const TgdbName Name = Item.Name;
    if (Name.View().size() < Item.Name.size()) ++FCut;
    const TSCoords At = Item.Points.front();  // the box of a town; others get that of their points
    const bool IsTown = Item.Kind == TgdbItem::gitTown;
    FDB.AddData(Name, IsTown ? TgdbPolygon() : Item.Points, Item.Closed, Item.Kind, Item.ClassFlag,
                FNow, 0, At.Latit, At.Latit, At.Longit, At.Longit, Item.Altitude, 0, TMetaInfo(),
                nullptr, 0, false);
    if (++FAdded % 256 == 0) FBar.Show(FInput.Percent());
  }

  void KeepId(const TReadItem& Item) {
    if (!Item.Id) throw EInOutError(FInput.Name(), "--keep-ids: an item has no identifier");
    if (*Item.Id <= FDB.GetHighestID())
      throw EInOutError(FInput.Name(), "--keep-ids: identifier " + IntegerText(*Item.Id) +
                                           " is not above the ones before it");
    FDB.SkipToItemID(*Item.Id);
  }

  bool Refuse(int64_t Line, const std::string& Problem) {
    constexpr int64_t MaxTold = 20;
    if (++FRefused <= MaxTold)
      PrintError(FInput.Name() + ":" + IntegerText(Line) + ": " + Problem);
    else if (FRefused == MaxTold + 1)
      PrintError("and more");
    return true;
  }

  TGeoDB& FDB;
  const TImportOptions& FOptions;
  TInput& FInput;
  TProgressBar FBar;
  const TDateTime FNow = LocalNow();
  TReadCounts FCounts;
  int64_t FAdded = 0;
  int64_t FRefused = 0;
  int64_t FCut = 0;
};

int Import(const TImportOptions& Options) {
  TInput Input(Options.File);
  TGeoDB DB;
  OpenDatabase(DB, Options.Base, TDbAccess::Change);
  if (Options.KeepIds && DB.NumEntries() > 0)
    throw EInOutError(Options.Base, "--keep-ids: the database is not empty");
  const TInterrupt Interrupt;
  bool AllTaken = true;
  {
    TImport Run(DB, Options, Input);
    Run.Run();
    Run.PrintSummary();
    AllTaken = Run.AllTaken();
  }
  DB.SetGDBName("");
  return AllTaken ? 0 : 1;
}

}  // namespace

void AddDbImportCommand(TProgram& Program, CLI::App& Db) {
  const auto [Command, Options] = AddDbCommand(
      Program, Db, "import",
      "Adds the items of a GeoJSON file or a table, all of them or none. Points become towns.",
      Import);
  Command->add_option("FILE", Options->File, "file to read, - for standard input")->required();
  Command->add_option("--kind", Options->Kind,
                      "what lines (border, city, river, road, route) and polygons (border, city, "
                      "lake) become; else what they say they are, or borders");
  Command->add_option("--format", Options->Format, "csv or geojson, where the name does not tell")
      ->check(CLI::IsMember({"csv", "geojson"}, CLI::ignore_case));
  Command->add_flag("--keep-ids", Options->KeepIds,
                    "items keep their identifiers; they ascend, and the database is empty");
  Command->add_flag("--skip-bad", Options->SkipBad, "leave bad items out instead of giving up");
}

}  // namespace zav

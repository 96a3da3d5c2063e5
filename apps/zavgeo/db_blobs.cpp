// db_blobs.cpp - zavgeo db put-blob, get-blob.
// SPDX-License-Identifier: MIT
#include <platform/base/paths.h>
#include <platform/base/text_format.h>

#include <iostream>

#include "db_support.h"
#include "progress_bar.h"

namespace zav {

namespace {

struct TPutOptions {
  std::string Base, File, At, Name, Caption, Keywords, Comment;
};

int Put(const TPutOptions& Options) {
  const TCoords At = PositionOfOption("--at", Options.At);
  if (!FileExists(Options.File)) throw EInOutError(Options.File, "there is no such file");
  TGeoDB DB;
  OpenDatabase(DB, Options.Base, TDbAccess::Change);
  TProgressBar Bar("storing");
  DB.OnPercentDone = [&](TGeoDB*, int32_t Percent) { Bar.Show(Percent); };
  TMetaInfo Info;
  Info.Caption = Options.Caption;
  Info.Keywords = Options.Keywords;
  Info.Comment = Options.Comment;
  const auto Lat = static_cast<float>(At.Latit);
  const auto Long = static_cast<float>(At.Longit);
  const std::string& Name = Options.Name.empty() ? Options.File : Options.Name;
  const int32_t RecNo =
      DB.AddBLOB(Options.File, Name, LocalNow(), 0, Lat, Lat, Long, Long, 0, 0, 0, Info);
  const int32_t ItemId = DB.GetSumdata(RecNo).ItemId;
  DB.SetGDBName("");
  PrintProperty("property", "value");
  PrintProperty("id", ItemId);
  return 0;
}

struct TGetOptions {
  std::string Base, File;
  int32_t ItemId = 0;
};

int GetBlob(const TGetOptions& Options) {
  TGeoDB DB;
  OpenDatabase(DB, Options.Base, TDbAccess::Read);
  const int32_t RecNo = RecordOf(DB, Options.ItemId);
  TMetaInfo Info;
  bool IsBlob = false;
  if (Options.File == "-") {
    TMemoryStream Stream;
    IsBlob =
        DB.GetSumdata(RecNo).ItemKind == TgdbItem::gitBLOB && DB.RetrieveBLOB(RecNo, Info, &Stream);
    if (IsBlob)
      std::cout.write(reinterpret_cast<const char*>(Stream.Memory()),
                      static_cast<std::streamsize>(Stream.Size()));
  } else {
    IsBlob = DB.RetrieveBLOB(RecNo, Options.File, Info);
  }
  if (!IsBlob)
    throw EInOutError(DB.GetGDBName(), "item " + IntegerText(Options.ItemId) + " is no BLOB");
  return 0;
}

}  // namespace

void AddDbBlobCommands(TProgram& Program, CLI::App& Db) {
  const auto [Store, Options] = AddDbCommand(
      Program, Db, "put-blob", "Stores a file at a position and prints its identifier", Put);
  Store->add_option("FILE", Options->File, "file to store")->required();
  Store->add_option("--at", Options->At, "LAT,LONG")->required();
  Store->add_option("--name", Options->Name, "name of the item; else the file's");
  Store->add_option("--caption", Options->Caption, "text of at most 127 bytes");
  Store->add_option("--keywords", Options->Keywords, "text of at most 255 bytes");
  Store->add_option("--comment", Options->Comment, "text of at most 255 bytes");
  const auto [Fetch, FetchOptions] =
      AddDbCommand(Program, Db, "get-blob", "Writes the bytes of a BLOB to a file", GetBlob);
  Fetch->add_option("ITEMID", FetchOptions->ItemId, "identifier of the item")->required();
  Fetch->add_option("FILE", FetchOptions->File, "file to write, - for standard output")->required();
}

}  // namespace zav

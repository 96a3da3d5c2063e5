// db_maintenance.cpp - zavgeo db create, info, check, repair, compact, backup.
// SPDX-License-Identifier: MIT
#include <platform/base/paths.h>
#include <platform/base/utf8.h>

#include <array>
#include <iostream>

#include "db_support.h"
#include "progress_bar.h"

namespace zav {

namespace {

struct TBaseOptions {
  std::string Base;
};

struct TCreateOptions {
  std::string Base, Description;
  int32_t Revision = 0;
};

int Create(const TCreateOptions& Options) {
  if (DatabaseExists(Options.Base))
    throw EInOutError(Options.Base, "there is a database of this name already");
  TGeoDB DB;
  DB.SetGDBName(Options.Base);
  if (!Options.Description.empty()) DB.SetDescription(Options.Description);
  if (Options.Revision != 0) DB.SetRevision(Options.Revision);
  DB.SetGDBName("");
  return 0;
}

int Info(const TBaseOptions& Options) {
  TGeoDB DB;
  OpenDatabase(DB, Options.Base, TDbAccess::Read);
  std::array<int, GDB_ITEMNAMES.size()> Kinds = {};
  TGeoBox All{90, -90, 180, -180};
  for (int32_t RecNo = 1; RecNo <= DB.NumEntries(); ++RecNo) {
    const TgdbData Data = DB.GetSumdata(RecNo);
    ++Kinds[std::min(static_cast<size_t>(Data.ItemKind), Kinds.size() - 1)];
    if (IsEmptyBox({Data.LatLow, Data.LatHigh, Data.LongLow, Data.LongHigh})) continue;
    All = {std::min(All.LatLow, Data.LatLow), std::max(All.LatHigh, Data.LatHigh),
           std::min(All.LongLow, Data.LongLow), std::max(All.LongHigh, Data.LongHigh)};
  }
  PrintProperty("property", "value");
  PrintProperty("base", DB.GetGDBName());
  PrintProperty("description", DisplayText(DB.GetDescription()));
  PrintProperty("revision", DB.GetRevision());
  PrintProperty("version", DB.GetDBVersion());
  PrintProperty("items", DB.NumEntries());
  PrintProperty("highest_id", DB.GetHighestID());
  for (size_t i = 0; i < Kinds.size(); ++i)
    if (Kinds[i] > 0) PrintProperty("kind_" + std::string(GDB_ITEMNAMES[i]), Kinds[i]);
  if (IsEmptyBox(All)) return 0;
  PrintProperty("lat_low", SingleText(All.LatLow));
  PrintProperty("lat_high", SingleText(All.LatHigh));
  PrintProperty("long_low", SingleText(All.LongLow));
  PrintProperty("long_high", SingleText(All.LongHigh));
  return 0;
}

void PrintLines(const std::vector<std::string>& Lines) {
  for (const std::string& Line : Lines) std::cout << Line << '\n';
}

void RequireDatabase(const std::string& Base) {
  if (!DatabaseExists(Base)) throw EInOutError(Base, "there is no such database");
}

int Check(const TBaseOptions& Options) {
  RequireDatabase(Options.Base);
  const std::vector<std::string> Findings = CheckGeoDB(Options.Base);
  PrintLines(Findings);
  return Findings.empty() ? 0 : 1;
}

int Repair(const TBaseOptions& Options) {
  RequireDatabase(Options.Base);
  PrintLines(RepairGeoDB(Options.Base));
  return 0;
}

int Compact(const TBaseOptions& Options) {
  TGeoDB DB;
  OpenDatabase(DB, Options.Base, TDbAccess::Change);
  TProgressBar Bar("compacting");
  DB.OnPercentDone = [&](TGeoDB*, int32_t Percent) { Bar.Show(Percent); };
  DB.GarbageCollection();
  DB.SetGDBName("");
  return 0;
}

struct TBackupOptions {
  std::string Base, To;
};

int Backup(const TBackupOptions& Options) {
  TGeoDB DB;
  OpenDatabase(DB, Options.Base, TDbAccess::Read);
  TProgressBar Bar("copying");
  DB.OnPercentDone = [&](TGeoDB*, int32_t Percent) { Bar.Show(Percent); };
  DB.Backup(Options.To);
  return 0;
}

}  // namespace

void AddDbMaintenanceCommands(TProgram& Program, CLI::App& Db) {
  const auto [New, Options] =
      AddDbCommand(Program, Db, "create", "Makes an empty database", Create);
  New->add_option("--description", Options->Description, "text of at most 60 bytes");
  New->add_option("--revision", Options->Revision, "a number of your own");
  AddDbCommand(Program, Db, "info", "Tells what a database holds", Info);
  AddDbCommand(Program, Db, "check",
               "Names every disagreement within a database; status 1 when there is one", Check);
  AddDbCommand(Program, Db, "repair", "Mends a database and says what was done", Repair);
  AddDbCommand(Program, Db, "compact", "Rewrites a database without the bytes of deleted items",
               Compact);
  const auto [Copy, CopyOptions] =
      AddDbCommand(Program, Db, "backup", "Copies a database as it stands", Backup);
  Copy->add_option("TO", CopyOptions->To, "path of the copy; nothing is overwritten")->required();
}

void AddDbCommands(TProgram& Program) {
  CLI::App& Db = *Program.App.add_subcommand(
      "db", "Makes, fills, searches, checks and repairs geographic databases");
  Db.require_subcommand(0, 1);
  AddDbMaintenanceCommands(Program, Db);
  AddDbImportCommand(Program, Db);
  AddDbExportCommand(Program, Db);
  AddDbFindCommands(Program, Db);
  AddDbBlobCommands(Program, Db);
}

}  // namespace zav

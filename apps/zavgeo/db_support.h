// db_support.h - what the commands of databases share.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_ZAVGEO_DB_SUPPORT_H
#define ZAV_APPS_ZAVGEO_DB_SUPPORT_H

#include <geodb/geodb.h>
#include <geomap/calibration/calib_data.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "option_values.h"
#include "program.h"

namespace zav {

// Opens a database that exists, Base being its path with or without extension. Throws EInOutError
// when there is none.
enum class TDbAccess { Read, Change };
void OpenDatabase(TGeoDB& DB, const std::string& Base, TDbAccess Access);
bool DatabaseExists(const std::string& Base);

// The record of an item. Throws EInOutError when there is no such item.
int32_t RecordOf(const TGeoDB& DB, int32_t ItemId);

// The kind of a name, in any case. Throws EUsageError for another word.
TgdbItem KindOfOption(const std::string& Name);
// "LAT,LONG". Throws EUsageError.
TCoords PositionOfOption(const std::string& Option, const std::string& Text);

// The shortest text that reads back as the same number of single precision, without an exponent
// where that is not too long.
std::string SingleText(float Value);
// "LAT LONG;LAT LONG".
std::string PointsText(const TgdbPolygon& Polygon);
// "yyyy-mm-dd HH:MM:SS"; empty for 0.
std::string DateText(TDateTime Date);
// "true" or "false".
std::string_view ClosedText(const TgdbData& Data);

// "property,value" tables.
template <typename T>
void PrintProperty(std::string_view Name, const T& Value) {
  TRow Row;
  Row << Name << Value;
  Print(Row);
}

// The columns id, name, kind, lat_low, lat_high, long_low, long_high, class, altitude, that all
// tables of items begin with.
void AddItemHeader(TRow& Row);
void AddItem(TRow& Row, const TgdbData& Data);

// Adds a subcommand of db that takes the path of a database and is run by Run(options). TOptions
// has a member Base.
template <class TOptions>
std::pair<CLI::App*, std::shared_ptr<TOptions>> AddDbCommand(TProgram& Program, CLI::App& Db,
                                                             const char* Name,
                                                             const char* Description,
                                                             int (*Run)(const TOptions&)) {
  const auto Options = std::make_shared<TOptions>();
  CLI::App& Command = *Db.add_subcommand(Name, Description);
  Command.add_option("BASE", Options->Base, "path of the database, with or without extension")
      ->required();
  Command.callback(
      [&Program, Options, Run] { Program.Run = [Options, Run] { return Run(*Options); }; });
  return {&Command, Options};
}

void AddDbMaintenanceCommands(TProgram& Program, CLI::App& Db);
void AddDbImportCommand(TProgram& Program, CLI::App& Db);
void AddDbExportCommand(TProgram& Program, CLI::App& Db);
void AddDbFindCommands(TProgram& Program, CLI::App& Db);
void AddDbBlobCommands(TProgram& Program, CLI::App& Db);

}  // namespace zav

#endif

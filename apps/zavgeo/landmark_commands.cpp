// landmark_commands.cpp - zavgeo landmarks: sets of landmarks as tables, and tables as landmarks.
// SPDX-License-Identifier: MIT
#include <geomap/landmarks/landmark_file.h>
#include <platform/base/paths.h>

#include <memory>
#include <vector>

#include "common/landmark_files.h"
#include "common/landmark_table.h"
#include "program.h"

namespace zav {

namespace {

struct TListOptions {
  std::string File, Id;
};

int List(const TListOptions& Options) {
  const TLandMarkFile File = LoadLandMarkFile(Options.File, Options.Id);
  TRow Header = LandMarkHeader();
  Print(Header);
  for (int32_t Index = 1; Index <= File.List.Count(); ++Index) {
    TRow Row = LandMarkRow(File.List[Index]);
    Print(Row);
  }
  return 0;
}

struct TImportOptions {
  std::string File, Table, Id;
  std::vector<std::string> Columns, Values;
  bool Replace = false;
  bool Strict = false;
};

struct TFieldOption {
  TLandMarkField Field;
  std::string Value;
};

// "FIELD=VALUE"
TFieldOption ParseFieldOption(const std::string& Option, const std::string& Text) {
  const size_t Middle = Text.find('=');
  if (Middle == std::string::npos)
    throw EUsageError(Option + " \"" + Text + "\" is not of the form FIELD=...");
  const auto Field = FindLandMarkField(Text.substr(0, Middle));
  if (!Field) {
    std::string All;
    for (size_t I = 0; I < NumLandMarkFields; ++I)
      All.append(I == 0 ? "" : ", ").append(LandMarkFieldName(static_cast<TLandMarkField>(I)));
    throw EUsageError("unknown field \"" + Text.substr(0, Middle) + "\": " + All);
  }
  return {*Field, Text.substr(Middle + 1)};
}

TLandMarkSources SourcesOf(const TTable& Table, const std::vector<TFieldOption>& Columns) {
  TLandMarkSources Sources = ProposeSources(Table);
  for (const TFieldOption& Each : Columns) {
    std::optional<size_t>& Source = Sources[static_cast<size_t>(Each.Field)];
    Source.reset();
    if (Each.Value.empty()) continue;
    Source = Table.HeaderField(Each.Value);
    const auto Number = ParseNumber(Each.Value);
    for (size_t I = 0; Number && !Source && I < Table.Width(); ++I)
      if (*Number == static_cast<double>(I + 1)) Source = I;
    if (!Source) throw EInOutError(Table.Name(), "there is no column " + Each.Value);
  }
  return Sources;
}

TLandMark TemplateOf(const std::vector<std::string>& Values) {
  TLandMark Template;
  for (const std::string& Text : Values) {
    const TFieldOption Option = ParseFieldOption("--with", Text);
    try {
      SetLandMarkField(Template, Option.Field, Option.Value);
    } catch (const ELineError& Error) {
      throw EUsageError(std::string("--with ") + Error.what());
    }
  }
  return Template;
}

// The landmarks that are there already, and the id of their set.
TLandMarkList Existing(const TImportOptions& Options, std::string& Id) {
  if (Options.Replace || ResolveFile(Options.File).empty()) return {};
  TLandMarkFile File = LoadLandMarkFile(Options.File, "");
  if (!File.Parts.IsOneSet())
    throw EInOutError(Options.File,
                      "holds several sets or other things, which would be lost; import into "
                      "another file, or give --replace");
  if (Id.empty()) Id = File.Parts.Ids.front();
  return std::move(File.List);
}

int Import(const TImportOptions& Options) {
  std::vector<TFieldOption> Columns;
  Columns.reserve(Options.Columns.size());
  for (const std::string& Text : Options.Columns)
    Columns.push_back(ParseFieldOption("--column", Text));
  const TLandMark Template = TemplateOf(Options.Values);
  std::string Id = Options.Id;
  TLandMarkList List = Existing(Options, Id);
  TTable Table(Options.Table);
  int Status = 0;
  const int32_t Added = ImportLandMarks(Table, SourcesOf(Table, Columns), Template, List,
                                        [&](const TImportProblem& Problem) {
                                          if (Problem.Taken) {
                                            PrintWarning(Problem.Text);
                                            return true;
                                          }
                                          PrintError(Problem.Text);
                                          Status = 1;
                                          return !Options.Strict;
                                        });
  if (Status != 0 && (Options.Strict || Added == 0)) {
    PrintError(Options.File + " was not written");
    return Status;
  }
  SaveLandMarks(Options.File, Id, List, Options.File + ": ");
  return Status;
}

void AddListCommand(TProgram& Program, CLI::App& LandMarks) {
  const auto Options = std::make_shared<TListOptions>();
  CLI::App& Command = *LandMarks.add_subcommand("list", "Prints landmarks as a table");
  Command.add_option("FILE", Options->File, "landmark file")->required();
  Command.add_option("--id", Options->Id, "set to begin with; else the first one");
  Command.callback([&Program, Options] { Program.Run = [Options] { return List(*Options); }; });
}

void AddImportCommand(TProgram& Program, CLI::App& LandMarks) {
  const auto Options = std::make_shared<TImportOptions>();
  CLI::App& Command = *LandMarks.add_subcommand(
      "import", "Adds the lines of a table to a landmark file, which is made where it is missing");
  Command.add_option("FILE", Options->File, "landmark file to write")->required();
  Command
      .add_option(
          "CSV", Options->Table,
          "table: name,lat,long and any columns of \"landmarks list\", - for standard input")
      ->required();
  Command.add_option("--column", Options->Columns,
                     "FIELD=COLUMN: takes a field from a column, by name or number; FIELD= from "
                     "none");
  Command.add_option("--with", Options->Values, "FIELD=VALUE: what lines do not give");
  Command.add_option("--id", Options->Id, "id of the set");
  Command.add_flag("--replace", Options->Replace, "drop what the file holds");
  Command.add_flag("--strict", Options->Strict, "write nothing when a line fails");
  Command.callback([&Program, Options] { Program.Run = [Options] { return Import(*Options); }; });
}

}  // namespace

void AddLandMarkCommands(TProgram& Program) {
  CLI::App& LandMarks = *Program.App.add_subcommand("landmarks", "Landmark files");
  LandMarks.require_subcommand(1);
  AddListCommand(Program, LandMarks);
  AddImportCommand(Program, LandMarks);
}

}  // namespace zav

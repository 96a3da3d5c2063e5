// main.cpp - zavgeo, the command line: arguments in, exit status out.
//
// Exit status: 0 done, 1 bad input or a file that failed, 2 wrong usage.
// SPDX-License-Identifier: MIT
#include <exception>
#include <iostream>

#include "program.h"

namespace zav {

TGeoEllipsoid EllipsoidOfOption(const std::string& Id) {
  if (const auto Found = FindGeoEllipsoid(Id)) return *Found;
  throw EUsageError("unknown ellipsoid \"" + Id + "\"; \"zavgeo ellipsoids\" lists them");
}

void AddTableOptions(CLI::App& Command, TTableOptions& Options) {
  Command.add_option("FILE", Options.File, "table to convert, - for standard input")
      ->capture_default_str();
  Command.add_flag("--strict", Options.Strict, "stop at the first line that fails");
}

namespace {

void AddCommands(TProgram& Program) {
  Program.App.name("zavgeo");
  Program.App.description(
      "Converts coordinates, calibrates maps and draws them.\n"
      "Tables are comma-separated values; columns are found by the names in a header line, or by "
      "position without one.");
  Program.App.require_subcommand(0, 1);
  Program.App.set_version_flag("--version", ZAVGEO_VERSION);
  AddGridCommands(Program);
  AddConvertCommand(Program);
  AddEllipsoidCommand(Program);
  AddGeodesyCommands(Program);
  AddCalibrateCommand(Program);
  AddMapCommands(Program);
  AddLandMarkCommands(Program);
  AddDbCommands(Program);
}

// With what an error of the library came from, such as the reason why a file cannot be written.
std::string Told(const std::exception& Error) {
  try {
    std::rethrow_if_nested(Error);
  } catch (const std::exception& Cause) {
    return std::string(Error.what()) + " " + Told(Cause);
  }
  return Error.what();
}

int RunProgram(int Count, char** Arguments) {
  TProgram Program;
  AddCommands(Program);
  try {
    Program.App.parse(Count, Arguments);
  } catch (const CLI::ParseError& Error) {
    return Program.App.exit(Error) == 0 ? 0 : 2;
  }
  if (!Program.Run) throw EUsageError("a command is missing; --help lists them");
  const int Status = Program.Run();
  FinishOutput();
  return Status;
}

}  // namespace

}  // namespace zav

int main(int Count, char** Arguments) {
  std::ios::sync_with_stdio(false);
  std::cin.tie(nullptr);
  try {
    return zav::RunProgram(Count, Arguments);
  } catch (const zav::EUsageError& Error) {
    zav::PrintError(Error.what());
    return 2;
  } catch (const std::exception& Error) {
    zav::PrintError(zav::Told(Error));
    return 1;
  }
}

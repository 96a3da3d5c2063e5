// program.h - the subcommands of the command line.
//
// Each function adds one family of subcommands to the program; a subcommand's callback sets Run,
// which is called once all arguments are known and returns the exit status.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_ZAVGEO_PROGRAM_H
#define ZAV_APPS_ZAVGEO_PROGRAM_H

#include <CLI/CLI.hpp>
#include <functional>
#include <string>

#include <geobasics/ellipsoids.h>
#include <platform/base/errors.h>

#include "table_output.h"

namespace zav {

struct TProgram {
  CLI::App App;
  std::function<int()> Run;
};

// A wrong value of an option: exit status 2, where errors of the input are 1.
class EUsageError : public EZAVError {
 public:
  using EZAVError::EZAVError;
};

void AddGridCommands(TProgram& Program);      // utm, ups
void AddConvertCommand(TProgram& Program);    // convert
void AddEllipsoidCommand(TProgram& Program);  // ellipsoids
void AddGeodesyCommands(TProgram& Program);   // cartesian, datum, countries, datums
void AddCalibrateCommand(TProgram& Program);  // calibrate
// map info, map to-pixel, map to-geo, map render, map shrink, map empty
void AddMapCommands(TProgram& Program);
void AddLandMarkCommands(TProgram& Program);  // landmarks list, landmarks import
void AddDbCommands(TProgram& Program);        // db create, import, find and the others
void AddRenderCommand(TProgram& Program, CLI::App& Map);
void AddShrinkCommand(TProgram& Program, CLI::App& Map);
void AddEmptyCommand(TProgram& Program, CLI::App& Map);

// The ellipsoid of an identifier, in any case. Throws EUsageError for an unknown one.
TGeoEllipsoid EllipsoidOfOption(const std::string& Id);
// The options FILE and --strict of commands that convert tables.
void AddTableOptions(CLI::App& Command, TTableOptions& Options);

}  // namespace zav

#endif

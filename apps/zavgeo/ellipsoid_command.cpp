// ellipsoid_command.cpp - zavgeo ellipsoids: the catalogue as a table.
// SPDX-License-Identifier: MIT
#include "program.h"

namespace zav {

namespace {

int PrintEllipsoids() {
  TRow Row;
  for (const char* Name : {"id", "name", "a", "b", "reciprocal_flattening"}) Row << Name;
  Print(Row);
  for (size_t i = 0; i < NumGeoEllipsoids; ++i) {
    const auto Ellipsoid = static_cast<TGeoEllipsoid>(i);
    Row << GeoEllipsoidId[i] << GeoEllipsoidName[i] << AxesOf(Ellipsoid).A << AxesOf(Ellipsoid).B
        << RecipFlattening(Ellipsoid);
    Print(Row);
  }
  return 0;
}

}  // namespace

void AddEllipsoidCommand(TProgram& Program) {
  Program.App
      .add_subcommand("ellipsoids",
                      "Lists the ellipsoids: axes in metres, reciprocal flattening 0 for a sphere")
      ->callback([&Program] { Program.Run = PrintEllipsoids; });
}

}  // namespace zav

// A database of towns, without a window: filled in one go, and asked for what is near.
// SPDX-License-Identifier: MIT
#include <cstdio>

#include <geodb/geodb.h>

int main(int argc, char** argv) {
  struct TTown {
    const char* Name;
    zav::TSCoords Position;
  };
  const TTown Towns[] = {{"Vienna", {48.2085F, 16.3731F}},
                         {"Graz", {47.0707F, 15.4395F}},
                         {"Salzburg", {47.7981F, 13.0469F}},
                         {"Zürich", {47.3769F, 8.5417F}}};

  zav::TGeoDB Database;
  Database.SetGDBName(argc > 1 ? argv[1] : "towns");  // opens it, or makes it
  if (Database.NumEntries() == 0) {
    zav::TGeoDBUpdate Update(Database);  // all or nothing, and fast
    for (const TTown& Town : Towns) Database.AddTown(Town.Name, 0, 0, Town.Position, 0, 0, 0);
    Update.Commit();
  }

  std::printf("Nearest to Linz:\n");
  for (const zav::TNearItem& Near : Database.NearestItems(48.3064, 14.2858, 3)) {
    const zav::TgdbData Town = Database.GetSumdata(Near.Id);
    std::printf("  %-10s %6.1f km\n", Town.Name.Text().c_str(), Near.Distance / 1000);
  }
  for (const int32_t RecNo : Database.ItemsByName("zurich", zav::TNameMatch::nmWhole))
    std::printf("Found %s.\n", Database.GetSumdata(RecNo).Name.Text().c_str());
}

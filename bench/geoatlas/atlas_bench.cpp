// atlas_bench.cpp - the atlas: registering 200 maps, going to another map, going back to one.
//
// Going to a map stands beside what it cannot do without: decoding the image and painting once.
// SPDX-License-Identifier: MIT
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include <QApplication>

#include <geoatlas/geo_atlas.h>
#include <geomap/calibration/calib_file.h>
#include <platform/codec/image_file.h>
#include <platform/qt/geo_atlas_widget.h>

#include "support/rounds.h"

namespace {

namespace fs = std::filesystem;
using zav::bench::Compare;

const std::string Maps = ZAVGEO_SAMPLES "/maps/";
constexpr int Count = 200;
constexpr int Rounds = 31;

// Copies of the samples' calibrations under other names.
std::vector<std::string> ManyFiles(const fs::path& Folder) {
  const std::vector<std::string> Names = {"alps_utm32n",   "andes_utm19s",    "australia_laea",
                                          "europe_conic",  "gotthard_utm32n", "iberia_bonne",
                                          "world_equirect"};
  std::vector<std::string> Files;
  for (int i = 0; i < Count; ++i) {
    const fs::path File = Folder / ("map" + std::to_string(i) + ".xml");
    fs::copy_file(Maps + Names[static_cast<size_t>(i) % Names.size()] + ".xml", File);
    Files.push_back(File.string());
  }
  return Files;
}

void Registering(const std::vector<std::string>& Files) {
  zav::GeoAtlasWidget Widget;
  Widget.show();
  Compare("Registering a map, of 200 (ns each)", Count, Rounds,
          {{"ours, with the list on a screen",
            [&] {
              Widget.unregisterAll();
              for (const std::string& File : Files)
                Widget.registerMap(QString::fromStdString(File));
            }},
           {"reading the files only", [&] {
              for (const std::string& File : Files) {
                zav::TCalibData Data;
                zav::TCalibModel Model = zav::TCalibModel::cmUndefined;
                zav::ParseCalibData(File, "", Data, Model);
              }
            }}});
}

struct TAtlas {
  zav::GeoAtlasWidget Widget;
  explicit TAtlas(int64_t KeptImages) {
    Widget.resize(1280, 833);
    Widget.show();
    Widget.setKeptImagesLimit(KeptImages);
    for (const char* Name : {"europe_conic", "alps_utm32n", "gotthard_utm32n", "world_miller"})
      Widget.registerMap(QString::fromStdString(Maps + Name + ".xml"));
  }
  void Show(int Index) { Widget.selectMap(Index); }
};

}  // namespace

int main(int argc, char** argv) {
  QApplication Application(argc, argv);
  const fs::path Folder = fs::temp_directory_path() / "zavgeo-atlas-bench";
  fs::remove_all(Folder);
  fs::create_directories(Folder);
  Registering(ManyFiles(Folder));
  fs::remove_all(Folder);

  TAtlas Anew(0);
  TAtlas Kept(zav::TGeoAtlas::DefaultKeptImages);
  const std::vector<std::string> Images = {"europe_conic", "alps_utm32n", "gotthard_utm32n",
                                           "world_miller"};
  for (int Index = 1; Index <= 4; ++Index) {
    const int Other = Index % 4 + 1;
    const std::string Image = Maps + Images[static_cast<size_t>(Index - 1)] + ".jpg";
    // At the end of each round the other map is shown.
    Compare("Going to " + Images[static_cast<size_t>(Index - 1)], 1, Rounds,
            {{"ours", [&] { Anew.Show(Index); }},
             {"decoding and one repaint",
              [&] {
                const zav::TBitmap Bitmap = zav::LoadImageFile(Image, zav::TImageKind::ikJpeg);
                Anew.Widget.atlas().GeoMap().Paint();
              },
              1.3},
             {"(the other map)", [&] { Anew.Show(Other); }}});
    Compare("Going back to " + Images[static_cast<size_t>(Index - 1)], 1, Rounds,
            {{"ours, image kept", [&] { Kept.Show(Index); }},
             {"loading anew", [&] { Anew.Show(Index); }, 0.2},
             {"(the other map)", [&] {
                Kept.Show(Other);
                Anew.Show(Other);
              }}});
  }
  return 0;
}

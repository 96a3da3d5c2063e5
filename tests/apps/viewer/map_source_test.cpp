// map_source_test.cpp - what files and folders have to offer as maps, and what is said about bad
// ones.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "map_list.h"
#include "map_source.h"
#include "viewer_test_support.h"

namespace zav {
namespace {

TEST(MapSource, TellsWhatIsWrongAndWhatToDo) {
  const TestFolder Folder;
  Folder.copy("sicily_8bit.bmp", "Sicily.bmp");
  const QByteArray Jpeg = "\xff\xd8\xff\xe0 no picture";
  QByteArray Huge(54, '\0');  // the header of a picture of 2001 x 1500
  Huge.replace(0, 2, "BM");
  Huge[10] = 54;
  Huge[14] = 40;
  Huge.replace(18, 8, QByteArray::fromHex("d1070000dc050000"));
  Huge[26] = 1;
  Huge[28] = 24;
  Huge.resize(54 + 1500 * 6004);
  const struct {
    QString Path;
    QStringList Says;  // empty = no problem
  } Cases[] = {
      {Folder.write("good.xml", CalibrationText("SICILY.BMP", "Sicily")), {}},
      {Folder.path("Sicily.bmp"), {}},
      {Folder.path("absent.xml"), {"no file", "absent.xml"}},
      {Folder.write("lost.xml", CalibrationText("sub/Lost Map.jpg", "Lost")),
       {"missing", "Lost", "sub/Lost Map.jpg", Folder.path("Lost Map.jpg"), "beside"}},
      {Folder.write("nameless.xml", CalibrationText("", "No")), {"names no map image"}},
      {Folder.write("damaged.xml",
                    CalibrationText("sicily.bmp", "D").replace("points=\"3\"", "points=\"9\"")),
       {"damaged.xml", "does not match", "damaged or cut short"}},
      {Folder.write("other.xml", "<?xml version=\"1.0\"?>\n<svg/>\n"), {"no map calibration"}},
      {Folder.write("picture.png", "\x89PNG"), {"\"PNG\"", "JPEG or BMP"}},
      {Folder.write("broken.jpg", Jpeg), {"broken.jpg", "damaged"}},
      {Folder.write("huge.bmp", Huge), {"2,001 x 1,500", "3,000,000", "smaller copy"}},
  };
  QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
  for (const auto& Case : Cases) {
    const MapSource Source = InspectMap(Case.Path);
    EXPECT_EQ(Source.Problem.isEmpty(), Case.Says.isEmpty()) << Source.Problem.toStdString();
    for (const QString& Words : Case.Says)
      EXPECT_TRUE(Source.Problem.contains(Words)) << Source.Problem.toStdString() << "\n"
                                                  << Words.toStdString();
    EXPECT_FALSE(Source.Problem.contains("ParseCalibData")) << Source.Problem.toStdString();
  }
}

TEST(MapSource, ListsTheMapsOfAFolder) {
  const TestFolder Folder;
  Folder.copy("sicily_8bit.bmp", "sicily.bmp");
  Folder.copy("iceland.bmp", "Bare 2.bmp");
  Folder.copy("iceland.bmp", "bare 10.BMP");
  Folder.write("z.xml", CalibrationText("SICILY.bmp", "Alpha Sicilia"));
  Folder.write("lost.xml", CalibrationText("lost.jpg", "Lost Map"));
  Folder.write("other.xml", "<html>");
  Folder.write("damaged.xml",
               CalibrationText("sicily.bmp", "Damaged").replace("points=\"3\"", "points=\"9\""));
  Folder.write("readme.txt", "nothing");

  MapList List;
  List.setSources(InspectFolder(Folder.Dir.path()));
  QStringList Lines;
  for (int Row = 0; Row < List.rowCount(); ++Row)
    Lines << List.data(List.index(Row), Qt::DisplayRole).toString() + ": " +
                 List.data(List.index(Row), MapList::DetailRole).toString();
  EXPECT_EQ(Lines, (QStringList{"Alpha Sicilia: 447 x 378, First order, degrees",
                                "Bare 2.bmp: 497 x 408, Not calibrated",
                                "bare 10.BMP: 497 x 408, Not calibrated",
                                "Damaged: cannot be shown", "Lost Map: cannot be shown"}));
  EXPECT_EQ(List.rowOf(Folder.path("lost.xml")), 4);
}

TEST(MapSource, RecognisesTheParabolicModelByItsLines) {
  const MapSource Source = InspectMap(Sample("australia_laea.xml"));
  EXPECT_EQ(Source.Problem.toStdString(), "");
  EXPECT_EQ(Source.Model, TCalibModel::cmParabolicIp);
}

}  // namespace
}  // namespace zav

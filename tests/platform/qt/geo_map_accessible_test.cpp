// geo_map_accessible_test.cpp - what a screen reader learns of a map and its landmarks.
// SPDX-License-Identifier: MIT
#include "platform/qt/geo_map_accessible.h"

#include <QLabel>

#include "map_widget_fixture.h"

namespace zav {
namespace {

std::vector<std::pair<QAccessible::Event, QString>> Told;

void Listen(QAccessibleEvent* Event) {
  QString Value;
  if (Event->type() == QAccessible::ValueChanged)
    Value = static_cast<QAccessibleValueChangeEvent*>(Event)->value().toString();
  Told.emplace_back(Event->type(), Value);
}

class GeoMapAccessibleTest : public GeoMapWidgetTest {
 protected:
  GeoMapAccessibleTest() {
    Map().SetCalibration(PlainCalibration(), TCalibModel::cmEquiRect);
    Widget->resize(500, 400);
    Widget->show();
    Map().SetTopLeft({0, 0});
    QAccessible::installUpdateHandler(Listen);
    Told.clear();
  }
  ~GeoMapAccessibleTest() override { QAccessible::installUpdateHandler(nullptr); }
  QAccessibleInterface& Face() { return *QAccessible::queryAccessibleInterface(Widget); }
  QString Text(QAccessible::Text Kind) { return Face().text(Kind); }
  // Qt sends events only on platforms where a screen reader can listen.
  bool WasTold(QAccessible::Event Kind, const QString& Value = {}) {
    return !QAccessible::isActive() ||
           std::find(Told.begin(), Told.end(), std::pair{Kind, Value}) != Told.end();
  }
};

TEST_F(GeoMapAccessibleTest, TellsTheMapTheViewAndThePosition) {
  EXPECT_EQ(Face().role(), QAccessible::Canvas);
  EXPECT_EQ(Text(QAccessible::Name), "Map");
  Widget->setCaption("Alps");
  EXPECT_EQ(Text(QAccessible::Name), "Alps");
  // Latitude 50 - Y / 100, longitude X / 100; the middle is pixel 250, 200.
  EXPECT_EQ(Text(QAccessible::Description),
            QStringLiteral("Alps, 100 %, middle at 48.00000\u00b0 N, 2.50000\u00b0 E"));
  Widget->setMagnification(2);
  EXPECT_TRUE(Text(QAccessible::Description).contains("200 %"));
  EXPECT_TRUE(WasTold(QAccessible::DescriptionChanged));
  EXPECT_EQ(Text(QAccessible::Value), "");
  Widget->setMagnification(1);
  Widget->setTopLeft({0, 0});
  MoveTo({100, 50});
  const QString At = QStringLiteral("49.50000\u00b0 N, 1.00000\u00b0 E");
  EXPECT_EQ(Text(QAccessible::Value), At);
  EXPECT_TRUE(WasTold(QAccessible::ValueChanged, At));
  Widget->setAccessibleName("Overview");
  EXPECT_EQ(Text(QAccessible::Name), "Overview");
  Widget->clear();
  EXPECT_TRUE(WasTold(QAccessible::NameChanged));
  EXPECT_EQ(Text(QAccessible::Description), "No map is open");
  EXPECT_EQ(Text(QAccessible::Value), "");
}

TEST_F(GeoMapAccessibleTest, LandmarksInViewAreChildren) {
  auto* Label = new QLabel("over the map", Widget);
  Label->setGeometry(0, 0, 20, 20);
  Label->show();
  const int Widgets = Face().childCount();
  const auto Add = [this](double Lat, double Long, const std::string& Caption) {
    Map().AddLandMark(Lat, Long, 0, Caption, 8, clBlack);
  };
  Add(49, 1, "Church");    // pixel 100, 100
  Add(43, 9, "Far away");  // pixel 900, 700: not in view
  Add(47.5, 3, "");        // pixel 300, 250
  Add(49, 2, "Hidden");
  TLandMark Hidden = Map().GetLandMarkData(4);
  Hidden.ClassFlag = 7;
  Map().SetLandMarkData(4, Hidden);
  Map().SetClassVisibility(7, false);
  ASSERT_EQ(Face().childCount(), Widgets + 2);
  QAccessibleInterface* Church = Face().child(Widgets);
  QAccessibleInterface* Other = Face().child(Widgets + 1);
  EXPECT_EQ(Church, Face().child(Widgets));  // the same one each time
  EXPECT_EQ(Church->text(QAccessible::Name), "Church");
  EXPECT_EQ(Other->text(QAccessible::Name), "Landmark 3");
  EXPECT_EQ(Church->text(QAccessible::Description),
            QStringLiteral("49.00000\u00b0 N, 1.00000\u00b0 E"));
  EXPECT_EQ(Church->rect().center(), Widget->mapToGlobal(QPoint(100, 100)));
  EXPECT_EQ(Church->parent(), &Face());
  EXPECT_EQ(Face().indexOfChild(Other), Widgets + 1);
  const QPoint There = Other->rect().center();
  EXPECT_EQ(Face().childAt(There.x(), There.y()), Other);
  EXPECT_EQ(Face().child(Widgets + 2), nullptr);

  Map().SetClassVisibility(7, true);
  EXPECT_EQ(Face().childCount(), Widgets + 3);
  // A reader may hold what is gone.
  Map().RemoveAllLandMarks();
  EXPECT_EQ(Face().childCount(), Widgets);
  EXPECT_FALSE(Church->isValid());
  EXPECT_EQ(Church->text(QAccessible::Name), "");
  EXPECT_TRUE(Church->rect().isEmpty());
  EXPECT_TRUE(Church->state().invalid);

  // A map full of them stays quick.
  Map().SetSuppressPaint(true);
  for (int i = 0; i < 1000; ++i) Add(49, 1 + i * 0.001, "x");
  EXPECT_EQ(Face().childCount(), Widgets + GeoMapAccessible::MostLandmarks);
  QAccessibleInterface* Last = Face().child(Widgets + 299);
  ASSERT_NE(Last, nullptr);
  delete Widget;
  QApplication::processEvents();
}

}  // namespace
}  // namespace zav

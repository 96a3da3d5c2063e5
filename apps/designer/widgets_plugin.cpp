// SPDX-License-Identifier: MIT
#include "widgets_plugin.h"

#include <QIcon>
#include <QPainter>
#include <QPixmap>

#include <QtUiPlugin/QDesignerCustomWidgetInterface>

#include <platform/qt/geo_atlas_widget.h>
#include <platform/qt/geo_map_widget.h>

namespace zav {

namespace {

// A sheet of map with water and two lines; for an atlas a second one behind it.
QIcon SheetIcon(int Sheets) {
  QIcon Icon;
  for (const int Ratio : {1, 2}) {
    QPixmap Pixmap(22 * Ratio, 22 * Ratio);
    Pixmap.fill(Qt::transparent);
    QPainter Painter(&Pixmap);
    Painter.setRenderHint(QPainter::Antialiasing);
    Painter.scale(Ratio, Ratio);
    Painter.setPen(QPen(QColor(0x3b4a54), 1));
    for (int i = Sheets - 1; i >= 0; --i) {
      const QRectF Sheet(2.5 + 3 * i, 5.5 - 3 * i, 14, 14);
      Painter.fillRect(Sheet, QColor(0xf7f2e2));
      Painter.fillRect(Sheet.adjusted(0, 8, 0, 0), QColor(0x8cc2e8));
      Painter.drawRect(Sheet);
      Painter.drawLine(QLineF(Sheet.left(), Sheet.center().y(), Sheet.right(), Sheet.center().y()));
      Painter.drawLine(QLineF(Sheet.center().x(), Sheet.top(), Sheet.center().x(), Sheet.bottom()));
    }
    Painter.end();
    Pixmap.setDevicePixelRatio(Ratio);
    Icon.addPixmap(Pixmap);
  }
  return Icon;
}

// What Designer asks about one class.
struct WidgetText {
  const char* Class;    // with its namespace
  const char* Object;   // name of a new one
  const char* Include;  // for the generated code
  const char* Tip;
  const char* Help;
  const char* Geometry;         // size of a new one
  const char* Properties = "";  // how its texts are edited
};

template <class Widget>
class CustomWidget : public QDesignerCustomWidgetInterface {
 public:
  CustomWidget(const WidgetText& Text, const QIcon& Icon) : FText(Text), FIcon(Icon) {}

  QString name() const override { return QLatin1String(FText.Class); }
  QString group() const override { return QStringLiteral("Maps"); }
  QString toolTip() const override { return QLatin1String(FText.Tip); }
  QString whatsThis() const override { return QLatin1String(FText.Help); }
  QString includeFile() const override { return QLatin1String(FText.Include); }
  QIcon icon() const override { return FIcon; }
  bool isContainer() const override { return false; }
  QWidget* createWidget(QWidget* Parent) override { return new Widget(Parent); }
  QString domXml() const override {
    return QStringLiteral(
               R"(<ui language="c++" displayname="%1"><widget class="%2" name="%3">)"
               R"(<property name="geometry"><rect><x>0</x><y>0</y>%4</rect></property></widget>)"
               R"(<customwidgets><customwidget><class>%2</class><extends>QWidget</extends>)"
               R"(<propertyspecifications>%5</propertyspecifications>)"
               R"(</customwidget></customwidgets></ui>)")
        .arg(QString::fromLatin1(FText.Class).section(QLatin1String("::"), -1),
             QLatin1String(FText.Class), QLatin1String(FText.Object), QLatin1String(FText.Geometry),
             QLatin1String(FText.Properties));
  }

 private:
  const WidgetText& FText;
  QIcon FIcon;
};

// Names of files are not texts to translate.
constexpr WidgetText MapText{
    "zav::GeoMapWidget",
    "map",
    "platform/qt/geo_map_widget.h",
    "A map that is dragged and zoomed",
    "Shows the map of a calibration file, and where on Earth the mouse is.",
    "<width>500</width><height>400</height>",
    R"(<stringpropertyspecification name="mapFile" type="singleline" notr="true"/>)"
    R"(<stringpropertyspecification name="imageFile" type="singleline" notr="true"/>)"};
constexpr WidgetText AtlasText{
    "zav::GeoAtlasWidget",
    "atlas",
    "platform/qt/geo_atlas_widget.h",
    "One of several maps, with a panel to choose it",
    "Shows maps that the program registers, and goes between them by clicks.",
    "<width>480</width><height>320</height>"};

}  // namespace

WidgetsPlugin::WidgetsPlugin(QObject* Parent)
    : QObject(Parent),
      FWidgets{new CustomWidget<GeoMapWidget>(MapText, SheetIcon(1)),
               new CustomWidget<GeoAtlasWidget>(AtlasText, SheetIcon(2))} {}

WidgetsPlugin::~WidgetsPlugin() { qDeleteAll(FWidgets); }

}  // namespace zav

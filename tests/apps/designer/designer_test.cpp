// designer_test.cpp - the plugin for Qt Designer, loaded as Designer and QUiLoader load it.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <memory>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPluginLoader>
#include <QUiLoader>
#include <QWidget>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

namespace {

TEST(Designer, ThePluginOffersBothWidgets) {
  QPluginLoader Loader(ZAVGEO_DESIGNER_PLUGIN);
  auto* Collection = qobject_cast<QDesignerCustomWidgetCollectionInterface*>(Loader.instance());
  ASSERT_NE(Collection, nullptr) << Loader.errorString().toStdString();
  QStringList Names;
  for (QDesignerCustomWidgetInterface* Offered : Collection->customWidgets()) {
    const std::unique_ptr<QWidget> Made(Offered->createWidget(nullptr));
    // Designer finds its way from the object to the entry by the class's name.
    EXPECT_EQ(QLatin1String(Made->metaObject()->className()), Offered->name());
    EXPECT_FALSE(Offered->icon().isNull());
    EXPECT_TRUE(Offered->domXml().contains(QStringLiteral("class=\"%1\"").arg(Offered->name())));
    EXPECT_TRUE(QFile::exists(QStringLiteral(ZAVGEO_SOURCES "/") + Offered->includeFile()));
    Names += Offered->name();
  }
  EXPECT_EQ(Names, QStringList({"zav::GeoMapWidget", "zav::GeoAtlasWidget"}));
}

// The form of the example, with the map put where it looks for it.
TEST(Designer, AFormBuiltAtRunTimeShowsItsMap) {
  QUiLoader Loader;
  Loader.clearPluginPaths();
  Loader.addPluginPath(QFileInfo(ZAVGEO_DESIGNER_PLUGIN).path());
  ASSERT_TRUE(Loader.availableWidgets().contains("zav::GeoMapWidget"));
  QFile Form(ZAVGEO_FORM);
  ASSERT_TRUE(Form.open(QIODevice::ReadOnly));
  const QString Before = QDir::currentPath();
  QDir::setCurrent(ZAVGEO_SAMPLES "/maps");
  const std::unique_ptr<QWidget> Window(Loader.load(&Form));
  QDir::setCurrent(Before);
  ASSERT_NE(Window, nullptr) << Loader.errorString().toStdString();
  auto* Map = Window->findChild<QWidget*>("map");
  ASSERT_NE(Map, nullptr);
  EXPECT_STREQ(Map->metaObject()->className(), "zav::GeoMapWidget");
  EXPECT_TRUE(Map->property("imageFile").toString().endsWith("europe_conic.jpg"));
  EXPECT_EQ(Map->property("graticuleSpacing").toDouble(), 10);
  // An enumerator of a class within a namespace, as it stands in the form.
  EXPECT_EQ(Map->property("showGraticule").toInt(), 2);
}

}  // namespace

// widgets_plugin.h - GeoMapWidget and GeoAtlasWidget in the widget box of Qt Designer.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_DESIGNER_WIDGETS_PLUGIN_H
#define ZAV_APPS_DESIGNER_WIDGETS_PLUGIN_H

#include <QList>
#include <QObject>

#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

namespace zav {

class WidgetsPlugin : public QObject, public QDesignerCustomWidgetCollectionInterface {
  Q_OBJECT
  Q_INTERFACES(QDesignerCustomWidgetCollectionInterface)
  Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetCollectionInterface")

 public:
  explicit WidgetsPlugin(QObject* Parent = nullptr);
  ~WidgetsPlugin() override;

  QList<QDesignerCustomWidgetInterface*> customWidgets() const override { return FWidgets; }

 private:
  QList<QDesignerCustomWidgetInterface*> FWidgets;  // owned
};

}  // namespace zav

#endif

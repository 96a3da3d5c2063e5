// landmark_workbench.h - landmarks in the viewer: brings together the document, the panel, the
// mouse on the map, the palette and the files.
//
// Landmarks have positions, not pixels: they stay when another map is opened.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_LANDMARK_WORKBENCH_H
#define ZAV_APPS_VIEWER_LANDMARK_WORKBENCH_H

#include <QObject>
#include <QString>

#include <geomap/geo_map.h>

#include "common/free_captions.h"
#include "landmark_dock.h"
#include "landmark_document.h"
#include "landmark_tool.h"
#include "recovery_text.h"

class QMainWindow;

namespace zav {

class GeoMapWidget;

class LandmarkWorkbench final : public QObject, private TGeoMapObserver {
  Q_OBJECT

 public:
  // Puts its panel into the window, hidden. Window and widget must outlive it.
  LandmarkWorkbench(QMainWindow& Window, GeoMapWidget& Widget);
  ~LandmarkWorkbench() override;

  // Whether the file begins like one of landmarks.
  static bool isLandmarkFile(const QString& FileName);

  LandmarkDocument& document() { return FDocument; }
  LandmarkDock& dock() { return *FDock; }
  LandmarkTool& tool() { return *FTool; }

  // Asks what to do about unsaved work, if there is any, and does it. False: stay with it.
  bool letGo();

  // These ask for what they need, and tell what went wrong with problem().
  void startNew();
  void open();
  bool save();
  bool saveAs();
  void importTable();
  void editSymbols();
  void removeClass(int Class);
  void giveLook(int Class);
  void removeAll();
  // The same with the answer given.
  bool openFile(const QString& FileName);
  bool saveTo(const QString& FileName);
  bool importFrom(const QString& FileName, const TLandMarkSources& Sources);
  // Puts work that a crash has left in the place of what is open, and shows it.
  bool recover(const RecoveryText& Work);

  void setCaptions(TCaptions Captions);
  TCaptions captions() const { return FCaptions.Captions(); }
  // Cuts off the edit under way first.
  void undo();
  void redo();

 signals:
  // For people. Empty: what was told before holds no more.
  void problem(const QString& Text);
  void done(const QString& Text);
  void modifiedChanged();
  void opened(const QString& FileName);

 private:
  void Painted(TGeoMap& Map) override;
  void documentChanged();
  void selectionChanged(int Landmark);
  void panelEdited(const QString& Field);
  void showInPanel();
  void follow();
  bool tell(const QString& Reason);

  QMainWindow& FWindow;
  GeoMapWidget& FWidget;
  LandmarkDocument FDocument;
  TFreeCaptions FCaptions;
  LandmarkDock* FDock;
  LandmarkTool* FTool;
  bool FModified = false;
};

}  // namespace zav

#endif

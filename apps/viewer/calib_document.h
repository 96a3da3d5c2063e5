// calib_document.h - the calibration that a person works on, with undo, files and figures.
//
// Holds control points and points of graticule lines, switched on or off, all that the calibration
// file stores, and the names and the like that only the side file stores. Nothing here draws or
// asks. What the map shows is set with TGeoMap::SetCalibration(data(), model()) on each changed().
//
// Functions that can be refused return the reason for people, empty when done; a refused one
// changes nothing. Unknown ids are ignored. Every edit is one step of undo, and edits that change
// nothing make none.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_CALIB_DOCUMENT_H
#define ZAV_APPS_VIEWER_CALIB_DOCUMENT_H

#include <memory>
#include <string>
#include <vector>

#include <QObject>
#include <QSize>
#include <QString>
#include <QStringList>

#include <geomap/calibration/calibration.h>

#include "calib_items.h"

namespace zav {

// How far the model misses an item. Nothing is rounded.
struct CalibResidual {
  bool Valid = false;  // false: no fit, or the item is of a kind that the model does not use
  double Dx = 0;       // predicted minus given pixel
  double Dy = 0;
  double Pixels = 0;   // length of (Dx, Dy)
  double Metres = 0;   // on the ground, from the position to the one read off the map at the pixel
  bool Worst = false;  // the largest Pixels of those switched on and used; none where all are 0
};

// The figures that say how good the calibration is, over the items that are switched on and used.
enum class CalibFigure { QualX, QualY, RmsX, RmsY, Rms, Max, RmsMetres, MaxMetres, Resolution };

struct CalibQuality {
  bool Valid = false;  // false without a fit
  int Count = 0;       // of items with a residual
  double QualX = 0;    // standard deviation of the predicted, rounded, minus the given pixel
  double QualY = 0;    //   (divisor Count - 1); control points only, 0 for graticule lines
  double RmsX = 0;     // root mean squares, pixels
  double RmsY = 0;
  double Rms = 0;
  double Max = 0;
  double RmsMetres = 0;
  double MaxMetres = 0;
  double Resolution = 0;  // metres a pixel along the middle row

  double Value(CalibFigure Figure) const;
};

// Name of a figure for a table ("RMS along X"), and how it is computed, for its tool tip.
QString CalibFigureName(CalibFigure Figure);
QString CalibFigureFormula(CalibFigure Figure);

enum class CalibWarningKind {
  NoModel,
  TooFew,          // points or lines for the model
  Undetermined,    // the points lie in a row, or on one curve
  NothingToCheck,  // just enough points: all residuals are 0 whatever is wrong
  OutsideImage,
  FarCorner,   // a corner of the map far from all points
  PoleAstray,  // the conic fit has not found where the meridians meet
  Disagrees,   // one item against the rest
  LineNotUsed,
  OtherZone,     // UTM points of several zones
  ZoneMissing,   // UTM without a zone, or points that need one
  NotStored,     // zone 60 or an incomplete graticule: kept in the side file only
  PixelsTooFine  // the file's five decimals of a degree are coarser than the map
};

struct CalibWarning {
  CalibWarningKind Kind;
  QString Text;    // a sentence or two in plain words, with what to do
  int ItemId = 0;  // the item it is about, 0 = none
};

// Whether an edit joins the one before into one step of undo: a drag, keys held down.
enum class CalibMerge { Separate, Join };

enum class CalibImport { Append, Replace };

struct CalibState;  // what is undone and redone

class CalibDocument : public QObject {
  Q_OBJECT

 public:
  explicit CalibDocument(QObject* Parent = nullptr);
  ~CalibDocument() override;

  // --- what it holds -----------------------------------------------------------------------------
  bool isEmpty() const;  // neither an image nor a file
  int itemCount() const;
  // From 0, in the order of the table; valid until the next edit. An item's number for people is
  // its index + 1.
  const CalibItem& item(int Index) const;
  int indexOf(int Id) const;                // -1 for none
  const CalibItem* findItem(int Id) const;  // nullptr for none; valid until the next edit
  TCalibModel model() const;
  UtmGrid utmGrid() const;  // zone 0 = not set
  TGeoEllipsoid ellipsoid() const;
  QString caption() const;
  QString imagePath() const;  // absolute; empty when the image is missing
  QSize imageSize() const;    // empty when it is not known
  // The items of this kind count under the model: lines' points under cmParabolicIp, else control
  // points.
  bool isUsed(CalibItemKind Kind) const;
  // A Point in degrees and in metres of the map's zone, whichever way it was typed.
  std::optional<TCoords> degreesOf(const CalibItem& Item) const;
  std::optional<UtmMetres> metresOf(const CalibItem& Item) const;
  // "Point 3 (Church)", "Point 7 on meridian 10".
  QString itemTitle(int Index) const;

  // What is switched on, for TGeoMap::SetCalibration and the file. Under cmParabolicIp lines of
  // fewer than three points are left out, because they would bend the map; under cmUTM control
  // points that have no metres are.
  TCalibData data() const;
  // The same fitted. Computed on demand, like all figures below.
  const TCalibration& calibration() const;

  // --- finding -----------------------------------------------------------------------------------
  // The item nearest to a pixel of the map, at most MaxDistance (in map pixels) away; of equally
  // near ones the first. Items that the model does not use only when there is no other. 0 = none.
  int nearestItem(double X, double Y, double MaxDistance) const;

  // --- edits -------------------------------------------------------------------------------------
  // Limits: 200 control points, 25 graticule lines, 10 points on each, switched off or not. The
  // added item comes last. Under cmUTM a map without zone takes the one of its first position.
  QString addPoint(const CalibPosition& Position, TPoint Pixel, const QString& Name = {});
  QString addLinePoint(TGratLineKind Kind, double Value, TPoint Pixel, const QString& Name = {});
  // Moves of the same item joined with CalibMerge::Join are one step until endMerge() or another
  // edit.
  void moveItem(int Id, TPoint Pixel, CalibMerge Merge = CalibMerge::Separate);
  void endMerge();
  // Takes the running joined moves back as if they had not been made (Escape while dragging).
  void cancelMerge();
  void removeItem(int Id);
  // Removes the nearest item of the kind that counts, at any distance. False when there is none.
  bool removeNearest(double X, double Y);
  // Adds what removeItem, removeNearest or removeItems removed last, where it was, with name and
  // switch; one step further back with each call. Also under cmUTM.
  bool canRestoreRemoved() const;
  QString restoreLastRemoved();
  void removeItems(const std::vector<int>& Ids);
  QString setPosition(int Id, const CalibPosition& Position);
  QString setLine(int Id, TGratLineKind Kind, double Value);
  void setName(int Id, const QString& Name);  // line breaks become blanks
  void setEnabled(int Id, bool Enabled);
  // The items stay; what the model lacks then is told by warnings(). cmUTM without a zone takes the
  // one of the points' middle.
  void setModel(TCalibModel Model);
  // 1..60; points typed in degrees or in another zone are converted, those without zone keep their
  // metres.
  QString setZone(int Zone, bool South);
  void setEllipsoid(TGeoEllipsoid Ellipsoid);
  QString setCaption(const QString& Caption);
  QString setImage(const QString& ImagePath);

  // --- undo --------------------------------------------------------------------------------------
  bool canUndo() const;
  bool canRedo() const;
  QString undoText() const;  // "Move point 3"; empty when there is nothing to undo
  QString redoText() const;
  void undo();
  void redo();
  // Whether anything differs from the file.
  bool isModified() const;

  // --- figures -----------------------------------------------------------------------------------
  CalibResidual residual(int Index) const;
  CalibQuality quality() const;
  // What a person should look at before trusting the map, the gravest first. Fits the points again
  // without each of them: ask when the mouse rests, not at each step of a drag.
  std::vector<CalibWarning> warnings() const;

  // --- files -------------------------------------------------------------------------------------
  // Back to nothing.
  void clear();
  // A map that is not calibrated yet. Nothing is read but the image's header.
  QString newFromImage(const QString& ImagePath);
  // The calibration of an id (in any case), the first one for an empty id, with its side file. A
  // missing or damaged side file, or image, is no reason to refuse; loadNotes() tells.
  QString load(const QString& FileName, const QString& Id = {});
  QStringList loadNotes() const;
  // The ids of the calibrations in a file, in their order; those without id are empty.
  static QStringList idsIn(const QString& FileName);
  // Writes the calibration file, then the side file; never the image. Other contents of the file
  // the document came from stay.
  QString save();
  // The same under another name, which takes the document over. An existing file is replaced.
  QString saveAs(const QString& FileName);
  QString fileName() const;  // absolute; empty until saved or loaded
  QString calibId() const;
  // Where save() would write a map that has no file yet: the image's name with ".xml".
  QString suggestedFileName() const;

  // --- unsaved work through a crash --------------------------------------------------------------
  // The document as it is, without its file; the lines of a RecoveryText.
  std::string recoveryText() const;
  // Puts that in the place of what was loaded, as a step of undo.
  QString recover(const std::vector<std::vector<std::string>>& Lines);

  // --- points as tables --------------------------------------------------------------------------
  // Reads what the export writes and what "zavgeo calibrate --points" takes; one step of undo. The
  // reason for refusing names file and line.
  QString importPoints(const QString& FileName, CalibImport Mode);
  // All items of the document with names and switches.
  QString exportPoints(const QString& FileName) const;

 Q_SIGNALS:
  // After each edit, undo, redo, load, save: everything may be different.
  void changed();

 private:
  struct Private;
  std::unique_ptr<Private> F;
};

}  // namespace zav

#endif

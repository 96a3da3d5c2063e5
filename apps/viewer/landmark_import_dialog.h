// landmark_import_dialog.h - which columns of a table landmarks are made from.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_LANDMARK_IMPORT_DIALOG_H
#define ZAV_APPS_VIEWER_LANDMARK_IMPORT_DIALOG_H

#include <array>

#include <QDialog>
#include <QString>

#include "common/landmark_table.h"

class QComboBox;
class QDialogButtonBox;
class QLabel;
class QTableWidget;

namespace zav {

class LandmarkImportDialog final : public QDialog {
  Q_OBJECT

 public:
  // Throws EInOutError when the table cannot be read or is empty.
  LandmarkImportDialog(const QString& FileName, QWidget* Parent);

  TLandMarkSources sources() const;

 private:
  static constexpr int PreviewRows = 50;

  QWidget* makeFields(const TTable& Table, size_t Columns);
  void readPreview(const QString& FileName, bool HasHeader);
  void update();

  std::array<QComboBox*, NumLandMarkFields> FFields{};
  QTableWidget* FPreview;
  QLabel* FNote;
  QDialogButtonBox* FButtons;
};

}  // namespace zav

#endif

// landmark_palette.h - the symbols of a repository to choose from, and the file that keeps them.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_LANDMARK_PALETTE_H
#define ZAV_APPS_VIEWER_LANDMARK_PALETTE_H

#include <QListWidget>
#include <QString>

#include <geomap/landmarks/symbol_repository.h>

namespace zav {

// A symbol for each common use, for a start.
void FillWithDefaults(TSymbolRepository& Symbols);

class LandmarkPalette final : public QListWidget {
  Q_OBJECT

 public:
  explicit LandmarkPalette(QWidget* Parent);

  TSymbolRepository& symbols() { return FSymbols; }
  // After the repository has changed.
  void showSymbols();

  // The file of the palette; the symbols in it are taken when there are any, else the defaults.
  // Without a name nothing is kept.
  void setFile(const QString& FileName);
  QString file() const { return FFile; }
  // The reason when it cannot be written.
  QString save();

 signals:
  void chosen(const TSymbolProperties& Symbol);

 private:
  TSymbolRepository FSymbols;
  QString FFile;
};

}  // namespace zav

#endif

// recent_files.h - the maps and folders opened last, kept in the user's settings.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_RECENT_FILES_H
#define ZAV_APPS_VIEWER_RECENT_FILES_H

#include <QString>
#include <QStringList>

class QSettings;

namespace zav {

class RecentFiles {
 public:
  static constexpr int MaxFiles = 10;

  // The settings must outlive this object.
  explicit RecentFiles(QSettings& Settings);

  // Newest first, absolute paths. Files that are gone are left out, but not forgotten: they may be
  // on a drive that is not there now.
  QStringList paths() const;
  // Puts the path first; the oldest one beyond MaxFiles is dropped.
  void add(const QString& Path);
  void clear();

 private:
  QSettings& FSettings;
};

}  // namespace zav

#endif

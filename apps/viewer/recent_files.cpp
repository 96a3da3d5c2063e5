// recent_files.cpp - the maps and folders opened last, kept in the user's settings.
// SPDX-License-Identifier: MIT
#include "recent_files.h"

#include <algorithm>

#include <QFileInfo>
#include <QSettings>

namespace zav {

namespace {
constexpr const char* Key = "recentFiles";
}

RecentFiles::RecentFiles(QSettings& Settings) : FSettings(Settings) {}

QStringList RecentFiles::paths() const {
  QStringList Paths = FSettings.value(Key).toStringList();
  Paths.erase(std::remove_if(Paths.begin(), Paths.end(),
                             [](const QString& Path) { return !QFileInfo::exists(Path); }),
              Paths.end());
  return Paths;
}

void RecentFiles::add(const QString& Path) {
  const QString Absolute = QFileInfo(Path).absoluteFilePath();
  QStringList Paths = FSettings.value(Key).toStringList();
  Paths.removeAll(Absolute);
  Paths.prepend(Absolute);
  while (Paths.size() > MaxFiles) Paths.removeLast();
  FSettings.setValue(Key, Paths);
}

void RecentFiles::clear() { FSettings.remove(Key); }

}  // namespace zav

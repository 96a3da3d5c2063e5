// recovery_folder.h - the folder where running viewers keep their unsaved work, and dead ones have
// left it.
//
// Each viewer has its own files in it, NAME-KIND.zavwork, and holds the lock NAME.lock while it
// runs. What has a lock that nobody holds was left by a viewer that crashed or was killed.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_RECOVERY_FOLDER_H
#define ZAV_APPS_VIEWER_RECOVERY_FOLDER_H

#include <memory>
#include <string>
#include <vector>

#include <QString>
#include <QStringList>

#include "recovery_text.h"

class QLockFile;

namespace zav {

// Work that was left. While it exists no other viewer offers the same.
struct LeftWork {
  QString Path;
  std::shared_ptr<QLockFile> Lock;
  RecoveryText Work;
};

class RecoveryFolder {
 public:
  // The folder is made by the first write.
  explicit RecoveryFolder(const QString& Path);
  // Gives up the lock; files that were not removed count as left.
  ~RecoveryFolder();
  RecoveryFolder(const RecoveryFolder&) = delete;
  RecoveryFolder& operator=(const RecoveryFolder&) = delete;

  // Keeps this viewer's work of a kind in the place of what it kept before. The reason for people,
  // empty when done.
  QString write(const RecoveryHead& Head, const std::string& Body);
  void remove(RecoveryKind Kind);

  // What was left, the oldest first. Damaged files are put aside, under a name of their own in the
  // same folder; these names come back in Damaged.
  std::vector<LeftWork> takeLeft(QStringList& Damaged);
  static void discard(const LeftWork& Left);

 private:
  QString fileOf(RecoveryKind Kind) const;

  QString FPath;
  QString FName;  // of this viewer
  std::unique_ptr<QLockFile> FLock;
};

}  // namespace zav

#endif

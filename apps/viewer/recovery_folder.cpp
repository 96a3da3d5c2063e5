// recovery_folder.cpp - see recovery_folder.h.
// SPDX-License-Identifier: MIT
#include "recovery_folder.h"

#include <algorithm>
#include <map>
#include <utility>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QRandomGenerator>

#include <platform/base/atomic_file.h>
#include <platform/base/errors.h>
#include <platform/base/read_file.h>
#include <platform/qt/qt_convert.h>

namespace zav {

namespace {

struct Texts {
  Q_DECLARE_TR_FUNCTIONS(RecoveryFolder)
};

constexpr const char* Extension = ".zavwork";
constexpr const char* KindNames[] = {"-calibration", "-landmarks"};
constexpr int64_t MaxFile = 512 << 20;

QString LockOf(const QString& Folder, const QString& Name) {
  return QDir(Folder).filePath(Name + QStringLiteral(".lock"));
}

// Which viewer a file belongs to.
QString NameOf(const QString& FileName) {
  return FileName.left(FileName.lastIndexOf(QLatin1Char('-')));
}

std::unique_ptr<QLockFile> TakeLock(const QString& Path) {
  auto Lock = std::make_unique<QLockFile>(Path);
  // Only the death of its owner frees it, however long a session is.
  Lock->setStaleLockTime(0);
  if (!Lock->tryLock(0)) return nullptr;
  return Lock;
}

// Under a name that is no longer looked for.
QString PutAside(const QString& Path) {
  for (int Number = 1;; ++Number) {
    const QString Aside = QStringLiteral("%1.damaged%2").arg(Path).arg(Number);
    if (QFile::rename(Path, Aside)) return Aside;
    if (!QFileInfo::exists(Aside)) return Path;
  }
}

}  // namespace

RecoveryFolder::RecoveryFolder(const QString& Path)
    : FPath(Path),
      FName(QStringLiteral("%1_%2")
                .arg(QCoreApplication::applicationPid())
                .arg(QRandomGenerator::global()->generate(), 8, 16, QLatin1Char('0'))) {}

RecoveryFolder::~RecoveryFolder() = default;

QString RecoveryFolder::fileOf(RecoveryKind Kind) const {
  return QDir(FPath).filePath(FName + QLatin1String(KindNames[static_cast<size_t>(Kind)]) +
                              QLatin1String(Extension));
}

QString RecoveryFolder::write(const RecoveryHead& Head, const std::string& Body) {
  try {
    if (FLock == nullptr) {
      if (!QFileInfo(FPath).isDir() && QDir().mkpath(FPath))
        QFile::setPermissions(FPath, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
      FLock = TakeLock(LockOf(FPath, FName));
    }
    // Without a lock another viewer would take it for left work.
    if (FLock == nullptr)
      return Texts::tr("the folder \"%1\" cannot be written").arg(QDir::toNativeSeparators(FPath));
    WriteWholeFile(FromQString(fileOf(Head.Kind)), WriteRecovery(Head, Body));
    return {};
  } catch (const std::exception& Error) {
    return ToQString(Error.what());
  }
}

void RecoveryFolder::remove(RecoveryKind Kind) {
  if (FLock != nullptr) QFile::remove(fileOf(Kind));
}

std::vector<LeftWork> RecoveryFolder::takeLeft(QStringList& Damaged) {
  std::vector<LeftWork> Left;
  std::map<QString, std::shared_ptr<QLockFile>> Locks;
  const QDir Folder(FPath);
  for (const QString& File :
       Folder.entryList({QLatin1Char('*') + QLatin1String(Extension)}, QDir::Files)) {
    const QString Name = NameOf(File);
    if (Name == FName) continue;
    if (!Locks.contains(Name)) Locks[Name] = TakeLock(LockOf(FPath, Name));
    if (Locks[Name] == nullptr) continue;
    const QString Path = Folder.filePath(File);
    // Another viewer may have dealt with it a moment ago.
    if (!QFileInfo::exists(Path)) continue;
    std::optional<RecoveryText> Work;
    try {
      Work = ReadRecovery(ReadWholeTextFile(FromQString(Path), MaxFile));
    } catch (const EInOutError&) {  // as good as damaged
    }
    if (Work)
      Left.push_back({Path, Locks[Name], std::move(*Work)});
    else
      Damaged.append(PutAside(Path));
  }
  std::stable_sort(Left.begin(), Left.end(), [](const LeftWork& A, const LeftWork& B) {
    return A.Work.Head.Saved < B.Work.Head.Saved;
  });
  return Left;
}

void RecoveryFolder::discard(const LeftWork& Left) { QFile::remove(Left.Path); }

}  // namespace zav

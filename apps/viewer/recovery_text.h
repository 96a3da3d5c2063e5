// recovery_text.h - unsaved work as a text that outlives a crash.
//
// Lines of comma-separated fields: what work it is, the work itself, and a sum over both at the
// end, so that a text that is cut short or damaged is known as such. Only the viewer that wrote it,
// or a later one, reads it.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_RECOVERY_TEXT_H
#define ZAV_APPS_VIEWER_RECOVERY_TEXT_H

#include <optional>
#include <string>
#include <vector>

#include <QDateTime>
#include <QString>

namespace zav {

enum class RecoveryKind { Calibration, Landmarks };

// By which a file that was changed is known.
struct FileStamp {
  qint64 Size = -1;  // -1 = no file
  qint64 Time = -1;  // of its last change, milliseconds since 1970
  friend bool operator==(const FileStamp&, const FileStamp&) = default;
};
FileStamp StampOf(const QString& FileName);

struct RecoveryHead {
  RecoveryKind Kind = RecoveryKind::Calibration;
  QString Title;      // for people
  QString FileName;   // of the document, absolute; empty when it was never saved
  QString ImagePath;  // of a calibration's map
  QDateTime Saved;
  FileStamp Stamp;  // of FileName when the work began
};

struct RecoveryText {
  RecoveryHead Head;
  std::vector<std::vector<std::string>> Lines;  // of the work, by their fields
};

// Body: lines made with FieldLine.
std::string WriteRecovery(const RecoveryHead& Head, const std::string& Body);
// Nothing when the text is damaged, cut short or none of this kind.
std::optional<RecoveryText> ReadRecovery(const std::string& Text);

}  // namespace zav

#endif

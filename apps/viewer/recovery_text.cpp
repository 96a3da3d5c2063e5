// recovery_text.cpp - see recovery_text.h.
// SPDX-License-Identifier: MIT
#include "recovery_text.h"

#include <sstream>
#include <string_view>

#include <QCryptographicHash>
#include <QFileInfo>

#include <platform/base/errors.h>
#include <platform/qt/qt_convert.h>

#include "field_line.h"

namespace zav {

namespace {

constexpr std::string_view Signature = "zavgeo-viewer-recovery";
constexpr std::string_view Version = "1";
constexpr std::string_view KindNames[] = {"calibration", "landmarks"};
constexpr double MostMilliseconds = 1e15;

std::string SumOf(std::string_view Text) {
  const auto Bytes = QByteArray::fromRawData(Text.data(), static_cast<qsizetype>(Text.size()));
  return QCryptographicHash::hash(Bytes, QCryptographicHash::Sha1).toHex().toStdString();
}

std::string LastLine(std::string_view Before) { return (FieldLine("end") << SumOf(Before)).Take(); }

RecoveryHead ReadHead(const std::vector<std::string>& Line) {
  FieldReader Reader(Line);
  RecoveryHead Head;
  if (Line[0] == KindNames[1])
    Head.Kind = RecoveryKind::Landmarks;
  else if (Line[0] != KindNames[0])
    throw EFieldLine();
  Head.Title = ToQString(Reader.Text());
  Head.FileName = ToQString(Reader.Text());
  Head.ImagePath = ToQString(Reader.Text());
  Head.Saved = QDateTime::fromMSecsSinceEpoch(Reader.Whole(MostMilliseconds));
  Head.Stamp.Size = Reader.Whole(MostMilliseconds);
  Head.Stamp.Time = Reader.Whole(MostMilliseconds);
  return Head;
}

}  // namespace

FileStamp StampOf(const QString& FileName) {
  const QFileInfo Info(FileName);
  if (FileName.isEmpty() || !Info.exists()) return {};
  return {Info.size(), Info.lastModified().toMSecsSinceEpoch()};
}

std::string WriteRecovery(const RecoveryHead& Head, const std::string& Body) {
  std::string Text = (FieldLine(Signature) << Version).Take();
  Text += (FieldLine(KindNames[static_cast<size_t>(Head.Kind)])
           << FromQString(Head.Title) << FromQString(Head.FileName) << FromQString(Head.ImagePath))
              .whole(Head.Saved.toMSecsSinceEpoch())
              .whole(Head.Stamp.Size)
              .whole(Head.Stamp.Time)
              .Take();
  Text += Body;
  return Text + LastLine(Text);
}

std::optional<RecoveryText> ReadRecovery(const std::string& Text) {
  const size_t Length = LastLine({}).size();
  if (Text.size() < Length) return std::nullopt;
  const std::string_view Before(Text.data(), Text.size() - Length);
  if (LastLine(Before) != std::string_view(Text).substr(Before.size())) return std::nullopt;
  try {
    std::istringstream Input{std::string(Before)};
    TCsvReader Reader(Input, "");
    TCsvRecord Record;
    if (!Reader.Next(Record) || Record.Fields.size() < 2 || Record.Fields[0] != Signature ||
        Record.Fields[1] != Version || !Reader.Next(Record))
      return std::nullopt;
    RecoveryText Result{ReadHead(Record.Fields), {}};
    while (Reader.Next(Record)) Result.Lines.push_back(std::move(Record.Fields));
    return Result;
  } catch (const EFieldLine&) {
  } catch (const EInOutError&) {  // a quote that is not closed
  }
  return std::nullopt;
}

}  // namespace zav

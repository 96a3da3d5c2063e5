// calib_document_files.cpp - loading and saving of the calibration document.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <utility>

#include <QDir>
#include <QFileInfo>

#include <geomap/calibration/calib_file.h>
#include <platform/base/atomic_file.h>
#include <platform/base/file_ops.h>
#include <platform/base/paths.h>
#include <platform/base/read_file.h>
#include <platform/base/stream.h>
#include <platform/codec/image_file.h>
#include <platform/qt/qt_convert.h>

#include "calib_document.h"
#include "calib_document_private.h"
#include "calib_file_text.h"
#include "calib_side_file.h"
#include "common/relative_name.h"
#include "map_source.h"
#include "reason_text.h"

namespace zav {

namespace {

// No calibration and no side file comes near these.
constexpr int64_t MaxCalibrationFile = 256 << 20;
constexpr int64_t MaxSideFile = 16 << 20;

std::string Absolute(const QString& Path) {
  return FromQString(QDir::cleanPath(QFileInfo(Path).absoluteFilePath()));
}

// The text of a file; empty when there is none. Throws EInOutError when it cannot be read.
std::string TextIfAny(const std::string& File, int64_t MaxSize) {
  if (!FileExists(File)) return {};
  return ReadWholeTextFile(File, MaxSize);
}

QString SideFileProblem(const EInOutError& Error) {
  return CalibDocument::tr("The file with the points' names cannot be read: %1.")
      .arg(ReasonText(Error.Reason()));
}

// The side file's text; Problem tells when it is there and cannot be read.
std::string SideTextOf(const std::string& CalibrationFile, QStringList& Notes) {
  try {
    return TextIfAny(SideFileName(CalibrationFile), MaxSideFile);
  } catch (const EInOutError& Error) {
    Notes.append(SideFileProblem(Error));
  }
  return {};
}

void FindImage(const std::string& File, CalibState& State, QStringList& Notes) {
  const std::string Path =
      State.ImageName.empty() ? std::string() : ResolveFile(State.ImageName, File);
  if (Path.empty()) {
    Notes.append(CalibDocument::tr("The map's image is missing."));
    return;
  }
  State.ImagePath = QFileInfo(ToQString(Path)).absoluteFilePath();
  try {
    const TSize Size = ReadImageSize(Path, ImageKindOfName(Path));
    State.ImageSize = {Size.Width, Size.Height};
  } catch (const std::exception& Error) {
    Notes.append(LoadProblem(State.ImagePath, ReasonText(Error.what())));
  }
}

// The file's text with the element in the place of the one with the id, or the element alone when
// there is none.
std::string WithElement(const std::string& Text, const std::string& Id, std::string Element) {
  const auto Elements = FindCalibElements(Text);
  const CalibElement* Old = FindCalibElement(Elements, Id);
  if (Old == nullptr) return Element;
  const std::string_view Header = "<?xml version=\"1.0\"?>\r\n";
  std::string Start = Text.substr(0, Old->Begin);
  // The element's own header is at its place only where the file begins with it.
  if (Start.empty() && Elements.size() == 1 && Old->End >= Text.size()) return Element;
  Element.erase(0, Header.size());
  return std::move(Start) + Element + Text.substr(Old->End);
}

void WriteSideFile(const std::string& Target, bool KeepRest, const std::string& Id,
                   const CalibState& State) {
  const std::string File = SideFileName(Target);
  const bool Exists = FileExists(File);
  const std::string Old = Exists ? ReadWholeTextFile(File, MaxSideFile) : std::string();
  bool Damaged = false;
  const std::string New = UpdatedSideText(KeepRest ? Old : std::string(), Id, State, Damaged);
  if (Damaged) WriteWholeFile(File + ".bak", Old);
  if (New == Old) return;
  if (!New.empty()) return WriteWholeFile(File, New);
  if (const int Error = FileOps().Remove(File)) throw EInOutError(File, SystemReason(Error));
}

}  // namespace

// --- opening -------------------------------------------------------------------------------------

void CalibDocument::clear() {
  F->Notes.clear();
  F->Restart({}, {}, {});
}

QString CalibDocument::newFromImage(const QString& ImagePath) {
  const MapSource Source = InspectMap(ImagePath);
  if (Source.Kind != MapSourceKind::Image || Source.ImageSize.isEmpty())
    return Source.Problem.isEmpty() ? tr("\"%1\" is no image.").arg(ImagePath) : Source.Problem;
  CalibState State;
  State.ImagePath = Source.Path;
  State.ImageSize = Source.ImageSize;
  State.ImageName = FromQString(QFileInfo(Source.Path).fileName());
  State.Model = TCalibModel::cmEquiRect;  // needs the fewest points
  F->Notes.clear();
  F->Restart(std::move(State), {}, {});
  return {};
}

QString CalibDocument::load(const QString& FileName, const QString& Id) {
  const std::string File = Absolute(FileName);
  const QString Shown = QDir::toNativeSeparators(ToQString(File));
  CalibState State;
  QStringList Notes;
  std::string FoundId;
  try {
    const std::string Text = ReadWholeTextFile(File, MaxCalibrationFile);
    const auto Elements = FindCalibElements(Text);
    TMemoryStream Stream;
    Stream.Write(Text.data(), Text.size());
    Stream.SetPosition(0);
    TCalibData Data;
    TCalibModel Model = TCalibModel::cmUndefined;
    const CalibElement* Element = FindCalibElement(Elements, FromQString(Id));
    if (Element == nullptr || !ParseCalibData(Stream, FromQString(Id), Data, Model))
      return Id.isEmpty() ? tr("\"%1\" holds no calibration.").arg(Shown)
                          : tr("\"%1\" holds no calibration \"%2\".").arg(Shown, Id);
    FoundId = Element->Id;
    SideMerge Merge = MergeSideText(SideTextOf(File, Notes), FoundId, Data, Model);
    State.Caption = Element->Caption;
    State.ImageName = Element->Map;
    State.Corners = Data.Corners;
    State.Resolution = Data.Resolution;
    State.Model = Merge.Model;
    State.Grid = Merge.Grid;
    for (CalibItem& Item : Merge.Items) State.Items.push_back(F->NewItem(std::move(Item)));
    Notes += Merge.Notes;
    // A side file cannot make more points than a map may have.
    if (!LimitProblem(State.Items).isEmpty())
      std::erase_if(State.Items, [](const CalibItemPtr& Each) { return !Each->Enabled; });
  } catch (const EInOutError& Error) {
    return LoadProblem(ToQString(File), ReasonText(Error.Reason()));
  } catch (const std::exception& Error) {
    return LoadProblem(ToQString(File), ReasonText(Error.what()));
  }
  FindImage(File, State, Notes);
  F->Notes = Notes;
  F->Restart(std::move(State), ToQString(File), FoundId);
  return {};
}

QStringList CalibDocument::loadNotes() const { return F->Notes; }
QString CalibDocument::fileName() const { return F->FileName; }
QString CalibDocument::calibId() const { return ToQString(F->Id); }

QStringList CalibDocument::idsIn(const QString& FileName) {
  QStringList Ids;
  try {
    for (const CalibElement& Each :
         FindCalibElements(ReadWholeTextFile(Absolute(FileName), MaxCalibrationFile)))
      Ids.append(ToQString(Each.Id));
  } catch (const EInOutError&) {  // load tells
  }
  return Ids;
}

// --- saving --------------------------------------------------------------------------------------

QString CalibDocument::suggestedFileName() const {
  if (!F->FileName.isEmpty()) return F->FileName;
  if (F->State->ImagePath.isEmpty()) return {};
  const QFileInfo Image(F->State->ImagePath);
  return Image.dir().absoluteFilePath(Image.completeBaseName() + QStringLiteral(".xml"));
}

void CalibDocument::Private::Write(const std::string& Target, bool KeepRest) const {
  CalibState Named = *State;
  if (!Named.ImagePath.isEmpty())
    Named.ImageName = NameFromFolderOf(Target, FromQString(Named.ImagePath));
  // Corners and resolution are those of the fit.
  TCalibData Data = Fit().Calibration.Data();
  Data.MapFName = Named.ImageName;
  TMemoryStream Stream;
  WriteCalDataToStream(Stream, Id, Data, State->Model, "");
  std::string Element(reinterpret_cast<const char*>(Stream.Memory()), Stream.Size());
  if (KeepRest)
    Element = WithElement(TextIfAny(Target, MaxCalibrationFile), Id, std::move(Element));
  WriteWholeFile(Target, Element);
  WriteSideFile(Target, KeepRest, Id, Named);
}

QString CalibDocument::Private::SaveAs(const QString& Target) {
  Document->endMerge();
  const std::string File = Absolute(Target);
  const auto Refused = [&](const QString& Reason) {
    return tr("\"%1\" cannot be saved: %2.").arg(QDir::toNativeSeparators(ToQString(File)), Reason);
  };
  try {
    Write(File, ToQString(File) == FileName);
  } catch (const EInOutError& Error) {
    return Refused(ReasonText(Error.Reason()));
  } catch (const std::exception& Error) {
    return Refused(ReasonText(Error.what()));
  }
  FileName = ToQString(File);
  Clean = State;
  Q_EMIT Document->changed();
  return {};
}

QString CalibDocument::save() {
  const QString Target = suggestedFileName();
  if (Target.isEmpty()) return tr("There is no map to save.");
  return F->SaveAs(Target);
}

QString CalibDocument::saveAs(const QString& FileName) { return F->SaveAs(FileName); }

}  // namespace zav

// landmark_document_files.cpp - landmarks in files and tables.
// SPDX-License-Identifier: MIT
#include <new>
#include <utility>

#include <QDir>
#include <QFileInfo>

#include <geomap/errors.h>
#include <geomap/landmarks/landmark_file.h>
#include <platform/base/read_file.h>
#include <platform/qt/qt_convert.h>

#include "common/landmark_files.h"
#include "landmark_document.h"
#include "reason_text.h"

namespace zav {

namespace {

// Why a file cannot take a set of landmarks; empty when it can.
QString TargetProblem(const QString& Path) {
  if (!QFileInfo::exists(Path)) return {};
  const std::string Text = ReadWholeTextFile(FromQString(Path));
  if (Text.empty() || InspectLandMarks(Text).IsOneSet()) return {};
  return LandmarkDocument::tr(
             "The file \"%1\" holds other things than one set of landmarks, which would be lost. "
             "Choose another name.")
      .arg(QDir::toNativeSeparators(Path));
}

QString FileProblem(const EInOutError& Error) {
  return LandmarkDocument::tr("The file \"%1\": %2.")
      .arg(QDir::toNativeSeparators(ToQString(Error.Path())), ReasonText(Error.Reason()));
}

// Runs what may throw; the reason when it does.
template <typename TOperation>
QString Reason(TOperation Operation) {
  try {
    return Operation();
  } catch (const EInOutError& Error) {
    return FileProblem(Error);
  } catch (const std::bad_alloc&) {
    return LandmarkDocument::tr("There is not enough memory for so many landmarks.");
  } catch (const std::exception& Error) {
    return ReasonText(Error.what());
  }
}

}  // namespace

void LandmarkDocument::clear() {
  FList.Clear();
  FHistory.restart();
  FFileName.clear();
  FId.clear();
  FOwnFile = true;
  finish(0);
}

QString LandmarkDocument::load(const QString& FileName) {
  return Reason([&] {
    TLandMarkFile File = LoadLandMarkFile(FromQString(FileName), "");
    FList = std::move(File.List);
    FHistory.restart();
    FFileName = QFileInfo(FileName).absoluteFilePath();
    FId = File.Parts.Ids.empty() ? std::string() : File.Parts.Ids.front();
    FOwnFile = File.Parts.IsOneSet();
    finish(0);
    return QString();
  });
}

QString LandmarkDocument::saveAs(const QString& FileName) {
  return Reason([&] {
    const QString Path = QFileInfo(FileName).absoluteFilePath();
    QString Problem = TargetProblem(Path);
    if (!Problem.isEmpty()) return Problem;
    FHistory.endMerge();
    SaveLandMarks(FromQString(Path), FId, FList, "");
    FHistory.setClean();
    FFileName = Path;
    FOwnFile = true;
    finish(FTouched);
    return QString();
  });
}

int LandmarkDocument::shapesNotStored() const {
  int Count = 0;
  for (int Index = 1; Index <= count(); ++Index) {
    const TLandMarkElement Kind = FList[Index].SymbolProps.Kind;
    if (Kind == TLandMarkElement::lmPlus || Kind == TLandMarkElement::lmUserDef) ++Count;
  }
  return Count;
}

QString LandmarkDocument::importTable(const QString& FileName, const TLandMarkSources& Sources,
                                      const TLandMark& Template, Imported& Result) {
  return Reason([&] {
    TTable Table(FromQString(FileName));
    TLandMarkList New = FList;
    Result = {};
    Result.Count = ImportLandMarks(Table, Sources, Template, New, [&](const TImportProblem& Each) {
      if (++Result.ProblemCount <= MostProblems) Result.Problems << ReasonText(Each.Text);
      return true;
    });
    if (Result.Count > 0)
      pushList(tr("Import %n landmark(s)", nullptr, Result.Count), std::move(New));
    return QString();
  });
}

}  // namespace zav

// landmark_document_recovery.cpp - the landmark document's unsaved work through a crash.
//
// Unlike files of landmarks this keeps every landmark exactly as it is.
// SPDX-License-Identifier: MIT
#include <new>
#include <string_view>
#include <utility>

#include <QByteArray>
#include <QFileInfo>

#include "field_line.h"
#include "landmark_document.h"

namespace zav {

namespace {

constexpr double Most32 = 2147483647;
constexpr double Most8 = 255;

// Tables read back all line ends as one kind; these are to come back to the byte.
std::string Packed(std::string_view Text) {
  return QByteArray(Text.data(), static_cast<qsizetype>(Text.size()))
      .toPercentEncoding(" ,;:()/")
      .toStdString();
}
std::string Unpacked(const std::string& Text) {
  return QByteArray::fromPercentEncoding(QByteArray::fromStdString(Text)).toStdString();
}

std::string LandmarkLine(const TLandMark& L) {
  FieldLine Line("landmark");
  const TSymbolProperties& S = L.SymbolProps;
  const TLMTextProperties& C = L.Caption;
  Line << L.Latitude << L.Longitude << L.Altitude;
  Line.whole(L.ClassFlag).whole(L.Tag);
  Line.whole(static_cast<int64_t>(S.Kind)).whole(S.Size).whole(S.FGColor).whole(S.BGColor);
  Line.whole(S.Transparent ? 1 : 0).whole(S.Direction).whole(S.Length);
  Line << Packed(C.Text.View());
  Line.whole(C.Size) << Packed(C.FontName);
  Line.whole(C.FontStyles).whole(C.FGColor).whole(C.BGColor).whole(C.Transparent ? 1 : 0);
  Line.whole(C.dx).whole(C.dy).whole(C.Direction);
  Line.whole(static_cast<int64_t>(C.HAlignment)).whole(static_cast<int64_t>(C.VAlignment));
  Line << Packed(L.Identifier.View()) << L.Time;
  return Line.Take();
}

class LandmarkReader : public FieldReader {
 public:
  using FieldReader::FieldReader;

  template <typename TWhole>
  void Take(TWhole& Value, double Most) {
    const int64_t Read = Whole(Most);
    Value = static_cast<TWhole>(Read);
    if (static_cast<int64_t>(Value) != Read) throw EFieldLine();
  }
  template <typename TEnum>
  void TakeEnum(TEnum& Value, TEnum Last) {
    uint8_t Number = 0;
    Take(Number, static_cast<double>(Last));
    Value = static_cast<TEnum>(Number);
  }
};

TLandMark ReadLandmark(const std::vector<std::string>& Fields) {
  if (Fields.front() != "landmark") throw EFieldLine();
  LandmarkReader Reader(Fields);
  TLandMark L;
  TSymbolProperties& S = L.SymbolProps;
  TLMTextProperties& C = L.Caption;
  for (double* Each : {&L.Latitude, &L.Longitude, &L.Altitude}) *Each = Reader.Number(1e300);
  Reader.Take(L.ClassFlag, Most8);
  Reader.Take(L.Tag, Most32 + 1);
  Reader.TakeEnum(S.Kind, TLandMarkElement::lmUserDef);
  Reader.Take(S.Size, Most32 + 1);
  Reader.Take(S.FGColor, 2 * Most32 + 1);
  Reader.Take(S.BGColor, 2 * Most32 + 1);
  Reader.Take(S.Transparent, 1);
  Reader.Take(S.Direction, Most32 + 1);
  Reader.Take(S.Length, Most32 + 1);
  C.Text = Unpacked(Reader.Text());
  Reader.Take(C.Size, Most32 + 1);
  C.FontName = Unpacked(Reader.Text());
  Reader.Take(C.FontStyles, Most8);
  Reader.Take(C.FGColor, 2 * Most32 + 1);
  Reader.Take(C.BGColor, 2 * Most32 + 1);
  Reader.Take(C.Transparent, 1);
  for (int32_t* Each : {&C.dx, &C.dy, &C.Direction}) Reader.Take(*Each, Most32 + 1);
  Reader.TakeEnum(C.HAlignment, THorizontalAlignment::haCenter);
  Reader.TakeEnum(C.VAlignment, TVerticalAlignment::vaBottom);
  L.Identifier = Unpacked(Reader.Text());
  L.Time = Reader.Number(1e300);
  return L;
}

}  // namespace

std::string LandmarkDocument::recoveryText() const {
  std::string Text;
  for (int Index = 1; Index <= count(); ++Index) Text += LandmarkLine(FList[Index]);
  return Text;
}

QString LandmarkDocument::recover(const QString& FileName,
                                  const std::vector<std::vector<std::string>>& Lines) {
  TLandMarkList New;
  try {
    for (const auto& Each : Lines) New.Append(ReadLandmark(Each));
  } catch (const EFieldLine&) {
    return tr("The unsaved work cannot be read.");
  } catch (const std::bad_alloc&) {
    return tr("There is not enough memory for so many landmarks.");
  }
  // What cannot be read any more is begun anew, under its name.
  if (FileName.isEmpty() || !QFileInfo::exists(FileName) || !load(FileName).isEmpty()) clear();
  pushList(tr("Recover unsaved work"), std::move(New));
  return {};
}

}  // namespace zav

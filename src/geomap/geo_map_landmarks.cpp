// geo_map_landmarks.cpp - the control's landmarks: each operation and its consequence.
// SPDX-License-Identifier: MIT
#include <geomap/geo_map.h>

#include <new>
#include <utility>

#include <geomap/landmarks/landmark_file.h>
#include <geomap/landmarks/record_attributes.h>

namespace zav {
namespace {

constexpr int32_t MinRandSampleLimit = 1001;

}  // namespace

// --- adding and changing -------------------------------------------------------------------------

// OnLandMarkAction as a question. It refuses everything once the control is gone.
TLandMarkStore::TQuestion TGeoMap::LandMarkQuestion() {
  if (!OnLandMarkAction) return {};
  return [this, Alive = Life()](TLandMarkAction Action, const TLandMark& LandMark) {
    if (Alive.expired()) return false;
    bool Allowed = true;
    if (const TLandMarkActionEvent Handler = OnLandMarkAction) {
      Handler(this, Allowed, Action, LandMark);
    }
    return Allowed && !Alive.expired();
  };
}

// Runs what takes memory and calls no handler.
template <typename TOperation>
auto TGeoMap::WithMemory(TOperation Operation) const {
  try {
    return Operation();
  } catch (const std::bad_alloc&) {
    throw EZAVGeoMapError(ComponentMessage("insufficient memory"));
  }
}

void TGeoMap::AddLandMark(const TLandMark& LandMark) {
  // Asked here and not by the store, which may be another one, or gone, afterwards.
  if (OnLandMarkAction && !LandMarkQuestion()(TLandMarkAction::lmaAdd, LandMark)) return;
  WithMemory([&] { FLandMarks->Add(LandMark, nullptr); });
  Paint();
}

void TGeoMap::AddLandMark(double Lat, double Long, double Altitude) {
  TLandMark LandMark = LandMarkDefault();
  LandMark.Latitude = Lat;
  LandMark.Longitude = Long;
  LandMark.Altitude = Altitude;
  AddLandMark(LandMark);
}

void TGeoMap::AddLandMark(double Lat, double Long, double Altitude, const TLMIdentifier& Identifier,
                          TDateTime Time) {
  TLandMark LandMark = LandMarkDefault();
  LandMark.Latitude = Lat;
  LandMark.Longitude = Long;
  LandMark.Altitude = Altitude;
  LandMark.Identifier = Identifier;
  LandMark.Time = Time;
  AddLandMark(LandMark);
}

void TGeoMap::AddLandMark(double Lat, double Long, double Altitude, const std::string& CaptionText,
                          int32_t CaptionSize, TColor CaptionColor) {
  AddLandMark(Lat, Long, Altitude, LandMarkDefault().Identifier, LandMarkDefault().Time,
              CaptionText, CaptionSize, CaptionColor);
}

void TGeoMap::AddLandMark(double Lat, double Long, double Altitude, const TLMIdentifier& Identifier,
                          TDateTime Time, const std::string& CaptionText, int32_t CaptionSize,
                          TColor CaptionColor) {
  TLandMark LandMark = LandMarkDefault();
  LandMark.Latitude = Lat;
  LandMark.Longitude = Long;
  LandMark.Altitude = Altitude;
  LandMark.Identifier = Identifier;
  LandMark.Time = Time;
  LandMark.Caption.Text = CaptionText;
  LandMark.Caption.Size = CaptionSize;
  LandMark.Caption.FGColor = CaptionColor;
  AddLandMark(LandMark);
}

void TGeoMap::AddLandMark(double Lat, double Long, double Altitude, TLandMarkElement Element,
                          uint8_t ClassFlag, const TLMIdentifier& Identifier, TDateTime Time,
                          int32_t Tag, TColor ColorFG, TColor ColorBG, int32_t Size,
                          bool Transparent, int32_t Direction, int32_t Length) {
  TLandMark LandMark = LandMarkDefault();
  LandMark.Latitude = Lat;
  LandMark.Longitude = Long;
  LandMark.Altitude = Altitude;
  LandMark.ClassFlag = ClassFlag;
  LandMark.Tag = Tag;
  LandMark.SymbolProps = {Element, Size, ColorFG, ColorBG, Transparent, Direction, Length};
  LandMark.Identifier = Identifier;
  LandMark.Time = Time;
  AddLandMark(LandMark);
}

void TGeoMap::SetLandMarkData(int32_t Index, const TLandMark& LandMark) {
  if (WithMemory([&] { return FLandMarks->Replace(Index, LandMark); })) Paint();
}

void TGeoMap::SetLandMarks(const TLandMarkList& List) {
  FLandMarks->SetList(WithMemory([&] { return List; }));
  Paint();
}

int32_t TGeoMap::FindLandMark(double Lat, double Long, int32_t ClassFlag) const noexcept {
  return FLandMarks->Find(Lat, Long, ClassFlag);
}

// --- removing ------------------------------------------------------------------------------------

// Operation(Store, Question) does it; what it returns is returned.
template <typename TOperation>
int32_t TGeoMap::RemoveLandMarks(TOperation Operation) {
  if (NumLandMarks() == 0) return 0;
  const auto Alive = Life();
  const auto Store = FLandMarks;
  int32_t Result = 0;
  try {
    Result = Operation(*Store, LandMarkQuestion());
  } catch (const std::bad_alloc&) {
    if (Alive.expired()) throw;
    throw EZAVGeoMapError(ComponentMessage("insufficient memory"));
  }
  if (!Alive.expired()) Paint();
  return Result;
}

int32_t TGeoMap::RemoveLandMark(int32_t LmIndex) {
  return RemoveLandMarks([&](TLandMarkStore& Store, const TLandMarkStore::TQuestion& May) {
    return Store.Remove(LmIndex, May);
  });
}

int32_t TGeoMap::RemoveLandMark(double Lat, double Long, int32_t ClassFlag) {
  RemoveLandMark(FindLandMark(Lat, Long, ClassFlag));
  return 0;
}

int32_t TGeoMap::RemoveLandMark(double Lat, double Long, int32_t ClassFlag, double Radius) {
  return RemoveLandMarks([&](TLandMarkStore& Store, const TLandMarkStore::TQuestion& May) {
    return Store.RemoveNear(Lat, Long, ClassFlag, Radius, May);
  });
}

int32_t TGeoMap::RemoveLandMark(const TRectDouble& Rect, int32_t ClassFlag) {
  return RemoveLandMarks([&](TLandMarkStore& Store, const TLandMarkStore::TQuestion& May) {
    return Store.RemoveInside(Rect, ClassFlag, May);
  });
}

void TGeoMap::RemoveLastLandMark() {
  if (NumLandMarks() == 0) return Paint();
  RemoveLandMark(NumLandMarks());
}

void TGeoMap::RemoveAllLandMarks() {
  FLandMarks->Clear();
  Paint();
}

void TGeoMap::RemoveAllLandMarks(uint8_t ClassFlag) {
  RemoveLandMarks([&](TLandMarkStore& Store, const TLandMarkStore::TQuestion& May) {
    return Store.RemoveClass(ClassFlag, May);
  });
}

// --- files ---------------------------------------------------------------------------------------

bool TGeoMap::ReadLandMarksFromOpenXMLFile(TextFile& F, const std::string& DataID) {
  TLandMarkList List;
  if (!WithMemory([&] { return ReadLandMarks(F, DataID, List); })) return false;
  FLandMarks->SetList(std::move(List));
  return true;
}

bool TGeoMap::LoadLandMarks(const std::string& FileName, const std::string& DataID) {
  TextFile F;
  if (!OpenRecordFile(F, FileName)) return false;
  const bool Found = ReadLandMarksFromOpenXMLFile(F, DataID);
  F.Close();
  Paint();
  return Found;
}

void TGeoMap::WriteLandMarksToOpenXMLFile(TextFile& F, const std::string& DataID) const {
  WriteLandMarks(F, DataID, LandMarks(), ComponentMessage(""));
}

void TGeoMap::SaveLandmarks(const std::string& FileName, const std::string& DataID) const {
  SaveLandMarks(FileName, DataID, LandMarks(), ComponentMessage(""));
}

// --- look and drawing ----------------------------------------------------------------------------

void TGeoMap::SetClassVisibility(uint8_t ClassFlag, bool Visible) {
  Store(FLandMarks->ClassVisible[ClassFlag], Visible);
}

void TGeoMap::SetRandSampleLimit(int32_t Value) {
  if (Value >= MinRandSampleLimit) StoreIfDifferent(FLMRandSampleLimit, Value);
}

void TGeoMap::SetHighLM(int32_t Index) {
  if (FLandMarks->SetHighLight(Index)) Paint();
}

void TGeoMap::SetHighLightProperties(TColor ColorFG, TColor ColorBG, bool Transparent) {
  FHighLMColFG = ColorFG;
  FHighLMColBG = ColorBG;
  FHighLMTrans = Transparent;
  Paint();
}

// Each picture leaves out other landmarks.
TLandMarkLayer TGeoMap::LandMarkLayer() {
  return {LandMarks(),
          FLandMarks->ClassVisible,
          {HighLightLandMark(), FHighLMColFG, FHighLMColBG, FHighLMTrans},
          FLMRandSampleLimit,
          FThinning.Next()};
}

TDrawLandMarkHook TGeoMap::DrawLandMarkHook() {
  if (!OnDrawLandmark) return {};
  return [this, Alive = Life()](TCanvas& Canvas, TPoint Position, const TLandMark& LandMark) {
    bool Handled = false;
    if (const TDrawLandMarkEvent Handler = OnDrawLandmark) {
      Handler(this, Handled, Canvas, Position, LandMark);
    }
    if (Alive.expired()) return TDrawAnswer::daGone;
    return Handled ? TDrawAnswer::daHandled : TDrawAnswer::daDraw;
  };
}

}  // namespace zav

// map_register.cpp - see map_register.h.
// SPDX-License-Identifier: MIT
#include <geoatlas/map_register.h>

#include <geomap/calibration/calib_file.h>
#include <geomap/calibration/calibration.h>
#include <platform/base/errors.h>
#include <platform/base/paths.h>
#include <platform/base/text.h>

namespace zav {

TCalibData ReadMapCalibration(const std::string& MapFName) {
  TCalibData Data;
  TCalibModel Model = TCalibModel::cmUndefined;
  if (ResolveFile(MapFName).empty()) throw EInOutError(MapFName, "no such file");
  if (!ParseCalibData(MapFName, "", Data, Model))
    throw EInOutError(MapFName, "holds no map calibration");
  return Data;
}

bool TMapRegister::Refuse(const std::string& Why) {
  FProblem = Why;
  return false;
}

bool TMapRegister::Register(const std::string& MapFName) {
  TCalibData Data;
  try {
    Data = ReadMapCalibration(MapFName);
  } catch (const EZAVError& Error) {
    return Refuse(Error.what());
  }
  FProblem.clear();
  int32_t Index = Find(MapFName);
  if (Index == 0) {
    if (FCount == Capacity)
      return Refuse("An atlas holds " + std::to_string(Capacity) + " maps at most");
    Index = ++FCount;
    if (FSlots.size() < static_cast<size_t>(FCount)) FSlots.emplace_back();
  }
  FSlots[static_cast<size_t>(Index - 1)] = {
      {LowerCase(MapFName), Data.Caption, Data.Resolution, Data.Corners}, MapFName};
  return true;
}

bool TMapRegister::Unregister(int32_t Index) {
  if (Index < 1 || Index > FCount) return false;
  for (auto i = static_cast<size_t>(Index); i < static_cast<size_t>(FCount); ++i)
    FSlots[i - 1] = FSlots[i];
  --FCount;
  return true;
}

const TMapDefinition* TMapRegister::MapAt(int32_t Index) const {
  if (Index < 1 || static_cast<size_t>(Index) > FSlots.size()) return nullptr;
  return &FSlots[static_cast<size_t>(Index - 1)].Map;
}

TMapDefinition TMapRegister::Definition(int32_t Index) const {
  const TMapDefinition* const Map = MapAt(Index);
  return Map != nullptr ? *Map : TMapDefinition();
}

std::string TMapRegister::Path(int32_t Index) const {
  return Index >= 1 && Index <= FCount ? FSlots[static_cast<size_t>(Index - 1)].Path
                                       : std::string();
}

std::string TMapRegister::Title(int32_t Index) const {
  const TMapDefinition Map = Definition(Index);
  return Map.Caption.empty() ? Map.MapFName : Map.Caption;
}

int32_t TMapRegister::Find(const std::string& MapFName) const {
  const std::string Name = LowerCase(MapFName);
  for (int32_t i = 1; i <= FCount; ++i)
    if (MapAt(i)->MapFName == Name) return i;
  return 0;
}

int32_t TMapRegister::Finer(double Lat, double Long, double Resolution, double MinResDiff) const {
  int32_t Best = 0;
  double BestResolution = 0;
  for (int32_t i = 1; i <= FCount; ++i) {
    const TMapDefinition& Map = *MapAt(i);
    if ((Resolution - Map.Resolution) / Resolution > MinResDiff / 100 &&
        Map.Resolution > BestResolution && PositionInMap(Lat, Long, Map.Corners)) {
      Best = i;
      BestResolution = Map.Resolution;
    }
  }
  return Best;
}

int32_t TMapRegister::Coarser(double Lat, double Long, double Resolution) const {
  int32_t Best = 0;
  double BestResolution = 1e10;
  for (int32_t i = 1; i <= FCount; ++i) {
    const TMapDefinition& Map = *MapAt(i);
    if (Map.Resolution > Resolution && Map.Resolution < BestResolution &&
        PositionInMap(Lat, Long, Map.Corners)) {
      Best = i;
      BestResolution = Map.Resolution;
    }
  }
  return Best;
}

}  // namespace zav

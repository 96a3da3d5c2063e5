// geo_db_typed.cpp - see geo_db.h. Adding and replacing items of one kind.
// SPDX-License-Identifier: MIT
#include <geodb/geo_db.h>

namespace zav {
namespace {

const TMetaInfo NoMetaInfo;
const TgdbPolygon NoPoints;

}  // namespace

int32_t TGeoDB::AddBorder(const TgdbName& Name, const TgdbPolygon& Polygon, bool Closed,
                          TDateTime Date, int32_t StateFlag, float LatLow, float LatHigh,
                          float LongLow, float LongHigh, float Altitude, uint8_t ClassFlag,
                          int32_t Tag) {
  return AddData(Name, Polygon, Closed, TgdbItem::gitBorder, ClassFlag, Date, StateFlag, LatLow,
                 LatHigh, LongLow, LongHigh, Altitude, Tag, NoMetaInfo, nullptr, 0, false);
}

int32_t TGeoDB::AddCity(const TgdbName& Name, const TgdbPolygon& Polygon, bool Closed,
                        TDateTime Date, int32_t StateFlag, float LatLow, float LatHigh,
                        float LongLow, float LongHigh, float Altitude, uint8_t ClassFlag,
                        int32_t Tag) {
  return AddData(Name, Polygon, Closed, TgdbItem::gitCity, ClassFlag, Date, StateFlag, LatLow,
                 LatHigh, LongLow, LongHigh, Altitude, Tag, NoMetaInfo, nullptr, 0, false);
}

int32_t TGeoDB::AddLake(const TgdbName& Name, const TgdbPolygon& Polygon, TDateTime Date,
                        int32_t StateFlag, float LatLow, float LatHigh, float LongLow,
                        float LongHigh, float Altitude, uint8_t ClassFlag, int32_t Tag) {
  return AddData(Name, Polygon, true, TgdbItem::gitLake, ClassFlag, Date, StateFlag, LatLow,
                 LatHigh, LongLow, LongHigh, Altitude, Tag, NoMetaInfo, nullptr, 0, false);
}

int32_t TGeoDB::AddRiver(const TgdbName& Name, const TgdbPolygon& Polygon, TDateTime Date,
                         int32_t StateFlag, float LatLow, float LatHigh, float LongLow,
                         float LongHigh, float Altitude, uint8_t ClassFlag, int32_t Tag) {
  return AddData(Name, Polygon, false, TgdbItem::gitRiver, ClassFlag, Date, StateFlag, LatLow,
                 LatHigh, LongLow, LongHigh, Altitude, Tag, NoMetaInfo, nullptr, 0, false);
}

int32_t TGeoDB::AddRoad(const TgdbName& Name, const TgdbPolygon& Polygon, TDateTime Date,
                        int32_t StateFlag, float LatLow, float LatHigh, float LongLow,
                        float LongHigh, float Altitude, uint8_t ClassFlag, int32_t Tag) {
  return AddData(Name, Polygon, false, TgdbItem::gitRoad, ClassFlag, Date, StateFlag, LatLow,
                 LatHigh, LongLow, LongHigh, Altitude, Tag, NoMetaInfo, nullptr, 0, false);
}

int32_t TGeoDB::AddRoute(const TgdbName& Name, const TgdbPolygon& Polygon, TDateTime Date,
                         int32_t StateFlag, float LatLow, float LatHigh, float LongLow,
                         float LongHigh, float Altitude, uint8_t ClassFlag, int32_t Tag) {
  return AddData(Name, Polygon, false, TgdbItem::gitRoute, ClassFlag, Date, StateFlag, LatLow,
                 LatHigh, LongLow, LongHigh, Altitude, Tag, NoMetaInfo, nullptr, 0, false);
}

int32_t TGeoDB::AddTown(const TgdbName& Name, TDateTime Date, int32_t StateFlag,
                        const TSCoords& Position, float Altitude, uint8_t ClassFlag, int32_t Tag) {
  return AddData(Name, NoPoints, false, TgdbItem::gitTown, ClassFlag, Date, StateFlag,
                 Position.Latit, Position.Latit, Position.Longit, Position.Longit, Altitude, Tag,
                 NoMetaInfo, nullptr, 0, false);
}

void TGeoDB::ReplaceBorder(int32_t RecNo, const TgdbName& Name, const TgdbPolygon& Polygon,
                           bool Closed, TDateTime Date, int32_t StateFlag, float LatLow,
                           float LatHigh, float LongLow, float LongHigh, float Altitude,
                           uint8_t ClassFlag, int32_t Tag) {
  ReplaceData(RecNo, Name, Polygon, Closed, TgdbItem::gitBorder, ClassFlag, Date, StateFlag, LatLow,
              LatHigh, LongLow, LongHigh, Altitude, Tag, NoMetaInfo, nullptr, 0, false);
}

void TGeoDB::ReplaceCity(int32_t RecNo, const TgdbName& Name, const TgdbPolygon& Polygon,
                         bool Closed, TDateTime Date, int32_t StateFlag, float LatLow,
                         float LatHigh, float LongLow, float LongHigh, float Altitude,
                         uint8_t ClassFlag, int32_t Tag) {
  ReplaceData(RecNo, Name, Polygon, Closed, TgdbItem::gitCity, ClassFlag, Date, StateFlag, LatLow,
              LatHigh, LongLow, LongHigh, Altitude, Tag, NoMetaInfo, nullptr, 0, false);
}

void TGeoDB::ReplaceLake(int32_t RecNo, const TgdbName& Name, const TgdbPolygon& Polygon,
                         TDateTime Date, int32_t StateFlag, float LatLow, float LatHigh,
                         float LongLow, float LongHigh, float Altitude, uint8_t ClassFlag,
                         int32_t Tag) {
  ReplaceData(RecNo, Name, Polygon, true, TgdbItem::gitLake, ClassFlag, Date, StateFlag, LatLow,
              LatHigh, LongLow, LongHigh, Altitude, Tag, NoMetaInfo, nullptr, 0, false);
}

void TGeoDB::ReplaceRiver(int32_t RecNo, const TgdbName& Name, const TgdbPolygon& Polygon,
                          TDateTime Date, int32_t StateFlag, float LatLow, float LatHigh,
                          float LongLow, float LongHigh, float Altitude, uint8_t ClassFlag,
                          int32_t Tag) {
  ReplaceData(RecNo, Name, Polygon, false, TgdbItem::gitRiver, ClassFlag, Date, StateFlag, LatLow,
              LatHigh, LongLow, LongHigh, Altitude, Tag, NoMetaInfo, nullptr, 0, false);
}

void TGeoDB::ReplaceRoad(int32_t RecNo, const TgdbName& Name, const TgdbPolygon& Polygon,
                         TDateTime Date, int32_t StateFlag, float LatLow, float LatHigh,
                         float LongLow, float LongHigh, float Altitude, uint8_t ClassFlag,
                         int32_t Tag) {
  ReplaceData(RecNo, Name, Polygon, false, TgdbItem::gitRoad, ClassFlag, Date, StateFlag, LatLow,
              LatHigh, LongLow, LongHigh, Altitude, Tag, NoMetaInfo, nullptr, 0, false);
}

void TGeoDB::ReplaceRoute(int32_t RecNo, const TgdbName& Name, const TgdbPolygon& Polygon,
                          TDateTime Date, int32_t StateFlag, float LatLow, float LatHigh,
                          float LongLow, float LongHigh, float Altitude, uint8_t ClassFlag,
                          int32_t Tag) {
  ReplaceData(RecNo, Name, Polygon, false, TgdbItem::gitRoute, ClassFlag, Date, StateFlag, LatLow,
              LatHigh, LongLow, LongHigh, Altitude, Tag, NoMetaInfo, nullptr, 0, false);
}

void TGeoDB::ReplaceTown(int32_t RecNo, const TgdbName& Name, TDateTime Date, int32_t StateFlag,
                         const TSCoords& Position, float Altitude, uint8_t ClassFlag, int32_t Tag) {
  ReplaceData(RecNo, Name, NoPoints, false, TgdbItem::gitTown, ClassFlag, Date, StateFlag,
              Position.Latit, Position.Latit, Position.Longit, Position.Longit, Altitude, Tag,
              NoMetaInfo, nullptr, 0, false);
}

}  // namespace zav

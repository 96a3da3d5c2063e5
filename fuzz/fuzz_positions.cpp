// fuzz_positions.cpp - any text as a typed position: a position on the globe, or a reason at a
// column of the text; what is read is written and read again.
// SPDX-License-Identifier: MIT
#include <geobasics/position_text.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

void Require(bool Condition) {
  if (!Condition) std::abort();
}

void WriteAndRead(const zav::TGeoPosition& Position) {
  for (const zav::TNotation Notation :
       {zav::TNotation::ntDegrees, zav::TNotation::ntDegreesMinutes,
        zav::TNotation::ntDegreesMinutesSeconds, zav::TNotation::ntMGRS}) {
    const zav::TGeoPosition Back =
        zav::PositionFromText(zav::PositionToText(Position, Notation, 3));
    Require(std::fabs(Back.Lat - Position.Lat) < 1e-3);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Data, size_t Size) {
  const std::string_view Text(reinterpret_cast<const char*>(Data), Size);
  try {
    const zav::TWrittenPosition Typed = zav::ParsePositionText(Text);
    const auto Found = zav::DegreesOf(Typed, zav::TGeoEllipsoid::gelWGS84);
    if (!Found) return 0;
    Require(std::fabs(Found->Lat) <= 90 && std::fabs(Found->Long) <= 360);
    WriteAndRead(*Found);
  } catch (const zav::EPositionTextError& Error) {
    Require(Error.Column() >= 1 && Error.Column() <= static_cast<int>(Size) + 1);
  }
  return 0;
}

// record_check.h - what must hold for any bytes given to the readers of landmark and symbol files.
// Shared by the fuzz targets and the tests.
// SPDX-License-Identifier: MIT
#ifndef ZAV_TESTS_GEOMAP_LANDMARKS_RECORD_CHECK_H
#define ZAV_TESTS_GEOMAP_LANDMARKS_RECORD_CHECK_H

#include <geomap/landmarks/landmark_file.h>
#include <geomap/landmarks/symbol_repository.h>

#include <string>
#include <string_view>

#include "../../support/stream_bytes.h"

namespace zav::test {

inline bool HasNul(std::string_view Text) { return Text.find('\0') != std::string_view::npos; }

inline bool IsReadable(const TSymbolProperties& Symbol) {
  return Symbol.Kind >= TLandMarkElement::lmSquare && Symbol.Kind <= TLandMarkElement::lmCross;
}

// Reads the bytes; writes and reads again what was accepted. Returns what is wrong, empty when
// nothing.
inline std::string CheckLandMarkBytes(std::string_view Bytes) {
  TLandMarkList List;
  List.Append({});
  TMemoryStream Stream = StreamOf(Bytes);
  if (!ReadLandMarks(Stream, "", List)) return List.Count() == 1 ? "" : "changed without a set";
  bool Nul = false;
  for (int32_t I = 1; I <= List.Count(); ++I) {
    const TLandMark& LM = List[I];
    if (!IsReadable(LM.SymbolProps)) return "a shape that has no keyword";
    if (LM.Caption.HAlignment > THorizontalAlignment::haCenter ||
        LM.Caption.VAlignment > TVerticalAlignment::vaBottom || LM.Caption.FontStyles > 15) {
      return "a value out of range";
    }
    Nul = Nul || HasNul(LM.Caption.Text.View()) || HasNul(LM.Caption.FontName) ||
          HasNul(LM.Identifier.View());
  }
  TMemoryStream Written[2];
  for (TMemoryStream& Each : Written) {
    try {
      WriteLandMarks(Each, "", List, "");
    } catch (const EZAVGeoMapError&) {
      return Nul && Each.Size() == 0 ? "" : "what was read cannot be written";
    }
    if (Nul) return "a NUL was written";
    Each.SetPosition(0);
    TLandMarkList Again;
    if (!ReadLandMarks(Each, "", Again)) return "own set not found";
    if (!(Again == List)) return "other landmarks after writing";
    List = Again;
  }
  return BytesOf(Written[0]) == BytesOf(Written[1]) ? "" : "second writing differs";
}

inline bool SameSymbols(const TSymbolRepository& A, const TSymbolRepository& B) {
  bool Same = A.NumEntries() == B.NumEntries();
  for (int32_t I = 1; I <= A.NumEntries(); ++I) Same = Same && A.GetValues(I) == B.GetValues(I);
  return Same;
}

// The same for symbols.
inline std::string CheckSymbolBytes(std::string_view Bytes) {
  TSymbolRepository Symbols;
  Symbols.SetNEntries(1);
  TMemoryStream Stream = StreamOf(Bytes);
  if (!Symbols.ReadFromStream(Stream, "")) {
    return Symbols.NumEntries() == 1 ? "" : "changed without a list";
  }
  bool Nul = false;
  for (int32_t I = 1; I <= Symbols.NumEntries(); ++I) {
    if (!IsReadable(Symbols.GetValues(I).Properties)) return "a shape that has no keyword";
    Nul = Nul || HasNul(Symbols.GetValues(I).Name.View());
  }
  TMemoryStream Written[2];
  for (TMemoryStream& Each : Written) {
    try {
      Symbols.WriteToStream(Each, "");
    } catch (const EZAVGeoMapError&) {
      return Nul && Each.Size() == 0 ? "" : "what was read cannot be written";
    }
    if (Nul) return "a NUL was written";
    Each.SetPosition(0);
    TSymbolRepository Again;
    if (!Again.ReadFromStream(Each, "")) return "own list not found";
    if (!SameSymbols(Again, Symbols)) return "other symbols after writing";
    Symbols.Assign(Again);
  }
  return BytesOf(Written[0]) == BytesOf(Written[1]) ? "" : "second writing differs";
}

}  // namespace zav::test

#endif

/// @file
/// symbol_repository.h - a numbered list of named landmark symbols, as a palette to choose from.
///
/// Entries are numbered from 1. docs/formats/symbols.md tells the format of the files.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_LANDMARKS_SYMBOL_REPOSITORY_H
#define ZAV_GEOMAP_LANDMARKS_SYMBOL_REPOSITORY_H

#include <cstdint>
#include <string>
#include <vector>

#include <geomap/errors.h>
#include <geomap/landmarks/landmark.h>
#include <platform/base/api.h>
#include <platform/base/short_string.h>
#include <platform/base/stream.h>
#include <platform/base/text_file.h>
#include <platform/host/component.h>

namespace zav {

/// The name of a symbol.
using TSymbolName = TShortString<40>;

/// All zero by default: lmPlus of size 0, black on black.
struct TSymbol {
  TSymbolProperties Properties{
      TLandMarkElement::lmPlus, 0, clBlack, clBlack, false, 0, 0};  ///< how it is drawn
  TSymbolName Name;                                                 ///< for people
  int32_t Category = 0;                                             ///< the user's
  friend bool operator==(const TSymbol&, const TSymbol&) = default;
};

/// A cross of size 8, black on red, direction 90, length 40, without name and category.
ZAVGEO_API TSymbol DefaultSymbolRecord();

/// A palette of symbols, and a copy of it to go back to.
class ZAVGEO_API TSymbolRepository : public TComponent {
 public:
  /// An empty list.
  explicit TSymbolRepository(TComponent* Owner = nullptr) : TComponent(Owner) {}

  /// Copies entries and backup of another repository, so that neither shows changes of the other.
  /// Any other source throws EConvertError.
  void Assign(const TPersistent& Source) override;
  void AssignTo(TPersistent& Dest) const override;

  /// How many entries there are.
  int32_t NumEntries() const noexcept { return static_cast<int32_t>(FSymbols.size()); }
  /// Cuts the list or adds entries that are all zero. Ignores a negative number. Throws
  /// EZAVGeoMapError, and changes nothing, when memory does not allow it.
  void SetNEntries(int32_t Value);
  /// Another index gives DefaultSymbolRecord.
  TSymbol GetValues(int32_t Index) const;
  /// Ignores another index.
  void SetValues(int32_t Index, const TSymbol& Symbol);
  /// Makes every entry a default symbol; the number stays.
  void Clear();

  /// Keeps a copy of the list, and puts it back, as often as wanted. Before the first Backup the
  /// copy is empty.
  void Backup() { FSymbolsBak = FSymbols; }
  /// Puts the copy back, the number of entries too.
  void Restore() { FSymbols = FSymbolsBak; }

  /// Makes or replaces a file that holds this list only. Throws EInOutError, and EZAVGeoMapError
  /// for a name or id with a double quote, a line break or a NUL; an older file then stays whole.
  void StoreOnFile(const std::string& FileName, const std::string& DataID) const;
  /// The same bytes to a stream; nothing is written when they are refused.
  void WriteToStream(TStream& S, const std::string& DataID) const;
  /// Reads the list with the id, or the first for an empty id, from the current position on. False,
  /// and nothing changes, when there is none. The backup stays. lmPlus and lmUserDef come back as
  /// lmCross.
  bool ReadFromOpenXMLFile(TextFile& F, const std::string& DataID);
  /// The same from a stream, from its position on.
  bool ReadFromStream(TStream& S, const std::string& DataID);
  /// False, too, when the file cannot be opened.
  bool LoadFromFile(const std::string& FileName, const std::string& DataID);

 private:
  std::string FileText(const std::string& DataID) const;

  std::vector<TSymbol> FSymbols;
  std::vector<TSymbol> FSymbolsBak;
};

}  // namespace zav

#endif

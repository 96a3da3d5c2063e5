// record_attributes.h - the attributes of a record in a file, all read in one walk, or written.
//
// What the files of landmarks and symbols have in common. A missing or malformed value is 0, empty
// or false; see docs/formats/landmarks.md.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_LANDMARKS_RECORD_ATTRIBUTES_H
#define ZAV_GEOMAP_LANDMARKS_RECORD_ATTRIBUTES_H

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <geomap/landmarks/landmark.h>
#include <geomap/landmarks/xml_records.h>
#include <platform/base/api.h>

namespace zav {

// Values by their place in the list of names, each as FindAttribute finds it.
class ZAVGEO_API TRecordAttributes {
 public:
  // The names must outlive this object.
  explicit TRecordAttributes(std::span<const std::string_view> Names)
      : FNames(Names), FValues(Names.size()), FFound(Names.size()) {}

  // Takes the attributes of another tag.
  void Read(std::string_view TagText);

  const std::string& Text(size_t Index) const noexcept { return FValues[Index]; }
  int32_t Integer(size_t Index) const noexcept;
  double Real(size_t Index) const;
  TColor Color(size_t Index) const noexcept;
  // Whether the value contains "true" in any case.
  bool Flag(size_t Index) const;
  // The shape of a keyword in any case; lmCross for one that is unknown or has no keyword.
  TLandMarkElement Element(size_t Index) const;

 private:
  size_t PlaceOf(std::string_view Name, size_t Expected) const noexcept;

  std::span<const std::string_view> FNames;
  std::vector<std::string> FValues;
  std::vector<bool> FFound;
  std::string FName;  // of the walk
  std::string FValue;
};

// The line of a record under construction: <tag name="value" ... />
class ZAVGEO_API TRecordLine {
 public:
  // Begins another line.
  void Begin(TXmlTag Tag);
  // Value must be a record text (IsRecordText).
  void Text(std::string_view Name, std::string_view Value);
  void Integer(std::string_view Name, int64_t Value);
  // Five decimals where these give the same number again, else the shortest text that does. The
  // number must be finite.
  void Real(std::string_view Name, double Value);
  void Color(std::string_view Name, TColor Value);
  void Flag(std::string_view Name, bool Value);
  // The whole line with CR LF; valid until Begin.
  std::string_view End();

 private:
  std::string FText;
};

// The opening line of a set, with CR LF.
ZAVGEO_API std::string RecordRootLine(TXmlTag Root, std::string_view DataID);

// Opens a file for reading, looked up without regard to case where it must. False when there is no
// such file or it cannot be read.
ZAVGEO_API bool OpenRecordFile(TextFile& F, const std::string& Name);

// Prefix, What and the reason, as EZAVGeoMapError, when Text is no record text.
ZAVGEO_API void CheckRecordText(std::string_view Text, const std::string& Prefix,
                                std::string_view What);

}  // namespace zav

#endif

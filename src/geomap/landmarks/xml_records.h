/// @file
/// xml_records.h - the rules that all record files share: calibrations, landmarks, symbols.
///
/// A record file is lines of text in the manner of XML, one element a line, and is read by a simple
/// scanner: the line with the root element is searched for, then the file is walked tag by tag, and
/// in a tag's text the attributes are searched by name. Values are neither escaped nor unescaped,
/// so they can hold no double quote and no line break. Nothing here throws for what a file
/// contains: a malformed attribute reads as empty.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_LANDMARKS_XML_RECORDS_H
#define ZAV_GEOMAP_LANDMARKS_XML_RECORDS_H

#include <platform/base/api.h>
#include <platform/base/stream.h>
#include <platform/base/text_file.h>

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace zav {

/// The tags of all record files. The order is that of XmlTagNames.
enum class TXmlTag : uint8_t {
  Geomap = 0,          ///< root of a calibration
  EndGeomap = 1,       ///< also ends every reader's walk
  CalLine = 2,         ///< graticule line
  Corners = 3,         ///< corners of the map
  Resolution = 4,      ///< metres per pixel
  GmLandmarks = 5,     ///< root of a set of landmarks
  EndGmLandmarks = 6,  ///< its end
  Landmark = 7,        ///< a landmark
  CalQuads = 8,        ///< control points
  LmSymbols = 9,       ///< root of a set of symbols
  EndLmSymbols = 10,   ///< its end
  Symbol = 11,         ///< a symbol
  UtmZone = 12,        ///< zone of a UTM map
  UtmSouth = 13,       ///< its hemisphere
  Ellipsoid = 14,      ///< ellipsoid of the map
  Invalid = 15         ///< there are no more tags
};

/// Names of the tags, indexed by TXmlTag.
constexpr std::array<std::string_view, 16> XmlTagNames = {
    "geomap",       "/geomap",  "calline",   "corners",    "resolution", "gmlandmarks",
    "/gmlandmarks", "landmark", "calquads",  "lmsymbols",  "/lmsymbols", "symbol",
    "utmzone",      "utmsouth", "ellipsoid", "invalidtag",
};

/// The value of the attribute "sig" of every root element.
constexpr std::string_view XmlSignature = "Tarvoline";

/// The name of a tag.
constexpr std::string_view XmlTagName(TXmlTag Tag) noexcept {
  return XmlTagNames[static_cast<size_t>(Tag)];
}

/// Whether a text can be the value of an attribute: no double quote, line break or NUL.
ZAVGEO_API bool IsRecordText(std::string_view Text) noexcept;

/// @name Attributes
/// @{

/// Reads the pair of name and value that begins at the 1-based byte Pos, and moves Pos behind it.
/// The value stands in double quotes or ends at a blank; the name loses its outer blanks. Returns 0
/// for a pair, 1 for a double quote in the name, 2 for a value that begins with "=", 3 for "=" in a
/// value without quotes, 4 when Pos lies behind the end of the text.
ZAVGEO_API int32_t NextAttribute(std::string_view TagText, int32_t& Pos, std::string& Name,
                                 std::string& Value);

/// The value of the first attribute of that name, in any case; empty when there is none or when a
/// malformed pair stands before it.
ZAVGEO_API std::string FindAttribute(std::string_view TagText, std::string_view Name);
/// @}

/// @name Tags
/// @{

/// Reads on to the next tag whose name, in any case, is one of TagList[0..HighIndex], and returns
/// its index; HighIndex at the end of the file. Attributes receives the tag's text behind the name,
/// without the "/" of an empty element, line breaks and tabs outside of quotes as blanks; Contents
/// the text from the tag to the next "<", where reading goes on. Works from any position, so also
/// behind a root line that has been read as a line.
///
/// Comments are passed over, as are other tags and tags that are cut off by another "<" or by the
/// end of the file. ">" and "<" in quotes belong to the value; a quote that is not closed on its
/// line does not count, and the tag then ends at the first ">" behind it.
ZAVGEO_API int32_t ReadNextTagInTextFile(TextFile& File, std::span<const std::string_view> TagList,
                                         int32_t HighIndex, std::string& Attributes,
                                         std::string& Contents);
/// The same from a stream.
ZAVGEO_API int32_t ReadNextTagInStream(TStream& Stream, std::span<const std::string_view> TagList,
                                       int32_t HighIndex, std::string& Attributes,
                                       std::string& Contents);

/// The same for the tags of the record files.
ZAVGEO_API TXmlTag ReadNextTagInTextFile(TextFile& File, std::string& Attributes,
                                         std::string& Contents);
/// The same from a stream.
ZAVGEO_API TXmlTag ReadNextTagInStream(TStream& Stream, std::string& Attributes,
                                       std::string& Contents);
/// @}

/// @name Lines
/// @{

/// Reads a line byte by byte. LineEndMode says what ends it: 0 a line feed, 1 a carriage return,
/// 2 either, 3 a carriage return behind a line feed, 4 a line feed behind a carriage return; other
/// modes count as 2. Up to two line-end characters are then taken off. At the end of the stream Eof
/// becomes true, and the rest is returned as it is; otherwise Eof is left alone.
ZAVGEO_API std::string ReadLineFromStream(TStream& Stream, bool& Eof, int32_t LineEndMode);

/// Reads on to the line of a root element: it contains "<" and the root's name, and the signature.
/// With a DataID only the one of that identifier is taken, without regard to case; otherwise the
/// first. False, and RootLine empty, when there is none up to the end. RootLine is in lower case;
/// reading goes on with the line behind it.
ZAVGEO_API bool FindRootLine(TextFile& File, TXmlTag Root, std::string_view DataID,
                             std::string& RootLine);
/// The same from a stream.
ZAVGEO_API bool FindRootLine(TStream& Stream, TXmlTag Root, std::string_view DataID,
                             std::string& RootLine);
/// @}

}  // namespace zav

#endif

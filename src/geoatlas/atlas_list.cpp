// atlas_list.cpp - see atlas_list.h.
// SPDX-License-Identifier: MIT
#include <geoatlas/atlas_list.h>

#include <array>
#include <filesystem>
#include <string_view>

#include <geomap/landmarks/xml_records.h>
#include <platform/base/errors.h>
#include <platform/base/paths.h>
#include <platform/base/text.h>
#include <platform/base/text_file.h>

namespace zav {
namespace {

namespace fs = std::filesystem;

// The names are in files: do not change them.
enum TTag : int32_t { tgRoot, tgMap, tgEnd, tgNone };
constexpr std::array<std::string_view, 4> TagNames = {"geoatlas", "map", "/geoatlas", "invalidtag"};

// UTF-8 on every system.
fs::path PathOf(const std::string& Text) { return {std::u8string(Text.begin(), Text.end())}; }

std::string TextOf(const fs::path& Path) {
  const std::u8string Text = Path.generic_u8string();
  return {Text.begin(), Text.end()};
}

fs::path Whole(const std::string& Path) { return fs::absolute(PathOf(Path)).lexically_normal(); }

// How a file is named in the list at ListPath.
std::string NameIn(const std::string& ListPath, const std::string& MapFName) {
  const fs::path Map = Whole(MapFName);
  const fs::path Name = Map.lexically_relative(Whole(ListPath).parent_path());
  const bool Below = !Name.empty() && *Name.begin() != "..";
  return TextOf(Below ? Name : Map);
}

// The other way.
std::string PathFrom(const std::string& ListPath, const std::string& Name) {
  const std::string Named = TextOf((PathOf(DirectoryOf(ListPath)) / PathOf(Name)));
  const std::string Found = ResolveFile(Named, ListPath);
  return TextOf(Whole(Found.empty() ? Named : Found));
}

// NextTag(Attributes, Contents) reads on.
template <typename TNextTag>
std::vector<std::string> ReadList(const TNextTag& NextTag, const std::string& Path) {
  std::vector<std::string> Maps;
  bool Inside = false;
  std::string Attributes;
  std::string Contents;
  for (;;) {
    switch (NextTag(Attributes, Contents)) {
      case tgRoot:
        Inside = Inside || SameText(FindAttribute(Attributes, "sig"), XmlSignature);
        break;
      case tgMap: {
        const std::string Name = FindAttribute(Attributes, "file");
        if (Inside && IsRecordText(Name) && !Name.empty()) Maps.push_back(PathFrom(Path, Name));
        break;
      }
      case tgEnd:
        if (Inside) return Maps;
        break;
      default:
        if (!Inside) throw EInOutError(Path, "is no list of maps");
        throw EInOutError(Path, "the list of maps has no end");
    }
  }
}

}  // namespace

std::vector<std::string> ReadAtlasList(const std::string& Path) {
  TextFile File;
  File.Reset(Path);
  return ReadList(
      [&](std::string& Attributes, std::string& Contents) {
        return ReadNextTagInTextFile(File, TagNames, tgNone, Attributes, Contents);
      },
      Path);
}

std::vector<std::string> ReadAtlasList(TStream& Stream, const std::string& Path) {
  return ReadList(
      [&](std::string& Attributes, std::string& Contents) {
        return ReadNextTagInStream(Stream, TagNames, tgNone, Attributes, Contents);
      },
      Path);
}

void SaveAtlasList(const std::string& Path, const std::vector<std::string>& MapFNames) {
  TextFile File;
  File.Rewrite(Path);
  File.WriteLn("<?xml version=\"1.0\"?>");
  File.WriteLn("<geoatlas sig=\"" + std::string(XmlSignature) + "\" vers=\"1.0\" id=\"\">");
  for (const std::string& MapFName : MapFNames) {
    const std::string Name = NameIn(Path, MapFName);
    if (!IsRecordText(Name))
      throw EInOutError(Path, "a list cannot name the map \"" + MapFName + "\"");
    File.WriteLn("<map file=\"" + Name + "\" />");
  }
  File.WriteLn("</geoatlas>");
  File.Close();
}

}  // namespace zav

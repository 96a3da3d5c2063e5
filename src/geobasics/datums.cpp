// datums.cpp - the rows of the datum table.
// SPDX-License-Identifier: MIT
#include <geobasics/datums.h>

#include <algorithm>
#include <string>

#include <platform/base/text.h>

namespace zav {

namespace {

using enum TGeoEllipsoid;

constexpr TDatumRow Rows[] = {
#include <geobasics/datum_rows.inc>
};

static_assert(std::size(Rows) == NumDatumRows);
static_assert(Rows[WGS84DatumRow - 1].Ellipsoid == gelWGS84);
static_assert(std::all_of(std::begin(Rows), std::end(Rows),
                          [](const TDatumRow& Row) { return Row.Name.size() <= 35; }));

// Letters and digits of the name in one case.
std::string KeyOf(std::string_view Name) {
  std::string Key = SearchKey(Name);
  std::erase_if(Key, [](char C) {
    return static_cast<unsigned char>(C) < 0x80 && !(C >= '0' && C <= '9') &&
           !(C >= 'a' && C <= 'z') && !(C >= 'A' && C <= 'Z') && C != '+';
  });
  return Key;
}

}  // namespace

const TDatumRow* DatumRow(int Row) noexcept {
  return Row >= 1 && Row <= NumDatumRows ? &Rows[Row - 1] : nullptr;
}

std::vector<int> FindDatumRows(std::string_view Name) {
  const std::string Key = KeyOf(Name);
  std::vector<int> Found;
  for (int Row = 1; Row <= NumDatumRows; ++Row)
    if (KeyOf(Rows[Row - 1].Name) == Key) Found.push_back(Row);
  return Found;
}

}  // namespace zav

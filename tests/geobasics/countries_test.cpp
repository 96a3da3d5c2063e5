// countries_test.cpp - the country catalogue is well formed.
// SPDX-License-Identifier: MIT
#include <geobasics/countries.h>
#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <string>

namespace zav {
namespace {

TEST(Countries, RowsAreSortedAndWellFormed) {
  std::set<std::string> Iso2;
  std::set<std::string> Iso3;
  std::string Last;
  for (const TCountryData& Row : CountryData) {
    const std::string Name = Row.Name.Text();
    SCOPED_TRACE(Name);
    EXPECT_LT(Last, Name);
    Last = Name;
    EXPECT_EQ(Row.Fips10.Text().size(), 2U);
    EXPECT_EQ(Row.ISO3166_2.Text().size(), 2U);
    EXPECT_EQ(Row.ISO3166_3.Text().size(), 3U);
    EXPECT_TRUE(Iso2.insert(Row.ISO3166_2.Text()).second);
    EXPECT_TRUE(Iso3.insert(Row.ISO3166_3.Text()).second);
    for (const double Lat : {Row.CLat, Row.CapLat}) EXPECT_LE(std::abs(Lat), 90);
    for (const double Long : {Row.CLong, Row.CapLong}) EXPECT_LE(std::abs(Long), 180);
    EXPECT_LT(Row.CapAlt, 4500);  // La Paz and Lhasa are below
    EXPECT_EQ(Row.Capital.Text().empty(), Name == "Antarctica");
    EXPECT_LT(std::hypot(Row.CLat - Row.CapLat, Row.CLong - Row.CapLong), 60);
  }
  EXPECT_EQ(CountryData.front().Name.Text(), "Afghanistan");
  EXPECT_EQ(CountryData.back().Name.Text(), "Zimbabwe");
}

}  // namespace
}  // namespace zav

// countries_test.cpp - the country catalogue against lists of codes, time zones and weather
// stations.
// SPDX-License-Identifier: MIT
#include <geobasics/countries.h>
#include <gtest/gtest.h>
#include <platform/base/read_file.h>
#include <platform/base/text.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <map>
#include <regex>
#include <set>
#include <string>

namespace zav {
namespace {

struct TPlace {
  double Lat = 0;
  double Long = 0;
};

using TPlaces = std::multimap<std::string, TPlace>;  // by ISO code in lower case

double Kilometres(const TPlace& A, const TPlace& B) {
  const double Degree = std::acos(-1) / 180;
  const double Sin = std::sin((A.Lat - B.Lat) / 2 * Degree);
  const double SinLong = std::sin((A.Long - B.Long) / 2 * Degree);
  const double H =
      Sin * Sin + std::cos(A.Lat * Degree) * std::cos(B.Lat * Degree) * SinLong * SinLong;
  return 2 * 6371 * std::asin(std::min(1.0, std::sqrt(H)));
}

double Number(const std::string& Text) {
  double Value = 0;
  std::from_chars(Text.data() + (Text[0] == '+'), Text.data() + Text.size(), Value);
  return Value;
}

// Calls Take with each match of Pattern in the file.
template <typename Function>
void ForEachMatch(const std::string& Text, const char* Pattern, Function Take) {
  const std::regex Regex(Pattern, std::regex::ECMAScript | std::regex::optimize);
  for (std::sregex_iterator i(Text.begin(), Text.end(), Regex), End; i != End; ++i) Take(*i);
}

// "AL" and "+4120+01950": degrees and minutes, seconds where the longer form stands.
TPlaces PlacesOfTimeZones(const std::string& Text) {
  const auto Angle = [](const std::string& Sign, const std::string& Degrees,
                        const std::string& Rest) {
    const double Value = Number(Degrees) + Number(Rest.substr(0, 2)) / 60 +
                         (Rest.size() > 2 ? Number(Rest.substr(2)) / 3600 : 0);
    return Sign == "-" ? -Value : Value;
  };
  TPlaces Places;
  ForEachMatch(Text, "([A-Z]{2})\t([+-])(\\d\\d)((?:\\d\\d){1,2})([+-])(\\d{3})((?:\\d\\d){1,2})\t",
               [&](const std::smatch& M) {
                 Places.emplace(LowerCase(M.str(1)),
                                TPlace{Angle(M[2], M[3], M[4]), Angle(M[5], M[6], M[7])});
               });
  return Places;
}

struct TWeatherStations {
  TPlaces Places;
  std::map<std::string, std::string> Fips;  // by ISO code
};

TWeatherStations ReadWeatherStations(const std::string& Text) {
  TWeatherStations Found;
  std::string Country;
  ForEachMatch(Text,
               "<(iso-code|fips-code)>([^<]*)<|<coordinates>([-+.0-9]+) ([-+.0-9]+)</coordinates>",
               [&](const std::smatch& M) {
                 if (M[1] == "iso-code")
                   Country = LowerCase(M.str(2));
                 else if (M[1] == "fips-code")
                   Found.Fips.emplace(Country, LowerCase(M.str(2)));
                 else
                   Found.Places.emplace(Country, TPlace{Number(M[3]), Number(M[4])});
               });
  return Found;
}

double Nearest(const TPlaces& Places, const std::string& Country, const TPlace& To) {
  double Least = 1e9;
  const auto [First, Last] = Places.equal_range(Country);
  for (auto i = First; i != Last; ++i) Least = std::min(Least, Kilometres(i->second, To));
  return Least;
}

std::string TextOf(const char* File) {
  return std::filesystem::exists(File) ? ReadWholeTextFile(File) : std::string();
}

// Today's code of a country that is no more.
std::string CodeToday(const TCountryData& Row) {
  const std::string Code = Row.ISO3166_2.Text();
  return Code == "an" ? "cw" : Code == "cs" ? "rs" : Code;
}

TEST(Countries, RowsAreSortedAndWellFormed) {
  std::set<std::string> Codes;
  std::string Last;
  for (const TCountryData& Row : CountryData) {
    const std::string Name = Row.Name.Text();
    SCOPED_TRACE(Name);
    EXPECT_LT(Last, Name);
    Last = Name;
    EXPECT_EQ(Row.Fips10.Text().size(), 2U);
    EXPECT_EQ(Row.ISO3166_2.Text().size(), 2U);
    EXPECT_EQ(Row.ISO3166_3.Text().size(), 3U);
    for (const std::string& Code : {Row.Fips10.Text(), Row.ISO3166_2.Text(), Row.ISO3166_3.Text()})
      EXPECT_EQ(LowerCase(Code), Code);
    EXPECT_TRUE(Codes.insert("FIPS " + Row.Fips10.Text()).second);
    EXPECT_TRUE(Codes.insert(Row.ISO3166_2.Text()).second);
    EXPECT_TRUE(Codes.insert(Row.ISO3166_3.Text()).second);
    for (const double Lat : {Row.CLat, Row.CapLat}) EXPECT_LE(std::abs(Lat), 90);
    for (const double Long : {Row.CLong, Row.CapLong}) EXPECT_LE(std::abs(Long), 180);
    for (const double Angle : {Row.CLat, Row.CLong})
      EXPECT_NEAR(Angle * 100, std::round(Angle * 100), 1e-9);
    for (const double Angle : {Row.CapLat, Row.CapLong})
      EXPECT_NEAR(Angle * 1e4, std::round(Angle * 1e4), 1e-7);
    EXPECT_GE(Row.CapAlt, -28);   // Baku
    EXPECT_LT(Row.CapAlt, 2900);  // Quito
    EXPECT_EQ(Row.Capital.Text().empty(), Name == "Antarctica");
  }
  EXPECT_EQ(CountryData.front().Name.Text(), "Afghanistan");
  EXPECT_EQ(CountryData.back().Name.Text(), "Zimbabwe");
}

// Applications rely on these to the last digit.
TEST(Countries, RowsThatAreFixed) {
  const TCountryData Rows[] = {
      {"Afghanistan", "af", "af", "afg", 33, 65, "Kabul", 34.5309, 69.1368, 1807},
      {"Algeria", "ag", "dz", "dza", 28, 3, "Algiers", 36.7658, 3.0319, 0},
      {"American Samoa", "aq", "as", "asm", -14.33, -170, "Pago Pago", -14.2793, -170.701, 49},
      {"Antarctica", "ay", "aq", "ata", -90, 0, "", -90, 0, 0},
      {"Germany", "gm", "de", "deu", 51, 9, "Berlin", 52.5163, 13.3276, 34},
      {"Zimbabwe", "zi", "zw", "zwe", -20, 30, "Harare", -17.8292, 31.054, 1480},
  };
  for (const TCountryData& Row : Rows) {
    const TCountryData* Found = FindCountryByISO(Row.ISO3166_3.View());
    ASSERT_NE(Found, nullptr);
    EXPECT_TRUE(Found->Name == Row.Name && Found->Fips10 == Row.Fips10 &&
                Found->ISO3166_2 == Row.ISO3166_2 && Found->Capital == Row.Capital)
        << Row.Name.Text();
    EXPECT_EQ(Found->CLat, Row.CLat);
    EXPECT_EQ(Found->CLong, Row.CLong);
    EXPECT_EQ(Found->CapLat, Row.CapLat);
    EXPECT_EQ(Found->CapLong, Row.CapLong);
    EXPECT_EQ(Found->CapAlt, Row.CapAlt);
  }
}

TEST(Countries, CodesAreThoseOfISO3166) {
  const std::string Today = TextOf("/usr/share/iso-codes/json/iso_3166-1.json");
  const std::string Former = TextOf("/usr/share/iso-codes/json/iso_3166-3.json");
  if (Today.empty() || Former.empty()) GTEST_SKIP() << "iso-codes is not installed";
  std::set<std::string> Pairs;
  for (const std::string& Text : {Today, Former})
    ForEachMatch(
        Text, R"x("alpha_2": "(\w\w)",\s*"alpha_3": "(\w{3})")x",
        [&](const std::smatch& M) { Pairs.insert(LowerCase(M.str(1)) + LowerCase(M.str(2))); });
  ASSERT_GT(Pairs.size(), 250U);
  for (const TCountryData& Row : CountryData)
    EXPECT_TRUE(Pairs.count(Row.ISO3166_2.Text() + Row.ISO3166_3.Text())) << Row.Name.Text();
}

TEST(Countries, CapitalsAndCentresAreWhereOthersHaveThem) {
  const TPlaces Zones = PlacesOfTimeZones(TextOf("/usr/share/zoneinfo/zone.tab"));
  const TWeatherStations Weather =
      ReadWeatherStations(TextOf("/usr/share/libgweather-4/Locations.xml"));
  if (Zones.empty() || Weather.Places.empty())
    GTEST_SKIP() << "tzdata or libgweather-4-common is not installed";
  // Capitals with no time zone and no weather station near them; kilometres to the nearest.
  const std::map<std::string, double> Far{
      {"Belmopan", 60}, {"Nay Pyi Taw", 335}, {"Yamoussoukro", 220}, {"Lilongwe", 245}};
  // Large and thinly equipped countries have few stations.
  const std::set<std::string> Wide{
      "Angola",           "Burma;Myanmar", "Chad", "Congo, Democratic Republic of the",
      "French Polynesia", "Greenland",     "Mali", "Somalia"};
  for (const TCountryData& Row : CountryData) {
    SCOPED_TRACE(Row.Name.Text());
    const std::string Code = CodeToday(Row);
    // Of territories of the United States the list has codes of its own; Serbia's is younger.
    const auto Fips = Weather.Fips.find(Code);
    if (Fips != Weather.Fips.end() && Code != "rs" && Fips->second.substr(0, 2) != "us") {
      EXPECT_EQ(Row.Fips10.Text(), Fips->second.substr(0, 2));
    }
    const TPlace Centre{Row.CLat, Row.CLong};
    EXPECT_LT(std::min(Nearest(Zones, Code, Centre), Nearest(Weather.Places, Code, Centre)),
              Code == "cd"                  ? 1200
              : Wide.count(Row.Name.Text()) ? 710
                                            : 470);
    const std::string Capital = Row.Capital.Text();
    if (Capital.empty()) continue;
    const TPlace Place{Row.CapLat, Row.CapLong};
    const auto Limit = Far.find(Capital);
    EXPECT_LT(std::min(Nearest(Zones, Code, Place), Nearest(Weather.Places, Code, Place)),
              Limit == Far.end() ? 34 : Limit->second)
        << Capital;
  }
}

TEST(Countries, AreFound) {
  const struct {
    const char* Text;
    const char* Name;  // empty: not found
  } Cases[] = {
      {"DE", "Germany"},
      {"deu", "Germany"},
      {"gErMaNy", "Germany"},
      {"  Germany ", "Germany"},
      {"Australia", "Australia"},
      {"au", "Australia"},
      {"North Korea", "Korea, North"},
      {"korea, north", "Korea, North"},
      {"Myanmar", "Burma;Myanmar"},
      {"burma", "Burma;Myanmar"},
      {"Malvinas", "Falkland Islands; Malvinas"},
      {"C\u00f4te d'Ivoire", "Cote d'Ivoire"},
      {"R\u00e9union", "Reunion"},
      {"Republic of the Congo", "Congo, Republic of the"},
      {"an", "Netherlands Antilles"},
      {"scg", "Serbia and Montenegro"},
      {"", ""},
      {"rs", ""},
      {"Atlantis", ""},
      {"Germ", ""},
      {"gm", "Gambia"},
  };
  for (const auto& Case : Cases) {
    const TCountryData* Found = FindCountry(Case.Text);
    EXPECT_EQ(Found == nullptr ? "" : Found->Name.Text(), Case.Name) << Case.Text;
  }
  EXPECT_EQ(FindCountryByFips("GM")->Name.Text(), "Germany");
  EXPECT_EQ(FindCountryByFips("deu"), nullptr);
  for (const TCountryData& Row : CountryData) {
    EXPECT_EQ(FindCountryByName(Row.Name.View()), &Row);
    EXPECT_EQ(FindCountryByISO(Row.ISO3166_3.View()), &Row);
    EXPECT_EQ(FindCountryByFips(Row.Fips10.View()), &Row);
  }
  const auto Kingston = FindCountriesByCapital("kingston");
  ASSERT_EQ(Kingston.size(), 2U);
  EXPECT_EQ(Kingston[0]->Name.Text(), "Jamaica");
  EXPECT_EQ(Kingston[1]->Name.Text(), "Norfolk Island");
  EXPECT_EQ(FindCountriesByCapital("Bras\u00edlia").size(), 1U);
  EXPECT_TRUE(FindCountriesByCapital("").empty());
}

}  // namespace
}  // namespace zav

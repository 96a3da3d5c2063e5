// countries.cpp - the rows of the country catalogue, and finding them.
// SPDX-License-Identifier: MIT
#include <geobasics/countries.h>

#include <algorithm>
#include <string>

#include <platform/base/text.h>

namespace zav {

// Name, FIPS 10-4, ISO alpha-2, ISO alpha-3, central latitude and longitude, capital, its latitude,
// longitude and altitude.
const std::array<TCountryData, NumCountries> CountryData{{
#include <geobasics/country_rows.inc>
}};

namespace {

// Whether the text is the name, as it stands ("Korea, North"), turned round ("North Korea"), or one
// of two names ("Burma", "Myanmar").
bool IsName(const std::string& Key, std::string_view Name) {
  if (SearchKey(Name) == Key) return true;
  const size_t Semicolon = Name.find(';');
  if (Semicolon != std::string_view::npos)
    return SearchKey(Name.substr(0, Semicolon)) == Key ||
           SearchKey(TrimBlanks(Name.substr(Semicolon + 1))) == Key;
  const size_t Comma = Name.find(", ");
  if (Comma == std::string_view::npos) return false;
  const std::string Round =
      std::string(Name.substr(Comma + 2)) + " " + std::string(Name.substr(0, Comma));
  return SearchKey(Round) == Key;
}

template <typename Predicate>
const TCountryData* FirstCountry(Predicate Is) {
  const auto Found = std::find_if(CountryData.begin(), CountryData.end(), Is);
  return Found == CountryData.end() ? nullptr : &*Found;
}

}  // namespace

const TCountryData* FindCountryByISO(std::string_view Code) {
  return FirstCountry([&](const TCountryData& Each) {
    return SameText(Code, Each.ISO3166_2.View()) || SameText(Code, Each.ISO3166_3.View());
  });
}

const TCountryData* FindCountryByFips(std::string_view Code) {
  return FirstCountry([&](const TCountryData& Each) { return SameText(Code, Each.Fips10.View()); });
}

const TCountryData* FindCountryByName(std::string_view Name) {
  const std::string Key = SearchKey(TrimBlanks(Name));
  return FirstCountry([&](const TCountryData& Each) { return IsName(Key, Each.Name.View()); });
}

const TCountryData* FindCountry(std::string_view CodeOrName) {
  const TCountryData* Found = FindCountryByISO(TrimBlanks(CodeOrName));
  return Found != nullptr ? Found : FindCountryByName(CodeOrName);
}

std::vector<const TCountryData*> FindCountriesByCapital(std::string_view Capital) {
  const std::string Key = SearchKey(TrimBlanks(Capital));
  std::vector<const TCountryData*> Found;
  for (const TCountryData& Each : CountryData)
    if (!Key.empty() && SearchKey(Each.Capital.View()) == Key) Found.push_back(&Each);
  return Found;
}

}  // namespace zav

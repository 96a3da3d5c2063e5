// go_to_places.cpp - see go_to_places.h.
// SPDX-License-Identifier: MIT
#include "go_to_places.h"

#include <string>
#include <string_view>
#include <vector>

#include <QCoreApplication>

#include <geobasics/countries.h>
#include <geobasics/position_text.h>

#include "reason_text.h"

namespace zav {

namespace {

struct Texts {
  Q_DECLARE_TR_FUNCTIONS(GoTo)
};

template <typename TShort>
QString Q(const TShort& Text) {
  const std::string_view View = Text.View();
  return QString::fromUtf8(View.data(), static_cast<qsizetype>(View.size()));
}

QString CapitalText(const TCountryData& Country) {
  return Texts::tr("%1, capital of %2").arg(Q(Country.Capital), Q(Country.Name));
}

QString CountryText(const TCountryData& Country) {
  const QString Code = Q(Country.ISO3166_2);
  return Code.isEmpty() ? Q(Country.Name) : QStringLiteral("%1 (%2)").arg(Q(Country.Name), Code);
}

GoToPlace CountryPlace(const TCountryData& Country) {
  return {Q(Country.Name), {Country.CLat, Country.CLong}};
}

GoToPlace CapitalPlace(const TCountryData& Country) {
  return {CapitalText(Country), {Country.CapLat, Country.CapLong}};
}

// Nothing, and no problem either, where the text is no name.
GoToResult FindName(const QString& Text) {
  for (const TCountryData& Each : CountryData) {
    if (Text.compare(CountryText(Each), Qt::CaseInsensitive) == 0) return {CountryPlace(Each), {}};
    if (!Each.Capital.View().empty() && Text.compare(CapitalText(Each), Qt::CaseInsensitive) == 0)
      return {CapitalPlace(Each), {}};
  }
  const std::string Name = Text.toStdString();
  if (const TCountryData* Country = FindCountry(Name)) return {CountryPlace(*Country), {}};
  const std::vector<const TCountryData*> Capitals = FindCountriesByCapital(Name);
  if (Capitals.size() == 1) return {CapitalPlace(*Capitals.front()), {}};
  if (Capitals.empty()) return {};
  QStringList Choices;
  for (const TCountryData* Each : Capitals) Choices << CapitalText(*Each);
  return {std::nullopt,
          Texts::tr("There are several: %1.").arg(Choices.join(QStringLiteral("; ")))};
}

}  // namespace

GoToResult FindPlace(const QString& Text, TGeoEllipsoid Ellipsoid) {
  const QString Typed = Text.simplified();
  if (Typed.isEmpty()) return {};
  GoToResult Named = FindName(Typed);
  if (Named.Place || !Named.Problem.isEmpty()) return Named;
  try {
    const TGeoPosition Position = PositionFromText(Typed.toStdString(), Ellipsoid);
    return {GoToPlace{{}, {Position.Lat, Position.Long}}, {}};
  } catch (const EPositionTextError& Error) {
    // Without a digit it was meant to be a name.
    for (const QChar Each : Typed)
      if (Each.isDigit()) return {std::nullopt, ReasonText(Error.what())};
    return {std::nullopt, Texts::tr("\"%1\" is no country or capital.").arg(Typed)};
  }
}

QStringList AllPlaceNames() {
  QStringList Names;
  for (const TCountryData& Each : CountryData) {
    Names << CountryText(Each);
    if (!Each.Capital.View().empty()) Names << CapitalText(Each);
  }
  Names.sort(Qt::CaseInsensitive);
  return Names;
}

}  // namespace zav

// geojson_reader.cpp - items of GeoJSON texts.
//
// The parser tells of the text piece by piece. Members of an object come in any order, so what a
// feature holds is collected and made into items at its end.
// SPDX-License-Identifier: MIT
#include <platform/base/errors.h>
#include <platform/base/text.h>
#include <platform/base/text_format.h>

#include <cmath>
#include <nlohmann/json.hpp>
#include <utility>
#include <vector>

#include "common/geojson_coordinates.h"
#include "common/geojson_text.h"
#include "common/item_reader.h"

namespace zav {

namespace {

using TShape = TItemReader::TShape;

struct TProperties {
  std::string Name;
  std::string Kind;
  std::optional<double> Class;
  std::optional<double> Altitude;
};

// An object or a list that is being read.
struct TLevel {
  enum class TPlace { Root, Feature, Geometry, Properties, Features, Geometries, Coordinates };
  explicit TLevel(TPlace What) : Place(What) {}

  TPlace Place;
  std::string Key;  // of the member that is being read
  TGeometry Geometry;
  TProperties Properties;
  std::optional<int32_t> Id;
};
using TPlace = TLevel::TPlace;

// How positions of a type of geometry are nested, and what its lists are.
struct TType {
  std::string_view Name;
  uint32_t PositionDepth;
  TShape Shape;
};
constexpr TType Types[] = {
    {"Point", 1, TShape::Point},     {"MultiPoint", 2, TShape::Point},
    {"LineString", 2, TShape::Line}, {"MultiLineString", 3, TShape::Line},
    {"Polygon", 3, TShape::Polygon}, {"MultiPolygon", 4, TShape::Polygon},
};

const TType* FindType(std::string_view Name) {
  for (const TType& Type : Types)
    if (Type.Name == Name) return &Type;
  return nullptr;
}

// Takes the pieces of the text; the names of its functions are the parser's.
class TGeoJsonHandler {
 public:
  using TJson = nlohmann::json;

  TGeoJsonHandler(const TItemReader& Reader, const TTextSource& Source, const std::string& Name)
      : FReader(Reader), FSource(Source), FName(Name) {}

  const TReadCounts& Counts() const { return FCounts; }

  bool null() {
    return Value([](TLevel&) {});
  }
  bool boolean(bool) {
    return Value([](TLevel&) {});
  }
  bool number_integer(int64_t Number) { return AddNumber(static_cast<double>(Number)); }
  bool number_unsigned(uint64_t Number) { return AddNumber(static_cast<double>(Number)); }
  bool number_float(double Number, const std::string&) { return AddNumber(Number); }
  bool binary(TJson::binary_t&) { return true; }
  bool string(std::string& Text);
  bool start_object(size_t);
  bool end_object();
  bool start_array(size_t);
  bool end_array();
  bool key(std::string& Key) {
    if (FSkipped == 0) FLevels.back().Key = std::move(Key);
    return true;
  }
  template <class TError>
  bool parse_error(size_t, const std::string&, const TError& Error) {
    std::string Reason = Error.what();  // "[kind] parse error at line 1, column 2: reason"
    if (const size_t Colon = Reason.find(": "); Colon != std::string::npos)
      Reason.erase(0, Colon + 2);
    throw EInOutError(Place(), Reason);
  }

 private:
  std::string Place() const { return FName + ":" + IntegerText(FSource.Line()); }
  [[noreturn]] void FailAs(const std::string& Reason) const { throw EInOutError(Place(), Reason); }
  // A value that is no object or list.
  template <class TUse>
  bool Value(const TUse& Use);
  bool AddNumber(double Number);
  // The object that the members being read belong to.
  TLevel& Parent() { return FLevels[FLevels.size() - 2]; }
  void Push(TPlace Place) {
    constexpr size_t MaxLevels = 64;
    if (FLevels.size() == MaxLevels) FailAs("geometries are nested too deeply");
    FLevels.emplace_back(Place);
  }
  void Skip() { FSkipped = 1; }
  bool EndFeature(const TLevel& Feature);
  void UseProperties(const TProperties& Properties);
  bool AddItems(const TGeometry& Geometry);
  bool AddItem(const TType& Type, const TGeometry& Geometry, size_t First, size_t Last);
  bool Refuse(const std::string& Problem) {
    return FReader.Refuse(FSource.Line(), "feature " + IntegerText(FFeature) + ": " + Problem);
  }

  const TItemReader& FReader;
  const TTextSource& FSource;
  const std::string& FName;
  TReadCounts FCounts;
  std::vector<TLevel> FLevels;
  size_t FSkipped = 0;  // depth in a value that nobody asks for
  TCoordinates FCoordinates;
  std::vector<TGeometry> FGeometries;  // of the feature
  std::string FProblem;                // of its coordinates, empty while there is none
  int64_t FFeature = 1;                // its number
  TReadItem FItem;                     // what all its items share
  std::string FKind;
  bool FHasAltitude = false;
};

template <class TUse>
bool TGeoJsonHandler::Value(const TUse& Use) {
  if (FSkipped > 0) return true;
  if (FLevels.empty()) FailAs("this is no GeoJSON object");
  Use(FLevels.back());
  return true;
}

bool TGeoJsonHandler::AddNumber(double Number) {
  return Value([&](TLevel& Level) {
    if (Level.Place == TPlace::Coordinates) {
      FCoordinates.AddNumber(Parent().Geometry, Number);
    } else if (Level.Place == TPlace::Properties) {
      TProperties& Properties = Parent().Properties;
      if (Level.Key == "class") Properties.Class = Number;
      if (Level.Key == "altitude") Properties.Altitude = Number;
      if (Level.Key == "name") Properties.Name = ShortestNumber(Number);
    } else if (Level.Key == "id" && Number >= 1 && Number <= INT32_MAX &&
               Number == std::floor(Number)) {
      Level.Id = static_cast<int32_t>(Number);
    }
  });
}

bool TGeoJsonHandler::string(std::string& Text) {
  return Value([&](TLevel& Level) {
    if (Level.Place == TPlace::Properties) {
      TProperties& Properties = Parent().Properties;
      if (Level.Key == "name") Properties.Name = Text;
      if (Level.Key == "kind") Properties.Kind = Text;
      if (Level.Key == "class") Properties.Class = NAN;
      if (Level.Key == "altitude") Properties.Altitude = NAN;
    } else if (Level.Place == TPlace::Coordinates) {
      FCoordinates.SetProblem("coordinates are no numbers");
    } else if (Level.Key == "type") {
      Level.Geometry.Type = Text;
    }
  });
}

bool TGeoJsonHandler::start_object(size_t) {
  if (FSkipped > 0) {
    ++FSkipped;
    return true;
  }
  if (FLevels.empty()) {
    Push(TPlace::Root);
    return true;
  }
  const TLevel& Level = FLevels.back();
  const bool IsFeature = Level.Place == TPlace::Root || Level.Place == TPlace::Feature;
  if (Level.Place == TPlace::Features) {
    Push(TPlace::Feature);
  } else if (Level.Place == TPlace::Geometries || (IsFeature && Level.Key == "geometry")) {
    Push(TPlace::Geometry);
  } else if (IsFeature && Level.Key == "properties") {
    Push(TPlace::Properties);
  } else {
    if (Level.Place == TPlace::Coordinates) FCoordinates.SetProblem("coordinates are no numbers");
    Skip();
  }
  return true;
}

bool TGeoJsonHandler::start_array(size_t) {
  if (FSkipped > 0) {
    ++FSkipped;
    return true;
  }
  if (FLevels.empty()) FailAs("this is no GeoJSON object");
  const TLevel& Level = FLevels.back();
  const bool IsObject = Level.Place == TPlace::Root || Level.Place == TPlace::Feature ||
                        Level.Place == TPlace::Geometry;
  if (Level.Place == TPlace::Coordinates) {
    FCoordinates.Begin();
  } else if (IsObject && Level.Key == "coordinates") {
    std::string Type = FLevels.back().Geometry.Type;
    FLevels.back().Geometry = {std::move(Type), {}, {}, 0, 0};
    Push(TPlace::Coordinates);
    FCoordinates = {};
    FCoordinates.Begin();
  } else if (Level.Place == TPlace::Root && Level.Key == "features") {
    Push(TPlace::Features);
  } else if (IsObject && Level.Key == "geometries") {
    Push(TPlace::Geometries);
  } else {
    Skip();
  }
  return true;
}

bool TGeoJsonHandler::end_array() {
  if (FSkipped > 0) {
    --FSkipped;
    return true;
  }
  if (FLevels.back().Place != TPlace::Coordinates) {
    FLevels.pop_back();
    return true;
  }
  if (!FCoordinates.End(Parent().Geometry)) return true;
  if (FProblem.empty()) FProblem = FCoordinates.Problem();
  FLevels.pop_back();
  return true;
}

bool TGeoJsonHandler::end_object() {
  if (FSkipped > 0) {
    --FSkipped;
    return true;
  }
  TLevel Level = std::move(FLevels.back());
  FLevels.pop_back();
  if (Level.Place == TPlace::Properties) return true;
  TGeometry& Geometry = Level.Geometry;
  const std::string Type = Geometry.Type;
  if (!Geometry.Ends.empty() || !Geometry.Points.empty())
    FGeometries.push_back(std::move(Geometry));
  if (Level.Place == TPlace::Geometry) return true;
  if (Level.Place == TPlace::Feature) return EndFeature(Level);
  if (Type == "FeatureCollection") return true;
  const bool Known = Type == "Feature" || Type == "GeometryCollection" || FindType(Type) != nullptr;
  if (!Known) FailAs("this is no GeoJSON object");
  return EndFeature(Level);
}

bool TGeoJsonHandler::EndFeature(const TLevel& Feature) {
  FItem.Id = Feature.Id;
  UseProperties(Feature.Properties);
  const std::vector<TGeometry> Geometries = std::exchange(FGeometries, {});
  const std::string Problem = std::exchange(FProblem, {});
  bool GoOn = true;
  if (!Problem.empty()) {
    GoOn = Refuse(Problem);
  } else if (Geometries.empty()) {
    ++FCounts.WithoutGeometry;
  }
  for (size_t i = 0; i < Geometries.size() && Problem.empty() && GoOn; ++i)
    GoOn = AddItems(Geometries[i]);
  ++FFeature;
  return GoOn;
}

void TGeoJsonHandler::UseProperties(const TProperties& Properties) {
  FItem.Name = Properties.Name;
  FKind = Properties.Kind;
  const double Class = Properties.Class.value_or(0);
  const bool IsClass = Class >= 0 && Class <= 255 && Class == std::floor(Class);
  FItem.ClassFlag = IsClass ? static_cast<uint8_t>(Class) : uint8_t{0};
  const double Altitude = Properties.Altitude.value_or(0);
  const bool IsAltitude = std::fabs(Altitude) <= 1e30;
  FItem.Altitude = IsAltitude ? static_cast<float>(Altitude) : 0;
  FHasAltitude = Properties.Altitude.has_value();
  FCounts.OddValues += !IsClass;
  FCounts.OddValues += !IsAltitude;
}

// The items of a geometry: the points, lines or outer rings of its type.
bool TGeoJsonHandler::AddItems(const TGeometry& Geometry) {
  const TType* Type = FindType(Geometry.Type);
  if (Type == nullptr) return Refuse("a geometry of the unknown type \"" + Geometry.Type + "\"");
  if (Geometry.Points.empty()) {
    ++FCounts.WithoutGeometry;
    return true;
  }
  const uint32_t Depth = Type->PositionDepth;
  bool Nested = Geometry.PositionDepth == Depth;
  for (const TGeometry::TEnd& End : Geometry.Ends) Nested = Nested && End.Depth < Depth;
  if (!Nested) return Refuse("these are no coordinates of a " + Geometry.Type);
  bool GoOn = true;
  if (Type->Shape == TShape::Point) {
    for (size_t i = 0; i < Geometry.Points.size() && GoOn; ++i)
      GoOn = AddItem(*Type, Geometry, i, i + 1);
    return GoOn;
  }
  size_t First = 0;
  bool Outer = true;
  for (const TGeometry::TEnd& End : Geometry.Ends) {
    if (End.Depth + 1 < Depth) Outer = true;  // a polygon has ended
    if (End.Depth + 1 != Depth) continue;
    if (Outer || Type->Shape == TShape::Line) {
      GoOn = GoOn && AddItem(*Type, Geometry, First, End.Points);
    } else {
      ++FCounts.Holes;
    }
    First = End.Points;
    Outer = false;
  }
  return GoOn;
}

bool TGeoJsonHandler::AddItem(const TType& Type, const TGeometry& Geometry, size_t First,
                              size_t Last) {
  const TgdbPolygon& Points = Geometry.Points;
  TReadItem Item = FItem;
  Item.Closed = Type.Shape == TShape::Polygon;
  if (Item.Closed && Last - First > 1 && Points[First] == Points[Last - 1]) --Last;
  const size_t Least = Type.Shape == TShape::Point ? 1 : Type.Shape == TShape::Line ? 2 : 3;
  if (Last - First < Least) return Refuse("a " + Geometry.Type + " of too few positions");
  const auto Kind = FReader.KindOf(Type.Shape, FKind);
  if (!Kind)
    return Refuse("a " + Geometry.Type + " cannot be a " +
                  std::string(GDB_ITEMNAMES[static_cast<size_t>(*FReader.Kind)]));
  Item.Kind = *Kind;
  if (Type.Shape == TShape::Point && !FHasAltitude &&
      std::fabs(Geometry.Altitude.value_or(0)) <= 1e30)
    Item.Altitude = static_cast<float>(Geometry.Altitude.value_or(0));
  Item.Points.assign(Points.begin() + static_cast<std::ptrdiff_t>(First),
                     Points.begin() + static_cast<std::ptrdiff_t>(Last));
  return FReader.Take(Item);
}

}  // namespace

TReadCounts TItemReader::ReadGeoJson(std::istream& Input, const std::string& Name) const {
  TTextSource Source(Input, Name);
  TGeoJsonHandler Handler(*this, Source, Name);
  nlohmann::json::sax_parse(TTextIterator(&Source), TTextIterator(nullptr), &Handler);
  return Handler.Counts();
}

}  // namespace zav

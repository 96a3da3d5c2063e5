// calib_figures_test.cpp - residuals and quality against a computation of its own, and warnings.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <numbers>
#include <ostream>
#include <vector>

#include <QImage>

#include <geobasics/utm.h>

#include "calib_document.h"
#include "viewer_test_support.h"

namespace zav {
namespace {

using Number = long double;
using Row = std::vector<Number>;

// Least squares by normal equations in long double, over columns that are scaled to about 1.
Row Solve(std::vector<Row> A, const Row& B) {
  const size_t n = A[0].size();
  Row Scale(n, 0);
  for (const Row& Each : A)
    for (size_t k = 0; k < n; ++k) Scale[k] = std::max(Scale[k], std::abs(Each[k]));
  std::vector<Row> M(n, Row(n + 1, 0));
  for (size_t i = 0; i < A.size(); ++i)
    for (size_t j = 0; j < n; ++j) {
      for (size_t k = 0; k < n; ++k) M[j][k] += A[i][j] / Scale[j] * (A[i][k] / Scale[k]);
      M[j][n] += A[i][j] / Scale[j] * B[i];
    }
  for (size_t p = 0; p < n; ++p) {
    size_t Best = p;
    for (size_t i = p; i < n; ++i)
      if (std::abs(M[i][p]) > std::abs(M[Best][p])) Best = i;
    std::swap(M[p], M[Best]);
    for (size_t i = 0; i < n; ++i) {
      if (i == p) continue;
      const Number Factor = M[i][p] / M[p][p];
      for (size_t k = p; k <= n; ++k) M[i][k] -= Factor * M[p][k];
    }
  }
  Row X(n);
  for (size_t k = 0; k < n; ++k) X[k] = M[k][n] / M[k][k] / Scale[k];
  return X;
}

Number Dot(const Row& A, const Row& B) {
  Number Sum = 0;
  for (size_t k = 0; k < A.size(); ++k) Sum += A[k] * B[k];
  return Sum;
}

struct Point {
  Number A, B;  // latitude and longitude, or northing and easting
  Number X, Y;
};

struct Pixel {
  Number X, Y;
};

constexpr Number Radian = std::numbers::pi_v<Number> / 180;

// The predicted pixels of the points by the definition of each model.
std::vector<Pixel> Predict(TCalibModel Model, const std::vector<Point>& Points,
                           const std::array<double, 6>& Conic) {
  std::vector<Row> Terms;
  Row X;
  Row Y;
  for (const Point& P : Points) {
    X.push_back(P.X);
    Y.push_back(P.Y);
    if (Model == TCalibModel::cmBiquadraticPn)
      Terms.push_back({1, P.A, P.B, P.A * P.A, P.A * P.B, P.B * P.B});
    else
      Terms.push_back({1, P.A, P.B});
  }
  std::vector<Pixel> Found;
  if (Model == TCalibModel::cmMillerCylindrical) {
    std::vector<Row> Along;
    std::vector<Row> Up;
    for (const Point& P : Points) {
      Along.push_back({1, P.B * Radian});
      Up.push_back({1, std::log(std::tan(P.A * Radian * 0.4L + 45 * Radian))});
    }
    const Row CX = Solve(Along, X);
    const Row CY = Solve(Up, Y);
    for (size_t i = 0; i < Points.size(); ++i) Found.push_back({Dot(CX, Along[i]), Dot(CY, Up[i])});
  } else if (Model == TCalibModel::cmConicConformal) {
    // The pole is the library's, whose search is tested elsewhere; the lines through it are not.
    const Number X0 = Conic[0];
    const Number Y0 = Conic[1];
    std::vector<Row> Radius;
    std::vector<Row> Angle;
    Row Lat;
    Row Long;
    for (const Point& P : Points) {
      Radius.push_back({1, std::hypot(P.X - X0, P.Y - Y0)});
      Angle.push_back({1, std::atan((P.X - X0) / (P.Y - Y0))});
      Lat.push_back(P.A);
      Long.push_back(P.B);
    }
    const Row CR = Solve(Radius, Lat);
    const Row CA = Solve(Angle, Long);
    for (const Point& P : Points) {
      const Number R = (P.A - CR[0]) / CR[1];
      const Number T = (P.B - CA[0]) / CA[1];
      const Number Down = R / std::sqrt(std::tan(T) * std::tan(T) + 1);
      Found.push_back({X0 + Down * std::tan(T), Y0 + Down});
    }
  } else {
    const Row CX = Solve(Terms, X);
    const Row CY = Solve(Terms, Y);
    for (const Row& Each : Terms) Found.push_back({Dot(CX, Each), Dot(CY, Each)});
  }
  return Found;
}

Number GroundDistance(TCoords A, TCoords B) {
  const Number DLat = (B.Latit - A.Latit) * Radian / 2;
  const Number DLong = (B.Longit - A.Longit) * Radian / 2;
  const Number H = std::sin(DLat) * std::sin(DLat) + std::cos(A.Latit * Radian) *
                                                         std::cos(B.Latit * Radian) *
                                                         std::sin(DLong) * std::sin(DLong);
  return 2 * 6371008.8L * std::asin(std::sqrt(H));
}

// The position of a pixel, by the other fit, from pixels to positions.
std::vector<TCoords> ReadOff(TCalibModel Model, const std::vector<Point>& Points,
                             const UtmGrid& Grid) {
  std::vector<Row> Terms;
  Row A;
  Row B;
  for (const Point& P : Points) {
    if (Model == TCalibModel::cmBiquadraticPn)
      Terms.push_back({1, P.X, P.Y, P.X * P.X, P.X * P.Y, P.Y * P.Y});
    else
      Terms.push_back({1, P.X, P.Y});
    A.push_back(P.A);
    B.push_back(P.B);
  }
  const Row CA = Solve(Terms, A);
  const Row CB = Solve(Terms, B);
  std::vector<TCoords> Found;
  for (const Row& Each : Terms) {
    TCoords P{static_cast<double>(Dot(CA, Each)), static_cast<double>(Dot(CB, Each))};
    if (Model == TCalibModel::cmUTM)
      UTMToLatLong(P.Longit, P.Latit, Grid.Zone, Grid.South, Grid.Ellipsoid, P.Latit, P.Longit);
    Found.push_back(P);
  }
  return Found;
}

TEST(CalibFigures, ResidualsAndQualityEqualAnIndependentComputation) {
  const struct {
    const char* Map;
    TCalibModel Model;
  } Cases[] = {
      {"alps_utm32n", TCalibModel::cmUTM},
      {"andes_utm19s", TCalibModel::cmUTM},
      {"world_equirect", TCalibModel::cmEquiRect},
      {"world_miller", TCalibModel::cmMillerCylindrical},
      {"europe_conic", TCalibModel::cmConicConformal},
      {"namerica_lcc", TCalibModel::cmConicConformal},
      {"iberia_bonne", TCalibModel::cmBiquadraticPn},
      {"iberia_bonne", TCalibModel::cmEquiRect},
  };
  for (const auto& Case : Cases) {
    SCOPED_TRACE(testing::Message() << Case.Map << ' ' << static_cast<int>(Case.Model));
    CalibDocument Document;
    ASSERT_EQ(Document.newFromImage(Sample((std::string(Case.Map) + ".jpg").c_str())), "");
    ASSERT_EQ(Document.importPoints(Sample((std::string(Case.Map) + ".points.csv").c_str()),
                                    CalibImport::Append),
              "");
    Document.setModel(Case.Model);
    Document.setEnabled(Document.item(4).Id, false);  // must count nowhere
    const bool Utm = Case.Model == TCalibModel::cmUTM;
    std::vector<Point> Points;
    std::vector<int> Index;
    std::vector<TCoords> Positions;
    for (int i = 0; i < Document.itemCount(); ++i) {
      const CalibItem& Item = Document.item(i);
      if (!Item.Enabled) continue;
      const TCoords Degrees = *Document.degreesOf(Item);
      const UtmMetres Metres = Utm ? *Document.metresOf(Item) : UtmMetres{};
      Points.push_back({Utm ? Metres.Northing : Degrees.Latit,
                        Utm ? Metres.Easting : Degrees.Longit, Number(Item.Pixel.X),
                        Number(Item.Pixel.Y)});
      Index.push_back(i);
      Positions.push_back(Degrees);
    }
    const auto Pixels =
        Predict(Case.Model, Points, Document.calibration().Coefficients().ConicParams);
    const bool Polynomial =
        Utm || Case.Model == TCalibModel::cmEquiRect || Case.Model == TCalibModel::cmBiquadraticPn;
    const auto Read = ReadOff(Case.Model, Points, Document.utmGrid());
    const CalibQuality Quality = Document.quality();
    const auto Count = static_cast<Number>(Points.size());
    Number SumX = 0, SumY = 0, Most = 0, MeanX = 0, MeanY = 0, SumMetres = 0;
    std::vector<Pixel> Whole;  // predicted and rounded minus given
    int Worst = -1;
    for (size_t i = 0; i < Points.size(); ++i) {
      const Number Dx = Pixels[i].X - Points[i].X;
      const Number Dy = Pixels[i].Y - Points[i].Y;
      const CalibResidual Residual = Document.residual(Index[i]);
      ASSERT_TRUE(Residual.Valid);
      EXPECT_NEAR(Residual.Dx, static_cast<double>(Dx), 1e-9);
      EXPECT_NEAR(Residual.Dy, static_cast<double>(Dy), 1e-9);
      EXPECT_NEAR(Residual.Pixels, static_cast<double>(std::hypot(Dx, Dy)), 1e-9);
      if (Polynomial) {
        const Number Metres = GroundDistance(Positions[i], Read[i]);
        EXPECT_NEAR(Residual.Metres, static_cast<double>(Metres), 1e-9 * 111e3);  // of a degree
        SumMetres += Metres * Metres;
      }
      if (std::hypot(Dx, Dy) > Most) Worst = Index[i];
      Most = std::max(Most, std::hypot(Dx, Dy));
      SumX += Dx * Dx;
      SumY += Dy * Dy;
      // A cone computes the column from the rounded row.
      int32_t X = 0;
      int32_t Y = 0;
      if (Case.Model == TCalibModel::cmConicConformal)
        Document.calibration().CalcPixelCoords(Positions[i].Latit, Positions[i].Longit, X, Y);
      else
        X = static_cast<int32_t>(std::nearbyint(Pixels[i].X));
      Whole.push_back({X - Points[i].X, std::nearbyint(Pixels[i].Y) - Points[i].Y});
      MeanX += Whole.back().X / Count;
      MeanY += Whole.back().Y / Count;
    }
    Number VarX = 0, VarY = 0;
    for (const Pixel& Each : Whole) {
      VarX += (Each.X - MeanX) * (Each.X - MeanX) / (Count - 1);
      VarY += (Each.Y - MeanY) * (Each.Y - MeanY) / (Count - 1);
    }
    EXPECT_TRUE(Quality.Valid);
    EXPECT_EQ(Quality.Count, static_cast<int>(Points.size()));
    EXPECT_NEAR(Quality.QualX, static_cast<double>(std::sqrt(VarX)), 1e-9);
    EXPECT_NEAR(Quality.QualY, static_cast<double>(std::sqrt(VarY)), 1e-9);
    EXPECT_NEAR(Quality.RmsX, static_cast<double>(std::sqrt(SumX / Count)), 1e-9);
    EXPECT_NEAR(Quality.RmsY, static_cast<double>(std::sqrt(SumY / Count)), 1e-9);
    EXPECT_NEAR(Quality.Rms, static_cast<double>(std::sqrt((SumX + SumY) / Count)), 1e-9);
    EXPECT_NEAR(Quality.Max, static_cast<double>(Most), 1e-9);
    if (Polynomial) {
      EXPECT_NEAR(Quality.RmsMetres, static_cast<double>(std::sqrt(SumMetres / Count)), 1e-4);
    }
    for (int i = 0; i < Document.itemCount(); ++i)
      EXPECT_EQ(Document.residual(i).Worst, i == Worst) << i;
    EXPECT_TRUE(Document.residual(4).Valid);  // off, but its miss is shown
    EXPECT_TRUE(Document.warnings().empty() || std::string(Case.Map) == "namerica_lcc" ||
                Case.Model == TCalibModel::cmEquiRect)
        << Document.warnings()[0].Text.toStdString();
  }
}

// The points of a straight map of 1000 x 800 pixels, 0.01 degrees a pixel.
void AddGrid(CalibDocument& Document, int Columns, int Rows, int Step = 200) {
  for (int i = 0; i < Columns; ++i)
    for (int k = 0; k < Rows; ++k)
      Document.addPoint(
          CalibPosition::OfDegrees(50 - 0.01 * (50 + k * Step), 0.01 * (50 + i * Step)),
          {50 + i * Step, 50 + k * Step});
}

TEST(CalibFigures, WarningsSayWhatToDo) {
  using enum CalibWarningKind;
  const TestFolder Folder;
  const QString Image = Folder.path("map.bmp");
  ASSERT_TRUE(QImage(1000, 800, QImage::Format_Mono).save(Image));
  const auto Deg = [](double Lat, double Long) { return CalibPosition::OfDegrees(Lat, Long); };
  const struct {
    const char* What;
    std::function<void(CalibDocument&)> Make;
    std::vector<CalibWarningKind> Kinds;
    const char* Text;  // a part of the first one
  } Cases[] = {
      {"good", [](CalibDocument& D) { AddGrid(D, 5, 4); }, {}, ""},
      {"no model",
       [](CalibDocument& D) { D.setModel(TCalibModel::cmUndefined); },
       {NoModel},
       "No model"},
      {"none",
       [](CalibDocument&) {},
       {TooFew},
       "needs at least 3 points, and there is none. Add 3 more"},
      {"two", [](CalibDocument& D) { AddGrid(D, 2, 1); }, {TooFew}, "there are 2. Add 1 more"},
      {"five of six",
       [](CalibDocument& D) {
         AddGrid(D, 5, 1);
         D.setModel(TCalibModel::cmBiquadraticPn);
       },
       {TooFew},
       "needs at least 6 points, and there are 5"},
      {"row", [](CalibDocument& D) { AddGrid(D, 5, 1); }, {Undetermined}, "in a row"},
      {"three",
       [&](CalibDocument& D) {
         AddGrid(D, 2, 1, 800);
         D.addPoint(Deg(42.5, 0.5), {50, 750});
       },
       {NothingToCheck},
       "just enough"},
      {"corner",
       [](CalibDocument& D) { AddGrid(D, 3, 3, 40); },
       {FarCorner},
       "(bottom left, bottom right, top right)"},
      {"outside",
       [&](CalibDocument& D) {
         AddGrid(D, 5, 4);
         D.addPoint(Deg(50.5, 3), {300, -50}, "Mill");
       },
       {OutsideImage},
       "Point 21 (Mill) is outside the image, at pixel 300, -50"},
      {"wrong pixel",
       [&](CalibDocument& D) {
         AddGrid(D, 5, 4);
         D.moveItem(D.item(6).Id, {290, 450});
       },
       {Disagrees},
       "Point 7 disagrees with the rest"},
      {"west for east",
       [&](CalibDocument& D) {
         AddGrid(D, 5, 4);
         D.setPosition(D.item(6).Id, Deg(45.5, -2.5));
       },
       {Disagrees},
       "fits on the other side of Greenwich"},
      {"exchanged",
       [&](CalibDocument& D) {
         AddGrid(D, 5, 4);
         D.setPosition(D.item(6).Id, Deg(2.5, 45.5));
       },
       {Disagrees},
       "latitude and longitude exchanged"},
      {"zone 60",
       [](CalibDocument& D) {
         for (int Line = 0; Line < 3; ++Line)
           for (int Column = 0; Column < 3; ++Column)
             D.addPoint(
                 CalibPosition::OfUtm(5000000 - Line * 35000, 400000 + Column * 45000, 60, false),
                 {50 + Column * 450, 50 + Line * 350});
         D.setModel(TCalibModel::cmUTM);
       },
       {NotStored},
       "zone 60"},
      {"two zones",
       [](CalibDocument& D) {
         for (int Line = 0; Line < 3; ++Line)
           for (int Column = 0; Column < 3; ++Column)
             D.addPoint(CalibPosition::OfDegrees(45 - Line * 0.3, 8 + Column * 0.5),
                        {50 + Column * 450, 50 + Line * 350});
         D.setModel(TCalibModel::cmUTM);
         double Easting = 0;
         double Northing = 0;
         LatLongToUTMZone(45, 8.5, 33, D.ellipsoid(), Easting, Northing);
         D.setPosition(D.item(1).Id, CalibPosition::OfUtm(Northing, Easting, 33, false));
       },
       {OtherZone},
       "Point 2 lies in zone 33, the map is in zone 32"},
      {"fine map",
       [&](CalibDocument& D) {
         for (int Line = 0; Line < 3; ++Line)
           for (int Column = 0; Column < 3; ++Column)
             D.addPoint(Deg(47.123456789 - Line * 0.0015, 8.123456789 + Column * 0.002),
                        {50 + Column * 450, 50 + Line * 350});
       },
       {PixelsTooFine},
       "five decimals"},
      {"graticule",
       [](CalibDocument& D) {
         D.setModel(TCalibModel::cmParabolicIp);
         for (int i = 0; i < 3; ++i)
           D.addLinePoint(TGratLineKind::gtlMeridian, 10, {100 + i, 100 + i * 200});
         D.addLinePoint(TGratLineKind::gtlParallel, 45, {100, 300});
       },
       {TooFew, LineNotUsed},
       "complete are 1 and 0"},
  };
  for (const auto& Case : Cases) {
    CalibDocument Document;
    ASSERT_EQ(Document.newFromImage(Image), "");
    Case.Make(Document);
    std::vector<CalibWarningKind> Kinds;
    std::string Text;
    for (const CalibWarning& Each : Document.warnings()) {
      Kinds.push_back(Each.Kind);
      Text += Each.Text.toStdString() + "\n";
    }
    EXPECT_EQ(Kinds, Case.Kinds) << Case.What << ": " << Text;
    EXPECT_NE(Text.find(Case.Text), std::string::npos) << Case.What << ": " << Text;
  }
}

}  // namespace
}  // namespace zav

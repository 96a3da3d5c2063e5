// view_layout_test.cpp - where a map stands in the window, and how dense its graticule is.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "view_layout.h"

namespace zav {
namespace {

TEST(ViewLayout, MapFillsTheWindowOrStandsInTheMiddle) {
  const TSize Control{1000, 500};
  const struct {
    TViewState View;
    TSize Map;
    TPoint TopLeft;
  } Cases[] = {
      {{{-50, 700}, 1}, {2000, 1000}, {0, 500}},  // brought to the edges
      {{{1500, 100}, 1}, {2000, 1000}, {1000, 100}},
      {{{30, 30}, 1}, {400, 1000}, {-300, 30}},    // narrower than the window
      {{{0, 0}, 0.5}, {1000, 600}, {-500, -200}},  // smaller on both sides
      {{{0, 0}, 2}, {500, 250}, {0, 0}},           // fits exactly
  };
  for (const auto& Case : Cases)
    EXPECT_EQ(TidyView(Case.View, Control, Case.Map).TopLeft, Case.TopLeft);
}

TEST(ViewLayout, FitsAndMagnifiesAboutTheMiddle) {
  const TSize Control{1000, 500};
  EXPECT_EQ(FittedView({}, Control, {2000, 1500}, 1), (TViewState{{-500, 0}, 1.0 / 3}));
  EXPECT_EQ(FittedView({}, Control, {100, 100}, 2), (TViewState{{-200, -75}, 2}));
  const TViewState Before{{7, 8}, 0.75};
  EXPECT_EQ(FittedView(Before, Control, {0, 0}, 1), Before);
  EXPECT_EQ(FittedView(Before, {0, 0}, {100, 100}, 1), Before);
  EXPECT_EQ(WithMagnification({{100, 100}, 1}, Control, 2), (TViewState{{350, 225}, 2}));
}

TEST(ViewLayout, GraticuleIsNeitherDenseNorEmpty) {
  for (const double MetresPerPixel : {0.5, 12.0, 85.0, 290.0, 2980.0, 26688.0})
    for (const double Magnification : {0.4, 0.5, 1.0, 2.0}) {
      const double Spacing = GraticuleSpacing(MetresPerPixel, Magnification);
      const double Pixels = Spacing * 111320 / MetresPerPixel * Magnification;
      EXPECT_GE(Pixels, Spacing < 45 ? 70 : 60) << MetresPerPixel << " " << Magnification;
      EXPECT_LE(Pixels, 180) << MetresPerPixel << " " << Magnification;
    }
  EXPECT_EQ(GraticuleSpacing(0, 1), 0);
}

}  // namespace
}  // namespace zav

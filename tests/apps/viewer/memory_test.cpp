// memory_test.cpp - what is done over and over takes no more memory each time.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <malloc.h>

#include <functional>

#include <QApplication>
#include <QImage>

#include <platform/qt/geo_map_widget.h>

#include "calib_document.h"
#include "viewer_test_support.h"

#ifdef __SANITIZE_ADDRESS__
// Of the sanitizer; g++ has it, but no header for it. NOLINTNEXTLINE(bugprone-reserved-identifier)
extern "C" size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace zav {
namespace {

size_t BytesInUse() {
#ifdef __SANITIZE_ADDRESS__
  return __sanitizer_get_current_allocated_bytes();
#else
  const struct mallinfo2 Info = mallinfo2();
  return Info.uordblks + Info.hblkhd;
#endif
}

// Nine thousand rounds more must not need as much as a byte each.
void ExpectFlat(const char* What, const std::function<void(int)>& Round) {
  int Done = 0;
  for (; Done < 1000; ++Done) Round(Done);
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  const size_t Before = BytesInUse();
  for (; Done < 10000; ++Done) Round(Done);
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  const size_t After = BytesInUse();
  EXPECT_LT(After, Before + 9000) << What << ": " << Before << " bytes before";
}

TEST(Memory, StaysFlatOverTenThousandRepaintsLoadsAndUndoSteps) {
  const TestFolder Folder;
  ASSERT_TRUE(QImage(40, 30, QImage::Format_Mono).save(Folder.path("map.bmp")));
  const QString Map = Folder.write("map.xml", CalibrationText("map.bmp", "A"));

  GeoMapWidget Widget;
  Widget.resize(60, 40);
  ASSERT_TRUE(Widget.loadMap(Map));
  Widget.setShowGraticule(GeoMapWidget::Graticule::Lines);
  ExpectFlat("repaints", [&](int Round) {
    Widget.setMagnification(Round % 2 == 0 ? 1 : 0.7);
    Widget.grab();
  });
  ExpectFlat("loads", [&](int) { ASSERT_TRUE(Widget.loadMap(Map)); });

  CalibDocument Document;
  ASSERT_EQ(Document.load(Map), "");
  for (int i = 0; i < 50; ++i) Document.addPoint(CalibPosition::OfDegrees(45, i % 9), {i % 40, 7});
  ExpectFlat("undo steps", [&](int Round) {
    if (Round / 50 % 2 == 0)
      Document.undo();
    else
      Document.redo();
    Document.quality();
  });
}

}  // namespace
}  // namespace zav

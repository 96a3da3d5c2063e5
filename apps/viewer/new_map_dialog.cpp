// new_map_dialog.cpp - see new_map_dialog.h.
// SPDX-License-Identifier: MIT
#include "new_map_dialog.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPixmap>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <geomap/geo_map.h>
#include <platform/base/round125.h>
#include <platform/base/rounding.h>
#include <platform/qt/qt_convert.h>
#include <platform/qt/qt_host.h>
#include <platform/qt/qt_image.h>
#include <platform/raster/raster_canvas.h>

#include "reason_text.h"

namespace zav {

namespace {

constexpr int MinSide = MinEmptyMapSide;
constexpr int MaxSide = MaxMapPixels / MinEmptyMapSide;
constexpr QSize LeastPreview(460, 340);

QDoubleSpinBox* Degrees(const QString& Name, double Low, double High, int Decimals) {
  auto* Box = new QDoubleSpinBox;
  Box->setAccessibleName(Name);
  Box->setRange(Low, High);
  Box->setDecimals(Decimals);
  Box->setSuffix(QStringLiteral("\u00b0"));
  Box->setStepType(QAbstractSpinBox::AdaptiveDecimalStepType);
  Box->setKeyboardTracking(true);
  return Box;
}

QSpinBox* Pixels(const QString& Name) {
  auto* Box = new QSpinBox;
  Box->setAccessibleName(Name);
  Box->setRange(MinSide, MaxSide);
  Box->setSingleStep(50);
  Box->setSuffix(NewMapDialog::tr(" px"));
  return Box;
}

NewMapDialog::Rectangle AroundCorners(const TCornerArray& Corners) {
  NewMapDialog::Rectangle Box{90, 360, -90, -360};
  for (const TCoords& Each : Corners) {
    Box.South = std::min(Box.South, Each.Latit);
    Box.North = std::max(Box.North, Each.Latit);
    Box.West = std::min(Box.West, Each.Longit);
    Box.East = std::max(Box.East, Each.Longit);
  }
  // Rounder numbers, outside of the corners.
  const auto Widen = [](double& Low, double& High, double Limit) {
    const double Step = Round125((High - Low) / 50);
    if (!(Step > 0)) return;
    Low = std::max(std::floor(Low / Step) * Step, -Limit);
    High = std::min(std::ceil(High / Step) * Step, Limit);
  };
  Widen(Box.South, Box.North, 90);
  Widen(Box.West, Box.East, 360);
  return Box;
}

}  // namespace

NewMapDialog::NewMapDialog(const std::optional<TCornerArray>& Around, QWidget* Parent)
    : QDialog(Parent),
      FSouth(Degrees(tr("South"), -90, 90, 5)),
      FWest(Degrees(tr("West"), -360, 360, 5)),
      FNorth(Degrees(tr("North"), -90, 90, 5)),
      FEast(Degrees(tr("East"), -360, 360, 5)),
      FLatGrid(Degrees(tr("Between parallels"), 0.0001, 90, 4)),
      FLongGrid(Degrees(tr("Between meridians"), 0.0001, 180, 4)),
      FWidth(Pixels(tr("Width"))),
      FHeight(Pixels(tr("Height"))),
      FProportional(new QCheckBox(tr("&Height as on the ground, in the middle"))),
      FPreview(new QLabel),
      FProblem(new QLabel),
      FCreate(new QPushButton(tr("&Create..."))) {
  setWindowTitle(tr("New Map"));
  auto* Fields = new QGridLayout;
  const auto Add = [&](int Row, int Column, const QString& Text, QWidget* Field) {
    auto* Label = new QLabel(Text);
    Label->setBuddy(Field);
    Fields->addWidget(Label, Row, 2 * Column);
    Fields->addWidget(Field, Row, 2 * Column + 1);
  };
  // As they lie on the map.
  Add(0, 0, tr("&North:"), FNorth);
  Add(1, 0, tr("&South:"), FSouth);
  Add(0, 1, tr("&West:"), FWest);
  Add(1, 1, tr("&East:"), FEast);
  Add(2, 0, tr("Between &parallels:"), FLatGrid);
  Add(2, 1, tr("Between &meridians:"), FLongGrid);
  Add(3, 0, tr("W&idth:"), FWidth);
  Add(3, 1, tr("Hei&ght:"), FHeight);
  Fields->addWidget(FProportional, 4, 0, 1, 4);
  FProportional->setChecked(true);
  FPreview->setMinimumSize(LeastPreview);
  FPreview->setAlignment(Qt::AlignCenter);
  FPreview->setFrameStyle(QFrame::Panel | QFrame::Sunken);
  FPreview->setAccessibleName(tr("Preview"));
  FProblem->setTextFormat(Qt::PlainText);
  FProblem->setWordWrap(true);
  FProblem->setMinimumHeight(fontMetrics().lineSpacing());
  auto* Buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
  Buttons->addButton(FCreate, QDialogButtonBox::AcceptRole);
  FCreate->setDefault(true);
  auto* Layout = new QVBoxLayout(this);
  Layout->addLayout(Fields);
  Layout->addWidget(FPreview, 1);
  Layout->addWidget(FProblem);
  Layout->addWidget(Buttons);

  for (QDoubleSpinBox* Box : {FSouth, FWest, FNorth, FEast})
    connect(Box, &QDoubleSpinBox::valueChanged, this, &NewMapDialog::rectangleChanged);
  for (QDoubleSpinBox* Box : {FLatGrid, FLongGrid})
    connect(Box, &QDoubleSpinBox::valueChanged, this, [this] {
      FGridChosen = true;
      update();
    });
  connect(FWidth, &QSpinBox::valueChanged, this, &NewMapDialog::rectangleChanged);
  connect(FHeight, &QSpinBox::valueChanged, this, &NewMapDialog::update);
  connect(FProportional, &QCheckBox::toggled, this, [this](bool On) {
    FHeight->setEnabled(!On);
    rectangleChanged();
  });
  connect(Buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(Buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  FHeight->setEnabled(false);
  {
    const QSignalBlocker Quiet(FWidth);
    FWidth->setValue(1000);
  }
  setRectangle(Around ? AroundCorners(*Around) : Rectangle{45, 5, 50, 15});
}

void NewMapDialog::setRectangle(const Rectangle& Degrees) {
  for (const auto& [Box, Value] :
       {std::pair{FSouth, Degrees.South}, std::pair{FWest, Degrees.West},
        std::pair{FNorth, Degrees.North}, std::pair{FEast, Degrees.East}}) {
    const QSignalBlocker Quiet(Box);
    Box->setValue(Value);
  }
  rectangleChanged();
}

void NewMapDialog::setWidthInPixels(int Pixels) { FWidth->setValue(Pixels); }

void NewMapDialog::rectangleChanged() {
  if (!FGridChosen) suggestGrid();
  if (FProportional->isChecked()) followProportions();
  update();
}

// Some eight lines each way.
void NewMapDialog::suggestGrid() {
  const auto Suggest = [](QDoubleSpinBox& Box, double Span) {
    const QSignalBlocker Quiet(&Box);
    if (Span > 0) Box.setValue(Round125(Span / 8));
  };
  Suggest(*FLatGrid, FNorth->value() - FSouth->value());
  Suggest(*FLongGrid, FEast->value() - FWest->value());
}

void NewMapDialog::followProportions() {
  const double High = FNorth->value() - FSouth->value();
  const double Middle = (FNorth->value() + FSouth->value()) / 2 * std::numbers::pi / 180;
  const double Wide = (FEast->value() - FWest->value()) * std::cos(Middle);
  if (!(High > 0) || !(Wide > 0)) return;
  const QSignalBlocker Quiet(FHeight);
  FHeight->setValue(RoundHalfEven(std::min<double>(FWidth->value() * High / Wide, MaxSide)));
}

QString NewMapDialog::problem() const {
  if (!(FSouth->value() < FNorth->value())) return tr("South must be below north.");
  if (!(FWest->value() < FEast->value()))
    return tr("West must be below east. A map across 180\u00b0 goes on beyond it: 170 to 190.");
  const auto Size = static_cast<qlonglong>(FWidth->value()) * FHeight->value();
  if (Size > MaxMapPixels)
    return tr("The map would have %1 pixels, and may have %2.")
        .arg(QLocale().toString(Size), QLocale().toString(MaxMapPixels));
  return {};
}

std::optional<TEmptyMap> NewMapDialog::plan() const {
  if (!problem().isEmpty()) return std::nullopt;
  return MakeEmptyMap(FSouth->value(), FWest->value(), FNorth->value(), FEast->value(),
                      FLatGrid->value(), FLongGrid->value(), FWidth->value(), FHeight->value(),
                      false);
}

void NewMapDialog::update() {
  const std::optional<TEmptyMap> Map = plan();
  FProblem->setText(problem());
  FCreate->setEnabled(Map.has_value());
  FPreviewImage = QImage();
  if (Map) {
    TQtHost Host;
    TBitmap Bitmap(Map->Width, Map->Height, TPixelFormat::pf24bit);
    TRasterCanvas Canvas(Bitmap, &Host.Fonts());
    DrawEmptyMap(*Map, Canvas);
    FPreviewImage = WrapBitmap(Bitmap).copy();
  }
  showPreview();
}

void NewMapDialog::showPreview() {
  if (FPreviewImage.isNull()) {
    FPreview->clear();
    return;
  }
  const double Ratio = devicePixelRatioF();
  const QSize Room = FPreview->contentsRect().size() * Ratio;
  QPixmap Picture = QPixmap::fromImage(FPreviewImage);
  if (Picture.width() > Room.width() || Picture.height() > Room.height())
    Picture = Picture.scaled(Room, Qt::KeepAspectRatio, Qt::SmoothTransformation);
  Picture.setDevicePixelRatio(Ratio);
  FPreview->setPixmap(Picture);
}

void NewMapDialog::resizeEvent(QResizeEvent* Event) {
  QDialog::resizeEvent(Event);
  showPreview();
}

QString WriteEmptyMap(const TEmptyMap& Map, const QString& Path) {
  try {
    TQtHost Host;
    TGeoMap Writer(nullptr, Host);
    Writer.SetSuppressPaint(true);
    Writer.CreateAndLoadEmptyMap(FromQString(Path), Map.LatLow, Map.LongLow, Map.LatHigh,
                                 Map.LongHigh, Map.LatGridDist, Map.LongGridDist, Map.Width,
                                 Map.Height, nullptr);
    return {};
  } catch (const std::exception& Error) {
    return ReasonText(Error.what());
  }
}

}  // namespace zav

// landmark_panel.cpp - see landmark_panel.h.
// SPDX-License-Identifier: MIT
#include "landmark_panel.h"

#include <cmath>
#include <limits>

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFontComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QToolButton>
#include <QVBoxLayout>

#include <geomap/landmarks/xml_records.h>
#include <platform/qt/qt_convert.h>

#include "common/landmark_fields.h"
#include "landmark_palette.h"
#include "landmark_symbol_editor.h"
#include "position_parser.h"
#include "reason_text.h"

namespace zav {

namespace {

constexpr int Least = std::numeric_limits<int>::min();
constexpr int Most = std::numeric_limits<int>::max();

// Through the texts that tables have, too.
QString StoreField(TLandMark& LandMark, TLandMarkField Field, const QString& Text) {
  try {
    if (SetLandMarkField(LandMark, Field, FromQString(Text.trimmed()), true)) return {};
    return LandmarkPanel::tr("That is too long for a landmark file, and was cut.");
  } catch (const std::exception& Error) {
    return ReasonText(Error.what());
  }
}

QString LoadField(const TLandMark& LandMark, TLandMarkField Field) {
  return ToQString(LandMarkFieldText(LandMark, Field));
}

QString StorePosition(TLandMark& LandMark, const QString& Text) {
  const TypedPosition Typed = ParseTypedPosition(Text);
  if (!Typed.Position) return Typed.Problem;
  const std::optional<TCoords> Degrees = DegreesOf(*Typed.Position, {});
  if (!Degrees) return LandmarkPanel::tr("UTM metres need their zone here, as 32T 470693 5150563.");
  LandMark.Latitude = Degrees->Latit;
  LandMark.Longitude = Degrees->Longit;
  return {};
}

}  // namespace

LandmarkPanel::LandmarkPanel(LandmarkPalette& Palette, QWidget* Parent) : QTabWidget(Parent) {
  addTab(makeLandmarkPage(), tr("Lan&dmark"));
  addTab(makeSymbolPage(Palette), tr("Sym&bol"));
  addTab(makeCaptionPage(), tr("Capti&on"));
}

// --- pages

QWidget* LandmarkPanel::makeLandmarkPage() {
  auto* Page = new QWidget(this);
  auto* Layout = new QFormLayout(Page);
  FTitle = new QLabel(Page);
  FTitle->setWordWrap(true);
  Layout->addRow(FTitle);
  FCaption = addText(
      *Layout, tr("Captio&n:"), tr("Caption"),
      [](const TLandMark& LandMark) { return LoadField(LandMark, TLandMarkField::lfName); },
      [](TLandMark& LandMark, const QString& Text) {
        return StoreField(LandMark, TLandMarkField::lfName, Text);
      },
      true);
  connect(FCaption, &QLineEdit::returnPressed, this, &LandmarkPanel::captionEntered);
  FPosition = addText(
      *Layout, tr("&Position:"), tr("Position"),
      [this](const TLandMark& LandMark) { return positionText(LandMark); }, StorePosition, false);
  FOfPlace.push_back(FPosition);
  auto* Class = addNumber(
      tr("Class"), 0, 255, [](const TLandMark& LandMark) { return LandMark.ClassFlag; },
      [](TLandMark& LandMark, int Value) { LandMark.ClassFlag = static_cast<uint8_t>(Value); });
  Class->setToolTip(tr("Landmarks are shown, hidden and deleted by class, 0 to 255"));
  Layout->addRow(tr("Cla&ss:"), Class);
  const struct {
    QString Label, Name;
    TLandMarkField Field;
  } Texts[] = {{tr("&Identifier:"), tr("Identifier"), TLandMarkField::lfId},
               {tr("&Altitude:"), tr("Altitude"), TLandMarkField::lfAltitude},
               {tr("Ti&me:"), tr("Time"), TLandMarkField::lfTime}};
  for (const auto& Each : Texts) {
    const TLandMarkField Field = Each.Field;
    QLineEdit* Edit = addText(
        *Layout, Each.Label, Each.Name,
        [Field](const TLandMark& LandMark) { return LoadField(LandMark, Field); },
        [Field](TLandMark& LandMark, const QString& Text) {
          const bool Number = Field == TLandMarkField::lfAltitude;
          return StoreField(LandMark, Field, Number && Text.trimmed().isEmpty() ? "0" : Text);
        },
        false);
    if (Field == TLandMarkField::lfTime) Edit->setPlaceholderText(tr("2024-02-29 13:45"));
  }
  Layout->addRow(tr("Tag:"),
                 addNumber(
                     tr("Tag"), Least, Most, [](const TLandMark& LandMark) { return LandMark.Tag; },
                     [](TLandMark& LandMark, int Value) { LandMark.Tag = Value; }));
  return Page;
}

QWidget* LandmarkPanel::makeSymbolPage(LandmarkPalette& Palette) {
  auto* Page = new QWidget(this);
  auto* Layout = new QVBoxLayout(Page);
  Palette.setMinimumHeight(84);
  Layout->addWidget(&Palette, 1);
  FSymbol = new SymbolEditor(Page);
  Layout->addWidget(FSymbol);
  FLoaders.emplace_back([this] { FSymbol->setSymbol(FShown.SymbolProps); });
  connect(FSymbol, &SymbolEditor::edited, this, [this] {
    change(tr("Symbol"), [&](TLandMark& LandMark) { LandMark.SymbolProps = FSymbol->symbol(); });
  });
  connect(&Palette, &LandmarkPalette::chosen, this, [this](const TSymbolProperties& Symbol) {
    emit finished();
    change(tr("Symbol"), [&](TLandMark& LandMark) { LandMark.SymbolProps = Symbol; });
    emit finished();
  });
  return Page;
}

QWidget* LandmarkPanel::makeCaptionPage() {
  auto* Page = new QWidget(this);
  auto* Layout = new QFormLayout(Page);
  auto* Font = new QFontComboBox(Page);
  Font->setAccessibleName(tr("Font"));
  Font->setEditable(true);
  FLoaders.emplace_back([this, Font] {
    if (!Font->hasFocus()) Font->setEditText(ToQString(FShown.Caption.FontName));
  });
  connect(Font, &QComboBox::textActivated, this, [this](const QString& Name) {
    if (IsRecordText(FromQString(Name)))
      change(tr("Font"),
             [&](TLandMark& LandMark) { LandMark.Caption.FontName = FromQString(Name); });
  });
  connect(Font->lineEdit(), &QLineEdit::editingFinished, this, [this, Font] {
    const QString Name = Font->currentText();
    if (IsRecordText(FromQString(Name)))
      change(tr("Font"),
             [&](TLandMark& LandMark) { LandMark.Caption.FontName = FromQString(Name); });
    emit finished();
  });
  Layout->addRow(tr("Fo&nt:"), Font);
  const auto Number = [this](const QString& Name, int Low, int High,
                             int32_t TLMTextProperties::*Field) {
    return addNumber(
        Name, Low, High, [Field](const TLandMark& LandMark) { return LandMark.Caption.*Field; },
        [Field](TLandMark& LandMark, int Value) { LandMark.Caption.*Field = Value; });
  };
  Layout->addRow(tr("Si&ze:"), Number(tr("Size of the caption"), 1, 200, &TLMTextProperties::Size));
  addStyles(*Layout);
  auto* Ground = new QCheckBox(tr("Gro&und"), Page);
  FLoaders.emplace_back([this, Ground] { Ground->setChecked(!FShown.Caption.Transparent); });
  connect(Ground, &QCheckBox::clicked, this, [this](bool On) {
    change(tr("Caption"), [&](TLandMark& LandMark) { LandMark.Caption.Transparent = !On; });
    emit finished();
  });
  auto* Colors = new QHBoxLayout;
  Colors->addWidget(addColor(tr("Colour of the caption"), &TLMTextProperties::FGColor));
  Colors->addWidget(Ground);
  Colors->addWidget(addColor(tr("Ground of the caption"), &TLMTextProperties::BGColor));
  Colors->addStretch(1);
  Layout->addRow(tr("Colours:"), Colors);
  addAlignments(*Layout);
  auto* Offset = new QHBoxLayout;
  Offset->addWidget(Number(tr("Caption to the right"), -9999, 9999, &TLMTextProperties::dx));
  Offset->addWidget(Number(tr("Caption down"), -9999, 9999, &TLMTextProperties::dy));
  Layout->addRow(tr("Right, down:"), Offset);
  auto* Direction =
      Number(tr("Direction of the caption"), -360, 360, &TLMTextProperties::Direction);
  Direction->setSuffix(tr("\302\260"));
  Direction->setToolTip(tr("Degrees, counter-clockwise"));
  Layout->addRow(tr("Tu&rned:"), Direction);
  return Page;
}

void LandmarkPanel::addStyles(QFormLayout& Layout) {
  auto* Row = new QHBoxLayout;
  const struct {
    QString Letter, Name;
    TFontStyles Style;
  } Styles[] = {{tr("B"), tr("Bold"), fsBold},
                {tr("I"), tr("Italic"), fsItalic},
                {tr("U"), tr("Underlined"), fsUnderline},
                {tr("S"), tr("Struck out"), fsStrikeOut}};
  for (const auto& Each : Styles) {
    auto* Button = new QToolButton(this);
    Button->setText(Each.Letter);
    Button->setToolTip(Each.Name);
    Button->setAccessibleName(Each.Name);
    Button->setCheckable(true);
    QFont Font = Button->font();
    Font.setBold(Each.Style == fsBold);
    Font.setItalic(Each.Style == fsItalic);
    Font.setUnderline(Each.Style == fsUnderline);
    Font.setStrikeOut(Each.Style == fsStrikeOut);
    Button->setFont(Font);
    const TFontStyles Style = Each.Style;
    FLoaders.emplace_back(
        [this, Button, Style] { Button->setChecked((FShown.Caption.FontStyles & Style) != 0); });
    connect(Button, &QToolButton::clicked, this, [this, Style](bool On) {
      change(tr("Caption"), [&](TLandMark& LandMark) {
        const unsigned Others = LandMark.Caption.FontStyles & ~unsigned{Style};
        LandMark.Caption.FontStyles = static_cast<TFontStyles>(Others | (On ? Style : 0U));
      });
      emit finished();
    });
    Row->addWidget(Button);
  }
  Row->addStretch(1);
  Layout.addRow(tr("Style:"), Row);
}

// The side of the caption that is at the landmark, told by where the caption then is.
void LandmarkPanel::addAlignments(QFormLayout& Layout) {
  auto* Across = new QComboBox(this);
  Across->setAccessibleName(tr("Caption across"));
  Across->addItems({tr("to the right"), tr("to the left"), tr("in the middle")});
  auto* Down = new QComboBox(this);
  Down->setAccessibleName(tr("Caption up and down"));
  Down->addItems({tr("below"), tr("beside"), tr("above")});
  FLoaders.emplace_back([this, Across, Down] {
    Across->setCurrentIndex(static_cast<int>(FShown.Caption.HAlignment));
    Down->setCurrentIndex(static_cast<int>(FShown.Caption.VAlignment));
  });
  connect(Across, &QComboBox::activated, this, [this](int Row) {
    change(tr("Caption"), [&](TLandMark& LandMark) {
      LandMark.Caption.HAlignment = static_cast<THorizontalAlignment>(Row);
    });
    emit finished();
  });
  connect(Down, &QComboBox::activated, this, [this](int Row) {
    change(tr("Caption"), [&](TLandMark& LandMark) {
      LandMark.Caption.VAlignment = static_cast<TVerticalAlignment>(Row);
    });
    emit finished();
  });
  auto* Row = new QHBoxLayout;
  Row->addWidget(Across);
  Row->addWidget(Down);
  Layout.addRow(tr("Place:"), Row);
}

// --- fields

QLineEdit* LandmarkPanel::addText(QFormLayout& Layout, const QString& Label, const QString& Name,
                                  const Load& LoadText, const Store& StoreText, bool AtOnce) {
  auto* Edit = new QLineEdit(this);
  Edit->setAccessibleName(Name);
  Layout.addRow(Label, Edit);
  FLoaders.emplace_back([this, Edit, LoadText, StoreText] {
    const QString Text = LoadText(FShown);
    // "47,50" stays as typed as long as it means the value shown.
    TLandMark Typed = FShown;
    const bool Same =
        Edit->hasFocus() && StoreText(Typed, Edit->text()).isEmpty() && Typed == FShown;
    if (Same || Edit->text() == Text) return;
    Edit->setText(Text);
    Edit->setCursorPosition(0);
  });
  const auto Take = [this, Edit, Name, StoreText] {
    TLandMark New = FShown;
    const QString Reason = StoreText(New, Edit->text());
    if (!Reason.isEmpty()) emit refused(Reason);
    if (!(New == FShown)) change(Name, [&](TLandMark& LandMark) { LandMark = New; });
  };
  if (AtOnce) connect(Edit, &QLineEdit::textEdited, this, Take);
  connect(Edit, &QLineEdit::editingFinished, this, [this, Edit, LoadText, Take] {
    if (Edit->isModified()) Take();
    Edit->setText(LoadText(FShown));
    Edit->setModified(false);
    emit finished();
  });
  return Edit;
}

QSpinBox* LandmarkPanel::addNumber(const QString& Name, int Low, int High,
                                   const std::function<int(const TLandMark&)>& LoadNumber,
                                   const std::function<void(TLandMark&, int)>& StoreNumber) {
  auto* Box = new QSpinBox(this);
  Box->setRange(Low, High);
  Box->setAccessibleName(Name);
  FLoaders.emplace_back([this, Box, LoadNumber] { Box->setValue(LoadNumber(FShown)); });
  connect(Box, &QSpinBox::valueChanged, this, [this, Name, StoreNumber](int Value) {
    change(Name, [&](TLandMark& LandMark) { StoreNumber(LandMark, Value); });
  });
  connect(Box, &QSpinBox::editingFinished, this, &LandmarkPanel::finished);
  return Box;
}

ColorButton* LandmarkPanel::addColor(const QString& Name, TColor TLMTextProperties::*Color) {
  auto* Button = new ColorButton(Name, this);
  FLoaders.emplace_back([this, Button, Color] { Button->setColor(FShown.Caption.*Color); });
  connect(Button, &ColorButton::chosen, this, [this, Color](TColor Chosen) {
    change(tr("Caption"), [&](TLandMark& LandMark) { LandMark.Caption.*Color = Chosen; });
    emit finished();
  });
  return Button;
}

void LandmarkPanel::change(const QString& Field, const std::function<void(TLandMark&)>& Change) {
  if (FShowing) return;
  Change(FShown);
  emit edited(Field);
}

// --- showing

QString LandmarkPanel::positionText(const TLandMark& LandMark) const {
  if (FIsLook) return {};
  // All digits, so that leaving the field does not move the landmark.
  return TypedText(CalibPosition::OfDegrees(LandMark.Latitude, LandMark.Longitude));
}

void LandmarkPanel::show(const TLandMark& LandMark, bool IsLook) {
  FShown = LandMark;
  FIsLook = IsLook;
  FTitle->setText(IsLook ? tr("<b>New landmarks</b> get these values.")
                         : tr("<b>The selected landmark</b>"));
  for (QWidget* Each : FOfPlace) Each->setEnabled(!IsLook);
  FShowing = true;
  for (const auto& Loader : FLoaders) Loader();
  FShowing = false;
}

void LandmarkPanel::focusCaption() {
  setCurrentIndex(0);
  FCaption->setFocus();
  FCaption->selectAll();
}

}  // namespace zav

// qt_fonts.cpp - text as masks of coverage, by Qt's fonts.
// SPDX-License-Identifier: MIT
#include <platform/qt/qt_fonts.h>

#include <algorithm>
#include <string>

#include <QFontDatabase>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QRect>
#include <QTransform>

#include <platform/base/errors.h>
#include <platform/base/rounding.h>
#include <platform/qt/qt_convert.h>

// Outside the namespace, as the macro demands. A static library's resources are linked in only so.
static void InitFontResource() { Q_INIT_RESOURCE(zavgeo_fonts); }

namespace zav {

namespace {

constexpr const char* ShippedFamily = "Liberation Sans";
constexpr int64_t MaxMaskPixels = 32000000;
constexpr size_t MaxCacheBytes = 4 << 20;
constexpr size_t MaxFaces = 64;
constexpr int MaxScreenPixels = 1000;  // a glyph's height
constexpr int MaxPagePixels = 20000;

// Registers the built-in faces with Qt, once a process.
void LoadShippedFonts() {
  static const bool Loaded = [] {
    InitFontResource();
    for (const char* Face : {"Regular", "Bold", "Italic", "BoldItalic"}) {
      const QString Path =
          QStringLiteral(":/zavgeo/fonts/LiberationSans-%1.ttf").arg(QLatin1String(Face));
      if (QFontDatabase::addApplicationFont(Path) < 0)
        throw EZAVError("Font cannot be loaded: " + Path.toStdString());
    }
    return true;
  }();
  static_cast<void>(Loaded);
}

void RequireFonts() {
  if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()) == nullptr)
    throw EZAVError("Text cannot be drawn before a QGuiApplication has been made");
  LoadShippedFonts();
}

QString FamilyFor(const std::string& Name) {
  QString Family = QString::fromStdString(Name);
  const bool Substituted = Family.compare(QLatin1String("MS Sans Serif"), Qt::CaseInsensitive) == 0;
  if (Substituted || Family.isEmpty() || !QFontDatabase::hasFamily(Family))
    return QString::fromLatin1(ShippedFamily);
  return Family;
}

// What faces of screen and page have in common.
QFont StyledFont(const TFont& Font, int MostPixels) {
  QFont Result(FamilyFor(Font.Name));
  Result.setPixelSize(std::clamp(RoundHalfEven(Font.Size * 96.0 / 72.0), 1, MostPixels));
  Result.setBold((Font.Styles & fsBold) != 0);
  Result.setItalic((Font.Styles & fsItalic) != 0);
  Result.setUnderline((Font.Styles & fsUnderline) != 0);
  Result.setStrikeOut((Font.Styles & fsStrikeOut) != 0);
  Result.setKerning(false);
  return Result;
}

bool Covers(const QRawFont& Face, const QString& Text) {
  for (const char32_t Char : Text.toUcs4())
    if (!Face.supportsCharacter(Char)) return false;
  return true;
}

void AppendBytes(std::string& Key, const void* Data, size_t Count) {
  Key.append(static_cast<const char*>(Data), Count);
}

std::string FaceKey(const TFont& Font, bool Smooth) {
  std::string Key = Font.Name;
  Key += '\0';
  AppendBytes(Key, &Font.Size, sizeof Font.Size);
  Key += static_cast<char>(Font.Styles);
  Key += Smooth ? 's' : 'p';
  return Key;
}

int32_t FullTurnsRemoved(int32_t Degrees) { return (Degrees % 360 + 360) % 360; }

// The part of the image that is not empty, as a mask whose image began at Origin.
TTextMask Cropped(const QImage& Image, QPoint Origin, bool Smooth) {
  int Left = Image.width(), Right = -1, Top = Image.height(), Bottom = -1;
  for (int Y = 0; Y < Image.height(); ++Y) {
    const uchar* Row = Image.constScanLine(Y);
    for (int X = 0; X < Image.width(); ++X) {
      if (Row[X] == 0) continue;
      Left = std::min(Left, X);
      Right = std::max(Right, X);
      Top = std::min(Top, Y);
      Bottom = Y;
    }
  }
  TTextMask Mask;
  if (Right < 0) return Mask;
  Mask.Left = Origin.x() + Left;
  Mask.Top = Origin.y() + Top;
  Mask.Width = Right - Left + 1;
  Mask.Height = Bottom - Top + 1;
  Mask.Coverage.reserve(static_cast<size_t>(Mask.Width) * static_cast<size_t>(Mask.Height));
  for (int Y = Top; Y <= Bottom; ++Y) {
    const uchar* Row = Image.constScanLine(Y);
    Mask.Coverage.insert(Mask.Coverage.end(), Row + Left, Row + Right + 1);
  }
  // Some installed faces hold grey or coloured pictures instead of outlines.
  if (!Smooth)
    for (uint8_t& Value : Mask.Coverage) Value = Value >= 128 ? 255 : 0;
  return Mask;
}

}  // namespace

const TQtFontEngine::TFace& TQtFontEngine::FaceOf(const TFont& Font, bool Smooth) {
  RequireFonts();
  const std::string Key = FaceKey(Font, Smooth);
  if (const auto Found = FFaces.find(Key); Found != FFaces.end()) return Found->second;

  QFont Merged = StyledFont(Font, MaxScreenPixels);
  Merged.setHintingPreference(QFont::PreferFullHinting);
  const int Strategy =
      QFont::NoSubpixelAntialias | (Smooth ? QFont::PreferAntialias : QFont::NoAntialias);
  Merged.setStyleStrategy(static_cast<QFont::StyleStrategy>(Strategy));
  QFont Exact(Merged);
  Exact.setStyleStrategy(static_cast<QFont::StyleStrategy>(Strategy | QFont::NoFontMerging));

  if (FFaces.size() >= MaxFaces) FFaces.clear();
  return FFaces.emplace(Key, TFace{Exact, Merged, QRawFont::fromFont(Exact)}).first->second;
}

const QFont& TQtFontEngine::FontFor(const TFont& Font, bool Smooth, const QString& Text) {
  const TFace& Face = FaceOf(Font, Smooth);
  return Covers(Face.Raw, Text) ? Face.Exact : Face.Merged;
}

TSize TQtFontEngine::TextExtent(const TFont& Font, std::string_view Text) {
  const QString Shown = PrintableText(Text);
  const QFontMetrics Metrics(FontFor(Font, false, Shown));
  return {Metrics.horizontalAdvance(Shown), Metrics.height()};
}

TTextMask TQtFontEngine::RenderText(const TFont& Font, std::string_view Text) {
  const int32_t Direction = FullTurnsRemoved(Font.Direction);
  std::string Key = FaceKey(Font, Direction != 0);
  AppendBytes(Key, &Direction, sizeof Direction);
  Key += Text;
  if (const auto Found = FMasks.find(Key); Found != FMasks.end()) return Found->second;

  const QString Shown = PrintableText(Text);
  TTextMask Mask = Draw(FontFor(Font, Direction != 0, Shown), Direction, Shown);
  const size_t Bytes = Mask.Coverage.size() + Key.size() + sizeof(TTextMask);
  if (FMaskBytes + Bytes > MaxCacheBytes) {
    FMasks.clear();
    FMaskBytes = 0;
  }
  if (Bytes <= MaxCacheBytes / 16) {
    FMasks.emplace(std::move(Key), Mask);
    FMaskBytes += Bytes;
  }
  return Mask;
}

TTextMask TQtFontEngine::Draw(const QFont& Font, int32_t Direction, const QString& Text) {
  if (Text.isEmpty()) return {};
  const QFontMetrics Metrics(Font);
  // Glyphs reach beyond their advance box, those of merged faces beyond the line too.
  const int Margin = Font.pixelSize() + 2;
  const QRect Box = Metrics.boundingRect(Text)
                        .translated(0, Metrics.ascent())
                        .adjusted(-Margin, -Margin, Margin, Margin);
  QTransform Turn;
  Turn.rotate(-Direction);
  const QRect Area = Turn.mapRect(QRectF(Box)).toAlignedRect();
  if (int64_t{Area.width()} * Area.height() > MaxMaskPixels) return {};
  QImage Image(Area.size(), QImage::Format_Alpha8);
  if (Image.isNull()) return {};
  Image.fill(0);
  QPainter Painter(&Image);
  Painter.setLayoutDirection(Qt::LayoutDirectionAuto);
  Painter.setFont(Font);
  Painter.setPen(Qt::black);
  Painter.setRenderHint(QPainter::Antialiasing,
                        Direction != 0);  // lines under and through the text
  Painter.translate(-Area.topLeft());
  Painter.setTransform(Turn, true);
  Painter.drawText(QPoint(0, Metrics.ascent()), Text);
  Painter.end();
  return Cropped(Image, Area.topLeft(), Direction != 0);
}

QFont PageFont(const TFont& Font) {
  RequireFonts();
  QFont Result = StyledFont(Font, MaxPagePixels);
  Result.setHintingPreference(QFont::PreferNoHinting);
  return Result;
}

QString PrintableText(std::string_view Text) {
  QString Result = ToQString(Text);
  for (QChar& Char : Result)
    if (Char.category() == QChar::Other_Control) Char = QLatin1Char(' ');
  return Result;
}

}  // namespace zav

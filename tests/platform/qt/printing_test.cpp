// printing_test.cpp - maps on PDF pages, read back with poppler's tools.
// SPDX-License-Identifier: MIT
#include <geomap/geo_map.h>
#include <gtest/gtest.h>
#include <platform/base/read_file.h>
#include <platform/qt/qt_convert.h>
#include <platform/qt/qt_host.h>
#include <platform/qt/qt_image.h>
#include <platform/qt/qt_page_canvas.h>
#include <platform/qt/qt_printer.h>
#include <platform/raster/raster_canvas.h>
#include <support/failing_file_ops.h>
#include <support/temp_folder.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <functional>

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>

namespace zav {
namespace {

QPageLayout A4() {
  return QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(20, 15, 10, 15),
                     QPageLayout::Millimeter);
}

// A map of the Alps in UTM on a host that prints into a file.
struct TPrintedMap {
  explicit TPrintedMap(const std::string& Sample) {
    Map.LoadCalDataFromXML(ZAVGEO_SAMPLES "/maps/" + Sample + ".xml", "");
    Map.SetGratInMapZone(true);
  }
  // Draws the page and returns what a tool says of it.
  template <typename TDraw>
  void Print(const std::string& File, TDraw Draw) {
    TPdfPrinter Printer(File, A4());
    Host.SetPrinter(&Printer);
    Printer.BeginDoc("Test");
    Draw(Printer);
    Printer.EndDoc();
    Host.SetPrinter(nullptr);
  }
  TQtHost Host;
  TGeoMap Map{nullptr, Host};
};

// What one of poppler's tools writes about a PDF file.
QString Read(const std::string& Tool, const std::string& File, const std::string& Out) {
  const std::string Command = Tool + " '" + File + "' '" + Out + "' >/dev/null 2>&1";
  if (std::system(Command.c_str()) != 0) return {};  // NOLINT: the judge is another program
  return QString::fromStdString(ReadWholeTextFile(Out));
}
bool HasPoppler() { return std::system("pdftocairo -v >/dev/null 2>&1") == 0; }  // NOLINT
#define REQUIRE_POPPLER() \
  if (!HasPoppler()) GTEST_SKIP() << "poppler-utils is not installed"

constexpr double MillimetresPerPoint = 25.4 / 72;

// How many strokes of a colour an SVG of a page has.
qsizetype Strokes(const QString& Svg, const char* Color) {
  return Svg.count(QStringLiteral("stroke:rgb(%1);").arg(QLatin1String(Color)));
}

// The straight strokes that run along the page, or down it with Down: their places across, in
// millimetres, in order. The SVG has a matrix of scale and shift for each.
std::vector<double> StraightStrokes(const QString& Svg, bool Down) {
  static const QRegularExpression Line(
      R"re(d="M ([-\d.]+) ([-\d.]+) L ([-\d.]+) ([-\d.]+) "\s+transform="matrix\(([-\d.]+),0,0,([-\d.]+),([-\d.]+),([-\d.]+)\))re");
  std::vector<double> Places;
  for (auto All = Line.globalMatch(Svg); All.hasNext();) {
    const QRegularExpressionMatch Each = All.next();
    const auto N = [&](int Index) { return Each.captured(Index).toDouble(); };
    const double Across = Down ? (N(1) + N(3)) / 2 * N(5) + N(7) : (N(2) + N(4)) / 2 * N(6) + N(8);
    const double Width = std::fabs(N(3) - N(1));
    const double Height = std::fabs(N(4) - N(2));
    if (Down == (Height > Width)) Places.push_back(Across * MillimetresPerPoint);
  }
  std::sort(Places.begin(), Places.end());
  return Places;
}

TEST(PrintedPage, LinesAreLinesAndTextIsTextOverTheImage) {
  REQUIRE_POPPLER();
  const TTempFolder Folder;
  const std::string Pdf = Folder / "page.pdf";
  TPrintedMap Printed("alps_utm32n");
  Printed.Map.SetShowGrat(TShowGrat::sgPointsAndLines);
  Printed.Map.OnDataRendered = [](TGeoMap*, TCanvas& Canvas) {
    Canvas.Font.Size = 10;
    Canvas.Brush.Style = TBrushStyle::bsClear;
    Canvas.TextOut(40, 60, "Z\xC3\xBCrich \xE2\x82\xAC 47\xC2\xB0");
    Canvas.Font.Direction = 90;
    Canvas.TextOut(40, 300, "upwards");
  };
  Printed.Print(Pdf, [&](TPrinter& Printer) {
    // The printable area of A4 with these margins: 180 x 267 mm.
    EXPECT_NEAR(Printer.PageSize().Width, 180 / 25.4 * 1200, 20);
    EXPECT_NEAR(Printer.PageSize().Height, 267 / 25.4 * 1200, 20);
    Printed.Map.CopyToOpenPrinter({600, 500, 900, 800}, 0, 0, 0);
  });
  const QString Text = Read("pdftotext", Pdf, Folder / "text");
  EXPECT_TRUE(Text.contains(QString::fromUtf8("Z\xC3\xBCrich \xE2\x82\xAC 47\xC2\xB0")))
      << Text.toStdString();
  EXPECT_TRUE(Text.contains("upwards")) << Text.toStdString();

  const QString Svg = Read("pdftocairo -svg", Pdf, Folder / "svg");
  EXPECT_EQ(Svg.count("<image "), 1);
  // Meridians and parallels are blue, markers red.
  EXPECT_GT(Strokes(Svg, "0%,0%,100%"), 1);
  EXPECT_GT(Strokes(Svg, "100%,0%,0%"), 2);

  // The part of the image is there, pixel by pixel.
  std::system(("pdfimages -png '" + Pdf + "' '" + (Folder / "image") + "'").c_str());  // NOLINT
  const QImage Image(QString::fromStdString(Folder / "image-000.png"));
  ASSERT_EQ(Image.size(), QSize(300, 300));
  const TBitmap Shown = ToBitmap(Image);
  int Wrong = 0;
  for (int32_t Y = 0; Y < 300; ++Y)
    for (int32_t X = 0; X < 300; ++X)
      Wrong += Shown.Pixel(X, Y) != Printed.Map.MapBitmap().Pixel(X + 600, Y + 500);
  EXPECT_EQ(Wrong, 0);
}

TEST(PrintedPage, TrueScalesAreTrue) {
  REQUIRE_POPPLER();
  const TTempFolder Folder;
  const std::string Pdf = Folder / "scale.pdf";
  const struct {
    const char* Sample;
    int32_t Denominator;
    int32_t Grid;        // metres
    TPoint TopLeft;      // map pixels
    double Millimetres;  // between lines of the grid
  } Cases[] = {
      {"gotthard_utm32n", 25000, 2500, {450, 600}, 100},
      {"gotthard_utm32n", 250000, 5000, {200, 200}, 20},
      {"alps_utm32n", 1000000, 20000, {700, 800}, 20},
  };
  for (const auto& Case : Cases) {
    SCOPED_TRACE(Case.Sample);
    SCOPED_TRACE(Case.Denominator);
    TPrintedMap Printed(Case.Sample);
    Printed.Map.SetShowGrat(TShowGrat::sgUTMGrid);
    Printed.Map.SetUTMGridDist(Case.Grid);
    Printed.Print(Pdf, [&](TPrinter& Printer) {
      const TSize Page = Printer.PageSize();
      Printed.Map.CopyToOpenPrinter(Case.TopLeft, Case.Denominator, 0, 0, Page.Width, Page.Height);
    });
    const QString Svg = Read("pdftocairo -svg", Pdf, Folder / "svg");
    for (const bool Down : {false, true}) {
      const std::vector<double> Lines = StraightStrokes(Svg, Down);
      ASSERT_GE(Lines.size(), 2U);
      const double Distance =
          (Lines.back() - Lines.front()) / static_cast<double>(Lines.size() - 1);
      EXPECT_NEAR(Distance, Case.Millimetres, Case.Millimetres * 0.005) << Down;
    }
  }
}

TEST(PrintedPage, ATraceHasItsOwnColour) {
  REQUIRE_POPPLER();
  const TTempFolder Folder;
  const std::string Pdf = Folder / "trace.pdf";
  TPrintedMap Printed("iceland");
  Printed.Map.SetMouseAction(TMouseActMode::maMouseTrace);
  for (const TColor Color : {clWhite, RgbColor(255, 0, 255)}) {
    Printed.Map.SetMouseTraceColor(Color);
    Printed.Map.MouseDown(TMouseButton::mbLeft, ssLeft, 10, 10);
    for (int32_t X = 20; X < 200; X += 20) Printed.Map.MouseMove(ssLeft, X, 10 + X / 2);
    Printed.Map.MouseUp(TMouseButton::mbLeft, 0, 200, 100);
  }
  Printed.Print(Pdf, [&](TPrinter&) {
    int32_t X = 0;
    int32_t Y = 0;
    Printed.Map.CopyToOpenPrinter(X, Y, 0.5);
  });
  const QString Svg = Read("pdftocairo -svg", Pdf, Folder / "svg");
  EXPECT_GT(Strokes(Svg, "0%,0%,0%"), 5);
  EXPECT_GT(Strokes(Svg, "100%,0%,100%"), 5);
  EXPECT_EQ(Strokes(Svg, "100%,100%,100%"), 0);
}

TEST(PdfPrinter, FilesAppearWholeOrNotAtAll) {
  const TTempFolder Folder;
  const std::string Pdf = Folder / "page.pdf";
  TPrintedMap Printed("iceland");
  const auto Print = [&](const std::string& File) {
    TPdfPrinter Printer(File, A4());
    Printed.Host.SetPrinter(&Printer);
    Printed.Map.PrintIt(1);
    EXPECT_FALSE(Printer.Printing());
  };
  Print(Pdf);
  const std::string Old = ReadWholeTextFile(Pdf);
  EXPECT_EQ(Old.substr(0, 5), "%PDF-");
  TFailingFileOps Ops;
  int Failures = 0;
  {
    const TFileOpsOverride With(Ops);
    for (int Operation = 1;; ++Operation, ++Failures) {
      Ops.Arm(Operation);
      std::string Error;
      try {
        Print(Pdf);
      } catch (const EInOutError& Caught) {
        Error = Caught.what();
      }
      if (!Ops.Failed()) break;
      EXPECT_NE(Error.find("page.pdf"), std::string::npos);
      EXPECT_TRUE(ReadWholeTextFile(Pdf) == Old) << Operation;
    }
  }
  EXPECT_GT(Failures, 4);
  EXPECT_THROW(Print(Folder / "no folder/page.pdf"), EInOutError);
  // A document that is given up, or cut short by an error, leaves nothing.
  {
    TPdfPrinter Printer(Folder / "aborted.pdf", A4());
    Printer.BeginDoc("x");
    Printer.PageCanvas({0, 0, 10, 10}).FillRect({0, 0, 10, 10});
    Printer.NewPage();
    Printer.Abort();
    Printer.BeginDoc("y");
    EXPECT_THROW(Printer.BeginDoc("z"), EPrinterError);
  }
  Printed.Map.OnDataRendered = [](TGeoMap*, TCanvas&) { throw std::runtime_error("handler"); };
  EXPECT_THROW(Print(Folder / "handler.pdf"), std::runtime_error);
  EXPECT_EQ(Folder.Names(), std::vector<std::string>{"page.pdf"});
}

// The pixels that differ from white, as a box.
QRect Inked(const QImage& Image) {
  QRect Box;
  for (int Y = 0; Y < Image.height(); ++Y)
    for (int X = 0; X < Image.width(); ++X)
      if (qGreen(Image.pixel(X, Y)) < 128) Box |= QRect(X, Y, 1, 1);
  return Box;
}

TEST(PageCanvas, ShapesLieWhereTheRasterPutsThem) {
  using TDraw = std::function<void(TCanvas&)>;
  const struct {
    const char* Name;
    TDraw Draw;
    TPoint Inside;  // filled
  } Cases[] = {
      {"rectangle", [](TCanvas& C) { C.Rectangle(20, 30, 81, 61); }, {50, 45}},
      {"turned corners", [](TCanvas& C) { C.Rectangle(81, 61, 20, 30); }, {50, 45}},
      {"ellipse", [](TCanvas& C) { C.Ellipse(20, 30, 81, 61); }, {50, 45}},
      {"fill",
       [](TCanvas& C) {
         C.FillRect({20, 30, 81, 61});
       },
       {21, 31}},
      {"polygon",
       [](TCanvas& C) {
         const TPoint Points[] = {{20, 30}, {80, 30}, {50, 60}};
         C.Polygon(Points);
       },
       {50, 40}},
      {"wide line",
       [](TCanvas& C) {
         C.Pen.Width = 9;
         C.MoveTo(20, 40);
         C.LineTo(81, 40);
       },
       {50, 43}},
      {"text on a ground", [](TCanvas& C) { C.TextOut(20, 30, "Mm"); }, {21, 31}},
      {"text upwards",
       [](TCanvas& C) {
         C.Font.Direction = 90;
         C.TextOut(20, 80, "Mm");
       },
       {21, 79}},
      {"bitmap between pixels",
       [](TCanvas& C) {
         TBitmap Bitmap(4, 4, TPixelFormat::pf24bit);
         C.StretchDraw({20, 30, 80, 60}, Bitmap, {-1, 0.5, 5, 3.5}, TStretchMode::smColorOnColor);
       },
       {40, 45}},
  };
  TQtFontEngine Fonts;
  for (const auto& Case : Cases) {
    SCOPED_TRACE(Case.Name);
    TBitmap Bitmap(120, 100, TPixelFormat::pf32bit);
    QImage Image(120, 100, QImage::Format_RGB32);
    Image.fill(Qt::white);
    QPainter Painter(&Image);
    TRasterCanvas Raster(Bitmap, &Fonts);
    Raster.Brush = {clWhite};
    Raster.FillRect({0, 0, 120, 100});
    {
      TQtPageCanvas Page(Painter, {0, 0, 120, 100});
      for (TCanvas* Canvas : {static_cast<TCanvas*>(&Raster), static_cast<TCanvas*>(&Page)}) {
        Canvas->Brush = {RgbColor(20, 90, 20)};
        Canvas->Pen = {clBlue};
        Case.Draw(*Canvas);
      }
    }
    Painter.end();
    // Text on a page is not hinted, so that it may be a little wider.
    const int Off = std::string(Case.Name).find("text") == 0 ? 2 : 1;
    const QRect Wanted = Inked(WrapBitmap(Bitmap));
    const QRect Drawn = Inked(Image);
    EXPECT_NEAR(Drawn.left(), Wanted.left(), Off);
    EXPECT_NEAR(Drawn.top(), Wanted.top(), Off);
    EXPECT_NEAR(Drawn.right(), Wanted.right(), Off);
    EXPECT_NEAR(Drawn.bottom(), Wanted.bottom(), Off);
    EXPECT_EQ(FromQColor(Image.pixelColor(Case.Inside.X, Case.Inside.Y)),
              Bitmap.Pixel(Case.Inside.X, Case.Inside.Y));
  }
  // Outside its area a canvas draws nothing, and it gives the painter its state back.
  QImage Image(50, 50, QImage::Format_RGB32);
  Image.fill(Qt::white);
  QPainter Painter(&Image);
  {
    TQtPageCanvas Page(Painter, {10, 20, 30, 40});
    Page.Brush = {clBlack};
    Page.FillRect({-50, -50, 90, 90});
  }
  EXPECT_EQ(Inked(Image), QRect(10, 20, 20, 20));
  Painter.fillRect(0, 0, 5, 5, Qt::black);
  EXPECT_EQ(Inked(Image), QRect(0, 0, 30, 40));
}

TEST(QtClipboard, KeepsItsOwnCopy) {
  TQtHost Host;
  {
    TBitmap Bitmap(20, 10, TPixelFormat::pf15bit);
    Bitmap.SetPixel(3, 4, clRed);
    Host.Clipboard().SetBitmap(Bitmap);
  }
  const QImage Image = QGuiApplication::clipboard()->image();
  ASSERT_EQ(Image.size(), QSize(20, 10));
  EXPECT_EQ(Image.pixel(3, 4), 0xFFFF0000U);
  EXPECT_EQ(Image.pixel(4, 4), 0xFF000000U);
}

}  // namespace
}  // namespace zav

// test_host.cpp - see test_host.h.
// SPDX-License-Identifier: MIT
#include <support/test_host.h>

#include <platform/base/rounding.h>
#include <platform/base/utf8.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zav {
namespace {

// The pixels that a character takes.
TSize CellOf(const TFont& Font) {
  return {RoundHalfEven(6 * Font.Size / 8), RoundHalfEven(13 * Font.Size / 8)};
}

std::vector<char32_t> CharactersOf(std::string_view Text) {
  std::vector<char32_t> result;
  for (size_t i = 0; i < Text.size();) {
    const TUtf8Char c = DecodeUtf8(Text, i);
    result.push_back(c.Code);
    i += c.Length;
  }
  return result;
}

}  // namespace

TSize TTestFonts::TextExtent(const TFont& Font, std::string_view Text) {
  const TSize cell = CellOf(Font);
  return {cell.Width * static_cast<int32_t>(CharactersOf(Text).size()), cell.Height};
}

TTextMask TTestFonts::RenderText(const TFont& Font, std::string_view Text) {
  const std::vector<char32_t> characters = CharactersOf(Text);
  const TSize cell = CellOf(Font);
  const TSize box = TextExtent(Font, Text);
  // Turned about the top left corner, counter-clockwise with Y downwards.
  const double angle = Font.Direction * std::numbers::pi / 180;
  const double cosine = std::cos(angle);
  const double sine = std::sin(angle);
  const double cornersX[] = {0, box.Width * cosine, box.Height * sine,
                             box.Width * cosine + box.Height * sine};
  const double cornersY[] = {0, -box.Width * sine, box.Height * cosine,
                             box.Height * cosine - box.Width * sine};
  const auto low = [](const double(&v)[4]) {
    return RoundHalfEven(std::floor(*std::min_element(v, v + 4) + 1e-9));
  };
  const auto high = [](const double(&v)[4]) {
    return RoundHalfEven(std::ceil(*std::max_element(v, v + 4) - 1e-9));
  };
  TTextMask mask;
  mask.Left = low(cornersX);
  mask.Top = low(cornersY);
  mask.Width = high(cornersX) - mask.Left;
  mask.Height = high(cornersY) - mask.Top;
  mask.Coverage.reserve(static_cast<size_t>(mask.Width) * static_cast<size_t>(mask.Height));
  for (int32_t y = 0; y < mask.Height; ++y) {
    for (int32_t x = 0; x < mask.Width; ++x) {
      // The pixel's centre turned back into the box.
      const double px = mask.Left + x + 0.5;
      const double py = mask.Top + y + 0.5;
      const double u = px * cosine - py * sine;
      const double v = px * sine + py * cosine;
      bool covered = u >= 0 && u < box.Width && v >= 0 && v < cell.Height - 1;
      if (covered) {
        const auto index = static_cast<size_t>(u) / static_cast<size_t>(cell.Width);
        covered = characters[index] != ' ' && std::fmod(u, cell.Width) < cell.Width - 1;
      }
      mask.Coverage.push_back(covered ? 255 : 0);
    }
  }
  return mask;
}

TTestWindow::TTestWindow(TFontEngine& Fonts, double Scale)
    : FScale(Scale),
      FDevice(FBuffer, &Fonts),
      FScaled(std::make_unique<TScaledCanvas>(FDevice, Scale)) {}

void TTestWindow::Resize(int32_t Width, int32_t Height) {
  FBuffer.SetSize(RoundHalfEven(std::ceil(Width * FScale)),
                  RoundHalfEven(std::ceil(Height * FScale)));
}

void TTestWindow::Show(std::span<const TRect> Areas) {
  Shows.emplace_back(Areas.begin(), Areas.end());
}

void TTestWindow::SetScale(double Scale) {
  FScale = Scale;
  FScaled = std::make_unique<TScaledCanvas>(FDevice, Scale);
}

std::unique_ptr<TControlWindow> TTestHost::CreateControlWindow(TCustomControl& /*Control*/) {
  return std::make_unique<TTestWindow>(FFonts, Scale);
}

bool TTestHost::ProcessMessages(const std::function<bool()>& Done) {
  // A copy, because the host may be destroyed.
  const std::function<void()> Deliver = OnProcessMessages;
  if (!Deliver) return Done();
  while (!Done()) Deliver();
  return true;
}

}  // namespace zav

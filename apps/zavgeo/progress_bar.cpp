// progress_bar.cpp - see progress_bar.h.
// SPDX-License-Identifier: MIT
#include "progress_bar.h"

#include <platform/base/text_format.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <iostream>
#include <utility>

namespace zav {

namespace {

constexpr int Signals[] = {SIGINT, SIGTERM};
volatile std::sig_atomic_t StopRequested = 0;

extern "C" void RequestStop(int) { StopRequested = 1; }

}  // namespace

TProgressBar::TProgressBar(std::string Title)
    : FTitle(std::move(Title)), FOnTerminal(isatty(STDERR_FILENO) == 1) {}

TProgressBar::~TProgressBar() {
  if (FShown >= 0) std::cerr << "\r\x1B[K" << std::flush;
}

void TProgressBar::Show(int Percent) {
  Percent = std::clamp(Percent, 0, 100);
  if (!FOnTerminal || Percent == FShown) return;
  FShown = Percent;
  constexpr size_t Width = 40;
  const size_t Full = static_cast<size_t>(Percent) * Width / 100;
  std::cerr << '\r' << FTitle << " [" << std::string(Full, '#') << std::string(Width - Full, ' ')
            << "] " << IntegerText(Percent) << "% " << std::flush;
}

TInterrupt::TInterrupt() {
  StopRequested = 0;
  for (const int Signal : Signals) {
    struct sigaction Action {};
    Action.sa_handler = RequestStop;
    Action.sa_flags = static_cast<int>(SA_RESETHAND);
    sigaction(Signal, &Action, nullptr);
  }
}

TInterrupt::~TInterrupt() {
  for (const int Signal : Signals) std::signal(Signal, SIG_DFL);
}

bool TInterrupt::Requested() noexcept { return StopRequested != 0; }

}  // namespace zav

// progress_bar.h - a bar of progress on the terminal.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_ZAVGEO_PROGRESS_BAR_H
#define ZAV_APPS_ZAVGEO_PROGRESS_BAR_H

#include <string>

namespace zav {

// Draws on standard error where that is a terminal, and nothing where it is a pipe or a file. The
// bar is wiped off at the end.
class TProgressBar {
 public:
  explicit TProgressBar(std::string Title);
  ~TProgressBar();
  TProgressBar(const TProgressBar&) = delete;
  TProgressBar& operator=(const TProgressBar&) = delete;

  // 0 to 100.
  void Show(int Percent);

 private:
  std::string FTitle;
  bool FOnTerminal;
  int FShown = -1;
};

// Takes Ctrl-C (and the signal to end) while it lives: the first asks, by Requested, to stop and
// leave all in order, the second ends the program at once.
class TInterrupt {
 public:
  TInterrupt();
  ~TInterrupt();
  TInterrupt(const TInterrupt&) = delete;
  TInterrupt& operator=(const TInterrupt&) = delete;

  static bool Requested() noexcept;
};

}  // namespace zav

#endif

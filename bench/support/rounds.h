// rounds.h - runs competitors in turn, round after round, and prints medians and their ratio.
//
// Interleaving lets every competitor see the same state of the machine; a median over rounds is not
// moved by an interrupted one.
// SPDX-License-Identifier: MIT
#ifndef ZAV_BENCH_SUPPORT_ROUNDS_H
#define ZAV_BENCH_SUPPORT_ROUNDS_H

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <functional>
#include <iomanip>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "support/goals.h"

namespace zav::bench {

struct TCompetitor {
  std::string Name;
  std::function<void()> Run;  // one round
  double AtMost = 0;          // the ratio of our time to this one that is aimed at; 0 = none
};

// Runs every competitor Rounds times, after one unmeasured round, and prints nanoseconds per item;
// a round handles Items items. The first competitor is ours; ratios are of its time to the others'.
inline void Compare(const std::string& Title, size_t Items, int Rounds,
                    const std::vector<TCompetitor>& Competitors) {
  using TClock = std::chrono::steady_clock;
  std::vector<std::vector<double>> Times(Competitors.size());
  for (int Round = -1; Round < Rounds; ++Round)
    for (size_t i = 0; i < Competitors.size(); ++i) {
      const auto Start = TClock::now();
      Competitors[i].Run();
      const std::chrono::duration<double, std::nano> Spent = TClock::now() - Start;
      if (Round >= 0) Times[i].push_back(Spent.count() / static_cast<double>(Items));
    }
  std::cout << Title << '\n' << std::fixed;
  double Ours = 0;
  for (size_t i = 0; i < Competitors.size(); ++i) {
    const auto Middle = Times[i].begin() + Rounds / 2;
    std::nth_element(Times[i].begin(), Middle, Times[i].end());
    if (i == 0) Ours = *Middle;
    const auto& [Name, Run, AtMost] = Competitors[i];
    std::cout << "  " << std::left << std::setw(32) << Name << std::right << std::setprecision(1)
              << std::setw(14) << *Middle << " ns" << std::setprecision(3);
    if (i > 0) std::cout << std::setw(9) << Ours / *Middle;
    if (AtMost > 0) {
      std::cout << " (" << AtMost << (Ours / *Middle > AtMost ? ", MISSED)" : ")");
      NoteGoal(Title, Name, Ours / 1e9, *Middle / 1e9, AtMost);
    }
    std::cout << '\n';
  }
}

}  // namespace zav::bench

#endif

// goals.h - what a benchmark aims at, noted for the table that bench/run makes.
// SPDX-License-Identifier: MIT
#ifndef ZAV_BENCH_SUPPORT_GOALS_H
#define ZAV_BENCH_SUPPORT_GOALS_H

#include <cstdlib>
#include <fstream>
#include <string>

namespace zav::bench {

// Adds a line to the file that the environment's ZAVGEO_BENCH_TABLE names, if it does: the two
// times in seconds, and the highest ratio of ours to the peer's that is aimed at.
inline void NoteGoal(const std::string& What, const std::string& Peer, double Ours, double Theirs,
                     double AtMost) {
  const char* const Path = std::getenv("ZAVGEO_BENCH_TABLE");
  if (Path == nullptr) return;
  std::ofstream Table(Path, std::ios::app);
  Table << What << '\t' << Peer << '\t' << Ours << '\t' << Theirs << '\t' << Ours / Theirs << '\t'
        << AtMost << '\n';
}

}  // namespace zav::bench

#endif

/// @file
/// progress.h - how a long computation reports its progress and can be aborted.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_BASE_PROGRESS_H
#define ZAV_PLATFORM_BASE_PROGRESS_H

#include <cstdint>
#include <functional>

#include <platform/base/api.h>

namespace zav {

/// A counter, an optional callback that receives it and a flag that asks the computation to stop.
/// Functions that report progress take one of these; a computation increments Counter, calls
/// Feedback when it is set, then looks at Abort, which the callback may have set.
struct ZAVGEO_API TProgress {
  int64_t Counter = 0;                            ///< steps counted so far
  std::function<void(int64_t Counter)> Feedback;  ///< called for each step, if set
  bool Abort = false;                             ///< set to stop

  /// Counts one step. False when the computation is to stop.
  bool Step();
};

/// The progress object that is used where the caller passes none: one for each thread.
ZAVGEO_API TProgress& DefaultProgress() noexcept;

}  // namespace zav

#endif

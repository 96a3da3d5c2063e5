// progress.cpp - see progress.h.
// SPDX-License-Identifier: MIT
#include <platform/base/progress.h>

namespace zav {

bool TProgress::Step() {
  ++Counter;
  if (Feedback) Feedback(Counter);
  return !Abort;
}

TProgress& DefaultProgress() noexcept {
  thread_local TProgress progress;
  return progress;
}

}  // namespace zav

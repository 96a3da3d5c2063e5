// failing_memory.h - memory that runs out for large blocks, in programs linked with
// failing_memory.cpp.
// SPDX-License-Identifier: MIT
#ifndef ZAV_TESTS_GEOMAP_LANDMARKS_FAILING_MEMORY_H
#define ZAV_TESTS_GEOMAP_LANDMARKS_FAILING_MEMORY_H

#include <cstddef>

namespace zav::test {

// While it lives, allocations of at least From bytes throw std::bad_alloc.
class TNoLargeMemory {
 public:
  explicit TNoLargeMemory(size_t From) noexcept;
  ~TNoLargeMemory();
  TNoLargeMemory(const TNoLargeMemory&) = delete;
  TNoLargeMemory& operator=(const TNoLargeMemory&) = delete;
};

}  // namespace zav::test

#endif

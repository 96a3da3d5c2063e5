// failing_memory.cpp - see failing_memory.h. In a file of its own, so that no caller sees that
// operator new is malloc.
// SPDX-License-Identifier: MIT
#include "failing_memory.h"

#include <cstdlib>
#include <new>

namespace zav::test {
namespace {
size_t FailFrom = 0;  // 0 = none
}  // namespace

TNoLargeMemory::TNoLargeMemory(size_t From) noexcept { FailFrom = From; }
TNoLargeMemory::~TNoLargeMemory() { FailFrom = 0; }

}  // namespace zav::test

void* operator new(size_t Size) {
  using zav::test::FailFrom;
  void* Memory = FailFrom != 0 && Size >= FailFrom ? nullptr : std::malloc(Size > 0 ? Size : 1);
  if (Memory == nullptr) throw std::bad_alloc();
  return Memory;
}
void operator delete(void* Memory) noexcept { std::free(Memory); }
void operator delete(void* Memory, size_t) noexcept { std::free(Memory); }

// raw_array.cpp - see raw_array.h.
// SPDX-License-Identifier: MIT
#include <geodb/raw_array.h>

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>

namespace zav {

void* ReallocateRaw(void* Memory, size_t NewBytes) {
  void* const Block = std::realloc(Memory, NewBytes);
  if (Block == nullptr) throw std::bad_alloc();
#ifdef MADV_HUGEPAGE
  // Only a hint: nothing depends on what the system answers.
  constexpr size_t Large = size_t{4} << 20;
  if (NewBytes >= Large) {
    const auto Page = static_cast<uintptr_t>(::sysconf(_SC_PAGESIZE));
    const auto Begin = reinterpret_cast<uintptr_t>(Block);
    const size_t Skipped = (Page - Begin % Page) % Page;
    const size_t Whole = (NewBytes - Skipped) / Page * Page;
    ::madvise(static_cast<char*>(Block) + Skipped, Whole, MADV_HUGEPAGE);
  }
#endif
  return Block;
}

}  // namespace zav

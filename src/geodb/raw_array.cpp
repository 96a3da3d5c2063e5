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
    const uintptr_t First = (reinterpret_cast<uintptr_t>(Block) + Page - 1) / Page * Page;
    const uintptr_t End = (reinterpret_cast<uintptr_t>(Block) + NewBytes) / Page * Page;
    ::madvise(reinterpret_cast<void*>(First), End - First, MADV_HUGEPAGE);
  }
#endif
  return Block;
}

}  // namespace zav

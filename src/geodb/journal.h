// journal.h - what is needed to undo a change that was cut short.
//
// docs/formats/database.md describes the file and how it is carried out. A journal is armed before
// the first byte of a change is written, and settled after the last.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEODB_JOURNAL_H
#define ZAV_GEODB_JOURNAL_H

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include <geodb/db_file.h>
#include <geodb/gdb_records.h>
#include <platform/base/api.h>

namespace zav {

enum class TJournalKind : uint32_t {
  None = 0,
  Indexes = 1,
  Undo = 2,
  Preparing = 3,
  Replacing = 4
};
enum class TJournalFile : uint32_t { Records = 0, Data = 1 };

// A state as it stands in the file.
struct TJournalState {
  std::array<char, 8> Magic = {'Z', 'A', 'V', 'G', 'J', 'N', '0', '1'};
  uint32_t Sequence = 0;
  TJournalKind Kind = TJournalKind::None;
  int64_t Records = 0;
  int64_t DataLength = 0;
  int64_t EntriesLength = 0;
  uint32_t EntriesSum = 0;
  uint32_t Unused1 = 0;
  TgdbSystemData Header;
  std::array<uint8_t, 200> Unused2 = {};
  uint32_t Sum = 0;
};
static_assert(sizeof(TJournalState) == 512 && offsetof(TJournalState, Records) == 16 &&
              offsetof(TJournalState, Header) == 48 && offsetof(TJournalState, Sum) == 508);

struct TJournalEntry {
  TJournalFile File = TJournalFile::Records;
  uint32_t Length = 0;
  int64_t Offset = 0;
};
static_assert(sizeof(TJournalEntry) == 16);

// The journal of the process that writes.
class ZAVGEO_API TJournal {
 public:
  void SetPath(const std::string& Path);
  bool Exists() const noexcept { return FFile.IsOpen(); }

  // Adds bytes that are to be overwritten. At most a megabyte is held in memory.
  void Protect(TJournalFile File, int64_t Offset, const void* Bytes, uint32_t Length);
  void DropPending() noexcept { FPending.clear(); }
  bool HasEntries() const noexcept { return FState.EntriesLength > 0 || !FPending.empty(); }
  // Writes entries and state, and makes the file when there is none. With Durable, returns when all
  // of it is on the disk.
  void Arm(const TJournalState& State, bool Durable);
  // The change is complete: leaves a journal of this kind without entries, or none.
  void Settle(TJournalKind Kind);
  void Sync();
  // Forgets the file without touching it.
  void Abandon() noexcept;
  // Goes on with a journal that was found.
  void Resume(const TJournalState& Found);

 private:
  void FlushEntries();
  void WriteState();

  std::string FPath;
  TDbFile FFile;
  TJournalState FState;
  std::string FPending;  // entries that are not in the file yet
};

// A journal that was found when a database is opened.
class ZAVGEO_API TFoundJournal {
 public:
  // Reads the states. Throws EInOutError when the file is there and cannot be read, or when its
  // entries are damaged.
  explicit TFoundJournal(const std::string& Path);

  bool Exists() const noexcept { return FFile.IsOpen(); }
  const TJournalState& State() const noexcept { return FState; }
  TJournalKind Kind() const noexcept { return FState.Kind; }

  // Calls Take(Entry, Bytes) for each entry, in pieces of at most a megabyte. Entries lie within
  // the records and bytes that State() tells.
  template <class TTake>
  void ForEach(TTake&& Take) const {
    std::vector<uint8_t> Bytes;
    for (int64_t At = 0; At < FState.EntriesLength;) At = ReadEntry(At, Bytes, Take);
  }

 private:
  template <class TTake>
  int64_t ReadEntry(int64_t At, std::vector<uint8_t>& Bytes, TTake& Take) const {
    TJournalEntry Entry = EntryAt(At);
    At += int64_t{sizeof(Entry)};
    for (uint32_t Rest = Entry.Length; Rest > 0;) {
      Entry.Length = Rest < MaxPiece ? Rest : MaxPiece;
      Bytes.resize(Entry.Length);
      FFile.ReadAt(EntriesStart + At, Bytes.data(), Bytes.size());
      Take(static_cast<const TJournalEntry&>(Entry), Bytes.data());
      Entry.Offset += Entry.Length;
      At += Entry.Length;
      Rest -= Entry.Length;
    }
    return At;
  }
  TJournalEntry EntryAt(int64_t At) const;
  bool ReadState(int64_t Offset, TJournalState& State) const;
  void CheckEntries() const;

  static constexpr uint32_t MaxPiece = 1 << 20;
  static constexpr int64_t EntriesStart = 1024;

  TDbFile FFile;
  TJournalState FState;
};

}  // namespace zav

#endif

// journal.cpp - see journal.h.
// SPDX-License-Identifier: MIT
#include <geodb/journal.h>

#include <array>
#include <cstring>

#include <platform/base/errors.h>
#include <platform/base/paths.h>

namespace zav {
namespace {

constexpr int64_t StateSize = sizeof(TJournalState);
constexpr int64_t EntriesAt = 2 * StateSize;
constexpr size_t MostPending = size_t{1} << 20;

constexpr std::array<uint32_t, 256> MakeTable() {
  std::array<uint32_t, 256> Table = {};
  for (uint32_t i = 0; i < 256; ++i) {
    uint32_t Value = i;
    for (int Bit = 0; Bit < 8; ++Bit)
      Value = (Value & 1) != 0 ? Value >> 1 ^ 0xEDB88320 : Value >> 1;
    Table[i] = Value;
  }
  return Table;
}

// CRC-32 of ISO 3309, continued: begin with 0.
uint32_t Crc32(uint32_t Sum, const void* Data, size_t Size) {
  static constexpr std::array<uint32_t, 256> Table = MakeTable();
  const auto* Bytes = static_cast<const uint8_t*>(Data);
  Sum = ~Sum;
  for (size_t i = 0; i < Size; ++i) Sum = Sum >> 8 ^ Table[(Sum ^ Bytes[i]) & 0xFF];
  return ~Sum;
}

uint32_t SumOf(const TJournalState& State) {
  return Crc32(0, &State, offsetof(TJournalState, Sum));
}

}  // namespace

void TJournal::SetPath(const std::string& Path) {
  Abandon();
  FPath = Path;
}

void TJournal::Abandon() noexcept {
  FFile.Close();
  FState = TJournalState();
  FPending.clear();
}

void TJournal::Resume(const TJournalState& Found) {
  FFile.Open(FPath, TFileAccess::Update);
  FState = Found;
  FPending.clear();
}

void TJournal::Protect(TJournalFile File, int64_t Offset, const void* Bytes, uint32_t Length) {
  const TJournalEntry Entry = {File, Length, Offset};
  FPending.append(reinterpret_cast<const char*>(&Entry), sizeof(Entry));
  FPending.append(static_cast<const char*>(Bytes), Length);
  if (FPending.size() >= MostPending) FlushEntries();
}

void TJournal::Arm(const TJournalState& State, bool Durable) {
  const bool New = !Exists();
  FlushEntries();
  FState.Kind = State.Kind;
  FState.Records = State.Records;
  FState.DataLength = State.DataLength;
  FState.Header = State.Header;
  WriteState();
  if (!Durable) return;
  FFile.Sync();
  if (New) FileOps().SyncFolder(DirectoryOf(FPath));
}

void TJournal::Settle(TJournalKind Kind) {
  FPending.clear();
  if (Kind == TJournalKind::None) {
    if (!Exists()) return;
    if (const int Error = FileOps().Remove(FPath); Error != 0) {
      throw EInOutError(FPath, SystemReason(Error));
    }
    Abandon();
    return;
  }
  const uint32_t Sequence = FState.Sequence;
  FState = TJournalState();
  FState.Sequence = Sequence;
  FState.Kind = Kind;
  WriteState();
}

void TJournal::Sync() {
  if (!Exists()) return;
  FFile.Sync();
  FileOps().SyncFolder(DirectoryOf(FPath));
}

void TJournal::FlushEntries() {
  if (FPending.empty()) return;
  if (!Exists()) FFile.Open(FPath, TFileAccess::UpdateOrCreate);
  FFile.WriteAt(EntriesAt + FState.EntriesLength, FPending.data(), FPending.size());
  FState.EntriesLength += static_cast<int64_t>(FPending.size());
  FState.EntriesSum = Crc32(FState.EntriesSum, FPending.data(), FPending.size());
  FPending.clear();
}

// The two states are written in turn, so that a torn one leaves the one before.
void TJournal::WriteState() {
  if (!Exists()) FFile.Open(FPath, TFileAccess::UpdateOrCreate);
  ++FState.Sequence;
  FState.Sum = SumOf(FState);
  FFile.WriteAt(FState.Sequence % 2 * StateSize, &FState, sizeof(FState));
}

TFoundJournal::TFoundJournal(const std::string& Path) {
  if (StampOf(Path).Size < 0) return;
  FFile.Open(Path, TFileAccess::Read);
  TJournalState States[2];
  const bool First = ReadState(0, States[0]);
  const bool Second = ReadState(StateSize, States[1]);
  if (!First && !Second) return;
  FState = States[Second && (!First || States[1].Sequence > States[0].Sequence) ? 1 : 0];
  if (FState.Kind != TJournalKind::Undo) FState.EntriesLength = 0;
  CheckEntries();
}

bool TFoundJournal::ReadState(int64_t Offset, TJournalState& State) const {
  const TJournalState Empty;
  const bool Valid = FFile.ReadSome(Offset, &State, sizeof(State)) == sizeof(State) &&
                     State.Magic == Empty.Magic && State.Sum == SumOf(State);
  if (!Valid) State = Empty;
  return Valid;
}

TJournalEntry TFoundJournal::EntryAt(int64_t At) const {
  TJournalEntry Entry;
  FFile.ReadAt(EntriesStart + At, &Entry, sizeof(Entry));
  return Entry;
}

// Everything is looked at before anything is carried out: sums, places and lengths.
void TFoundJournal::CheckEntries() const {
  const EInOutError Damaged(FFile.Path(), "is damaged");
  if (FState.Kind != TJournalKind::Undo) return;
  const int64_t Length = FState.EntriesLength;
  if (Length < 0 || (Length > 0 && Length > FFile.Size() - EntriesStart) || FState.Records < 0 ||
      FState.Records > INT32_MAX || FState.DataLength < int64_t{sizeof(TgdbSystemData)}) {
    throw Damaged;
  }
  uint32_t Sum = 0;
  std::vector<uint8_t> Bytes(MaxPiece);
  for (int64_t At = 0; At < Length; At += MaxPiece) {
    const auto Count = static_cast<size_t>(std::min<int64_t>(MaxPiece, Length - At));
    FFile.ReadAt(EntriesStart + At, Bytes.data(), Count);
    Sum = Crc32(Sum, Bytes.data(), Count);
  }
  if (Sum != FState.EntriesSum) throw Damaged;
  for (int64_t At = 0; At < Length;) {
    if (Length - At < int64_t{sizeof(TJournalEntry)}) throw Damaged;
    const TJournalEntry Entry = EntryAt(At);
    At += int64_t{sizeof(Entry)} + int64_t{Entry.Length};
    const int64_t Limit = Entry.File == TJournalFile::Records
                              ? FState.Records * int64_t{sizeof(TgdbData)}
                              : FState.DataLength;
    if (Entry.File > TJournalFile::Data || Entry.Offset < 0 || Entry.Offset > Limit ||
        int64_t{Entry.Length} > Limit - Entry.Offset || At > Length) {
      throw Damaged;
    }
  }
}

}  // namespace zav

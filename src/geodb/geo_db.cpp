// geo_db.cpp - see geo_db.h. Opening, closing, the header and groups of changes.
// SPDX-License-Identifier: MIT
#include <geodb/geo_db.h>

#include <exception>

#include <geodb/gdb_change.h>
#include <platform/base/paths.h>

namespace zav {

TGeoDB::TGeoDB(TComponent* Owner)
    : TComponent(Owner),
      FStore(std::make_unique<TGdbStore>()),
      FSearch(std::make_unique<TGdbSearch>()) {}

TGeoDB::~TGeoDB() {
  try {
    FStore->Close(FStore->Lazy);
  } catch (...) {
    // The journal stays and is carried out at the next opening.
  }
}

std::string TGeoDB::Message(const char* Operation, const std::string& Reason) const {
  return ComponentMessage(std::string(Operation) + ": " + Reason);
}

void TGeoDB::Fail(const char* Operation, const std::string& Reason) const {
  throw EZAVGeoDBError(Message(Operation, Reason));
}

void TGeoDB::Report(int32_t Percent) {
  if (OnPercentDone) OnPercentDone(this, Percent);
}

void TGeoDB::RefuseUpdate(const char* Operation) const {
  if (FChanging) Fail(Operation, "another change is under way.");
  if (FUpdateDepth > 0) Fail(Operation, "not possible within an update.");
}

void TGeoDB::FollowReload() {
  if (FStore->TakeReloaded()) FSearch->Clear();
}

void TGeoDB::SetGDBName(const std::string& Name) {
  RefuseUpdate("SetGDBName");
  if (!Name.empty()) {
    FSearch->Clear();
    Guarded("SetGDBName", [&] { FStore->Open(StripExtension(Name), FReadOnly); });
    FKeepsNames = true;
    return;
  }
  const bool Save = FStore->Lazy;
  FStore->Lazy = false;
  FKeepsNames = FKeepsNames && !Save;
  FSearch->Clear();
  Guarded("SetGDBName", [&] { FStore->Close(Save); });
  FStore->ResetHeader();
}

std::string TGeoDB::GetGDBName() const { return IsOpen() ? FStore->Names().Base : std::string(); }
bool TGeoDB::IsOpen() const noexcept { return FStore->IsOpen(); }
bool TGeoDB::LazyWrite() const noexcept { return FStore->Lazy; }
int32_t TGeoDB::NumEntries() const noexcept { return FStore->Count(); }

void TGeoDB::SetLazyWrite(bool LazyWrite) {
  if (LazyWrite == FStore->Lazy) return;
  FStore->Lazy = LazyWrite;
  if (LazyWrite || !IsOpen() || FReadOnly || FUpdateDepth > 0) return;
  for (int32_t i = 0; i < static_cast<int32_t>(IndexCount); ++i) SaveIndex(i);
}

void TGeoDB::Flush() {
  if (IsOpen()) FStore->Flush();
}

// ---- Header -------------------------------------------------------------------------------------

std::string TGeoDB::GetDescription() const { return FStore->Header().Description.Text(); }
int32_t TGeoDB::GetRevision() const noexcept { return FStore->Header().Revision; }
int32_t TGeoDB::GetDBVersion() const noexcept { return FStore->Header().DBVersion; }
int32_t TGeoDB::GetHighestID() const noexcept { return FStore->Header().HighestID; }

void TGeoDB::PutHeader(const char* Operation, const TgdbSystemData& Header) {
  Guarded(Operation, [&] {
    TGdbChange Change(*this, Operation);
    try {
      Change.Begin();
      FStore->PutHeader(Header);
      Change.Commit();
    } catch (const EInOutError&) {
      std::throw_with_nested(EZAVGeoDBError(Message(Operation, "cannot open database.")));
    }
  });
}

void TGeoDB::SetDescription(const std::string& Description) {
  if (!IsOpen()) return;
  TgdbSystemData Header = FStore->Header();
  Header.Description = Description;
  PutHeader("SetDescription", Header);
}

void TGeoDB::SetRevision(int32_t Revision) {
  if (!IsOpen()) return;
  TgdbSystemData Header = FStore->Header();
  Header.Revision = Revision;
  PutHeader("SetRevision", Header);
}

void TGeoDB::SkipToItemID(int32_t ItemID) {
  if (!IsOpen() || ItemID <= 1 || ItemID - 1 <= GetHighestID()) return;
  TgdbSystemData Header = FStore->Header();
  Header.HighestID = ItemID - 1;
  PutHeader("SkipToItemID", Header);
}

// ---- Groups of changes --------------------------------------------------------------------------

void TGeoDB::BeginUpdate() {
  if (FChanging) Fail("BeginUpdate", "another change is under way.");
  if (FUpdateDepth == 0 && IsOpen()) FStore->BeginGroup();
  ++FUpdateDepth;
}

void TGeoDB::EndUpdate() {
  if (FChanging) Fail("EndUpdate", "another change is under way.");
  if (FUpdateDepth == 0) Fail("EndUpdate", "there was no BeginUpdate.");
  if (FUpdateDepth > 1) {
    --FUpdateDepth;
    return;
  }
  if (FUpdateLost) {
    FUpdateDepth = 0;
    FUpdateLost = false;
    Fail("EndUpdate", "an inner update was rolled back.");
  }
  FUpdateDepth = 0;
  if (!FStore->InGroup()) return;
  Guarded("EndUpdate", [&] {
    try {
      FStore->CommitGroup();
    } catch (...) {
      FStore->RollbackGroup();
      FollowReload();
      throw;
    }
  });
}

void TGeoDB::RollbackUpdate() {
  if (FChanging) Fail("RollbackUpdate", "another change is under way.");
  if (FUpdateDepth == 0) return;
  --FUpdateDepth;
  if (FStore->InGroup()) FStore->RollbackGroup();
  FollowReload();
  FUpdateLost = FUpdateDepth > 0;
}

TGeoDBUpdate::~TGeoDBUpdate() {
  if (FDB == nullptr) return;
  try {
    FDB->RollbackUpdate();
  } catch (...) {
    // Only a handler within a change can come here; the change fails with its own error.
  }
}

void TGeoDBUpdate::Commit() {
  if (FDB == nullptr) return;
  TGeoDB* const DB = std::exchange(FDB, nullptr);
  DB->EndUpdate();
}

// ---- Header of a database that is not open ------------------------------------------------------

TgdbSystemData ReadSystemInformation(const std::string& Name) {
  const TFileNames Names(StripExtension(Name));
  const TFoundJournal Journal(Names.Journal);
  if (Journal.Kind() == TJournalKind::Undo) return Journal.State().Header;
  TgdbSystemData Header;
  TDbFile(Names.Data, TFileAccess::Read).ReadAt(0, &Header, sizeof(Header));
  return Header;
}

}  // namespace zav

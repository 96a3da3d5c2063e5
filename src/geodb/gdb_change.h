// gdb_change.h - what the operations of TGeoDB have in common.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEODB_GDB_CHANGE_H
#define ZAV_GEODB_GDB_CHANGE_H

#include <initializer_list>

#include <geodb/gdb_search.h>
#include <geodb/geo_db.h>
#include <geodb/store.h>
#include <platform/base/api.h>

namespace zav {

// One change of a database: aborted unless Commit is reached. Refuses to begin within another one,
// which a handler of OnPercentDone may try.
class ZAVGEO_API TGdbChange {
 public:
  TGdbChange(TGeoDB& DB, const char* Operation) : FDB(DB) {
    if (DB.FChanging) DB.Fail(Operation, "another change is under way.");
    if (DB.FUpdateLost) DB.Fail(Operation, "the update was rolled back.");
    DB.FChanging = true;
  }
  ~TGdbChange() {
    if (FBegun) FDB.FStore->AbortChange();
    FDB.FChanging = false;
    FDB.FollowReload();
  }
  TGdbChange(const TGdbChange&) = delete;
  TGdbChange& operator=(const TGdbChange&) = delete;

  // Positions of records that will be overwritten or cut off.
  void Begin(std::initializer_list<int32_t> Positions = {}) {
    FBegun = true;
    FDB.FStore->BeginChange(Positions);
  }
  void Commit() {
    FDB.FStore->CommitChange();
    FBegun = false;
  }

 private:
  TGeoDB& FDB;
  bool FBegun = false;
};

template <class TWork>
auto TGeoDB::Guarded(const char* Operation, TWork&& Work) const {
  try {
    return Work();
  } catch (const TGdbRefused& Refused) {
    Fail(Operation, Refused.what());
  }
}

}  // namespace zav

#endif

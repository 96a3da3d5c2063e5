// kill_test.cpp - a process that changes a database is killed at random moments.
// SPDX-License-Identifier: MIT
#include <signal.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <random>

#include "db_fixture.h"

namespace zav::test {
namespace {

// What the writer has completed, in memory that both processes see.
struct TShared {
  std::atomic<int32_t> Started;    // operations begun
  std::atomic<int32_t> Completed;  // and ended
};

// Operation Number: every one leaves a state that can be told by its number alone. Each round of
// four keeps the towns "a", "b", "c" at Tag = number.
void Operate(TGeoDB& DB, int32_t Number) {
  const auto Tag = [&](int32_t RecNo) {
    TgdbData Data = DB.GetSumdata(RecNo);
    Data.Tag = Number;
    Data.LatLow = Data.LatHigh = static_cast<float>(Number % 90);
    DB.UpdateBasicData(RecNo, Data);
  };
  switch (Number % 4) {
    case 0: {  // a group: all three change or none
      TGeoDBUpdate Update(DB);
      for (int32_t RecNo = 1; RecNo <= 3; ++RecNo) Tag(RecNo);
      Update.Commit();
      break;
    }
    case 1:
      DB.AddRiver("extra", TgdbPolygon(200, TSCoords{1, static_cast<float>(Number % 180)}), 0, 0, 0,
                  0, 0, 0, 0, 0, Number);
      break;
    case 2:
      DB.ReplaceTown(DB.NumEntries(), "extra", 0, 0, {5, static_cast<float>(Number % 180)}, 0, 0,
                     Number);
      break;
    default:
      DB.DeleteData(DB.NumEntries());
  }
}

// The state after a number of operations: three towns with a tag, and perhaps one item more.
std::string StateAfter(int32_t Number) {
  const int32_t Last = Number - 1;  // the last operation's number
  const int32_t Group = Last < 0 ? -1 : Last / 4 * 4;
  std::string State;
  for (int i = 0; i < 3; ++i) State += std::to_string(Group < 0 ? 0 : Group) + " ";
  if (Last >= 0 && Last % 4 == 1) State += "river " + std::to_string(Last);
  if (Last >= 0 && Last % 4 == 2) State += "town " + std::to_string(Last);
  return State;
}

std::string StateOf(TGeoDB& DB) {
  std::string State;
  for (int32_t RecNo = 1; RecNo <= DB.NumEntries(); ++RecNo) {
    const TgdbData Data = DB.GetSumdata(RecNo);
    if (RecNo > 3) State += Data.ItemKind == TgdbItem::gitTown ? "town " : "river ";
    State += std::to_string(Data.Tag) + (RecNo > 3 ? "" : " ");
    TgdbPolygon Points;
    EXPECT_EQ(DB.RetrievePolygon(RecNo, Points) ? Points.size() : 200u, 200u);
  }
  return State;
}

TEST(DatabaseKill, RandomMomentsLeaveWholeOperations) {
  const TTempFolder Folder;
  const std::string Base = Folder / "db";
  auto* const Shared = static_cast<TShared*>(
      ::mmap(nullptr, sizeof(TShared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
  ASSERT_NE(Shared, MAP_FAILED);
  {
    TGeoDB DB;
    DB.SetGDBName(Base);
    for (const char* Name : {"a", "b", "c"}) AddTown(DB, Name, 0, 0);
  }
  std::mt19937 Random(7);
  int32_t Done = 0;
  int32_t Interrupted = 0;
  for (int Kill = 0; Kill < 200 && !HasFailure(); ++Kill) {
    Shared->Started = Done;
    Shared->Completed = Done;
    const bool Lazy = Kill % 3 == 0;
    const pid_t Child = ::fork();
    ASSERT_GE(Child, 0);
    if (Child == 0) {
      TGeoDB DB;
      DB.SetGDBName(Base);
      DB.SetLazyWrite(Lazy);
      for (;;) {
        Shared->Started = Shared->Completed + 1;
        Operate(DB, Shared->Completed);
        Shared->Completed = Shared->Started.load();
      }
    }
    while (Shared->Completed == Done) ::usleep(50);  // until it is at work
    ::usleep(static_cast<useconds_t>(Random() % 3000));
    ::kill(Child, SIGKILL);
    int Status = 0;
    ::waitpid(Child, &Status, 0);
    ASSERT_TRUE(WIFSIGNALED(Status));

    TGeoDB DB;
    DB.SetGDBName(Base);
    const std::string Found = StateOf(DB);
    EXPECT_EQ(Disagreement(DB), "");
    const bool After = Found == StateAfter(Shared->Started);
    EXPECT_TRUE(After || Found == StateAfter(Shared->Completed))
        << Found << ", not " << StateAfter(Shared->Completed) << " or "
        << StateAfter(Shared->Started);
    Interrupted += Shared->Started != Shared->Completed ? 1 : 0;
    Done = After ? Shared->Started : Shared->Completed;
  }
  EXPECT_GT(Interrupted, 100);
  EXPECT_GT(Done, 200);
  ::munmap(Shared, sizeof(TShared));
}

}  // namespace
}  // namespace zav::test

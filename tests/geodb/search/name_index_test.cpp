// name_index_test.cpp - names beside looking at every one.
// SPDX-License-Identifier: MIT
#include <geodb/search/name_index.h>
#include <gtest/gtest.h>
#include <platform/base/text.h>

#include <algorithm>
#include <random>
#include <tuple>

namespace zav {
namespace {

using TIds = std::vector<int32_t>;

TEST(NameIndex, IgnoresCaseAndAccents) {
  TNameIndex Index;
  const char* Names[] = {"Zürich",          "ZURICH West", "São Paulo", "Großglockner", "Αθήνα",
                         "Санкт-Петербург", "Łódź",        "",          "M\xFCnchen",   "ΟΔΟΣ"};
  for (int32_t Id = 0; const char* Name : Names) Index.Insert(++Id, Name);
  const struct {
    const char* Text;
    TNameMatch Match;
    TIds Ids;
  } Cases[] = {
      {"zurich", TNameMatch::nmWhole, {1}},   {"Zürich", TNameMatch::nmPrefix, {1, 2}},
      {"RICH", TNameMatch::nmPart, {1, 2}},   {"rich", TNameMatch::nmPrefix, {}},
      {"sao p", TNameMatch::nmPrefix, {3}},   {"GROSSG", TNameMatch::nmPrefix, {4}},
      {"ßGL", TNameMatch::nmPart, {4}},       {"ΑΘΗΝΑ", TNameMatch::nmWhole, {5}},
      {"петербург", TNameMatch::nmPart, {6}}, {"lodz", TNameMatch::nmWhole, {7}},
      {"München", TNameMatch::nmWhole, {9}},  {"", TNameMatch::nmPart, {}},
      {"", TNameMatch::nmWhole, {}},          {"οδός", TNameMatch::nmWhole, {10}},
      {"o", TNameMatch::nmPart, {4, 7, 3}},   {"zurich wests", TNameMatch::nmPart, {}},
  };
  for (const bool Packed : {false, true}) {
    if (Packed) {
      int32_t Id = 0;
      Index.Assign([&](int32_t& Next, std::string_view& Name) {
        if (Id == std::ssize(Names)) return false;
        Name = Names[Id];
        Next = ++Id;
        return true;
      });
    }
    EXPECT_EQ(Index.Count(), 9U);
    for (const auto& Case : Cases)
      EXPECT_EQ(Index.Find(Case.Text, Case.Match), Case.Ids) << Case.Text << Packed;
    EXPECT_EQ(Index.Find("o", TNameMatch::nmPart, 2), (TIds{4, 7}));
  }
  EXPECT_FALSE(Index.Remove(2, "ZURICH"));
  EXPECT_TRUE(Index.Remove(2, "Zürich WEST"));
  EXPECT_EQ(Index.Find("zurich", TNameMatch::nmPart), TIds{1});
}

TEST(NameIndex, IsEqualToLookingAtEveryNameWhileItChanges) {
  std::mt19937 Random(9);
  const char* Letters[] = {"a", "B", "é", "ß", "Ö", " ", "c", "A"};
  const auto RandomText = [&](size_t MaxLetters) {
    std::string Text;
    for (size_t i = Random() % (MaxLetters + 1); i > 0; --i) Text += Letters[Random() % 8];
    if (Random() % 64 == 0) Text += std::string("\0x", 2);
    return Text;
  };
  struct TItem {
    std::string Key;
    int32_t Id;
    std::string Name;
    bool operator<(const TItem& B) const { return std::tie(Key, Id) < std::tie(B.Key, B.Id); }
  };
  std::vector<TItem> Items;
  TNameIndex Index;
  int32_t Id = 0;
  for (int Round = 0; Round < 3000; ++Round) {
    const bool Growing = Round / 1000 != 1;
    for (int i = 0; i < 8; ++i) {
      if (Growing == (Random() % 4 != 0) || Items.empty()) {
        const std::string Name = RandomText(6);
        Index.Insert(++Id, Name);
        if (!Name.empty()) Items.push_back({SearchKey(Name), Id, Name});
      } else {
        std::swap(Items[Random() % Items.size()], Items.back());
        ASSERT_TRUE(Index.Remove(Items.back().Id, Items.back().Name));
        ASSERT_FALSE(Index.Remove(Items.back().Id, Items.back().Name));
        Items.pop_back();
      }
    }
    ASSERT_EQ(Index.Count(), Items.size());
    const std::string Text = RandomText(3);
    const std::string Key = SearchKey(Text);
    const size_t Limit = Random() % 2 == 0 ? SIZE_MAX : Random() % 20;
    std::vector<TItem> Hits[3];
    for (const TItem& Item : Items) {
      if (Key.empty()) break;
      if (Item.Key == Key) Hits[0].push_back(Item);
      if (Item.Key.compare(0, Key.size(), Key) == 0) Hits[1].push_back(Item);
      if (Item.Key.find(Key) != std::string::npos) Hits[2].push_back(Item);
    }
    for (size_t Match = 0; Match < 3; ++Match) {
      std::sort(Hits[Match].begin(), Hits[Match].end());
      TIds Expected;
      for (size_t i = 0; i < Hits[Match].size() && i < Limit; ++i)
        Expected.push_back(Hits[Match][i].Id);
      ASSERT_EQ(Index.Find(Text, static_cast<TNameMatch>(Match), Limit), Expected) << Text;
    }
  }
}

}  // namespace
}  // namespace zav

// widgets.cpp - widgets that are not on any screen.
// SPDX-License-Identifier: MIT
#include <platform/host/widgets.h>

#include <algorithm>
#include <vector>

namespace zav {
namespace {

class TUnseenButton final : public TSpeedButton {
 public:
  using TGroup = std::shared_ptr<std::vector<TUnseenButton*>>;  // all buttons of the panel

  TUnseenButton(TGroup All, int32_t Group) : FAll(std::move(All)), FGroup(Group) {
    FAll->push_back(this);
  }
  ~TUnseenButton() override { std::erase(*FAll, this); }
  bool Down() const override { return FDown; }
  void SetDown(bool Down) override {
    if (!Down) return;
    for (TUnseenButton* Each : *FAll)
      if (Each->FGroup == FGroup) Each->FDown = Each == this;
  }

 private:
  TGroup FAll;
  int32_t FGroup;
  bool FDown = false;
};

class TUnseenComboBox final : public TComboBox {
 public:
  void Clear() override {
    FLines.clear();
    FIndex = -1;
  }
  void Add(const std::string& Line) override { FLines.push_back(Line); }
  int32_t Count() const override { return static_cast<int32_t>(FLines.size()); }
  int32_t ItemIndex() const override { return FIndex; }
  void SetItemIndex(int32_t Index) override { FIndex = Index >= 0 && Index < Count() ? Index : -1; }

 private:
  std::vector<std::string> FLines;
  int32_t FIndex = -1;
};

class TUnseenPanel final : public TPanel {
 public:
  explicit TUnseenPanel(int32_t Height) : FHeight(Height) {}
  int32_t Height() const override { return FHeight; }
  bool Visible() const override { return FVisible; }
  void SetVisible(bool Visible) override { FVisible = Visible; }
  std::unique_ptr<TSpeedButton> AddSpeedButton(const TRect& /*Bounds*/, TGlyph /*Glyph*/,
                                               const std::string& /*Hint*/,
                                               int32_t Group) override {
    return std::make_unique<TUnseenButton>(FButtons, Group);
  }
  std::unique_ptr<TComboBox> AddComboBox(const TRect& /*Bounds*/,
                                         const std::string& /*Hint*/) override {
    return std::make_unique<TUnseenComboBox>();
  }

 private:
  int32_t FHeight;
  bool FVisible = true;
  TUnseenButton::TGroup FButtons = std::make_shared<std::vector<TUnseenButton*>>();
};

}  // namespace

std::unique_ptr<TPanel> MakeUnseenPanel(int32_t Height) {
  return std::make_unique<TUnseenPanel>(Height);
}

}  // namespace zav

// The tools as a state machine: no window, no map.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <geomap/view/mouse_tools.h>

#include <charconv>
#include <string>
#include <vector>

namespace zav {
namespace {

using enum TMouseActMode;
using enum TMouseButton;

std::string Text(TPoint P) { return std::to_string(P.X) + "," + std::to_string(P.Y); }

std::string Text(double Number) {
  char Digits[32];
  const auto End =
      std::to_chars(Digits, Digits + sizeof Digits, Number, std::chars_format::general, 5).ptr;
  return {Digits, End};
}

// What a result asks for, in the order in which it is to be done.
std::string Text(const TMouseResult& R) {
  std::string Out;
  const auto Add = [&](const std::string& Word) { Out += (Out.empty() ? "" : " ") + Word; };
  if (R.EndsStroke) Add("stroke");
  if (R.KeepShape) Add("keep");
  if (R.Feedback) {
    static const char* const Kinds[] = {"none", "line ", "box ", "dots "};
    const bool None = R.Feedback->Kind == TFeedbackKind::fkNone;
    Add(Kinds[static_cast<size_t>(R.Feedback->Kind)] +
        (None ? "" : Text(R.Feedback->From) + ":" + Text(R.Feedback->To)));
  }
  if (R.View) Add("view " + Text(R.View->TopLeft) + " x" + Text(R.View->Magnification));
  if (R.Limit != TZoomLimit::zlNone) Add(R.Limit == TZoomLimit::zlTooHigh ? "high" : "small");
  if (R.EndsStep) Add("step");
  if (R.Traces) Add("trace " + Text(R.At));
  static const char* const News[] = {"", "begun ", "continued ", "ended ", "selected "};
  if (R.News != TMouseNews::mnNone) Add(News[static_cast<size_t>(R.News)] + Text(R.From));
  if (R.News == TMouseNews::mnSelected) Add(Text(R.To));
  return Out;
}

struct TEvent {
  char Kind;  // Press, Move, Release; Arm, aBort, Go (let go), Cancel
  TPoint At;
  std::string Expected = {};
  TMouseButton Button = mbLeft;
  TShiftState Shift = 0;
};

struct TSequence {
  const char* What;
  TMouseActMode Action;
  TViewState View;
  std::vector<TEvent> Events;
  bool Confine = true;
};

TMouseResult Do(TMouseTools& Tools, const TMouseContext& Context, const TEvent& Event) {
  switch (Event.Kind) {
    case 'P':
      return Tools.Press(Context, Event.Button, Event.Shift, Event.At);
    case 'M':
      return Tools.Move(Context, Event.Shift, Event.At);
    case 'R':
      return Tools.Release(Context, Event.Button, Event.At);
    case 'A':
      Tools.ArmBox();
      break;
    case 'B':
      Tools.AbortBox();
      break;
    case 'G':
      Tools.LetGo();
      break;
    case 'C':
      Tools.Cancel();
      break;
    default:
      ADD_FAILURE();
  }
  return {};
}

// Moves are given the view that the results led to. The control has 500 x 400 pixels, the map 1000
// x 800.
void Play(const TSequence& Sequence, TMouseTools& Tools) {
  TMouseContext Context{Sequence.Action, Sequence.View, {500, 400}, {1000, 800}, Sequence.Confine};
  int Number = 0;
  for (const TEvent& Event : Sequence.Events) {
    SCOPED_TRACE(std::string(Sequence.What) + ", event " + std::to_string(++Number));
    const TPoint Map = ControlToMapImage(Context.View, Event.At);
    const TMouseResult Result = Do(Tools, Context, Event);
    EXPECT_EQ(Text(Result), Event.Expected);
    if (Event.Kind == 'P') {
      EXPECT_EQ(Tools.LastClick(), Map);
    }
    if (Event.Kind == 'M') {
      EXPECT_EQ(Tools.LastMove(), Map);
    }
    if (Result.View) Context.View = *Result.View;
  }
}

constexpr TViewState Plain = {{0, 0}, 1};

TEST(MouseTools, RubberBand) {
  const TSequence Sequences[] = {
      {"ends and begins",
       maRubberBand,
       {{100, 50}, 0.5},
       {{'M', {1, 1}},
        {'P', {10, 20}, "begun 120,90"},
        {'R', {10, 20}},
        {'M', {50, 60}, "line 10,20:50,60"},
        {'M', {-5, 700}, "line 10,20:-5,700"},
        {'P', {9, 9}, "", mbRight},
        {'P', {50, 60}, "none ended 200,170"},
        {'M', {51, 60}},
        {'P', {60, 60}, "begun 220,170"}}},
      {"segments",
       maRubberBand,
       Plain,
       {{'P', {10, 20}, "begun 10,20", mbLeft, ssCtrl},  // nothing to continue
        {'M', {50, 60}, "line 10,20:50,60"},
        {'P', {50, 60}, "keep continued 50,60", mbLeft, ssCtrl | ssLeft},
        {'M', {70, 80}, "line 50,60:70,80"},
        {'G', {}},  // needs no button
        {'M', {70, 90}, "line 50,60:70,90"},
        {'P', {70, 90}, "none ended 70,90"}}},
      {"cancelled",
       maRubberBand,
       Plain,
       {{'P', {10, 20}, "begun 10,20"},
        {'C', {}},
        {'M', {70, 90}},
        {'P', {10, 20}, "begun 10,20"}}},
  };
  for (const TSequence& Sequence : Sequences) {
    TMouseTools Tools;
    Play(Sequence, Tools);
    EXPECT_FALSE(Tools.Dragging());
  }
}

TEST(MouseTools, ZoomBox) {
  const TSequence Sequences[] = {
      {"wide, from below right",
       maZoomBox,
       {{10, 20}, 1},
       {{'P', {501, 10}},  // outside
        {'M', {400, 300}},
        {'P', {500, 300}},
        {'M', {600, -5}, "box 500,300:500,0", mbLeft, ssLeft},  // clamped
        {'M', {200, 100}, "box 500,300:200,100"},
        // 300 x 200 map pixels: 500 / 300; x 210, y 120 + Round((200 - 400 / 1.6667) / 2)
        {'R', {200, 100}, "none view 210,100 x1.6667 step"},
        {'M', {210, 100}}}},
      {"high: the height counts, 2 is allowed",
       maZoomBox,
       Plain,
       {{'P', {100, 100}}, {'R', {300, 300}, "none view 75,100 x2 step"}}},
      {"too high stays until the next release",
       maZoomBox,
       {{7, 8}, 1},
       {{'P', {100, 100}},
        {'R', {200, 150}, "none view 7,8 x2 high"},
        {'M', {220, 170}, "box 100,100:220,170"},
        {'P', {300, 300}},  // active already
        {'R', {300, 400}, "none view 7,8 x2 high"},
        {'R', {9, 9}, "none", mbRight},
        {'M', {220, 170}}}},
      {"too small",
       maZoomBox,
       {{0, 0}, 0.25},
       {{'P', {0, 0}}, {'R', {500, 400}, "none view 0,0 x0.5 small"}, {'G', {}}}},
      {"nothing",
       maZoomBox,
       {{0, 0}, 2},
       {{'P', {100, 100}},
        {'M', {100, 200}, "box 100,100:100,200"},
        {'R', {100, 200}, "none"},
        {'P', {100, 100}},
        {'R', {101, 180}, "none"},  // the same map pixel across
        {'P', {100, 100}, "", mbRight},
        {'M', {100, 200}}}},
      {"given up by the right button, not by the middle one",
       maZoomBox,
       Plain,
       {{'P', {100, 100}},
        {'R', {120, 120}, "", mbMiddle},
        {'M', {130, 130}, "box 100,100:130,130"},
        {'P', {130, 130}, "", mbRight},
        {'R', {130, 130}, "none", mbRight},
        {'R', {400, 400}}}},
  };
  for (const TSequence& Sequence : Sequences) {
    TMouseTools Tools;
    Play(Sequence, Tools);
    EXPECT_FALSE(Tools.ZoomBoxActive()) << Sequence.What;
  }
  TMouseTools Tools;
  Play({"", maZoomBox, Plain, {{'P', {1, 1}}}}, Tools);
  EXPECT_TRUE(Tools.ZoomBoxActive());
  EXPECT_TRUE(Tools.Dragging());
  Play({"", maMouseTrace, Plain, {{'M', {5, 5}, "", mbLeft, ssLeft}}}, Tools);
}

TEST(MouseTools, ZoomDrag) {
  const TSequence Sequences[] = {
      // 40 of 400 pixels down: 0.9 times; the middle (300, 250) stays. Each move counts the whole
      // way again.
      {"out",
       maZoomDrag,
       {{50, 50}, 1},
       {{'M', {100, 200}, "", mbLeft, ssLeft},
        {'M', {100, 240}, "view 22,28 x0.9", mbLeft, ssLeft},
        {'M', {100, 240}, "view -9,3 x0.81", mbLeft, ssLeft},
        {'M', {100, 401}, "", mbLeft, ssLeft},
        {'M', {100, 400}, "view -9,3 x0.5 small", mbLeft, ssLeft},
        {'M', {100, 400}, "view -9,3 x0.5 small", mbLeft, ssLeft},
        {'R', {100, 400}, "step"}}},
      // A tenth of 0.05 to the right.
      {"in and aside",
       maZoomDrag,
       Plain,
       {{'M', {100, 200}, "", mbLeft, ssLeft},
        {'M', {150, 160}, "view 24,19 x1.105", mbLeft, ssLeft},
        {'M', {100, 0}, "view 99,79 x1.6575", mbLeft, ssLeft},
        {'M', {100, 0}, "view 99,79 x2 high", mbLeft, ssLeft},
        {'M', {100, 0}},  // the button was let go elsewhere
        {'M', {100, 300}, "", mbLeft, ssLeft},
        {'M', {100, 300}, "view 99,79 x2", mbLeft, ssLeft}}},
  };
  for (const TSequence& Sequence : Sequences) {
    TMouseTools Tools;
    Play(Sequence, Tools);
  }
  TMouseTools Tools;
  const TMouseContext NoArea = {maZoomDrag, Plain, {0, 0}, {1000, 800}, true};
  for (int I = 0; I < 2; ++I) EXPECT_EQ(Text(Tools.Move(NoArea, ssLeft, {0, 0})), "");
}

TEST(MouseTools, PanSelectTrace) {
  const TSequence Sequences[] = {
      {"a drag ends with its button",
       maPan,
       {{50, 50}, 2},
       {{'P', {100, 100}},
        {'M', {100, 100}, "", mbLeft, ssLeft},
        {'M', {90, 121}, "view 55,40 x2", mbLeft, ssLeft},  // half a pixel to the even one
        {'R', {90, 121}, "step", mbRight},
        {'M', {80, 121}, "view 60,40 x2", mbLeft, ssLeft},
        {'R', {80, 121}, "step"},
        {'M', {300, 300}, "", mbLeft, ssLeft},  // takes another anchor
        {'M', {298, 300}, "view 61,40 x2", mbLeft, ssLeft},
        {'G', {}}}},
      {"from far outside",
       maPan,
       Plain,
       {{'M', {INT32_MIN, INT32_MAX}, "", mbLeft, ssLeft},
        {'M', {0, 0}, "view -2147483648,2147483647 x1", mbLeft, ssLeft},
        {'C', {}}},
       false},
      {"selecting",
       maSelectRect,
       {{100, 50}, 0.5},
       {{'R', {5, 5}},  // pressed elsewhere
        {'P', {10, 20}, "begun 120,90"},
        {'M', {30, 40}},  // without the button
        {'M', {600, -3}, "dots 10,20:500,0", mbLeft, ssLeft},
        {'R', {600, -3}, "", mbMiddle},
        {'R', {600, -3}, "none selected 120,90 1300,44"},
        {'P', {10, 20}, "begun 120,90"},
        {'C', {}},
        {'M', {30, 40}, "", mbLeft, ssLeft},
        {'R', {30, 40}}}},
      {"tracing",
       maMouseTrace,
       Plain,
       {{'M', {5, 5}},
        {'M', {-5, 405}, "trace 0,400", mbLeft, ssLeft},
        {'R', {1, 1}, "stroke", mbRight}}},
      {"nothing", maNone, Plain, {{'P', {1, 1}}, {'M', {9, 9}, "", mbLeft, ssLeft}, {'R', {9, 9}}}},
      {"another value",
       static_cast<TMouseActMode>(4),
       Plain,
       {{'P', {1, 1}}, {'M', {9, 9}, "", mbLeft, ssLeft}, {'R', {9, 9}}}},
  };
  for (const TSequence& Sequence : Sequences) {
    TMouseTools Tools;
    Play(Sequence, Tools);
    EXPECT_FALSE(Tools.Dragging()) << Sequence.What;
  }
}

TEST(MouseTools, BoxForTheProgram) {
  struct TCase {
    const char* What;
    std::vector<TEvent> Events;
    std::optional<TRect> Box;
  };
  const TCase Cases[] = {
      {"by the middle button, beyond the edges",
       {{'A', {}},
        {'M', {1, 1}},
        {'P', {300, 20}, "", mbMiddle},
        {'M', {600, -9}, "box 300,20:500,1"},  // clamped to 1, too
        {'R', {200, 450}, "none", mbMiddle}},
       TRect{200, 20, 300, 450}},
      {"without extent",
       {{'A', {}}, {'P', {30, 20}}, {'R', {30, 20}, "none"}},
       TRect{30, 20, 30, 20}},
      {"right at once", {{'A', {}}, {'P', {30, 20}, "", mbRight}, {'M', {50, 50}}}, {}},
      {"right later",
       {{'A', {}}, {'P', {30, 20}}, {'P', {30, 20}, "", mbRight}, {'R', {3, 2}, "none", mbRight}},
       {}},
      {"aborted", {{'A', {}}, {'P', {30, 20}}, {'B', {}}, {'M', {9, 9}}, {'R', {9, 9}}}, {}},
      {"not armed", {{'P', {30, 20}}, {'R', {60, 60}}}, {}},
  };
  for (const TCase& Case : Cases) {
    TMouseTools Tools;
    Play({Case.What, maNone, Plain, Case.Events}, Tools);
    EXPECT_FALSE(Tools.BoxPending()) << Case.What;
    EXPECT_EQ(Tools.TakeBox(), Case.Box) << Case.What;
    EXPECT_EQ(Tools.TakeBox(), std::nullopt);
  }
}

}  // namespace
}  // namespace zav

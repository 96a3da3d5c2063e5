/// @file
/// widgets.h - the small widgets that compound controls ask their host for.
///
/// Bounds are pixels of the panel. What the user does fires the events; what the program sets does
/// not. A handler may destroy the widget.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_HOST_WIDGETS_H
#define ZAV_PLATFORM_HOST_WIDGETS_H

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include <platform/base/api.h>
#include <platform/base/geometry.h>

namespace zav {

/// Pictures of buttons, which the host draws.
enum class TGlyph : uint8_t {
  gyPointer,  ///< an arrow
  gyZoom      ///< a magnifying glass
};

/// A flat button that stays down. Of those of one panel with the same group one is down: pressing
/// one lets the others up.
class ZAVGEO_API TSpeedButton {
 public:
  virtual ~TSpeedButton() = default;
  /// Whether it is pressed.
  virtual bool Down() const = 0;
  /// False for the one that is down does nothing.
  virtual void SetDown(bool Down) = 0;
  std::function<void()> OnClick;  ///< the user has pressed it, whether or not it was down
};

/// A list to choose one line from, without free text.
class ZAVGEO_API TComboBox {
 public:
  virtual ~TComboBox() = default;
  /// Removes all lines; none is chosen then.
  virtual void Clear() = 0;
  /// Appends a line.
  virtual void Add(const std::string& Line) = 0;
  /// How many lines there are.
  virtual int32_t Count() const = 0;
  /// From 0, -1 for none.
  virtual int32_t ItemIndex() const = 0;
  /// An index that is none of a line's chooses none.
  virtual void SetItemIndex(int32_t Index) = 0;
  std::function<void()> OnChange;  ///< the user has chosen a line
};

/// A bar at the top of a control. Its widgets must not outlive it.
class ZAVGEO_API TPanel {
 public:
  virtual ~TPanel() = default;
  /// Pixels.
  virtual int32_t Height() const = 0;
  /// Whether it takes its place at the top.
  virtual bool Visible() const = 0;
  /// The control is told nothing; whoever calls places what lies below.
  virtual void SetVisible(bool Visible) = 0;
  /// Hint is shown when the mouse rests on it, and read to those who cannot see it.
  virtual std::unique_ptr<TSpeedButton> AddSpeedButton(const TRect& Bounds, TGlyph Glyph,
                                                       const std::string& Hint, int32_t Group) = 0;
  /// Adds a list, empty at first, which is read as Hint to those who cannot see it.
  virtual std::unique_ptr<TComboBox> AddComboBox(const TRect& Bounds, const std::string& Hint) = 0;
};

/// A panel that is not on any screen, for hosts that have no widgets; it keeps its state only.
ZAVGEO_API std::unique_ptr<TPanel> MakeUnseenPanel(int32_t Height);

}  // namespace zav

#endif

// SPDX-License-Identifier: MIT
// What a widget library knows and does, whatever it draws: the records, the bars, the open list,
// the bubble, what a press and a pick do, when a list closes, and what the plug-in is told when.
//
//     Model model(view);
//     model.Create({.on_created = ..., .on_closed = ..., .records = ...});
//     model.Show(handle, true);
//     model.Press(EventKey::Chat);
//
// A callback may call any member again, also to close the bar that was clicked: whoever calls one
// looks at `generation_` before going on with the bar that it had.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "model/catalog.h"
#include "model/owned_button.h"
#include "model/view.h"
#include "vellomar/lorimel.h"

namespace vellomar_widgets {

using Rows = std::vector<OwnedButton>;

struct BarRequest {
  std::string title;
  std::int64_t x = 0, y = 0, width = 0, height = 0;  // of the display, in pixels
  VELLOMAR_LORIMEL::CreatedCallback* on_created = nullptr;
  VELLOMAR_LORIMEL::ClosedCallback* on_closed = nullptr;
  Records records;
  bool simplify = false;
};

// A drop-down window.
struct List {
  VELLOMAR_LORIMEL::EventKey opener = VELLOMAR_LORIMEL::EventKey::GroupHeader;
  Rows rows;
  void* handle = nullptr;
};

// A hint, a chat message or a question at a button.
struct Bubble {
  VELLOMAR_LORIMEL::EventKey button = VELLOMAR_LORIMEL::EventKey::GroupHeader;
  Rectangle at{};       // where the button is not shown; without a width: at the bar
  std::string title{};  // a person's name or a question's title
  std::string text{};
  std::string confirm{};  // the label of a question's button
  bool has_avatar = false;
  std::string avatar_path{};
  bool is_question = false;  // stays until it is answered
  bool is_warning = false;
  bool stays = false;   // until the user closes it
  int life_ms = 5'000;  // else
};

class Model {
 public:
  explicit Model(View& view) : view_(view) {}
  Model(const Model&) = delete;
  Model& operator=(const Model&) = delete;

  // What the plug-in asks for, as in vellomar/lorimel.h.
  bool Create(BarRequest request);
  bool Show(void* handle, bool show);
  bool Close();
  bool ShowSketchBar(bool show);
  bool CloseSketchBar();
  bool CloseSketchList();
  void SetEventCallback(VELLOMAR_LORIMEL::EventCallback* callback) { on_event_ = callback; }
  void SetShowWindowCallback(VELLOMAR_LORIMEL::ShowWindowCallback* callback) {
    on_show_window_ = callback;
  }
  bool SetRecord(const OwnedButton& record);
  bool SetDuration(std::uint64_t seconds);
  bool SetMicVolume(int percent);
  bool ShowBubble(Bubble bubble);
  // In pixels; nothing where it is not shown.
  std::optional<Rectangle> AreaOf(VELLOMAR_LORIMEL::EventKey key) const;
  std::uint64_t NativeHandle(void* handle) const { return view_.NativeHandle(handle); }

  // What the user does. False, or -1, where a user could not.
  bool Press(VELLOMAR_LORIMEL::EventKey key);
  // Takes the key of the button or of the window; the number of rows, 0 where it stays closed.
  int Open(VELLOMAR_LORIMEL::EventKey key);
  void ToggleList(VELLOMAR_LORIMEL::EventKey opener);
  bool Pick(std::size_t row);
  void CloseList();
  void CloseBubble();
  bool CloseBar() { return IsBarVisible() && Close(); }

  // Asks the plug-in for the rows again, as the view was told by RefreshListSoon.
  void RefreshList();

  // What there is.
  const BarRequest& Request() const { return request_; }
  const BarMode& Mode() const { return mode_; }
  const OwnedButton* Record(VELLOMAR_LORIMEL::EventKey key) const;
  const List* OpenList() const { return list_ ? &*list_ : nullptr; }
  const Bubble* OpenBubble() const { return bubble_ ? &*bubble_ : nullptr; }
  bool IsBarVisible() const { return bar_visible_; }
  bool IsSketchBarVisible() const { return sketch_bar_ == SketchBar::kVisible; }
  // Whether it is on a visible bar.
  bool IsShown(VELLOMAR_LORIMEL::EventKey key) const;
  // Whether it is, and a user can press it.
  bool CanUse(VELLOMAR_LORIMEL::EventKey key) const;
  // Whether the plug-in is being called right now.
  bool InCallback() const { return callback_depth_ > 0; }

 private:
  enum class SketchBar { kNone, kHidden, kVisible };

  void Refresh();
  bool PressOutsideButtons(VELLOMAR_LORIMEL::EventKey key);
  Rows AskForRows(VELLOMAR_LORIMEL::EventKey opener);
  void ShowList(VELLOMAR_LORIMEL::EventKey opener, Rows rows);
  void MarkPicked(std::size_t row, const OwnedButton& picked);
  void FollowBubble();
  void TranslateBubble(const OwnedButton& before, const OwnedButton& after);
  void Report(OwnedButton event);
  void ReportCreated(const Window& window, bool is_main);
  void ReportClosed(VELLOMAR_LORIMEL::ClosedCallback* callback, void* handle);
  void ReportInfoExpanded(bool expanded);

  View& view_;
  VELLOMAR_LORIMEL::EventCallback* on_event_ = nullptr;
  VELLOMAR_LORIMEL::ShowWindowCallback* on_show_window_ = nullptr;
  int callback_depth_ = 0;

  unsigned generation_ = 0;  // of the bar: counts creations and closings
  BarRequest request_;       // of the bar that is there, its records kept up to date
  BarMode mode_;
  void* bar_ = nullptr;  // the handle
  bool bar_visible_ = false;
  SketchBar sketch_bar_ = SketchBar::kNone;
  std::optional<List> list_;
  std::optional<Bubble> bubble_;
};

}  // namespace vellomar_widgets

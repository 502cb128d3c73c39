// SPDX-License-Identifier: MIT
// What a widget library draws with: the model tells its view what there is to see, the view says
// where it put it. A view never calls the plug-in; what the user does goes to the model.
//
// Thread: the user-interface thread, as everything here.
#pragma once

#include <cstdint>
#include <optional>

#include "vellomar/lorimel.h"

namespace vellomar_widgets {

struct Rectangle {
  int x = 0, y = 0, width = 0, height = 0;

  bool operator==(const Rectangle&) const = default;
};

// A window as the plug-in is told of it. The rectangle is in pixels.
struct Window {
  void* handle = nullptr;
  Rectangle area;
  std::uint64_t id = 0;
};

class View {
 public:
  virtual ~View() = default;

  // The bar is there, not yet visible, until CloseBar, which takes all other windows along.
  virtual Window MakeBar() = 0;
  virtual void ShowBar(bool show) = 0;
  virtual void CloseBar() = 0;
  // Makes the sketch bar where there is none.
  virtual void ShowSketchBar(bool show) = 0;
  virtual void CloseSketchBar() = 0;
  // A record, or which buttons the bar shows, has changed.
  virtual void RefreshBars() = 0;

  // The model's list: the drop-down window of the button that opened it.
  virtual Window MakeList() = 0;
  virtual void RefreshList() = 0;
  virtual void CloseList() = 0;
  // Model::RefreshList is to be called soon, once for many changes.
  virtual void RefreshListSoon() = 0;

  // The model's bubble; made again when its text has changed.
  virtual void MakeBubble() = 0;
  virtual void CloseBubble() = 0;

  virtual void StartClock(std::uint64_t seconds) = 0;  // the time of the meeting so far
  virtual void SetMicVolume(int percent) = 0;

  // In pixels, of what is shown: a button, the bar (MainWindow), the open list.
  virtual std::optional<Rectangle> AreaOf(VELLOMAR_LORIMEL::EventKey key) const = 0;
  virtual Rectangle ListArea() const = 0;
  virtual std::uint64_t NativeHandle(void* handle) const = 0;  // 0: not a window of the view's

 protected:
  View() = default;
  View(const View&) = default;
  View& operator=(const View&) = default;
};

}  // namespace vellomar_widgets

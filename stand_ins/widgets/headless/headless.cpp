// SPDX-License-Identifier: MIT
// The widget library without a screen: the model with a view that draws nothing. The bar has a
// fixed place, every button of it a slice of that.
#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <utility>

#include "model/library.h"

namespace vellomar_widgets::headless {
namespace {

using VELLOMAR_LORIMEL::EventKey;

constexpr Rectangle kBarArea = {100, 20, 1000, 60};
constexpr Rectangle kListArea = {100, 90, 240, 320};
constexpr int kButtonWidth = 32;
constexpr std::uint64_t kNativeHandle = 4711;

class Headless final : public View {
 public:
  Window MakeBar() override { return {bar_ = NewHandle(), kBarArea, handles_.size()}; }
  void ShowBar(bool /*show*/) override {}
  void CloseBar() override { bar_ = nullptr; }
  void ShowSketchBar(bool /*show*/) override {}
  void CloseSketchBar() override {}
  void RefreshBars() override {}

  Window MakeList() override { return {NewHandle(), kListArea, handles_.size()}; }
  void RefreshList() override {}
  void CloseList() override {}
  void RefreshListSoon() override { refresh_list_ = true; }

  void MakeBubble() override {}
  void CloseBubble() override {}
  void StartClock(std::uint64_t /*seconds*/) override {}
  void SetMicVolume(int /*percent*/) override {}

  std::optional<Rectangle> AreaOf(EventKey key) const override {
    if (key == EventKey::MainWindow) {
      return kBarArea;
    }
    const int place = static_cast<int>(key) - static_cast<int>(EventKey::MainWindow);
    return Rectangle{kBarArea.x + place * kButtonWidth, kBarArea.y, kButtonWidth, kBarArea.height};
  }
  Rectangle ListArea() const override { return kListArea; }
  std::uint64_t NativeHandle(void* handle) const override {
    return handle != nullptr && handle == bar_ ? kNativeHandle : 0;
  }

  Model model{*this};

  // What was put off to the loop's next turn.
  void Turn() {
    if (std::exchange(refresh_list_, false)) {
      model.RefreshList();
    }
  }

 private:
  void* NewHandle() { return &handles_.emplace_back(); }

  std::deque<char> handles_;  // a window's handle is the address of one of these
  void* bar_ = nullptr;
  bool refresh_list_ = false;
};

Headless& TheHeadless() {
  static Headless library;
  return library;
}

struct Waker {
  std::mutex mutex;
  std::condition_variable woken;
  bool wake = false;
};

Waker& TheWaker() {
  static Waker waker;
  return waker;
}

void Pump(std::int32_t max_ms) {
  TheHeadless().Turn();
  Waker& waker = TheWaker();
  std::unique_lock lock(waker.mutex);
  if (max_ms > 0) {
    waker.woken.wait_for(lock, std::chrono::milliseconds(max_ms), [&] { return waker.wake; });
  }
  waker.wake = false;
}

void Wake() {
  Waker& waker = TheWaker();
  {
    const std::lock_guard lock(waker.mutex);
    waker.wake = true;
  }
  waker.woken.notify_all();
}

}  // namespace
}  // namespace vellomar_widgets::headless

vellomar_widgets::Model* vellomar_widgets::CurrentModel(const char* /*caller*/) {
  return &headless::TheHeadless().model;
}

const LorimelDriver* LorimelGetDriver() {
  using namespace vellomar_widgets;
  static const LorimelDriver driver =
      ModelDriver("headless", headless::Pump, headless::Wake, [](const char*) { return false; });
  return &driver;
}

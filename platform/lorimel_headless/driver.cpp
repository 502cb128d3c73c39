// SPDX-License-Identifier: MIT
// The driver of the library without a screen.
#include <chrono>
#include <condition_variable>
#include <mutex>

#include "headless.h"

namespace vellomar_widgets {
namespace {

using VELLOMAR_LORIMEL::EventKey;

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
  TheHeadless().DeliverPending();
  {
    Waker& waker = TheWaker();
    std::unique_lock lock(waker.mutex);
    if (max_ms > 0) {
      waker.woken.wait_for(lock, std::chrono::milliseconds(max_ms), [&] { return waker.wake; });
    }
    waker.wake = false;
  }
  TheHeadless().DeliverPending();
}

void Wake() {
  Waker& waker = TheWaker();
  {
    const std::lock_guard lock(waker.mutex);
    waker.wake = true;
  }
  waker.woken.notify_all();
}

bool CopyTo(const OwnedButton* button, LorimelButton* out) {
  if (button == nullptr || out == nullptr) {
    return false;
  }
  *out = button->View();
  return true;
}

std::int32_t RowCount() {
  const std::vector<OwnedButton>* rows = TheHeadless().Rows();
  return rows != nullptr ? static_cast<std::int32_t>(rows->size()) : 0;
}

bool Row(std::int32_t index, LorimelButton* out) {
  if (index < 0 || index >= RowCount()) {
    return false;
  }
  return CopyTo(&(*TheHeadless().Rows())[static_cast<std::size_t>(index)], out);
}

constexpr LorimelDriver kDriver = {
    .name = "headless",
    .pump = Pump,
    .wake = Wake,
    .observe = [](LorimelObserver* observer,
                  void* context) { TheHeadless().Observe(observer, context); },
    .observeUser = [](LorimelUserObserver*, void*) {},  // nobody has a mouse here
    .press = [](std::int32_t key) { return TheHeadless().Press(EventKey{key}); },
    .open = [](std::int32_t key) { return TheHeadless().Open(EventKey{key}); },
    .pick = [](std::int32_t key,
               const char* value_text) { return TheHeadless().Pick(EventKey{key}, value_text); },
    .closeList = [] { TheHeadless().CloseList(); },
    .closeBar = [] { return TheHeadless().CloseBar(); },
    .button = [](std::int32_t key,
                 LorimelButton* out) { return CopyTo(TheHeadless().Button(EventKey{key}), out); },
    .rowCount = RowCount,
    .row = Row,
    .barVisible = [] { return TheHeadless().IsBarVisible(); },
    .screenshot = [](const char*) { return false; },
};

}  // namespace
}  // namespace vellomar_widgets

const LorimelDriver* LorimelGetDriver() {
  return &vellomar_widgets::kDriver;
}

// SPDX-License-Identifier: MIT
// The user's hands and eyes for tools and tests, on the code paths that the mouse takes too.
#include <algorithm>
#include <set>
#include <string>

#include "model/library.h"

namespace vellomar_widgets {
namespace {

using VELLOMAR_LORIMEL::EventKey;

// Who watches, and what it wants to be called with.
template <typename Observer>
struct Watcher {
  Observer* observer = nullptr;
  void* context = nullptr;
};

Watcher<LorimelObserver> g_calls;
Watcher<LorimelUserObserver> g_user;
std::set<std::string, std::less<>> g_refused;

bool Press(std::int32_t key) {
  Model* model = CurrentModel("press");
  return model != nullptr && model->Press(EventKey{key});
}

std::int32_t Open(std::int32_t key) {
  Model* model = CurrentModel("open");
  return model != nullptr ? model->Open(EventKey{key}) : -1;
}

const Rows* OpenRows(const char* caller) {
  const Model* model = CurrentModel(caller);
  const List* list = model != nullptr ? model->OpenList() : nullptr;
  return list != nullptr ? &list->rows : nullptr;
}

bool Pick(std::int32_t key, const char* value_text) {
  const Rows* rows = OpenRows("pick");
  if (rows == nullptr) {
    return false;
  }
  const auto found = std::find_if(rows->begin(), rows->end(), [&](const OwnedButton& row) {
    return row.key == EventKey{key} && (value_text == nullptr || row.value_text == value_text);
  });
  return found != rows->end() &&
         CurrentModel("pick")->Pick(static_cast<std::size_t>(found - rows->begin()));
}

void CloseList() {
  if (Model* model = CurrentModel("closeList"); model != nullptr) {
    model->CloseList();
  }
}

bool CloseBar() {
  Model* model = CurrentModel("closeBar");
  return model != nullptr && model->CloseBar();
}

bool Button(std::int32_t key, LorimelButton* out) {
  const Model* model = CurrentModel("button");
  const OwnedButton* record = model != nullptr ? model->Record(EventKey{key}) : nullptr;
  if (record == nullptr || out == nullptr) {
    return false;
  }
  *out = record->View();
  return true;
}

std::int32_t RowCount() {
  const Rows* rows = OpenRows("rowCount");
  return rows != nullptr ? static_cast<std::int32_t>(rows->size()) : 0;
}

bool Row(std::int32_t index, LorimelButton* out) {
  if (out == nullptr || index < 0 || index >= RowCount()) {
    return false;
  }
  *out = (*OpenRows("row"))[static_cast<std::size_t>(index)].View();
  return true;
}

void Refuse(const char* member, bool refused) {
  if (refused) {
    g_refused.emplace(member);
  } else {
    g_refused.erase(member);
  }
}

}  // namespace

LorimelDriver ModelDriver(const char* name, void (*pump)(std::int32_t max_ms), void (*wake)(),
                          bool (*screenshot)(const char* path)) {
  LorimelDriver driver{};
  driver.name = name;
  driver.pump = pump;
  driver.wake = wake;
  driver.observe = [](LorimelObserver* observer, void* context) { g_calls = {observer, context}; };
  driver.observeUser = [](LorimelUserObserver* observer, void* context) {
    g_user = {observer, context};
  };
  driver.press = Press;
  driver.open = Open;
  driver.pick = Pick;
  driver.closeList = CloseList;
  driver.closeBar = CloseBar;
  driver.button = Button;
  driver.rowCount = RowCount;
  driver.row = Row;
  driver.refuse = Refuse;
  driver.screenshot = screenshot;
  return driver;
}

bool IsRefused(const char* member) {
  return g_refused.contains(member);
}

void ObserveUser(const char* action, EventKey key, const char* value_text) {
  if (g_user.observer != nullptr) {
    g_user.observer(g_user.context, action, static_cast<std::int32_t>(key), value_text);
  }
}

void Observe(const char* member, const OwnedButton* record) {
  if (g_calls.observer != nullptr) {
    const LorimelButton view = record != nullptr ? record->View() : LorimelButton{};
    g_calls.observer(g_calls.context, member, record != nullptr ? &view : nullptr);
  }
}

}  // namespace vellomar_widgets

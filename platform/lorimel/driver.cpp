// SPDX-License-Identifier: MIT
// The user's hands and eyes for tools and tests, on the code paths that the mouse takes too.
#include <algorithm>

#include "application.h"
#include "observer.h"
#include "screenshot.h"
#include "ui.h"
#include "user_action.h"
#include "vellomar/lorimel_driver.h"

namespace lorimel_qt {
namespace {

using VELLOMAR_LORIMEL::EventKey;
using vellomar_widgets::OwnedButton;

LorimelObserver* g_observer = nullptr;
void* g_observer_context = nullptr;
LorimelUserObserver* g_user_observer = nullptr;
void* g_user_observer_context = nullptr;

bool Press(std::int32_t key) {
  Ui* ui = CurrentUi("press");
  return ui != nullptr && ui->Press(static_cast<EventKey>(key));
}

std::int32_t Open(std::int32_t key) {
  Ui* ui = CurrentUi("open");
  const EventKey opener = vellomar_widgets::OpenerOf(static_cast<EventKey>(key));
  return ui != nullptr
             ? ui->Open(opener != EventKey::GroupHeader ? opener : static_cast<EventKey>(key))
             : -1;
}

bool Pick(std::int32_t key, const char* value_text) {
  Ui* ui = CurrentUi("pick");
  const Rows* rows = ui != nullptr ? ui->ListRows() : nullptr;
  if (rows == nullptr) {
    return false;
  }
  const auto found = std::find_if(rows->begin(), rows->end(), [&](const OwnedButton& row) {
    return static_cast<std::int32_t>(row.key) == key &&
           (value_text == nullptr || row.value_text == value_text);
  });
  return found != rows->end() && ui->Pick(static_cast<std::size_t>(found - rows->begin()));
}

void CloseList() {
  if (Ui* ui = CurrentUi("closeList"); ui != nullptr) {
    ui->CloseList();
  }
}

bool CloseBar() {
  Ui* ui = CurrentUi("closeBar");
  return ui != nullptr && ui->IsBarVisible() && ui->Close();
}

bool Button(std::int32_t key, LorimelButton* out) {
  const Ui* ui = CurrentUi("button");
  const OwnedButton* record = ui != nullptr ? ui->Record(static_cast<EventKey>(key)) : nullptr;
  if (record == nullptr || out == nullptr) {
    return false;
  }
  *out = record->View();
  return true;
}

std::int32_t RowCount() {
  const Ui* ui = CurrentUi("rowCount");
  const Rows* rows = ui != nullptr ? ui->ListRows() : nullptr;
  return rows != nullptr ? static_cast<std::int32_t>(rows->size()) : 0;
}

bool Row(std::int32_t index, LorimelButton* out) {
  if (out == nullptr || index < 0 || index >= RowCount()) {
    return false;
  }
  *out = (*CurrentUi("row")->ListRows())[static_cast<std::size_t>(index)].View();
  return true;
}

bool BarVisible() {
  const Ui* ui = CurrentUi("barVisible");
  return ui != nullptr && ui->IsBarVisible();
}

bool Screenshot(const char* path) {
  const Ui* ui = CurrentUi("screenshot");
  return ui != nullptr && path != nullptr && SaveScreenshot(ui->Windows(), QString::fromUtf8(path));
}

constexpr LorimelDriver kDriver = {
    .name = "qt",
    .pump = Pump,
    .wake = WakePump,
    .observe = SetObserver,
    .observeUser = SetUserObserver,
    .press = Press,
    .open = Open,
    .pick = Pick,
    .closeList = CloseList,
    .closeBar = CloseBar,
    .button = Button,
    .rowCount = RowCount,
    .row = Row,
    .barVisible = BarVisible,
    .screenshot = Screenshot,
};

}  // namespace

void SetObserver(LorimelObserver* observer, void* context) {
  g_observer = observer;
  g_observer_context = context;
}

void SetUserObserver(LorimelUserObserver* observer, void* context) {
  g_user_observer = observer;
  g_user_observer_context = context;
}

void ObserveUser(const char* action, EventKey key, const char* value_text) {
  if (g_user_observer != nullptr) {
    g_user_observer(g_user_observer_context, action, static_cast<std::int32_t>(key), value_text);
  }
}

void Observe(const char* member, const OwnedButton* record) {
  if (g_observer != nullptr) {
    const LorimelButton view = record != nullptr ? record->View() : LorimelButton{};
    g_observer(g_observer_context, member, record != nullptr ? &view : nullptr);
  }
}

}  // namespace lorimel_qt

extern "C" const LorimelDriver* LorimelGetDriver(void) {
  return &lorimel_qt::kDriver;
}

// SPDX-License-Identifier: MIT
// The bar's windows: creation and closing, and the callbacks of the widget library.
#include <algorithm>
#include <iterator>
#include <utility>

#include "frame/log/guard.h"
#include "manager/controlbar_manager.h"
#include "manager/user_actions.h"

namespace VELLOMAR_CONTROLBAR {

using VELLOMAR_LOG::Guarded;
using VELLOMAR_LORIMEL::Lorimel;

namespace {

// The widget library calls plain functions.
void OnCreated(void* handle, int x, int y, int width, int height, bool is_main, std::uint64_t id) {
  Guarded("OnControlbarCreated", [&] {
    ControlbarManager::GetInstance()->OnControlbarCreated(handle, is_main, id, x, y, width, height);
  });
}

void OnClosed(void* handle) {
  Guarded("OnControlbarClosed",
          [&] { ControlbarManager::GetInstance()->OnControlbarClosed(handle); });
}

void OnEvent(BtnParams& params) {
  Guarded("OnUIEvent", [&] { ControlbarManager::GetInstance()->OnUIEvent(params); });
}

BtnParams* OnShowWindow(EventKey key, int& count) {
  BtnParams* rows = nullptr;
  const bool built = Guarded("OnGetWindowInfo", [&] {
    rows = ControlbarManager::GetInstance()->OnGetWindowInfo(key, count);
  });
  if (built) {
    return rows;
  }
  count = 0;
  return nullptr;
}

// What the plug-in reads of an event, as it was when it came. The host may close the bar, and the
// library change or free its record, while the host is told.
class ReceivedEvent {
 public:
  explicit ReceivedEvent(const BtnParams& params) {
    m_event.key = params.key;
    m_event.status = params.status;
    m_event.groupValue = params.groupValue;
    m_event.objectName = Keep(params.objectName, m_name);
    m_event.text = Keep(params.text, m_text);
    m_event.valueText = Keep(params.valueText, m_tag);
  }
  ReceivedEvent(const ReceivedEvent&) = delete;
  ReceivedEvent& operator=(const ReceivedEvent&) = delete;

  const BtnParams& Params() const { return m_event; }

 private:
  // A text that is not there stays away: it is not the same as an empty one.
  static const char* Keep(const char* text, std::string& kept) {
    if (text == nullptr) {
      return nullptr;
    }
    kept = text;
    return kept.c_str();
  }

  BtnParams m_event{};
  std::string m_name, m_text, m_tag;
};

struct WindowRows {
  EventKey key;
  BtnParams* (ControlBarDataManager::*format)(int& count);
};

constexpr WindowRows kWindows[] = {
    {EventKey::AudioDevices, &ControlBarDataManager::FormatAudioItems},
    {EventKey::CameraDevices, &ControlBarDataManager::FormatCameraItems},
    {EventKey::HostControlWindow, &ControlBarDataManager::FormatHostControlItems},
    {EventKey::ShareNew, &ControlBarDataManager::FormatSharingPermissionItems},
    {EventKey::More, &ControlBarDataManager::FormatMoreItems},
    {EventKey::RemoteControl, &ControlBarDataManager::FormatParticipants},
    {EventKey::SharingOptions, &ControlBarDataManager::FormatSharingOptionItems},
    {EventKey::SketchPen, &ControlBarDataManager::FormatSketchPenItems},
    {EventKey::SketchClear, &ControlBarDataManager::FormatSketchClearItems},
    {EventKey::Interpretation, &ControlBarDataManager::FormatInterpretationItems},
    {EventKey::MeetingIdExpand, &ControlBarDataManager::FormatShareAudioItems},
};

}  // namespace

ControlbarManager::ControlbarManager() : m_data(std::make_unique<ControlBarDataManager>()) {}

void ControlbarManager::InitEventCallback() {
  const Scope scope(__func__);
  Lorimel::GetInstance()->SetControlbarEventCallback(&OnEvent);
  Lorimel::GetInstance()->SetShowWindowCallback(&OnShowWindow);
}

bool ControlbarManager::ShowSharedControlbar(std::int64_t x, std::int64_t y, std::int64_t width,
                                             std::int64_t height) {
  const Scope scope(__func__);
  InitEventCallback();
  m_data->DropClosedLists();
  int count = 0;
  BtnParams* const params = m_data->GetAllParams(&count);
  const std::string title = m_data->GetWindowTitle();
  displayRect = {x, y, width, height};
  const std::int64_t sub_type = m_data->GetMeetingSubType();
  const bool created = Lorimel::GetInstance()->CreateControlbar(
      title.c_str(), x, y, width, height, &OnCreated, &OnClosed, false, params, count,
      static_cast<int>(sub_type), m_simplify);
  VELLOMAR_LOG::Info(
      "ShowSharedControlbar displayRect.x = {}, displayRect.y = {}, displayRect.width = {}, "
      "displayRect.height = {},nParamsCount = {},type = {} ",
      x, y, width, height, count, sub_type);
  if (!created) {
    VELLOMAR_LOG::Fault("[Controlbar] create share controlbar failed.");
    return false;
  }
  if (m_handleControlbar == nullptr) {
    VELLOMAR_LOG::Fault("[Controlbar Data] m_handleControlbar == nullptr!");
    return false;
  }
  Lorimel::GetInstance()->SetMeetingDuration(m_meetingDuration);
  return Lorimel::GetInstance()->ShowControlbar(m_handleControlbar, true);
}

bool ControlbarManager::CloseSharedControlbar() {
  const Scope scope(__func__);
  ForgetPending();
  m_data->ClearDataCache();
  return Lorimel::GetInstance()->CloseSharedControlbar();
}

void ControlbarManager::OnControlbarCreated(void* handle, bool is_main, std::uint64_t id,
                                            std::int64_t x, std::int64_t y, std::int64_t width,
                                            std::int64_t height) {
  const Scope scope(__func__);
  const VellomarRect position{x, y, width, height};
  if (!is_main) {
    Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_popupCreated>(id, position);
    VELLOMAR_LOG::Info("[Controlbar] controlbar popup window Created,position: {},{},{},{}.", x, y,
                       width, height);
    return;
  }
  m_handleControlbar = handle;
  ForgetPending();  // here is the bar, whoever asked for it
  const std::uint64_t native = Lorimel::GetInstance()->GetWidgetNativeHandle(m_handleControlbar);
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_controlbarCreated>(native, position);
  VELLOMAR_LOG::Info("[Controlbar] main controlbar Created,position: {},{},{},{}.", x, y, width,
                     height);
}

void ControlbarManager::OnControlbarClosed(void* handle) {
  const Scope scope(__func__);
  if (handle != m_handleControlbar) {
    // The text names the other callback; it is kept so.
    VELLOMAR_LOG::Fault("OnControlbarCreated handle is not controlbar");
    return;
  }
  m_data->DropClosedLists();
  // Before the bar is created: the host may close it as soon as it is told of it.
  if (std::exchange(m_recreatePending, false)) {
    RecreateControlbar();
  } else {
    Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_controlbarClosed>();
  }
}

void ControlbarManager::RecreateControlbar() {
  void* const closed = std::exchange(m_handleControlbar, nullptr);
  const bool shown =
      ShowSharedControlbar(displayRect.x, displayRect.y, displayRect.width, displayRect.height);
  const bool created = m_handleControlbar != nullptr;
  if (!created) {
    m_handleControlbar = closed;  // the last one is kept
  }
  SetMeetingNumber(m_data->GetMeetingNumber());
  if (shown) {
    return;
  }
  // The host must not believe that there is a bar. One that is there and cannot be shown is closed,
  // and the host told when that is reported; one that the host has closed is not there.
  if (created) {
    Lorimel::GetInstance()->CloseSharedControlbar();
  } else {
    Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_controlbarClosed>();
  }
}

BtnParams* ControlbarManager::OnGetWindowInfo(EventKey key, int& count) {
  const Scope scope(__func__);
  BtnParams* rows = nullptr;
  const auto* window = std::find_if(std::begin(kWindows), std::end(kWindows),
                                    [key](const WindowRows& w) { return w.key == key; });
  const bool offered = key != EventKey::Interpretation || m_data->GetInterpretationEnable();
  if (window != std::end(kWindows) && offered) {
    rows = (m_data.get()->*window->format)(count);
  }
  VELLOMAR_LOG::Info("[Controlbar] window info callback, item count: {}, item data: {}", count,
                     fmt::ptr(rows));
  return rows;
}

void ControlbarManager::OnUIEvent(BtnParams& params) {
  if (!m_key1077Enabled && params.key == EventKey::WidgetMoving) {
    return;
  }
  const Scope scope(__func__);
  const ReceivedEvent event(params);
  VELLOMAR_LOG::Info("OnUIEvent type:{}", static_cast<int>(params.key));
  OnItemValueChanged(event.Params());
  RunUserAction(*this, event.Params());
}

void ControlbarManager::OnItemValueChanged(const BtnParams& params) {
  const Scope scope(__func__);
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_uiEvent>(
      static_cast<std::int64_t>(params.key), params.objectName, params.text, params.valueText);
}

VellomarRect ControlbarManager::GetMainWindowPosition() {
  const Scope scope(__func__);
  if (m_handleControlbar == nullptr) {
    VELLOMAR_LOG::Fault("main window handle is nil!");
    return {};
  }
  return PositionOf(EventKey::MainWindow);
}

void ControlbarManager::SetWindowTitle(const std::optional<std::string>& title) {
  const Scope scope(__func__);
  m_data->SetWindowTitle(title ? title->c_str() : nullptr);
}

void ControlbarManager::SetRegWidgetMovingEvent(bool enable) {
  const Scope scope(__func__);
  m_key1077Enabled = enable;
}

void ControlbarManager::SetControlBarSimplifyEnable(bool enable) {
  const Scope scope(__func__);
  VELLOMAR_LOG::Info("SetControlBarSimplifyEnable: {}", enable);
  m_simplify = enable;  // takes effect when the bar is created next
}

}  // namespace VELLOMAR_CONTROLBAR

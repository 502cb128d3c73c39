// SPDX-License-Identifier: MIT
// The annotation tool bar.
#include "manager/controlbar_manager.h"

namespace VELLOMAR_CONTROLBAR {

using VELLOMAR_LOG::Fault;
using VELLOMAR_LOG::Info;
using VELLOMAR_LORIMEL::Lorimel;

namespace {

// What the new bar is given. The second run of the list rows is meant: pushing is idempotent.
constexpr EventKey kSketchKeys[] = {
    EventKey::SketchColor,       EventKey::SketchSelect,    EventKey::SketchMouse,
    EventKey::SketchPen,         EventKey::SketchClear,     EventKey::SketchUndo,
    EventKey::SketchPen1,        EventKey::SketchPen2,      EventKey::SketchPen3,
    EventKey::SketchPen4,        EventKey::SketchPen5,      EventKey::SketchClearMine,
    EventKey::SketchClearOthers, EventKey::SketchClearAll,  EventKey::SketchPen1,
    EventKey::SketchPen2,        EventKey::SketchPen3,      EventKey::SketchPen4,
    EventKey::SketchPen5,        EventKey::SketchClearMine, EventKey::SketchClearOthers,
    EventKey::SketchClearAll,
};

}  // namespace

bool ControlbarManager::ShowSketchControlbar(bool show) {
  const Scope scope(__func__);
  const bool done = Lorimel::GetInstance()->ShowSketchControlbar(show);
  if (!show) {
    Info("Hide Sketch Controlbar");
    return done;
  }
  if (!done) {
    return false;
  }
  for (const EventKey key : kSketchKeys) {
    BtnParams* const params = m_data->GetEventKeyParams(key);
    if (params == nullptr) {
      Fault("ShowSketchControlbar  EventKey = {}, params = nullptr", static_cast<int>(key));
      continue;
    }
    Push(*params);
  }
  return true;
}

void ControlbarManager::SelectSketchBtn(EventKey key) {
  const Scope scope(__func__);
  for (const EventKey tool : {EventKey::SketchSelect, EventKey::SketchMouse}) {
    BtnParams* const params = Record(tool);
    if (params == nullptr) {
      continue;
    }
    params->status = key == tool ? VELLOMAR_LORIMEL::kStatusOn : 0;
    Push(*params);
  }
}

void ControlbarManager::SetSketchColor(std::int64_t color) {
  const Scope scope(__func__);
  BtnParams* const params = Record(EventKey::SketchColor);
  if (params == nullptr) {
    return;
  }
  // The choice that the button shows is the key of its palette entry.
  params->groupValue = static_cast<std::int32_t>(EventKey::SketchColorNone);
  if (color >= 1 && color <= 4) {
    params->groupValue += static_cast<std::int32_t>(color);
  }
  Push(*params);
  Info("[Controlbar] SetSketchColor  {}, color: {}.", params->groupValue, color);
}

void ControlbarManager::SetSketchbarBtnEnable(EventKey key, bool enable) {
  const Scope scope(__func__);
  BtnParams* const params = Record(key);
  if (params == nullptr) {
    return;
  }
  params->status = enable ? 0 : VELLOMAR_LORIMEL::kStatusDisabled;
  Info("[Controlbar] SetSketchbarBtnEnable key: {}, enable: {}.", static_cast<int>(key), enable);
  Push(*params);
}

bool ControlbarManager::IsSketchLoading() const {
  return m_data->GetEventKeyStatus(EventKey::Annotate) == VELLOMAR_LORIMEL::kStatusLoading;
}

void ControlbarManager::SetSketcheLoading(bool loading) {
  const Scope scope(__func__);
  BtnParams* const params = Record(EventKey::Annotate);
  if (params == nullptr) {
    return;
  }
  constexpr std::int32_t kHidden = VELLOMAR_LORIMEL::kStatusHidden;
  if (!IsSketchLoading()) {
    m_isAnnotateHidden = (params->status & kHidden) != 0;
  }
  const bool hidden = m_isAnnotateHidden || m_data->GetMeetingSubType() == kSubTypeScreenBox;
  if (loading) {
    params->status = VELLOMAR_LORIMEL::kStatusLoading;
  } else {
    params->status = hidden ? kHidden : 0;
  }
  Push(*params);
  Info("[Controlbar] Set sketch loading {}.", loading);
}

void ControlbarManager::ClearSketchDropDown() {
  const Scope scope(__func__);
  Lorimel::GetInstance()->ClearSketchDropDown();
}

void ControlbarManager::CloseSketchControlbar() {
  const Scope scope(__func__);
  Lorimel::GetInstance()->CloseSketchControlbar();
}

}  // namespace VELLOMAR_CONTROLBAR

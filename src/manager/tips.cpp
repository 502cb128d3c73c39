// SPDX-License-Identifier: MIT
// Bubbles at the bar's buttons. Their texts live until the widget library returns.
#include "common/text.h"
#include "data/text_ids.h"
#include "manager/controlbar_manager.h"

namespace VELLOMAR_CONTROLBAR {

using VELLOMAR_LORIMEL::Lorimel;

void ControlbarManager::ShowButtonTip(EventKey key, const std::string& text, bool a, int b,
                                      bool c) {
  const Scope scope(__func__);
  Lorimel::GetInstance()->ShowControlbarButtonTip(key, text.c_str(), a, b, c);
}

void ControlbarManager::ShowChatMessageTip(const std::string& user_id,
                                           const std::string& instance_id, std::int64_t number,
                                           const std::string& sender_name,
                                           const std::string& message) {
  const Scope scope(__func__);
  const std::string key = ControlBarDataManager::MakeParticipantKey({user_id, instance_id, number});
  const std::string avatar_path = m_data->GetAvatarPath(key);
  VELLOMAR_LORIMEL::TipWindowInfo info{avatar_path.c_str(), sender_name.c_str(), message.c_str(),
                                       key.c_str()};
  Lorimel::GetInstance()->ShowControlbarButtonTipByInfo(EventKey::Chat, info);
}

void ControlbarManager::ShowLeaveTip() {
  // Copies: the library may let a new text map in while it is asked.
  const auto text_of = [this](std::uint64_t id) {
    return std::string(VELLOMAR_COMMON::OrEmpty(m_data->GetNativeText(id)));
  };
  const std::string title = text_of(text_id::kLeaveTitle);
  const char* const pattern = m_data->GetNativeText(text_id::kLeaveQuestion);
  // Outside a sub-room the meeting itself is what the user leaves.
  const std::string room =
      m_data->IsInSubRoom() ? m_data->GetSubRoomName() : m_data->GetMeetingDetailInfo().topic;
  const std::string text = VELLOMAR_COMMON::FillPlaceholder(pattern, room);
  const std::string confirm = text_of(text_id::kLeaveConfirm);
  const VellomarRect at = PositionOf(EventKey::Leave);
  VELLOMAR_LORIMEL::ConfirmTipWindowInfo info{title.c_str(),
                                              text.c_str(),
                                              confirm.c_str(),
                                              static_cast<int>(at.x),
                                              static_cast<int>(at.y),
                                              static_cast<int>(at.width),
                                              static_cast<int>(at.height)};
  Lorimel::GetInstance()->ShowControlbarButtonConfirmTipByInfo(EventKey::Leave, info);
}

}  // namespace VELLOMAR_CONTROLBAR

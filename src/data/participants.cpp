// SPDX-License-Identifier: MIT
// The participants of the meeting and the one who controls this user's screen.
//
// An update names all participants. It is compared with the store, so that what has not changed
// costs a look-up and a comparison and nothing else.
#include <charconv>
#include <cstring>

#include "bridge/server_api.h"
#include "common/text.h"
#include "data/control_bar_data_manager.h"

namespace VELLOMAR_CONTROLBAR {
namespace {

constexpr std::uint64_t kControlledText = 10066;
constexpr std::int64_t kNoAvatar = -1;

void AssignKey(std::string& key, const ParticipantId& id) {
  char digits[24];
  const auto end = std::to_chars(digits, digits + sizeof digits, id.number);
  key.assign(id.user_id);
  key.append(id.instance_id);
  key.append(digits, end.ptr);
}

// The path that a new record leaves the participant with: a path that came with a response stays
// until the host names another.
std::string_view NewPath(const Participant& old, const ParticipantList::Item& item) {
  const bool keeps = item.avatar_path.empty() && item.avatar_key == old.avatar_key;
  return keeps ? std::string_view(old.avatar_path) : item.avatar_path;
}

bool IsSame(const Participant& old, const ParticipantList::Item& item) {
  return old.display_name == item.display_name && old.room == item.room &&
         old.avatar_key == item.avatar_key && old.avatar_path == NewPath(old, item) &&
         old.flag == item.flag && old.user_id == item.id.user_id &&
         old.instance_id == item.id.instance_id && old.number == item.id.number;
}

std::shared_ptr<Participant> MakeParticipant(const std::string& key,
                                             const ParticipantList::Item& item) {
  auto participant = std::make_shared<Participant>();
  participant->key = key;
  participant->user_id = item.id.user_id;
  participant->instance_id = item.id.instance_id;
  participant->number = item.id.number;
  participant->display_name = item.display_name;
  participant->room = item.room;
  participant->avatar_key = item.avatar_key;
  participant->avatar_path = item.avatar_path;
  participant->flag = item.flag;
  return participant;
}

}  // namespace

ParticipantList::ParticipantList(const VellomarParticipant* participants, std::int32_t count) {
  if (participants == nullptr || count <= 0) return;
  const auto size = [](const char* text) { return text != nullptr ? std::strlen(text) : 0; };
  std::size_t total = 0;
  for (std::int32_t i = 0; i < count; ++i) {
    const VellomarParticipant& p = participants[i];
    for (const char* text :
         {p.userId, p.instanceId, p.displayName, p.room, p.avatarKey, p.avatarPath}) {
      total += size(text);
    }
  }
  m_texts.reserve(total);  // the views stay valid while the texts are appended
  m_items.reserve(static_cast<std::size_t>(count));
  const auto copy = [this, size](const char* text) {
    const std::size_t start = m_texts.size();
    m_texts.append(text != nullptr ? text : "", size(text));
    return std::string_view(m_texts).substr(start);
  };
  for (std::int32_t i = 0; i < count; ++i) {
    const VellomarParticipant& p = participants[i];
    m_items.push_back({{copy(p.userId), copy(p.instanceId), p.number},
                       copy(p.displayName),
                       copy(p.room),
                       copy(p.avatarKey),
                       copy(p.avatarPath),
                       p.flag != 0});
  }
}

std::string ControlBarDataManager::MakeParticipantKey(const ParticipantId& id) {
  const Scope scope(__func__);
  std::string key;
  AssignKey(key, id);
  return key;
}

void ControlBarDataManager::UpdateParticipants(const ParticipantList& participants) {
  const Scope scope(__func__);
  ++m_participantUpdate;
  std::string key;
  for (const ParticipantList::Item& item : participants.Items()) {
    AssignKey(key, item.id);
    const auto found = m_participants.find(key);
    if (found == m_participants.end()) {
      AddParticipant(item, key);
      continue;
    }
    found->second.update = m_participantUpdate;
    if (!IsSame(*found->second.participant, item)) ReplaceParticipant(found->second, item);
  }
  RemoveMissingParticipants();
}

void ControlBarDataManager::AddParticipant(const ParticipantList::Item& item,
                                           const std::string& key) {
  VELLOMAR_LOG::Info("add participant: userid {}, avatarKey: {}", item.id.user_id, item.avatar_key);
  const std::shared_ptr<Participant> participant = MakeParticipant(key, item);
  using VELLOMAR_SERVER_API::VellomarServerApiRequester;
  if (VellomarServerApiRequester::GetInstance()->RequestParticipant(participant->user_id) ==
      kNoAvatar) {
    participant->avatar_path.clear();
  }
  ParticipantEntry& entry = m_participants[key];
  entry.participant = participant;
  entry.update = m_participantUpdate;
  IndexAvatar(entry);
}

void ControlBarDataManager::ReplaceParticipant(ParticipantEntry& entry,
                                               const ParticipantList::Item& item) {
  const std::shared_ptr<Participant> participant = MakeParticipant(entry.participant->key, item);
  participant->avatar_path = NewPath(*entry.participant, item);
  entry.participant = participant;
  IndexAvatar(entry);
}

void ControlBarDataManager::IndexAvatar(ParticipantEntry& entry) {
  if (entry.avatar) m_avatars.erase(*entry.avatar);
  entry.avatar.reset();
  const Participant& participant = *entry.participant;
  if (participant.avatar_key.empty()) return;
  entry.avatar = m_avatars.emplace(participant.avatar_key, participant.key);
}

void ControlBarDataManager::RemoveMissingParticipants() {
  for (auto next = m_participants.begin(); next != m_participants.end();) {
    ParticipantEntry& entry = next->second;
    if (entry.update == m_participantUpdate) {
      ++next;
      continue;
    }
    VELLOMAR_LOG::Info("remove participant: userid {}, avatarKey: {}", entry.participant->user_id,
                       entry.participant->avatar_key);
    if (entry.avatar) m_avatars.erase(*entry.avatar);
    next = m_participants.erase(next);
  }
}

const Participant* ControlBarDataManager::FindParticipantByKey(const std::string& key) const {
  const Scope scope(__func__);
  const auto found = m_participants.find(key);
  if (found == m_participants.end()) {
    VELLOMAR_LOG::Fault("[Controlbar Data] params == nullptr!");
    return nullptr;
  }
  return found->second.participant.get();
}

std::string ControlBarDataManager::GetAvatarPath(const std::string& participant_key) const {
  const Scope scope(__func__);
  const auto found = m_participants.find(participant_key);
  if (found == m_participants.end()) {
    VELLOMAR_LOG::Fault("GetAvatarPath value not found!");
    return {};
  }
  return found->second.participant->avatar_path;
}

void ControlBarDataManager::SetAvatarPath(const std::string& avatar_key, const std::string& path) {
  const Scope scope(__func__);
  const auto [first, last] = m_avatars.equal_range(avatar_key);
  for (auto next = first; next != last; ++next) {
    ParticipantEntry& entry = m_participants.find(next->second)->second;
    // A row of an open list may still show the old record.
    auto changed = std::make_shared<Participant>(*entry.participant);
    changed->avatar_path = path;
    entry.participant = std::move(changed);
  }
}

void ControlBarDataManager::SetRemoteControler(bool under_control, std::string user_id,
                                               std::string display_name) {
  const Scope scope(__func__);
  m_isUnderControl = under_control;
  if (!under_control) {
    m_remoteController.reset();
    m_remoteControllerText.clear();
    return;
  }
  m_remoteControllerText =
      VELLOMAR_COMMON::FillPlaceholder(GetNativeText(kControlledText), display_name);
  m_remoteController.emplace();
  m_remoteController->user_id = std::move(user_id);
  m_remoteController->display_name = std::move(display_name);
}

const char* ControlBarDataManager::GetRemoteControllerTextFormat() const {
  const Scope scope(__func__);
  return m_remoteControllerText.c_str();
}

}  // namespace VELLOMAR_CONTROLBAR

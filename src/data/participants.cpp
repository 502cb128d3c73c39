// SPDX-License-Identifier: MIT
// The participants of the meeting and the one who controls this user's screen.
//
// An update names all participants. It is compared with the store, so that what has not changed
// costs a look-up and a comparison and nothing else. The store is up to date before the host is
// asked for anybody's avatar: a response from inside the question finds the participant.
#include <charconv>

#include "bridge/server_api.h"
#include "common/text.h"
#include "data/control_bar_data_manager.h"
#include "data/text_ids.h"

namespace VELLOMAR_CONTROLBAR {
namespace {

constexpr std::int64_t kNoAvatar = -1;

void AssignKey(std::string& key, const ParticipantId& id) {
  char digits[24];
  const auto end = std::to_chars(digits, digits + sizeof digits, id.number);
  key.assign(id.user_id);
  key.append(id.instance_id);
  key.append(digits, end.ptr);
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

// A copy: a row of an open list may still show the old record.
std::shared_ptr<const Participant> WithPath(const Participant& old, const std::string& path) {
  auto participant = std::make_shared<Participant>(old);
  participant->avatar_path = path;
  return participant;
}

}  // namespace

ParticipantList::ParticipantList(const VellomarParticipant* participants, std::int32_t count) {
  if (participants == nullptr || count <= 0) return;
  const auto size = [](const char* text) { return VELLOMAR_COMMON::OrEmpty(text).size(); };
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
    m_texts.append(VELLOMAR_COMMON::OrEmpty(text));
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

// What an update adds to the store: complete before the store changes, so that an update that fails
// leaves no trace.
struct ControlBarDataManager::ParticipantChanges {
  ParticipantMap entries;            // of those who are new or changed
  AvatarIndex avatars;               // theirs
  std::list<std::string> questions;  // keys of those who are new, in the list's order
};

void ControlBarDataManager::UpdateParticipants(const ParticipantList& participants) {
  const Scope scope(__func__);
  ++m_participantUpdate;
  ParticipantChanges changes;
  std::string key;
  for (const ParticipantList::Item& item : participants.Items()) {
    AssignKey(key, item.id);
    Prepare(changes, key, item);
  }
  LogMissingParticipants();
  Take(changes);
  RemoveMissingParticipants();
  AskForAvatars();
}

void ControlBarDataManager::Prepare(ParticipantChanges& changes, const std::string& key,
                                    const ParticipantList::Item& item) {
  const auto known = m_participants.find(key);
  if (known != m_participants.end()) known->second.update = m_participantUpdate;
  const auto prepared = changes.entries.find(key);  // where the list names somebody twice
  const ParticipantEntry* old = nullptr;
  if (known != m_participants.end()) old = &known->second;
  if (prepared != changes.entries.end()) old = &prepared->second;
  if (old != nullptr && IsSame(*old, item)) return;

  if (old == nullptr) {
    VELLOMAR_LOG::Info("add participant: userid {}, avatarKey: {}", item.id.user_id,
                       item.avatar_key);
    changes.questions.push_back(key);
  }
  ParticipantEntry entry = old != nullptr ? Changed(*old, item) : Joining(key, item);
  if (prepared != changes.entries.end() && prepared->second.avatar) {
    changes.avatars.erase(*prepared->second.avatar);
  }
  if (!item.avatar_key.empty()) entry.avatar = changes.avatars.emplace(item.avatar_key, key);
  changes.entries.insert_or_assign(key, std::move(entry));
}

ControlBarDataManager::ParticipantEntry ControlBarDataManager::Joining(
    const std::string& key, const ParticipantList::Item& item) const {
  ParticipantEntry entry;
  entry.participant = MakeParticipant(key, item);
  entry.listed_path = item.avatar_path;
  entry.update = m_participantUpdate;
  return entry;
}

// That there is no avatar holds until a response names one, and a response's path until the list
// names another than before.
ControlBarDataManager::ParticipantEntry ControlBarDataManager::Changed(
    const ParticipantEntry& old, const ParticipantList::Item& item) const {
  const Participant& was = *old.participant;
  const bool same_avatar = item.avatar_key == was.avatar_key &&
                           (item.avatar_path.empty() || item.avatar_path == old.listed_path);
  const bool keeps_path = old.path_source == PathSource::kNobody ||
                          (old.path_source == PathSource::kResponse && same_avatar);
  const std::shared_ptr<Participant> participant = MakeParticipant(was.key, item);
  if (keeps_path) participant->avatar_path = was.avatar_path;
  ParticipantEntry entry;
  entry.participant = participant;
  entry.listed_path = item.avatar_path;
  entry.path_source = keeps_path ? old.path_source : PathSource::kList;
  entry.asked = old.asked;
  entry.update = m_participantUpdate;
  return entry;
}

bool ControlBarDataManager::IsSame(const ParticipantEntry& entry,
                                   const ParticipantList::Item& item) {
  const Participant& old = *entry.participant;
  return old.display_name == item.display_name && old.room == item.room &&
         old.avatar_key == item.avatar_key && entry.listed_path == item.avatar_path &&
         old.flag == item.flag && old.user_id == item.id.user_id &&
         old.instance_id == item.id.instance_id && old.number == item.id.number;
}

// Before they go: writing a line may fail.
void ControlBarDataManager::LogMissingParticipants() const {
  for (const auto& [key, entry] : m_participants) {
    if (entry.update == m_participantUpdate) continue;
    VELLOMAR_LOG::Info("remove participant: userid {}, avatarKey: {}", entry.participant->user_id,
                       entry.participant->avatar_key);
  }
}

void ControlBarDataManager::Take(ParticipantChanges& changes) noexcept {
  for (auto& [key, entry] : changes.entries) {
    const auto known = m_participants.find(key);
    if (known == m_participants.end()) continue;
    if (known->second.avatar) m_avatars.erase(*known->second.avatar);
    known->second = std::move(entry);
  }
  m_avatars.merge(changes.avatars);       // the entries' iterators stay valid
  m_participants.merge(changes.entries);  // of the keys that are new
  m_questions.splice(m_questions.end(), changes.questions);
}

void ControlBarDataManager::RemoveMissingParticipants() noexcept {
  for (auto next = m_participants.begin(); next != m_participants.end();) {
    const ParticipantEntry& entry = next->second;
    if (entry.update == m_participantUpdate) {
      ++next;
      continue;
    }
    if (entry.avatar) m_avatars.erase(*entry.avatar);
    next = m_participants.erase(next);
  }
}

// The host may update the participants from inside a question: whom that adds, the loop that is
// under way asks for, so that the stack does not grow with the answers.
void ControlBarDataManager::AskForAvatars() {
  if (m_isAsking) return;
  struct Asking {
    explicit Asking(bool& flag) : is_asking(flag) { is_asking = true; }
    ~Asking() { is_asking = false; }
    bool& is_asking;
  } const asking(m_isAsking);
  while (!m_questions.empty()) {
    const std::string key = std::move(m_questions.front());
    m_questions.pop_front();
    AskForAvatar(key);
  }
}

void ControlBarDataManager::AskForAvatar(const std::string& key) {
  using VELLOMAR_SERVER_API::VellomarServerApiRequester;
  const auto found = m_participants.find(key);
  // Gone, or gone and back again and in the queue twice.
  if (found == m_participants.end() || found->second.asked) return;
  found->second.asked = true;
  const std::shared_ptr<const Participant> asked =
      found->second.participant;  // kept while it lasts
  if (VellomarServerApiRequester::GetInstance()->RequestParticipant(asked->user_id) != kNoAvatar) {
    return;
  }
  const auto now = m_participants.find(key);
  if (now == m_participants.end() || !now->second.asked) return;
  ParticipantEntry& entry = now->second;
  if (entry.path_source == PathSource::kResponse) return;  // it came from inside the question
  entry.participant = WithPath(*entry.participant, {});
  entry.path_source = PathSource::kNobody;
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
  std::vector<std::shared_ptr<const Participant>> changed;  // complete before the store changes
  for (auto next = first; next != last; ++next) {
    changed.push_back(WithPath(*m_participants.find(next->second)->second.participant, path));
  }
  auto participant = changed.begin();
  for (auto next = first; next != last; ++next) {
    ParticipantEntry& entry = m_participants.find(next->second)->second;
    entry.participant = std::move(*participant++);
    entry.path_source = PathSource::kResponse;
  }
}

void ControlBarDataManager::SetRemoteControler(bool under_control, std::string user_id,
                                               std::string display_name) {
  const Scope scope(__func__);
  std::string text;
  if (under_control) {
    text = VELLOMAR_COMMON::FillPlaceholder(GetNativeText(text_id::kControlledBy), display_name);
  }
  std::string label = text;
  std::optional<Participant> controller;
  if (under_control) {
    Participant somebody;
    somebody.user_id = std::move(user_id);
    somebody.display_name = std::move(display_name);
    controller = std::move(somebody);
  }
  m_isUnderControl = under_control;
  m_remoteControllerText = std::move(text);
  m_remoteController = std::move(controller);
  SetComposedLabel(EventKey::StopRemoteControl, std::move(label));
}

const char* ControlBarDataManager::GetRemoteControllerTextFormat() const {
  const Scope scope(__func__);
  return m_remoteControllerText.c_str();
}

}  // namespace VELLOMAR_CONTROLBAR

// SPDX-License-Identifier: MIT
#include "data/participant_store.h"

#include <charconv>
#include <utility>
#include <vector>

#include "frame/log/log.h"

namespace VELLOMAR_CONTROLBAR {
namespace {

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

std::string ParticipantStore::KeyOf(const ParticipantId& id) {
  std::string key;
  AssignKey(key, id);
  return key;
}

// What an update adds to the store: complete before the store changes, so that an update that fails
// leaves no trace.
struct ParticipantStore::Changes {
  Entries entries;                   // of those who are new or changed
  AvatarIndex avatars;               // theirs
  std::list<std::string> questions;  // keys of those who are new, in the list's order
};

void ParticipantStore::Update(const ParticipantList& participants) {
  ++m_update;
  Changes changes;
  std::string key;
  for (const ParticipantList::Item& item : participants.Items()) {
    AssignKey(key, item.id);
    Prepare(changes, key, item);
  }
  LogMissing();
  Take(changes);
  RemoveMissing();
  AskForAvatars();
}

void ParticipantStore::Prepare(Changes& changes, const std::string& key,
                               const ParticipantList::Item& item) {
  const auto known = m_participants.find(key);
  if (known != m_participants.end()) {
    known->second.update = m_update;
  }
  const auto prepared = changes.entries.find(key);  // where the list names somebody twice
  const Entry* old = nullptr;
  if (known != m_participants.end()) {
    old = &known->second;
  }
  if (prepared != changes.entries.end()) {
    old = &prepared->second;
  }
  if (old != nullptr && IsSame(*old, item)) {
    return;
  }

  if (old == nullptr) {
    VELLOMAR_LOG::Info("add participant: userid {}, avatarKey: {}", item.id.user_id,
                       item.avatar_key);
    changes.questions.push_back(key);
  }
  Entry entry = old != nullptr ? Changed(*old, item) : Joining(key, item);
  if (prepared != changes.entries.end() && prepared->second.avatar) {
    changes.avatars.erase(*prepared->second.avatar);
  }
  if (!item.avatar_key.empty()) {
    entry.avatar = changes.avatars.emplace(item.avatar_key, key);
  }
  changes.entries.insert_or_assign(key, std::move(entry));
}

ParticipantStore::Entry ParticipantStore::Joining(const std::string& key,
                                                  const ParticipantList::Item& item) const {
  Entry entry;
  entry.participant = MakeParticipant(key, item);
  entry.listed_path = item.avatar_path;
  entry.update = m_update;
  return entry;
}

// That there is no avatar holds until a response names one, and a response's path until the list
// names another than before.
ParticipantStore::Entry ParticipantStore::Changed(const Entry& old,
                                                  const ParticipantList::Item& item) const {
  const Participant& was = *old.participant;
  const bool same_avatar = item.avatar_key == was.avatar_key &&
                           (item.avatar_path.empty() || item.avatar_path == old.listed_path);
  const bool keeps_path = old.path_source == PathSource::kNobody ||
                          (old.path_source == PathSource::kResponse && same_avatar);
  const std::shared_ptr<Participant> participant = MakeParticipant(was.key, item);
  if (keeps_path) {
    participant->avatar_path = was.avatar_path;
  }
  Entry entry;
  entry.participant = participant;
  entry.listed_path = item.avatar_path;
  entry.path_source = keeps_path ? old.path_source : PathSource::kList;
  entry.asked = old.asked;
  entry.update = m_update;
  return entry;
}

bool ParticipantStore::IsSame(const Entry& entry, const ParticipantList::Item& item) {
  const Participant& old = *entry.participant;
  return old.display_name == item.display_name && old.room == item.room &&
         old.avatar_key == item.avatar_key && entry.listed_path == item.avatar_path &&
         old.flag == item.flag && old.user_id == item.id.user_id &&
         old.instance_id == item.id.instance_id && old.number == item.id.number;
}

// Before they go: writing a line may fail.
void ParticipantStore::LogMissing() const {
  for (const auto& [key, entry] : m_participants) {
    if (entry.update == m_update) {
      continue;
    }
    VELLOMAR_LOG::Info("remove participant: userid {}, avatarKey: {}", entry.participant->user_id,
                       entry.participant->avatar_key);
  }
}

void ParticipantStore::Take(Changes& changes) noexcept {
  for (auto& [key, entry] : changes.entries) {
    const auto known = m_participants.find(key);
    if (known == m_participants.end()) {
      continue;
    }
    if (known->second.avatar) {
      m_avatars.erase(*known->second.avatar);
    }
    known->second = std::move(entry);
  }
  m_avatars.merge(changes.avatars);       // the entries' iterators stay valid
  m_participants.merge(changes.entries);  // of the keys that are new
  m_questions.splice(m_questions.end(), changes.questions);
}

void ParticipantStore::RemoveMissing() noexcept {
  for (auto next = m_participants.begin(); next != m_participants.end();) {
    const Entry& entry = next->second;
    if (entry.update == m_update) {
      ++next;
      continue;
    }
    if (entry.avatar) {
      m_avatars.erase(*entry.avatar);
    }
    next = m_participants.erase(next);
  }
}

// The host may update the participants from inside a question: whom that adds, the loop that is
// under way asks for, so that the stack does not grow with the answers.
void ParticipantStore::AskForAvatars() {
  if (m_isAsking) {
    return;
  }
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

void ParticipantStore::AskForAvatar(const std::string& key) {
  const auto found = m_participants.find(key);
  // Gone, or gone and back again and in the queue twice.
  if (found == m_participants.end() || found->second.asked) {
    return;
  }
  found->second.asked = true;
  const std::shared_ptr<const Participant> asked =
      found->second.participant;  // kept while it lasts
  if (m_ask(asked->user_id) != kNoAvatar) {
    return;
  }
  const auto now = m_participants.find(key);
  if (now == m_participants.end() || !now->second.asked) {
    return;
  }
  Entry& entry = now->second;
  if (entry.path_source == PathSource::kResponse) {
    return;  // it came from inside the question
  }
  entry.participant = WithPath(*entry.participant, {});
  entry.path_source = PathSource::kNobody;
}

const Participant* ParticipantStore::Find(const std::string& key) const {
  const auto found = m_participants.find(key);
  return found != m_participants.end() ? found->second.participant.get() : nullptr;
}

void ParticipantStore::SetAvatarPath(const std::string& avatar_key, const std::string& path) {
  const auto [first, last] = m_avatars.equal_range(avatar_key);
  std::vector<std::shared_ptr<const Participant>> changed;  // complete before the store changes
  for (auto next = first; next != last; ++next) {
    changed.push_back(WithPath(*m_participants.find(next->second)->second.participant, path));
  }
  auto participant = changed.begin();
  for (auto next = first; next != last; ++next) {
    Entry& entry = m_participants.find(next->second)->second;
    entry.participant = std::move(*participant++);
    entry.path_source = PathSource::kResponse;
  }
}

void ParticipantStore::Clear() noexcept {
  m_participants.clear();
  m_avatars.clear();
  m_questions.clear();
}

}  // namespace VELLOMAR_CONTROLBAR

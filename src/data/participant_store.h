// SPDX-License-Identifier: MIT
// Who takes part in the meeting, with avatars. [loop thread]
//
//     ParticipantStore participants([](const std::string& user_id) { return Ask(user_id); });
//     participants.Update(list);
//     participants.Find(ParticipantStore::KeyOf({"user-7", "desktop", 1}));
//
// An update names all participants. It is compared with the store, so that what has not changed
// costs a look-up and a comparison and nothing else. The store is up to date before the host is
// asked for anybody's avatar: a response from inside the question finds the participant.
#pragma once

#include <cstdint>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "data/participant.h"

namespace VELLOMAR_CONTROLBAR {

class ParticipantStore {
 public:
  static constexpr std::int64_t kNoAvatar = -1;
  // Asks the host for somebody's avatar; kNoAvatar where there is none. It may come back with an
  // update or a path before it returns.
  using Ask = std::function<std::int64_t(const std::string& user_id)>;

  explicit ParticipantStore(Ask ask) : m_ask(std::move(ask)) {}
  ParticipantStore(const ParticipantStore&) = delete;
  ParticipantStore& operator=(const ParticipantStore&) = delete;

  // User id, instance id and number in decimal, joined.
  static std::string KeyOf(const ParticipantId& id);

  // The participants are exactly these from now on. Asks for each one who is new; the newest list
  // holds. Logs who comes and who goes. Changes nothing where memory runs out.
  void Update(const ParticipantList& participants);
  // Of all who have this avatar. Changes nothing where memory runs out.
  void SetAvatarPath(const std::string& avatar_key, const std::string& path);
  void Clear() noexcept;

  const Participant* Find(const std::string& key) const;  // valid until the participant changes
  // In the order of the keys. Who keeps the pointer keeps the participant as it is now.
  template <typename Visit>
  void ForEach(Visit visit) const {
    for (const auto& [key, entry] : m_participants) {
      visit(entry.participant);
    }
  }

 private:
  using AvatarIndex = std::multimap<std::string, std::string>;  // avatar key to participant key
  // Whose word the avatar path is. Nobody's: the host has said that there is none.
  enum class PathSource : std::uint8_t { kList, kResponse, kNobody };
  struct Entry {
    std::shared_ptr<const Participant> participant;
    std::string listed_path;  // the one in the host's newest list
    PathSource path_source = PathSource::kList;
    bool asked = false;                           // the host, for its avatar
    std::optional<AvatarIndex::iterator> avatar;  // none without an avatar
    std::uint64_t update = 0;                     // the last one that named it
  };
  using Entries = std::map<std::string, Entry, std::less<>>;
  struct Changes;

  void Prepare(Changes& changes, const std::string& key, const ParticipantList::Item& item);
  Entry Joining(const std::string& key, const ParticipantList::Item& item) const;
  Entry Changed(const Entry& old, const ParticipantList::Item& item) const;
  static bool IsSame(const Entry& entry, const ParticipantList::Item& item);
  void LogMissing() const;
  void Take(Changes& changes) noexcept;
  void RemoveMissing() noexcept;
  void AskForAvatars();
  void AskForAvatar(const std::string& key);

  Ask m_ask;
  Entries m_participants;
  AvatarIndex m_avatars;
  std::list<std::string> m_questions;  // keys of those for whom the host has still to be asked
  bool m_isAsking = false;
  std::uint64_t m_update = 0;
};

}  // namespace VELLOMAR_CONTROLBAR

// SPDX-License-Identifier: MIT
#include "by_hand_lists.h"

#include <dlfcn.h>

#include <array>
#include <charconv>
#include <cstring>
#include <map>
#include <utility>

#include "by_hand.h"

#define MANAGER BY_HAND_MANAGER
#define DATA BY_HAND_DATA

namespace by_hand {
namespace {

using VELLOMAR_LORIMEL::BtnParams;
using VELLOMAR_LORIMEL::EventKey;
using VELLOMAR_LORIMEL::kFirstKey;
using VELLOMAR_LORIMEL::kStatusDisabled;
using VELLOMAR_LORIMEL::kStatusHidden;
using VELLOMAR_LORIMEL::kStatusOn;

using TextMap = std::map<std::uint64_t, std::string>;

std::array<BtnParams, VELLOMAR_LORIMEL::kKeyCount> buttons{};
std::shared_ptr<const TextMap> texts_by_id = std::make_shared<TextMap>();
std::string resource_path;
VellomarHostControlInfo host_info{};
bool only_host_can_share = false;
bool only_host_can_reshare = false;
bool only_presenter_can_annotate = false;
std::string move_new_text;

struct Person {
  std::string key, user_id, instance_id, name, room, avatar_key, avatar_path;
  std::int64_t number = 0;
  bool flag = false;
};
struct Entry {
  std::shared_ptr<const Person> person;
  std::uint64_t update = 0;
};
std::map<std::string, Entry> people;
std::uint64_t updates = 0;
std::string sub_room;

// The rows of a window and what they point into.
struct Rows {
  std::vector<BtnParams> rows;
  std::vector<std::shared_ptr<const void>> owners;
};
Rows participant_rows;
Rows host_control_rows;

const char* Text(std::uint64_t id) {
  const Scope scope(DATA "GetNativeText");
  const auto found = texts_by_id->find(id);
  return found != texts_by_id->end() ? found->second.c_str() : nullptr;
}

// What a text map writes into a button. 0: no text.
struct Default {
  std::int32_t key;
  std::uint64_t text = 0;
  std::int32_t status = 0;
  std::uint64_t tip = 0;
  bool expand = false;
};

constexpr Default kDefaults[] = {
    {1001, 10001, 0, 0, true},
    {1002, 10002, 0, 0, true},
    {1004, 10003},
    {1003, 10004},
    {1007, 10005},
    {1012, 10006, 0, 0, true},
    {1015, 10007},
    {1008, 10010},
    {1014, 10011},
    {1042, 10012},
    {1006, 10013},
    {1013, 10014},
    {1009, 10072},
    {1010, 10078},
    {1018, 10015},
    {1019, 10016},
    {1020, 10018},
    {1070, 0, 0, 10084, true},
    {1068, 0, kStatusHidden},
    {1069, 0, kStatusHidden, 10085},
    {1040, 0, kStatusHidden},
    {1072, 0, kStatusHidden},
    {1073, 0, kStatusHidden},
    {1075, 0, kStatusHidden},
    {1076, 10086, kStatusHidden},
    {1043, 10051},
    {1044, 10052},
    {1045, 10061},
    {1046, 10062},
    {1048, 10063},
    {1047, 10057},
    {1050, 10053},
    {1051, 10054},
    {1052, 10055},
    {1053, 10064},
    {1054, 10056},
    {1060, 10058},
    {1061, 10060},
    {1062, 10059},
    {1025, 10059},
    {1024, 10059},
    {1041, 0, 0, 10087},
    {1078, 10090, kStatusHidden},
    {1079, 0, kStatusHidden},
    {1011, 10096},
};

void WriteDefaults() {
  for (const Default& row : kDefaults) {
    BtnParams& button = Button(static_cast<EventKey>(row.key));
    {
      const Scope scope(DATA "SetEventKeyParams");
      button.hasExpand = row.expand;
      button.status = row.status;
      button.text = row.text != 0 ? Text(row.text) : nullptr;
      button.toolTip = row.tip != 0 ? Text(row.tip) : "";
      button.valueText = "";
    }
    if (button.key != EventKey::InfoText) {
      continue;
    }
    const Scope scope(DATA "SetButtonTooltip");
    button.toolTip = Text(10084);
    button.secondToolTip = Text(10089);
  }
}

bool IsOffered(EventKey key) {
  const Scope scope(DATA "GetEventKeyStatus");
  return (Button(key).status & kStatusHidden) == 0;
}

void UpdateShareNew() {
  const Scope scope(DATA "UpdateBtnShareNewExpandStatus");
  const bool audio = IsOffered(EventKey::ShareAudio);
  const bool clips = IsOffered(EventKey::OptimizeForVideoClips);
  const bool video = IsOffered(EventKey::KeepMyVideoOnTheScreen);
  const Scope access(DATA "GetShowShareAccess");
  Button(EventKey::ShareNew).hasExpand = host_info.showShareAccess != 0 || audio || clips || video;
}

}  // namespace

BtnParams& Button(EventKey key) {
  return buttons[static_cast<std::size_t>(static_cast<std::int32_t>(key) - kFirstKey)];
}

void InitTextMapping(std::vector<std::uint64_t> ids, std::vector<std::string> texts) {
  const Scope scope(DATA "InitTextMapping");
  Dl_info module{};
  dladdr(reinterpret_cast<const void*>(&InitTextMapping), &module);
  resource_path = module.dli_fname;
  resource_path.resize(resource_path.rfind('/') + 1);
  resource_path += "res";
  Line("Init controlbar res path len: {}", resource_path.size());
  auto map = std::make_shared<TextMap>();
  for (std::size_t i = 0; i < ids.size(); ++i) {
    map->try_emplace(ids[i], std::move(texts[i]));
  }
  const auto old = std::exchange(texts_by_id, std::move(map));
  for (std::size_t i = 0; i < buttons.size(); ++i) {
    buttons[i].key = static_cast<EventKey>(kFirstKey + static_cast<std::int32_t>(i));
    buttons[i].hasExpand = false;
    buttons[i].objectName = nullptr;
    buttons[i].text = nullptr;
    buttons[i].status = 0;
    buttons[i].toolTip = nullptr;
  }
  WriteDefaults();
  UpdateShareNew();
  const Scope avatars(DATA "RegisterForAvatars");
}

// --- Participants

Snapshot::Snapshot(const VellomarParticipants& record) {
  std::size_t total = 0;
  for (std::int32_t i = 0; i < record.count; ++i) {
    const VellomarParticipant& p = record.participants[i];
    for (const char* text :
         {p.userId, p.instanceId, p.displayName, p.room, p.avatarKey, p.avatarPath}) {
      total += std::strlen(text);
    }
  }
  texts.reserve(total);
  items.reserve(static_cast<std::size_t>(record.count));
  const auto copy = [this](const char* text) {
    const std::size_t start = texts.size();
    texts += text;
    return std::string_view(texts).substr(start);
  };
  for (std::int32_t i = 0; i < record.count; ++i) {
    const VellomarParticipant& p = record.participants[i];
    items.push_back({copy(p.userId), copy(p.instanceId), copy(p.displayName), copy(p.room),
                     copy(p.avatarKey), copy(p.avatarPath), p.number, p.flag != 0});
  }
}

namespace {

bool IsSame(const Person& p, const Snapshot::Item& i) {
  return p.flag == i.flag && p.number == i.number && p.user_id == i.user_id &&
         p.instance_id == i.instance_id && p.name == i.name && p.room == i.room &&
         p.avatar_key == i.avatar_key && p.avatar_path == i.avatar_path;
}

std::shared_ptr<const Person> MakePerson(const std::string& key, const Snapshot::Item& i) {
  auto person = std::make_shared<Person>();
  *person = {key,
             std::string(i.user_id),
             std::string(i.instance_id),
             std::string(i.name),
             std::string(i.room),
             std::string(i.avatar_key),
             std::string(i.avatar_path),
             i.number,
             i.flag};
  return person;
}

}  // namespace

void UpdateParticipants(const Snapshot& snapshot) {
  const Scope scope(DATA "UpdateParticipants");
  ++updates;
  std::string key;
  for (const Snapshot::Item& item : snapshot.items) {
    char digits[24];
    const auto end = std::to_chars(digits, digits + sizeof digits, item.number);
    key.assign(item.user_id);
    key.append(item.instance_id);
    key.append(digits, end.ptr);
    Entry& entry = people[key];
    entry.update = updates;
    if (!entry.person || !IsSame(*entry.person, item)) {
      entry.person = MakePerson(key, item);
    }
  }
  std::erase_if(people, [](const auto& entry) { return entry.second.update != updates; });
}

// --- Windows

namespace {

BtnParams* FormatParticipants(int& count) {
  const Scope scope(DATA "FormatParticipants");
  auto& [rows, owners] = participant_rows;
  rows.clear();
  owners.clear();
  owners.push_back(texts_by_id);
  const char* const text = Text(10065);
  const auto caption = std::make_shared<const std::string>(text != nullptr ? text : "");
  owners.push_back(caption);
  BtnParams header{};
  header.key = EventKey::GroupHeader;
  header.objectName = "ControllingText";
  header.text = caption->c_str();
  rows.push_back(header);
  for (const auto& [key, entry] : people) {
    const Person& person = *entry.person;
    if (person.room != sub_room) {
      continue;
    }
    owners.push_back(entry.person);
    BtnParams row{};
    row.key = EventKey::ParticipantRow;
    row.objectName = "ListView";
    row.text = person.name.c_str();
    row.valueText = person.key.c_str();
    row.iconPath = person.avatar_path.c_str();
    row.status = person.flag ? 0 : kStatusDisabled;
    rows.push_back(row);
  }
  count = static_cast<int>(rows.size());
  return rows.data();
}

struct Row {
  EventKey key;
  const char* name;
  std::uint64_t text;
};

constexpr Row kHostControl[] = {
    {EventKey::GroupHeader, "MembershipPermissions", 10019},
    {EventKey::JoinPermission, "ParticipantOption", 10020},
    {EventKey::JoinPermission, "ParticipantOption", 10021},
    {EventKey::JoinPermission, "ParticipantOption", 10022},
    {EventKey::JoinPermission, "ParticipantOption", 10023},
    {EventKey::MoveNew, "MoveNew", 10024},
    {EventKey::GroupHeader, "SharingPermissions", 10025},
    {EventKey::OnlyHostShare, "OnlyHostShare", 10026},
    {EventKey::OnlyHostReshare, "OnlyHostReshare", 10027},
    {EventKey::OnlyThePresenterCanAnnotate, "OnlyThePresenterCanAnnotate", 10028},
    {EventKey::GroupHeader, "MicPermissions", 10029},
    {EventKey::NewParticipantMic, "NewParticipantMic", 10030},
    {EventKey::MicOperate, "MicOperate", 10031},
    {EventKey::MuteAll, "MuteAll", 10032},
    {EventKey::CancelMuteAll, "CancelMuteAll", 10033},
};

std::int32_t HostControlStatus(const Row& row) {
  const auto on = [](bool setting) { return setting ? kStatusOn : 0; };
  const bool shares = host_info.showShareAccess != 0;
  if (row.text == 10025) {
    return shares ? 0 : kStatusHidden;
  }
  switch (row.key) {
    case EventKey::MoveNew:
      return Button(row.key).status | (host_info.enableNeedMoveToLobby != 0 ? 0 : kStatusDisabled) |
             on(host_info.needMoveToLobby != 0);
    case EventKey::OnlyHostShare:
      return shares ? on(only_host_can_share) : kStatusHidden;
    case EventKey::OnlyHostReshare:
      return (shares ? on(only_host_can_reshare) : kStatusHidden) |
             (only_host_can_share ? kStatusDisabled : 0);
    case EventKey::OnlyThePresenterCanAnnotate:
      return on(only_presenter_can_annotate);
    case EventKey::NewParticipantMic:
      return on(host_info.entryOnMuted != 0);
    case EventKey::MicOperate:
      if (host_info.showEnableOpenMicBySelf == 0) {
        return kStatusHidden;
      }
      if (host_info.enableUseEnableOpenMicBySelf == 0) {
        return kStatusDisabled;
      }
      return on(host_info.enableOpenMicBySelf != 0);
    default:
      return 0;
  }
}

BtnParams* FormatHostControl(int& count) {
  const Scope scope(DATA "FormatHostControlItems");
  auto& [rows, owners] = host_control_rows;
  rows.clear();
  owners.clear();
  owners.push_back(texts_by_id);
  const auto move_new = std::make_shared<const std::string>(move_new_text);
  owners.push_back(move_new);
  for (const Row& item : kHostControl) {
    BtnParams row{};
    row.key = item.key;
    row.objectName = item.name;
    row.text = Text(item.text);
    row.status = HostControlStatus(item);
    if (item.key == EventKey::JoinPermission) {
      row.groupValue = static_cast<std::int32_t>(host_info.selectedSecurityLevel - 1);
    }
    if (item.key == EventKey::MoveNew) {
      row.extraText = move_new->c_str();
    }
    rows.push_back(row);
  }
  count = static_cast<int>(rows.size());
  return rows.data();
}

}  // namespace

BtnParams* OnShowWindow(EventKey key, int& count) {
  const Scope scope(MANAGER "OnGetWindowInfo");
  BtnParams* rows = nullptr;
  if (key == EventKey::RemoteControl) {
    rows = FormatParticipants(count);
  }
  if (key == EventKey::HostControlWindow) {
    rows = FormatHostControl(count);
  }
  Line("[Controlbar] window info callback, item count: {}, item data: {}", count, fmt::ptr(rows));
  return rows;
}

}  // namespace by_hand

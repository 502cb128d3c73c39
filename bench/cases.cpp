// SPDX-License-Identifier: MIT
#include "cases.h"

#include <cstdint>
#include <memory>

#include "by_hand.h"
#include "host_loop.h"
#include "stubs/observer.h"

namespace bench {
namespace {

using VELLOMAR_LORIMEL::BtnParams;
using VELLOMAR_LORIMEL::EventKey;

std::uint64_t told = 0;

// Reads what it is told, as a host would.
void OnNotify(const char*, std::uint32_t id, std::uint32_t, void* payload) {
  told += id + *static_cast<const std::uint8_t*>(payload);
}

void OnRequest(const char*, std::uint32_t, std::uint32_t, void*) {}

// The host runs what was posted at its next turn.
template <typename Record>
Case CommandCase(std::string name, std::uint32_t id, Record fields) {
  const auto record = std::make_shared<Record>(fields);
  return {std::move(name),
          0,
          [] {},
          [id, record] {
            ExportedCallEvent(id, 0, record.get());
            HostLoop::RunAll();
          },
          [id, record] {
            by_hand::CallEvent<by_hand::HostPost>(id, record.get());
            HostLoop::RunAll();
          },
          [id, record] {
            by_hand::CallEvent<by_hand::AsioPost>(id, record.get());
            by_hand::AsioPost::RunAll();
          }};
}

void AddCommandCases(std::vector<Case>& cases) {
  cases.push_back(
      CommandCase("command: flag", VELLOMAR_COMMAND_setRegWidgetMovingEvent, VellomarFlag{1}));
  cases.push_back(
      CommandCase("command: flag of a button", VELLOMAR_COMMAND_setSketchEnable, VellomarFlag{1}));
  cases.push_back(CommandCase("command: int", VELLOMAR_COMMAND_setMeetingSource, VellomarInt{3}));
  cases.push_back(CommandCase("command: long", VELLOMAR_COMMAND_setMicVolume, VellomarLong{50}));
  cases.push_back(CommandCase("command: text", VELLOMAR_COMMAND_setWindowTitle,
                              VellomarText{"Weekly planning of the whole design team"}));
  VellomarItemValue item{};
  item.key = static_cast<std::int32_t>(EventKey::NetworkStrength);
  item.itemName = "NetworkStrengthIndicatorItem";
  item.itemText = "The connection is as good as it gets";
  item.tag = "network-strength-excellent";
  item.sta = 3;
  cases.push_back(CommandCase("command: record", VELLOMAR_COMMAND_setItemValue, item));
}

void AddFrameCases(std::vector<Case>& cases) {
  cases.push_back({"trace scope", 0, [] {}, [] { ExportedStart(); }, [] { by_hand::Start(); }, {}});
  const auto click = std::make_shared<BtnParams>();
  click->key = EventKey::MuteAudio;
  click->objectName = "MuteAudio";
  click->text = "Mute the microphone of this computer";
  click->valueText = "";
  click->status = VELLOMAR_LORIMEL::kStatusOn;
  cases.push_back({"click to notification",
                   0,
                   [] {},
                   [click] { Callbacks().on_event(*click); },
                   [click] { by_hand::OnEvent(*click); },
                   {}});
}

// --- Texts

struct Texts {
  explicit Texts(std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
      ids.push_back(static_cast<std::int64_t>(10001 + i));
      texts.push_back("The label of text number " + std::to_string(i));
    }
    for (const std::string& text : texts) {
      pointers.push_back(text.c_str());
    }
    const auto size = static_cast<std::int32_t>(count);
    record = {ids.data(), size, pointers.data(), size};
  }
  Texts(const Texts&) = delete;
  Texts& operator=(const Texts&) = delete;

  std::vector<std::int64_t> ids;
  std::vector<std::string> texts;
  std::vector<const char*> pointers;
  VellomarTextMap record{};
};

template <typename Record>
void SendToBoth(std::uint32_t id, Record& record) {
  ExportedCallEvent(id, 0, &record);
  by_hand::CallEvent<by_hand::HostPost>(id, &record);
  HostLoop::RunAll();
}

// A list inside a record that the case keeps.
template <typename List>
Case ListCase(std::string name, std::size_t size, std::uint32_t id, std::shared_ptr<List> list,
              std::function<void()> prepare, void (*change)(List&)) {
  return {std::move(name),
          size,
          std::move(prepare),
          [id, list, change] {
            change(*list);
            ExportedCallEvent(id, 0, &list->record);
            HostLoop::RunAll();
          },
          [id, list, change] {
            change(*list);
            by_hand::CallEvent<by_hand::HostPost>(id, &list->record);
            HostLoop::RunAll();
          },
          {}};
}

void AddTextCases(std::vector<Case>& cases) {
  for (const std::size_t size : {std::size_t{100}, std::size_t{10'000}}) {
    cases.push_back(ListCase<Texts>(
        "text map", size, VELLOMAR_COMMAND_setTextMap, std::make_shared<Texts>(size), [] {},
        [](Texts&) {}));
  }
}

// --- Participants

struct People {
  explicit People(std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
      const std::string number = std::to_string(i);
      texts.push_back("user-" + number + "@example.org");
      texts.push_back("instance-" + number);
      texts.push_back("Participant number " + number);
      texts.push_back("avatar-" + number);
    }
    for (std::size_t i = 0; i < count; ++i) {
      const std::string* const own = &texts[4 * i];
      participants.push_back({own[0].c_str(), own[1].c_str(), static_cast<std::int64_t>(i),
                              own[2].c_str(), "", own[3].c_str(), "/avatars/of/all.png", 1});
    }
    record = {participants.data(), static_cast<std::int32_t>(count)};
  }
  People(const People&) = delete;
  People& operator=(const People&) = delete;

  std::vector<std::string> texts;
  std::vector<VellomarParticipant> participants;
  VellomarParticipants record{};
  std::size_t next = 0;  // to change
};

void ChangeOne(People& people) {
  VellomarParticipant& one = people.participants[people.next];
  one.flag = one.flag == 0 ? 1 : 0;
  people.next = (people.next + 7) % people.participants.size();
}

Case WindowCase(std::string name, std::size_t size, EventKey key, std::function<void()> prepare) {
  return {std::move(name),
          size,
          std::move(prepare),
          [key] {
            int count = 0;
            Callbacks().on_show_window(key, count);
          },
          [key] {
            int count = 0;
            by_hand::OnShowWindow(key, count);
          },
          {}};
}

void AddParticipantCases(std::vector<Case>& cases) {
  for (const std::size_t size : {std::size_t{10}, std::size_t{1'000}, std::size_t{10'000}}) {
    const auto people = std::make_shared<People>(size);
    const auto install = [people] {
      SendToBoth(VELLOMAR_COMMAND_updateParticipants, people->record);
    };
    cases.push_back(ListCase<People>("participant update, one changed", size,
                                     VELLOMAR_COMMAND_updateParticipants, people, install,
                                     &ChangeOne));
    cases.push_back(WindowCase("participant list", size, EventKey::RemoteControl, install));
  }
}

}  // namespace

void StartPlugin() {
  by_hand::HostPost::table = HostLoop::Table();
  by_hand::SetNotify(&OnNotify);
  ExportedInit(&OnRequest, &OnNotify, nullptr, &by_hand::HostPost::table, "", "", 0);
  Texts texts(100);
  SendToBoth(VELLOMAR_COMMAND_setTextMap, texts.record);
  VellomarShowControlbar show{{0, 0, 1920, 1080}, 0};
  ExportedCallEvent(VELLOMAR_COMMAND_showSharedControlbar, 0, &show);
}

std::vector<Case> AllCases() {
  std::vector<Case> cases;
  AddFrameCases(cases);
  AddCommandCases(cases);
  AddTextCases(cases);
  AddParticipantCases(cases);
  cases.push_back(WindowCase("host-control list", 15, EventKey::HostControlWindow, [] {}));
  return cases;
}

}  // namespace bench

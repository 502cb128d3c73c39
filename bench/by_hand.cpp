// SPDX-License-Identifier: MIT
#include "by_hand.h"

#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "by_hand_lists.h"

#define MANAGER BY_HAND_MANAGER
#define DATA BY_HAND_DATA

namespace by_hand {
namespace {

using VELLOMAR_LORIMEL::BtnParams;
using VELLOMAR_LORIMEL::EventKey;
using VELLOMAR_LORIMEL::Lorimel;

Notify* notify = nullptr;
bool reports_moving = false;
std::int64_t meeting_source = 0;
std::string window_title;

struct ItemTexts {
  std::string name, text, tag;
};
std::map<EventKey, ItemTexts> item_texts;

std::string Owned(const char* text) {
  return text != nullptr ? text : "";
}

void SetMoving(bool enable) {
  const Scope scope(MANAGER "SetRegWidgetMovingEvent");
  reports_moving = enable;
}

void SetSketchEnable(bool enable) {
  const Scope scope(MANAGER "SetSketchEnable");
  Line("[Controlbar] Set annotate enable {}.", enable);
  {
    const Scope data(DATA "SetSketchEnabled");
    Line("datamanager setsketchenable {}", enable);
  }
  BtnParams& button = Button(EventKey::Annotate);
  {
    const Scope data(DATA "GetEventKeyStatus");
  }
  if (button.status != VELLOMAR_LORIMEL::kStatusLoading) {
    {
      const Scope data(DATA "GetEventKeyStatus");
    }
    const Scope data(DATA "SetEventKeyParams");
    button.key = EventKey::Annotate;
    constexpr std::int32_t kBit = VELLOMAR_LORIMEL::kStatusDisabled;
    button.status = enable ? button.status & ~kBit : button.status | kBit;
  }
  const Scope update(MANAGER "UpdateUIElement");
  Line("update lorimel ui: {}", static_cast<int>(button.key));
  {
    const Scope data(DATA "GetEventKeyParams");
  }
  Lorimel::GetInstance()->SetEventKey(button);
}

void SetMeetingSource(std::int64_t source) {
  const Scope scope(MANAGER "SetMeetingSource");
  Line("SetMeetingSource type:{}", source);
  const Scope data(DATA "SetMeetingSource");
  meeting_source = source;
}

void SetMicVolume(int volume) {
  const Scope scope(MANAGER "SetMicVolume");
  Line("SetMicVolume volume:{}", volume);
  Lorimel::GetInstance()->SetMicVolume(volume);
}

void SetWindowTitle(std::string title) {
  const Scope scope(MANAGER "SetWindowTitle");
  const Scope data(DATA "SetWindowTitle");
  window_title = std::move(title);
}

void SetItemValue(EventKey key, bool expand, ItemTexts texts, std::int32_t status) {
  const Scope scope(MANAGER "SetItemValue");
  Line(
      "[Controlbar] Set value btnKey: {}, hasExpend: {}, itemName: {}, item text: {}, tag: {}, "
      "sta: {}.",
      static_cast<int>(key), expand, texts.name, texts.text, texts.tag, status);
  BtnParams& button = Button(key);
  {
    const Scope data(DATA "GetEventKeyParams");
  }
  {
    const Scope data(DATA "SetItem");
    ItemTexts& kept = item_texts[key];
    kept = std::move(texts);
    button.key = key;
    button.hasExpand = expand;
    button.objectName = kept.name.c_str();
    button.text = kept.text.c_str();
    button.valueText = kept.tag.c_str();
    button.status = status;
  }
  Lorimel::GetInstance()->SetEventKey(button);
}

void SetTextMap(std::vector<std::uint64_t> ids, std::vector<std::string> texts) {
  const Scope scope(MANAGER "SetTextMap");
  InitTextMapping(std::move(ids), std::move(texts));
  {
    const Scope data(DATA "GetAllParams");
  }
  for (int key = VELLOMAR_LORIMEL::kFirstKey; key <= VELLOMAR_LORIMEL::kLastKey; ++key) {
    Lorimel::GetInstance()->SetEventKey(Button(static_cast<EventKey>(key)));
  }
}

template <typename Poster>
void PostTextMap(const VellomarTextMap& record) {
  std::vector<std::uint64_t> ids(record.ids, record.ids + record.idCount);
  std::vector<std::string> texts(record.texts, record.texts + record.textCount);
  const Scope scope("setTextMap");
  Poster::Post([ids = std::move(ids), texts = std::move(texts)]() mutable {
    SetTextMap(std::move(ids), std::move(texts));
  });
}

template <typename Poster>
void PostItemValue(const VellomarItemValue& r) {
  ItemTexts texts{Owned(r.itemName), Owned(r.itemText), Owned(r.tag)};
  const Scope scope("setItemValue");
  Poster::Post(
      [key = r.key, expand = r.hasExpend != 0, texts = std::move(texts), status = r.sta]() mutable {
        SetItemValue(static_cast<EventKey>(key), expand, std::move(texts), status);
      });
}

template <typename Poster>
void PostParticipants(const VellomarParticipants& record) {
  auto snapshot = std::make_shared<const Snapshot>(record);
  const Scope scope("updateParticipants");
  Poster::Post([snapshot = std::move(snapshot)] {
    const Scope manager(MANAGER "UpdateParticipants");
    UpdateParticipants(*snapshot);
  });
}

template <typename Poster>
void PostText(const VellomarText& record) {
  std::string text = Owned(record.text);
  const Scope scope("setWindowTitle");
  Poster::Post([text = std::move(text)]() mutable { SetWindowTitle(std::move(text)); });
}

void Send(std::uint32_t id, void* payload) {
  if (notify != nullptr) {
    notify(VELLOMAR_SENDER, id, 0, payload);
  }
}

// A copy that the host may keep pointing into until it returns.
struct LentText {
  explicit LentText(const char* text) : copy(strdup(text != nullptr ? text : "")) {}
  ~LentText() { std::free(copy); }
  LentText(const LentText&) = delete;
  LentText& operator=(const LentText&) = delete;
  char* copy;
};

}  // namespace

void SetNotify(Notify* target) {
  notify = target;
}

bool Start() {
  const Scope scope("ExportedStart");
  return true;
}

template <typename Poster>
bool CallEvent(std::uint32_t id, void* payload) {
  const Scope scope("ExportedCallEvent");
  switch (id) {
    case VELLOMAR_COMMAND_setRegWidgetMovingEvent: {
      const bool enable = static_cast<const VellomarFlag*>(payload)->value != 0;
      const Scope command("setRegWidgetMovingEvent");
      Poster::Post([enable] { SetMoving(enable); });
      return true;
    }
    case VELLOMAR_COMMAND_setSketchEnable: {
      const bool enable = static_cast<const VellomarFlag*>(payload)->value != 0;
      const Scope command("setSketchEnable");
      Poster::Post([enable] { SetSketchEnable(enable); });
      return true;
    }
    case VELLOMAR_COMMAND_setMeetingSource: {
      const std::int64_t source = static_cast<const VellomarInt*>(payload)->value;
      const Scope command("setMeetingSource");
      Poster::Post([source] { SetMeetingSource(source); });
      return true;
    }
    case VELLOMAR_COMMAND_setMicVolume: {
      const auto volume = static_cast<int>(static_cast<const VellomarLong*>(payload)->value);
      const Scope command("setMicVolume");
      Poster::Post([volume] { SetMicVolume(volume); });
      return true;
    }
    case VELLOMAR_COMMAND_setWindowTitle:
      PostText<Poster>(*static_cast<const VellomarText*>(payload));
      return true;
    case VELLOMAR_COMMAND_setItemValue:
      PostItemValue<Poster>(*static_cast<const VellomarItemValue*>(payload));
      return true;
    case VELLOMAR_COMMAND_setTextMap:
      PostTextMap<Poster>(*static_cast<const VellomarTextMap*>(payload));
      return true;
    case VELLOMAR_COMMAND_updateParticipants:
      PostParticipants<Poster>(*static_cast<const VellomarParticipants*>(payload));
      return true;
    default:
      return false;
  }
}

template bool CallEvent<HostPost>(std::uint32_t id, void* payload);
template bool CallEvent<AsioPost>(std::uint32_t id, void* payload);

void OnEvent(BtnParams& params) {
  if (!reports_moving && params.key == EventKey::WidgetMoving) {
    return;
  }
  const Scope scope(MANAGER "OnUIEvent");
  Line("OnUIEvent type:{}", static_cast<int>(params.key));
  {
    const Scope event(MANAGER "OnItemValueChanged");
    const LentText name(params.objectName);
    const LentText text(params.text);
    const LentText tag(params.valueText);
    VellomarUiEvent record{static_cast<std::int64_t>(params.key), name.copy, text.copy, tag.copy};
    Send(VELLOMAR_NOTIFY_uiEvent, &record);
  }
  if (params.key != EventKey::MuteAudio) {
    return;
  }
  const Scope handler(MANAGER "OnMuteAudio");
  const bool mute = (params.status & VELLOMAR_LORIMEL::kStatusOn) == 0;
  {
    const Scope data(DATA "SetEventKeyParams");
    Button(params.key).key = params.key;
    Button(params.key).status = params.status;
  }
  VellomarNotifyFlag record{mute};
  Send(VELLOMAR_NOTIFY_muteAudio, &record);
  Line("Controlbar {} audio.", mute ? "mute" : "unmute");
}

}  // namespace by_hand

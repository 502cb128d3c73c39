// SPDX-License-Identifier: MIT
#include "qt/access/names.h"

#include <algorithm>
#include <array>

#include "qt/look/style.h"

namespace vellomar_widgets::qt {
namespace {

using VELLOMAR_LORIMEL::EventKey;

struct KeyName {
  EventKey key;
  const char* name;
};

// The controls for which the plug-in has no text.
constexpr std::array kNames = {
    KeyName{EventKey::MuteAudio, "Microphone"},
    KeyName{EventKey::MuteCamera, "Camera"},
    KeyName{EventKey::StopRemoteControl, "Stop remote control"},
    KeyName{EventKey::SharingOptions, "Sharing options"},
    KeyName{EventKey::ControlbarSwitch, "Collapse or expand"},
    KeyName{EventKey::NetworkStrength, "Network strength"},
    KeyName{EventKey::RecordIndicator, "Recording"},
    KeyName{EventKey::LiveIndicator, "Live"},
    KeyName{EventKey::SharingIndicator, "Sharing"},
    KeyName{EventKey::PauseIndicator, "Sharing is paused"},
    KeyName{EventKey::InfoText, "Meeting information"},
    KeyName{EventKey::SketchColorNone, "No colour"},
    KeyName{EventKey::SketchColor1, "Red"},
    KeyName{EventKey::SketchColor2, "Yellow"},
    KeyName{EventKey::SketchColor3, "Green"},
    KeyName{EventKey::SketchColor4, "Blue"},
};

}  // namespace

QString NameOf(const OwnedButton& record) {
  for (const std::string* text : {&record.text, &record.tool_tip}) {
    if (QString label = style::Label(*text); !label.isEmpty()) {
      return label;
    }
  }
  const auto* found = std::find_if(kNames.begin(), kNames.end(), [&record](const KeyName& name) {
    return name.key == record.key;
  });
  return found != kNames.end() ? QString::fromLatin1(found->name) : QString();
}

}  // namespace vellomar_widgets::qt

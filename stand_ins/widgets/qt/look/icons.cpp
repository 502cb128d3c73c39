// SPDX-License-Identifier: MIT
#include "qt/look/icons.h"

#include <QFile>
#include <QSvgRenderer>
#include <algorithm>
#include <array>
#include <string_view>

#include "model/catalog.h"

namespace lorimel_qt {
namespace {

using VELLOMAR_LORIMEL::EventKey;
using vellomar_widgets::OwnedButton;

struct KeyIcon {
  EventKey key;
  const char* name;
};

constexpr std::array kKeyIcons = {
    KeyIcon{EventKey::MuteAudio, "MuteAudio"},
    KeyIcon{EventKey::MuteCamera, "MuteCamera"},
    KeyIcon{EventKey::Participants, "Participants"},
    KeyIcon{EventKey::HostControl, "HostControl"},
    KeyIcon{EventKey::RemoteControl, "RemoteControl"},
    KeyIcon{EventKey::Chat, "Chat"},
    KeyIcon{EventKey::More, "More"},
    KeyIcon{EventKey::Interpretation, "Interpretation"},
    KeyIcon{EventKey::Reaction, "Reaction"},
    KeyIcon{EventKey::AskHostForHelp, "AskHostForHelp"},
    KeyIcon{EventKey::ShareNew, "ShareNew"},
    KeyIcon{EventKey::StopSharing, "StopSharing"},
    KeyIcon{EventKey::Leave, "Leave"},
    KeyIcon{EventKey::Record, "Record"},
    KeyIcon{EventKey::StopRemoteControl, "StopRemoteControl"},
    KeyIcon{EventKey::ControlbarSwitch, "ControlbarSwitch"},
    KeyIcon{EventKey::Annotate, "Annotate"},
    KeyIcon{EventKey::ExternalMeeting, "ExternalMeeting"},
    KeyIcon{EventKey::SharingOptions, "SharingOptions"},
    KeyIcon{EventKey::SketchSelect, "SketchSelect"},
    KeyIcon{EventKey::SketchMouse, "SketchMouse"},
    KeyIcon{EventKey::SketchPen, "SketchPen"},
    KeyIcon{EventKey::SketchUndo, "SketchUndo"},
    KeyIcon{EventKey::SketchClear, "SketchClear"},
    KeyIcon{EventKey::SketchPen1, "SketchPen1"},
    KeyIcon{EventKey::SketchPen2, "SketchPen2"},
    KeyIcon{EventKey::SketchPen3, "SketchPen3"},
    KeyIcon{EventKey::SketchPen4, "SketchPen4"},
    KeyIcon{EventKey::SketchPen5, "SketchPen5"},
    KeyIcon{EventKey::SketchClearMine, "SketchClearMine"},
    KeyIcon{EventKey::SketchClearOthers, "SketchClearOthers"},
    KeyIcon{EventKey::SketchClearAll, "SketchClearAll"},
    KeyIcon{EventKey::InfoText, "InfoText"},
    KeyIcon{EventKey::RecordIndicator, "RecordIndicator"},
    KeyIcon{EventKey::LiveIndicator, "LiveIndicator"},
    KeyIcon{EventKey::SharingIndicator, "SharingIndicator"},
    KeyIcon{EventKey::PauseIndicator, "PauseIndicator"},
    KeyIcon{EventKey::SubRoomName, "SubRoomName"},
    KeyIcon{EventKey::ShareMeetingName, "ShareMeetingName"},
    KeyIcon{EventKey::Subtitles, "Subtitles"},
    KeyIcon{EventKey::LiveStream, "LiveStream"},
    KeyIcon{EventKey::Labs, "Labs"},
    KeyIcon{EventKey::PhoneInvite, "PhoneInvite"},
    KeyIcon{EventKey::SipInvite, "SipInvite"},
    KeyIcon{EventKey::Settings, "Settings"},
    KeyIcon{EventKey::TestSpeakMic, "TestSpeakMic"},
    KeyIcon{EventKey::MuteAll, "MuteAll"},
    KeyIcon{EventKey::CancelMuteAll, "CancelMuteAll"},
    KeyIcon{EventKey::ManageInterpretation, "ManageInterpretation"},
};

struct PathIcon {
  std::string_view path;
  const char* name;
};

constexpr std::array kPathIcons = {
    PathIcon{"icon_leaveroom_filled.icon", "Leave.room"},
    PathIcon{"icon_call_end_filled.icon", "Leave"},
};

// What points where the text goes, or back.
constexpr std::array kWithDirection = {"Chat",       "ChevronEnd", "Leave.room",
                                       "SketchPen4", "SketchUndo", "SubRoomName"};

// The same key with another picture in a certain state.
const char* StateSuffix(const OwnedButton& record) {
  if (vellomar_widgets::IsDeviceOff(record)) {
    return ".off";
  }
  return record.key == EventKey::Record && record.Has(VELLOMAR_LORIMEL::kStatusOn) ? ".on" : "";
}

}  // namespace

QString IconFor(const OwnedButton& record) {
  const auto* by_path =
      std::find_if(kPathIcons.begin(), kPathIcons.end(),
                   [&record](const PathIcon& icon) { return icon.path == record.icon_path; });
  if (by_path != kPathIcons.end()) {
    return QString::fromLatin1(by_path->name);
  }
  const auto* by_key =
      std::find_if(kKeyIcons.begin(), kKeyIcons.end(),
                   [&record](const KeyIcon& icon) { return icon.key == record.key; });
  if (by_key == kKeyIcons.end()) {
    return {};
  }
  return QLatin1String(by_key->name) + QLatin1String(StateSuffix(record));
}

void PaintIcon(QPainter& painter, const QString& name, const QRectF& area,
               Qt::LayoutDirection direction) {
  const QString file = QStringLiteral(":/lorimel/icons/%1.svg").arg(name);
  if (name.isEmpty() || !QFile::exists(file)) {
    return;
  }
  QSvgRenderer renderer(file);
  const bool mirrored =
      direction == Qt::RightToLeft &&
      std::any_of(kWithDirection.begin(), kWithDirection.end(),
                  [&name](const char* icon) { return name == QLatin1String(icon); });
  painter.save();
  if (mirrored) {
    painter.translate(area.left() + area.right(), 0);
    painter.scale(-1, 1);
  }
  renderer.render(&painter, area);
  painter.restore();
}

}  // namespace lorimel_qt

// SPDX-License-Identifier: MIT
#include "qt/look/icons.h"

#include <QFile>
#include <QSvgRenderer>
#include <algorithm>
#include <array>
#include <map>
#include <string_view>

#include "model/catalog.h"

namespace vellomar_widgets::qt {
namespace {

using VELLOMAR_LORIMEL::EventKey;

struct KeyName {
  EventKey key;
  const char* name;
};

constexpr std::array kKeyNames = {
#define VELLOMAR_KEY(number, name, meaning) KeyName{EventKey::name, #name},
#include "vellomar/event_key_table.def"
};

QString FileOf(const QString& icon) {
  return QStringLiteral(":/lorimel/icons/%1.svg").arg(icon);
}

// An icon has the name of its key.
QString IconOfKey(EventKey key) {
  static const std::map<EventKey, QString> icons = [] {
    std::map<EventKey, QString> found;
    for (const KeyName& row : kKeyNames) {
      if (QFile::exists(FileOf(row.name))) {
        found[row.key] = row.name;
      }
    }
    return found;
  }();
  const auto icon = icons.find(key);
  return icon != icons.end() ? icon->second : QString();
}

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
  if (IsDeviceOff(record)) {
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
  const QString by_key = IconOfKey(record.key);
  return by_key.isEmpty() ? by_key : by_key + QLatin1String(StateSuffix(record));
}

void PaintIcon(QPainter& painter, const QString& name, const QRectF& area,
               Qt::LayoutDirection direction) {
  const QString file = FileOf(name);
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

}  // namespace vellomar_widgets::qt

// SPDX-License-Identifier: MIT
#include "tools/workbench/notification_model.h"

#include <QColor>
#include <QStringList>
#include <array>

#include "host/abi/payload.h"
#include "tools/workbench/values.h"

namespace vellomar_workbench {
namespace {

constexpr std::array<const char*, NotificationModel::kColumns> kTitles = {"Seconds", "Kind", "Name",
                                                                          "Payload"};

// "mute = true, shareOption = 2"
QString PayloadText(const nlohmann::json& payload) {
  if (!payload.is_object()) {
    return ToText(payload);
  }
  QStringList members;
  for (const auto& member : payload.items()) {
    members << QString::fromStdString(member.key()) + " = " +
                   QString::fromStdString(vellomar_host::ToLine(member.value()));
  }
  return members.join(", ");
}

}  // namespace

void NotificationModel::Append(const vellomar_host::TranscriptEntry& entry) {
  if (entry.kind != "notify" && entry.kind != "request" && entry.kind != "fault") {
    return;
  }
  if (rowCount() == kMostRows) {
    beginRemoveRows({}, 0, 0);
    rows_.pop_front();
    endRemoveRows();
  }
  const double seconds = std::chrono::duration<double>(entry.when).count();
  beginInsertRows({}, rowCount(), rowCount());
  rows_.push_back({QString::number(seconds, 'f', 3), QString::fromStdString(entry.kind),
                   QString::fromStdString(entry.subject), PayloadText(entry.details)});
  endInsertRows();
}

void NotificationModel::Clear() {
  beginResetModel();
  rows_.clear();
  endResetModel();
}

int NotificationModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int NotificationModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QVariant NotificationModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
    return {};
  }
  const auto& row = rows_[static_cast<std::size_t>(index.row())];
  const QString& cell = row[static_cast<std::size_t>(index.column())];
  if (role == Qt::DisplayRole) {
    return cell;
  }
  if (role == Qt::ToolTipRole && index.column() == kPayload) {
    return cell;
  }
  if (role == Qt::ForegroundRole && row[kKind] == "fault") {
    return QColor(190, 30, 20);
  }
  return {};
}

QVariant NotificationModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole || orientation != Qt::Horizontal) {
    return {};
  }
  return QString(kTitles[static_cast<std::size_t>(section)]);
}

}  // namespace vellomar_workbench

// SPDX-License-Identifier: MIT
// What the plug-in has told and asked the host, the latest last.
//
//   NotificationModel model;
//   model.Append({.kind = "notify", .subject = "muteAudio", .details = {{"mute", true}}, ...});
#pragma once

#include <QAbstractTableModel>
#include <QString>
#include <deque>

#include "host/scenario/transcript.h"

namespace vellomar_workbench {

class NotificationModel : public QAbstractTableModel {
 public:
  enum Column { kTime, kKind, kName, kPayload, kColumns };
  static constexpr int kMostRows = 10'000;  // the oldest go

  using QAbstractTableModel::QAbstractTableModel;

  // Notifications, requests and faults; other entries are left out.
  void Append(const vellomar_host::TranscriptEntry& entry);
  void Clear();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  std::deque<std::array<QString, kColumns>> rows_;
};

}  // namespace vellomar_workbench

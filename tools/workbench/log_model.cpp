// SPDX-License-Identifier: MIT
// Lines come by the hundred for one command: they are put in as one block, and a cost that belongs
// to a row above changes that row.
#include "tools/workbench/log_model.h"

#include <QColor>
#include <algorithm>
#include <array>

#include "vellomar/log.h"

namespace vellomar_workbench {

using vellomar_host::LogLine;
using vellomar_host::ScopeLine;

namespace {

constexpr std::array<const char*, LogModel::kColumns> kTitles = {"Seconds", "Level", "Line",
                                                                 "Cost, ms"};
constexpr qsizetype kIndent = 3;  // spaces for a scope
const QVariant kRight(Qt::AlignRight | Qt::AlignVCenter);

QString LevelName(int level) {
  if (level >= VELLOMAR_LOG_REFUSED) {
    return "refused";
  }
  if (level == VELLOMAR_LOG_FAULT) {
    return "fault";
  }
  return level == VELLOMAR_LOG_INFO ? "info" : "debug";
}

}  // namespace

void LogModel::Append(std::span<const LogLine> lines) {
  arriving_.clear();
  Number next = removed_ + rows_.size();
  for (const LogLine& line : lines) {
    if (auto row = Take(line, next)) {
      arriving_.push_back(std::move(*row));
      ++next;
    }
  }
  if (arriving_.empty()) {
    return;
  }
  const int first = rowCount();
  beginInsertRows({}, first, first + static_cast<int>(arriving_.size()) - 1);
  for (Row& row : arriving_) {
    rows_.push_back(std::move(row));
  }
  arriving_.clear();
  endInsertRows();
  if (rows_.size() > kMostRows) {
    RemoveOldest();
  }
}

std::optional<LogModel::Row> LogModel::Take(const LogLine& line, Number number) {
  if (!begin_) {
    begin_ = line.when;
  }
  auto& open = open_[line.thread];
  const ScopeLine scope = vellomar_host::ParseScopeLine(line.text);
  if (scope.kind == ScopeLine::kExit && Leave(open, scope)) {
    return std::nullopt;
  }
  const bool is_scope = scope.kind == ScopeLine::kEntry;
  Row row = {.seconds = std::chrono::duration<double>(line.when - *begin_).count(),
             .level = line.level,
             .depth = static_cast<int>(open.size()),
             .is_scope = is_scope,
             .text = is_scope ? QString::fromUtf8(scope.name.data(),
                                                  static_cast<qsizetype>(scope.name.size()))
                              : QString::fromStdString(line.text)};
  if (is_scope) {
    open.push_back(number);
  }
  return row;
}

// Scopes inside the one that is left have lost their own line, and go with it. False where none of
// the name is open: it was entered before anybody observed.
bool LogModel::Leave(std::vector<Number>& open, const ScopeLine& scope) {
  const auto name = QString::fromUtf8(scope.name.data(), static_cast<qsizetype>(scope.name.size()));
  const auto found = std::find_if(open.rbegin(), open.rend(), [&](Number number) {
    const Row* row = RowAt(number);
    return row != nullptr && row->text == name;
  });
  if (found == open.rend()) {
    return false;
  }
  const Number number = *found;
  RowAt(number)->cost = scope.milliseconds;
  open.erase(std::prev(found.base()), open.end());
  if (number - removed_ < rows_.size()) {
    const QModelIndex cell = index(static_cast<int>(number - removed_), kCost);
    emit dataChanged(cell, cell);
  }
  return true;
}

LogModel::Row* LogModel::RowAt(Number number) {
  if (number < removed_) {
    return nullptr;
  }
  const Number at = number - removed_;
  if (at < rows_.size()) {
    return &rows_[at];
  }
  return at - rows_.size() < arriving_.size() ? &arriving_[at - rows_.size()] : nullptr;
}

void LogModel::RemoveOldest() {
  const std::size_t count = rows_.size() - kMostRows + kMostRows / 10;
  beginRemoveRows({}, 0, static_cast<int>(count) - 1);
  rows_.erase(rows_.begin(), rows_.begin() + static_cast<std::ptrdiff_t>(count));
  removed_ += count;
  endRemoveRows();
}

void LogModel::Clear() {
  beginResetModel();
  rows_.clear();
  open_.clear();
  removed_ = 0;
  begin_.reset();
  endResetModel();
}

int LogModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int LogModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QVariant LogModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
    return {};
  }
  const Row& row = rows_[static_cast<std::size_t>(index.row())];
  if (role == kLevelRole) {
    return row.level;
  }
  if (role == Qt::ToolTipRole && index.column() == kText) {
    return row.text;
  }
  if (role == Qt::TextAlignmentRole && index.column() == kCost) {
    return kRight;
  }
  if (role == Qt::ForegroundRole) {
    if (row.level >= VELLOMAR_LOG_FAULT) {
      return QColor(190, 30, 20);
    }
    if (row.is_scope) {
      return QColor(20, 80, 150);
    }
  }
  if (role != Qt::DisplayRole) {
    return {};
  }
  switch (index.column()) {
    case kTime:
      return QString::number(row.seconds, 'f', 3);
    case kLevel:
      return LevelName(row.level);
    case kCost:
      return row.cost >= 0 ? QVariant(QString::number(row.cost)) : QVariant();
    default:
      break;
  }
  QString text = row.text;
  text.remove("VELLOMAR_CONTROLBAR::");
  return QString(row.depth * kIndent, ' ') + text;
}

QVariant LogModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole || orientation != Qt::Horizontal) {
    return {};
  }
  return QString(kTitles[static_cast<std::size_t>(section)]);
}

void LogFilter::SetText(const QString& text) {
  text_ = text;
  invalidateFilter();
}

void LogFilter::SetLowestLevel(int level) {
  lowest_ = level;
  invalidateFilter();
}

bool LogFilter::filterAcceptsRow(int row, const QModelIndex& parent) const {
  const QModelIndex line = sourceModel()->index(row, LogModel::kText, parent);
  if (line.data(LogModel::kLevelRole).toInt() < lowest_) {
    return false;
  }
  return text_.isEmpty() ||
         line.data(Qt::ToolTipRole).toString().contains(text_, Qt::CaseInsensitive);
}

}  // namespace vellomar_workbench

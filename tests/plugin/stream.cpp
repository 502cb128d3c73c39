// SPDX-License-Identifier: MIT
#include "plugin/stream.h"

#include <algorithm>
#include <cctype>
#include <string_view>
#include <utility>

#include "plugin/messages.h"
#include "plugin/text.h"

namespace streams {
namespace {

constexpr std::string_view kNamespace = "VELLOMAR_CONTROLBAR::";

std::string ShortName(const std::string& scope) {
  for (const auto& [qualified, brief] : {std::pair("ControlbarManager::", "Manager::"),
                                         std::pair("ControlBarDataManager::", "Data::")}) {
    const std::string start = std::string(kNamespace) + qualified;
    if (scope.starts_with(start)) return brief + scope.substr(start.size());
  }
  return scope;
}

std::string LevelName(int level) {
  if (level == 3) return "log";
  if (level == 4) return "fault";
  if (level == 5) return "refused";
  return "log" + std::to_string(level);
}

// What differs between machines.
std::string Masked(const std::string& text) {
  constexpr std::string_view kPath = "Init controlbar res path len: ";
  return text.starts_with(kPath) ? std::string(kPath) + "#" : text;
}

bool IsNumber(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(),
                                      [](unsigned char letter) { return std::isdigit(letter); });
}

}  // namespace

void Stream::Add(const std::string& line) {
  lines_.push_back(std::string(2 * depth_, ' ') + line);
}

void Stream::Enter(const std::string& line) {
  Add(line);
  ++depth_;
}

bool Stream::OpenOrClose(const std::string& text) {
  constexpr std::string_view kEntry = "entry ";
  constexpr std::string_view kExit = "exit ";
  constexpr std::string_view kCost = ", cost : ";
  if (text.starts_with(kEntry)) {
    const std::string name = ShortName(text.substr(kEntry.size()));
    scopes_.push_back({name, shows_data_scopes || !name.starts_with("Data::")});
    if (scopes_.back().shown) Enter("in " + name);
    return true;
  }
  const std::size_t cost = text.rfind(kCost);
  if (!text.starts_with(kExit) || cost == text.npos || scopes_.empty()) return false;
  const std::string name = ShortName(text.substr(kExit.size(), cost - kExit.size()));
  if (scopes_.back().name != name || !IsNumber(text.substr(cost + kCost.size()))) return false;
  if (scopes_.back().shown) Leave();
  scopes_.pop_back();
  return true;
}

void Stream::Log(const recording_log::Line& line) {
  const bool ours = line.module == "vellomar_controlbar";
  if (ours && line.level == 3 && OpenOrClose(line.text)) return;
  const std::string text = Masked(line.text);
  const bool plain = !text.empty() && text.front() != ' ' && text.back() != ' ';
  Add(LevelName(line.level) + (ours ? " " : "[" + line.module + "] ") +
      (plain ? text : Quoted(std::string_view(text))));
}

Lines Stream::Take() {
  for (const Scope& scope : scopes_) Add("open " + scope.name);
  scopes_.clear();
  depth_ = 0;
  return std::exchange(lines_, {});
}

Host* Host::current_ = nullptr;

Host::Host(Stream& stream) : stream_(stream) {
  current_ = this;
}

std::uint64_t Host::Post(LoopCallback* callback, void* context) {
  const std::uint64_t id = next_id++;
  const std::string line = "loop post " + std::to_string(id);
  if (runs == Runs::kAtOnce) {
    stream_.Enter(line);
    callback(context);
    stream_.Leave();
  } else {
    stream_.Add(line);
    pending_[id] = {callback, context};
  }
  return id;
}

void Host::RunSync(LoopCallback* callback, void* context) {
  stream_.Enter("loop runSync");
  callback(context);
  stream_.Leave();
}

EventLoopTable Host::Table() const {
  EventLoopTable table{};
  if (without.count("observer") == 0) {
    table.addObserverFn = [](LoopCallback* callback, void* context) {
      current_->observer_ = {callback, context};
      current_->stream_.Add("loop addObserver 7");
      return std::uint64_t{7};
    };
    table.removeObserverFn = [](std::uint64_t id) {
      current_->stream_.Add("loop removeObserver " + std::to_string(id));
    };
  }
  if (without.count("post") == 0) {
    table.postFn = [](LoopCallback* callback, void* context) {
      return current_->Post(callback, context);
    };
  }
  if (without.count("runSync") == 0) {
    table.runSyncFn = [](LoopCallback* callback, void* context) {
      current_->RunSync(callback, context);
    };
  }
  return table;
}

void Host::RunPending() {
  while (!pending_.empty()) {
    const Task task = pending_.begin()->second;
    pending_.erase(pending_.begin());
    task.callback(task.context);
  }
}

void Host::Hear(const char* sender, std::uint64_t id, const std::string& line) {
  const std::string_view name = sender != nullptr ? sender : "null";
  const bool ours = name == "VELLOMAR_CONTROLBAR_uuid";
  stream_.Add(ours ? line : line + " from " + std::string(name));
  const auto reaction = reactions.extract(id);
  if (!reaction) return;
  stream_.Enter("host " + reaction.mapped());
  react(reaction.mapped());
  stream_.Leave();
}

void Host::OnNotify(const char* sender, std::uint32_t low, std::uint32_t high, void* payload) {
  const std::uint64_t id = (std::uint64_t{high} << 32) | low;
  std::string line = "tell " + std::to_string(id);
  if (const Message* const message = FindMessage("notification", id)) {
    const bool has_fields = !message->record.fields.empty();
    line += " " + message->name;
    if (has_fields != (payload != nullptr)) {
      line += has_fields ? " without payload" : " with payload";
    } else if (has_fields) {
      line += PrintFields(message->record, payload);
    }
  }
  current_->Hear(sender, id, line);
}

void Host::OnRequest(const char* sender, std::uint32_t low, std::uint32_t high, void* record) {
  const std::uint64_t id = (std::uint64_t{high} << 32) | low;
  const Message* const message = FindMessage("request", id);
  if (message == nullptr) return current_->Hear(sender, id, "request " + std::to_string(id));
  const Field& user = message->record.fields.front();
  const Field& answer = message->record.fields.back();
  const std::string fields = PrintFields({{user, answer}, 0, 1}, record);
  auto* const bytes = static_cast<std::byte*>(record);
  const std::string user_id = *reinterpret_cast<const char**>(bytes + user.offset);
  current_->Hear(sender, id, "request " + std::to_string(id) + " " + message->name + fields);
  *reinterpret_cast<std::int64_t*>(bytes + answer.offset) = current_->answers[user_id];
}

}  // namespace streams

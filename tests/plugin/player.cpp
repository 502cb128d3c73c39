// SPDX-License-Identifier: MIT
#include "plugin/player.h"

#include <fmt/format.h>

#include <algorithm>
#include <span>
#include <sstream>
#include <stdexcept>
#include <tuple>
#include <utility>

#include "bridge/resources.h"
#include "frame/log/log.h"
#include "manager/controlbar_manager.h"
#include "plugin/text.h"
#include "plugin/widget_library.h"

namespace streams {
namespace {

using VELLOMAR_LORIMEL::EventKey;

std::uint64_t Id(std::uint32_t low, std::uint32_t high) {
  return (std::uint64_t{high} << 32) | low;
}

// The first word, and what follows it.
std::pair<std::string, std::string> Split(const std::string& text) {
  const std::size_t blank = std::min(text.find(' '), text.size());
  return {text.substr(0, blank), blank < text.size() ? text.substr(blank + 1) : ""};
}

std::size_t Depth(const std::string& line) {
  return std::min(line.find_first_not_of(' '), line.size()) / 2;
}

Rectangle ParseRectangle(std::istream& words) {
  Rectangle area;
  words >> area.x >> area.y >> area.width >> area.height;
  return area;
}

Lines RowLines(std::span<const VELLOMAR_LORIMEL::BtnParams> rows) {
  Lines lines;
  for (const auto& row : rows) {
    lines.push_back(
        fmt::format("row {}{}", static_cast<int>(row.key), Changes(FieldsOf({}), FieldsOf(row))));
  }
  return lines;
}

void DestroyAll() {
  ExportedUninit();
  VELLOMAR_CONTROLBAR::ControlbarManager::DestroyInstance();
  VELLOMAR_CONTROLBAR::__ResourceCollectionPool__::DestroyInstance();
  VELLOMAR_LOG::LogInstance::DestroyInstance();
  TheLibrary() = WidgetLibrary();
}

// The records of a bar as tables/defaults.txt has them.
std::vector<Fields> UsualRecords(const std::map<std::string, std::string>& texts) {
  const auto text_of = [&texts](const std::string& id, const char* none) {
    return id != "-" ? Quoted(std::string_view(texts.at(id))) : none;
  };
  std::vector<Fields> records(92, FieldsOf({}));
  std::istringstream lines(ReadFile("tables/defaults.txt"));
  for (std::string line; std::getline(lines, line);) {
    std::string text, status, tip, expand;
    std::size_t key = 0;
    if (!(std::istringstream(line) >> key >> text >> status >> tip >> expand)) {
      continue;
    }
    Fields& fields = records.at(key - 1000);
    fields = {expand, "null", text_of(text, "null"), "0", "\"\"", status, text_of(tip, "\"\"")};
    fields[7] = key == 1070 ? texts.at("10089") : "null";
    fields[8] = fields[9] = fields[10] = "null";
    fields[11] = key == 1046 ? "1055" : "0";
  }
  return records;
}

}  // namespace

Player* Player::current_ = nullptr;

Player::Player() {
  current_ = this;
  DestroyAll();
  for (auto steps : {ExportSteps(), SettingSteps(), LibrarySteps()}) {
    steps_.merge(steps);
  }
  recording_log::Observe([this](const recording_log::Line& line) { stream_.Log(line); });
  host_.on_call = [this](const std::string& call) { stream_.Add("loop " + call); };
  TheLibrary().report = [this](const std::string& line) { stream_.Add(line); };
}

Player::~Player() {
  DestroyAll();
  recording_log::Observe(nullptr);
  current_ = nullptr;
}

Lines Player::Play(const std::string& step) {
  constexpr std::string_view kQuietly = "quietly ";
  if (step.starts_with(kQuietly)) {
    Play(step.substr(kQuietly.size()));
    return {};
  }
  usual_.clear();
  tail_.clear();
  rows_.clear();
  inner_ = 0;
  Do(step);
  if (!runs_later_) {
    host_.RunAll();
  }
  Lines lines = stream_.Take();
  for (std::string& line : lines) {
    const std::size_t at = rows_.empty() ? line.npos : line.find(rows_);
    if (at != line.npos) {
      line.replace(at, rows_.size(), "<rows>");
    }
  }
  if (!shows_calls_) {
    lines = WithoutUsual(std::move(lines));
  }
  ReadWhatTheLibraryHolds();
  lines.insert(lines.end(), tail_.begin(), tail_.end());
  return lines;
}

// Only where everything that follows stands where it should.
Lines Player::WithoutUsual(Lines lines) const {
  const auto rest = std::mismatch(usual_.begin(), usual_.end(), lines.begin(), lines.end());
  if (rest.first != usual_.end()) {
    return lines;
  }
  const bool stands = inner_ == 0 ? rest.second == lines.end() || Depth(*rest.second) == 0
                                  : std::all_of(rest.second, lines.end(), [this](const auto& line) {
                                      return Depth(line) >= inner_;
                                    });
  if (!stands) {
    return lines;
  }
  lines.erase(lines.begin(), rest.second);
  for (std::string& line : lines) {
    line.erase(0, 2 * inner_);
  }
  return lines;
}

void Player::Do(const std::string& step) {
  const auto [verb, rest] = Split(step);
  if (const Message* const command = FindMessage("command", verb)) {
    return Send(*command, rest);
  }
  if (const auto one = steps_.find(verb); one != steps_.end()) {
    return one->second(rest);
  }
  const auto [object, arguments] = Split(rest);
  const auto two = steps_.find(verb + " " + object);
  if (two == steps_.end()) {
    throw std::runtime_error("no such step: " + step);
  }
  two->second(arguments);
}

std::map<std::string, Player::Step> Player::ExportSteps() {
  return {{"init", [this](auto&) { Init(); }},
          {"start", [](auto&) { ExportedStart(); }},
          {"stop", [](auto&) { ExportedStop(); }},
          {"uninit", [](auto&) { ExportedUninit(); }},
          {"event", [this](auto& rest) { Raise(&ExportedCallEvent, rest); }},
          {"respond", [this](auto& rest) { Raise(&ExportedOnReceive, rest); }},
          {"delegate", [this](auto& rest) { Raise(&ExportedOnDelegate, rest); }},
          {"drop",
           [this](auto& rest) {
             Raise([](auto low, auto high, void*) { return ExportedCallDrop(low, high); }, rest);
           }},
          {"texts", [this](auto& rest) { SendTexts(rest); }}};
}

std::map<std::string, Player::Step> Player::SettingSteps() {
  return {{"show calls", [this](auto&) { shows_calls_ = true; }},
          {"show data", [this](auto&) { stream_.shows_data_scopes = true; }},
          {"host without", [this](auto& what) { without_.insert(what); }},
          {"host with", [this](auto& what) { without_.erase(what); }},
          {"host answers",
           [this](auto& rest) { answers_[Split(rest).first] = std::stoll(Split(rest).second); }},
          {"host on",
           [this](auto& rest) { reactions_[std::stoull(Split(rest).first)] = Split(rest).second; }},
          {"host runs",
           [this](auto& when) {
             host_.run_at_once = when == "at once";
             runs_later_ = when == "later";
           }},
          {"run", [this](auto&) { host_.RunAll(); }},
          {"turn", [this](auto&) { host_.Turn(); }}};
}

std::map<std::string, Player::Step> Player::LibrarySteps() {
  WidgetLibrary& library = TheLibrary();
  return {{"library refuses", [&](auto& member) { library.refused.insert(member); }},
          {"library accepts", [&](auto& member) { library.refused.erase(member); }},
          {"library creates", [&](auto& when) { library.created_later = when == "later"; }},
          {"library closes", [&](auto& when) { library.closed_later = when == "later"; }},
          {"library places",
           [&](auto& rest) {
             std::istringstream area(Split(rest).second);
             library.places[std::stoi(rest)] = ParseRectangle(area);
           }},
          {"created bar", [&](auto&) { library.ReportCreated(); }},
          {"closed bar", [&](auto&) { library.ReportClosed(); }},
          {"created popup",
           [&](auto& rest) {
             std::istringstream words(Split(rest).second);
             const auto [x, y, width, height] = ParseRectangle(words);
             library.on_created(&library, x, y, width, height, false, std::stoull(rest));
           }},
          {"closed popup", [&](auto&) { library.on_closed(&library); }},
          {"click", [this](auto& rest) { Click(rest); }},
          {"pick", [this](auto& rest) { Pick(rest); }},
          {"ask", [this](auto& rest) { Ask(rest); }}};
}

void Player::Init() {
  EventLoopTable table = host_.Table();
  const auto has = [this](const char* what) { return without_.count(what) == 0; };
  if (!has("post")) {
    table.postFn = nullptr;
  }
  if (!has("runSync")) {
    table.runSyncFn = nullptr;
  }
  if (!has("addObserver")) {
    table.addObserverFn = nullptr;
  }
  if (!has("removeObserver")) {
    table.removeObserverFn = nullptr;
  }
  ExportedInit(has("request") ? &OnRequest : nullptr, has("notify") ? &OnNotify : nullptr, nullptr,
               has("loop") ? &table : nullptr, "first", "second", 5);
}

void Player::Raise(Export* function, const std::string& rest) {
  const auto [number, arguments] = Split(rest);
  const std::uint64_t id = std::stoull(number);
  const bool is_null = arguments == "null";
  // The one record that is known, whatever the id says.
  Payload payload(*FindMessage("response", VELLOMAR_RESPONSE_AVATAR),
                  ParseArguments(is_null ? "" : arguments));
  if (!function(static_cast<std::uint32_t>(id), static_cast<std::uint32_t>(id >> 32),
                is_null ? nullptr : payload.data())) {
    tail_.emplace_back("= false");
  }
}

void Player::SendTexts(const std::string& rest) {
  std::map<std::string, std::string> texts;
  for (int id = 10001; id <= 10096; ++id) {
    texts[std::to_string(id)] = fmt::format("t{}", id);
  }
  for (const auto& [id, text] : ParseArguments(rest)) {
    texts[id] = ParseWord(text).text;
  }
  std::string ids, values;
  for (const auto& [id, text] : texts) {
    ids += (ids.empty() ? "[" : ",") + id;
    values += (values.empty() ? "[" : ",") + Quoted(std::string_view(text));
  }
  Do("setTextMap ids=" + ids + "] texts=" + values + "]");
  TheLibrary().usual = UsualRecords(texts);
}

void Player::Send(const Message& command, const std::string& rest) {
  usual_ = {"in ExportedCallEvent", "  in " + command.name};
  if (command.route == 'P') {
    usual_.push_back(fmt::format("    loop post {}", host_.next_id));
  }
  if (command.route == 'S') {
    usual_.emplace_back("    loop runSync");
  }
  inner_ = command.route == 'S' || (command.route == 'P' && host_.run_at_once) ? 2 : 0;
  // The host's memory is gone when the command runs later.
  const bool is_null = rest == "null";
  Payload payload(command, ParseArguments(is_null ? "" : rest));
  if (!ExportedCallEvent(static_cast<std::uint32_t>(command.id), 0,
                         is_null ? nullptr : payload.data())) {
    tail_.emplace_back("= false");
  }
  const std::string answer = PrintFields(command, payload.data(), true);
  if (!answer.empty()) {
    tail_.push_back("answer" + answer);
  }
}

void Player::Click(const std::string& rest) {
  const auto [key, fields] = Split(rest);
  std::map<std::string, Word> words;
  for (const auto& [name, value] : ParseArguments(fields)) {
    words[name] = ParseWord(value);
  }
  const auto text = [&words](const char* name) {
    const auto word = words.find(name);
    return word != words.end() && !word->second.is_null ? word->second.text.c_str() : nullptr;
  };
  const auto number = [&](const char* name) {
    return words.count(name) ? std::stoi(text(name)) : 0;
  };
  BtnParams event{};
  event.key = EventKey{std::stoi(key)};
  event.objectName = text("name");
  event.text = text("text");
  event.valueText = text("value");
  event.status = number("status");
  event.groupValue = number("group");
  spoil_ = [&] {
    event = {};
    for (auto& [name, word] : words) {
      word.text.assign(word.text.size(), '#');
    }
  };
  Fire(event);
}

// The plug-in's own record of a row: the library passes on what it was given.
void Player::Pick(const std::string& rest) {
  const auto [window, row] = Split(rest);
  Fire(TheLibrary().rows.at(std::stoi(window))[std::stoul(row)]);
}

void Player::Fire(BtnParams& event) {
  const auto sent = [](const char* value) { return Quoted(value != nullptr ? value : ""); };
  const int key = static_cast<int>(event.key);
  usual_ = {"in Manager::OnUIEvent", fmt::format("  log OnUIEvent type:{}", key),
            "  in Manager::OnItemValueChanged",
            fmt::format("    tell 18200573 uiEvent key={} itemName={} itemText={} tag={}", key,
                        sent(event.objectName), sent(event.text), sent(event.valueText))};
  inner_ = 1;
  TheLibrary().on_event(event);
  spoil_ = nullptr;
}

void Player::Ask(const std::string& rest) {
  constexpr int kUntouched = -7;
  int count = kUntouched;
  const auto [window, shown] = Split(rest);
  const int key = std::stoi(window);
  BtnParams* const rows = TheLibrary().on_show_window(EventKey{key}, count);
  const Lines before = std::exchange(answered_[key], {});
  TheLibrary().rows.erase(key);
  if (rows == nullptr) {
    tail_.push_back("no rows" + (count == kUntouched ? "" : fmt::format(", count {}", count)));
    return;
  }
  rows_ = fmt::format("{}", fmt::ptr(rows));
  if (shown == "changes") {
    usual_ = {"in Manager::OnGetWindowInfo",
              fmt::format("  log [Controlbar] window info callback, item count: {}, item data: "
                          "<rows>",
                          count)};
  }
  TheLibrary().rows[key] = {rows, static_cast<std::size_t>(count)};
  answered_[key] = RowLines(TheLibrary().rows[key]);
  if (shown == "changes" && answered_[key].size() < before.size()) {
    tail_.push_back(fmt::format("rows {}", answered_[key].size()));
  }
  for (std::size_t i = 0; i < answered_[key].size(); ++i) {
    const std::string& line = answered_[key][i];
    const bool same = i < before.size() && before[i] == line;
    if (!same || shown != "changes") {
      tail_.push_back(line);
    }
  }
}

// All of it is still there, and the rows are as they were.
void Player::ReadWhatTheLibraryHolds() {
  for (const BtnParams& record : TheLibrary().records) {
    FieldsOf(record);
  }
  for (const auto& [window, rows] : TheLibrary().rows) {
    if (RowLines(rows) != answered_[window]) {
      tail_.push_back(fmt::format("{} differs", window));
    }
  }
}

void Player::Hear(const char* sender, std::uint64_t id, const std::string& line) {
  const std::string name = sender != nullptr ? sender : "null";
  stream_.Add(name == "VELLOMAR_CONTROLBAR_uuid" ? line : line + " from " + name);
  if (const auto spoil = std::exchange(spoil_, nullptr)) {
    spoil();
  }
  const auto reaction = reactions_.extract(id);
  if (!reaction) {
    return;
  }
  const auto outer = std::tuple(std::exchange(tail_, {}), usual_, inner_);
  std::istringstream steps(reaction.mapped());
  for (std::string step; std::getline(steps >> std::ws, step, ';');) {
    stream_.Add("host " + step);
    Do(step);
    for (const std::string& answer : std::exchange(tail_, {})) {
      stream_.Add(answer);
    }
  }
  std::tie(tail_, usual_, inner_) = outer;
}

void Player::OnNotify(const char* sender, std::uint32_t low, std::uint32_t high, void* payload) {
  const std::uint64_t id = Id(low, high);
  const Message* const message = FindMessage("notification", id);
  std::string line = fmt::format("tell {} {}", id, message != nullptr ? message->name : "unknown");
  if (message != nullptr && message->fields.empty() != (payload == nullptr)) {
    line += payload != nullptr ? " with payload" : " without payload";
  } else if (payload != nullptr && message != nullptr) {
    line += PrintFields(*message, payload);
  }
  current_->Hear(sender, id, line);
}

void Player::OnRequest(const char* sender, std::uint32_t low, std::uint32_t high, void* record) {
  auto& request = *static_cast<VellomarParticipantRequest*>(record);
  const std::string user = request.userId;
  current_->Hear(sender, Id(low, high),
                 fmt::format("request {} userId={} answer={}", Id(low, high),
                             Quoted(std::string_view(user)), request.answer));
  request.answer = current_->answers_[user];
}

}  // namespace streams

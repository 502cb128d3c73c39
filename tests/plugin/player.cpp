// SPDX-License-Identifier: MIT
#include "plugin/player.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "bridge/resources.h"
#include "frame/log.h"
#include "manager/controlbar_manager.h"
#include "plugin/text.h"
#include "plugin/widget_library.h"

namespace streams {
namespace {

using VELLOMAR_LORIMEL::BtnParams;
using VELLOMAR_LORIMEL::EventKey;

std::uint32_t Low(std::uint64_t id) {
  return static_cast<std::uint32_t>(id);
}
std::uint32_t High(std::uint64_t id) {
  return static_cast<std::uint32_t>(id >> 32);
}

// The first word, and what follows it.
std::pair<std::string, std::string> Split(const std::string& text) {
  const std::size_t blank = std::min(text.find(' '), text.size());
  return {text.substr(0, blank), blank < text.size() ? text.substr(blank + 1) : ""};
}

std::size_t Depth(const std::string& line) {
  return std::min(line.find_first_not_of(' '), line.size()) / 2;
}

void DestroyAll() {
  ExportedUninit();
  VELLOMAR_CONTROLBAR::ControlbarManager::DestroyInstance();
  VELLOMAR_CONTROLBAR::__ResourceCollectionPool__::DestroyInstance();
  VELLOMAR_LOG::LogInstance::DestroyInstance();
  TheLibrary().Reset();
}

// The records of a bar as tables/defaults.txt has them.
std::vector<Fields> UsualRecords(const std::map<std::string, std::string>& texts) {
  const auto text_of = [&texts](const std::string& id) {
    return id != "-" ? Quoted(std::string_view(texts.at(id))) : "null";
  };
  std::vector<Fields> records(92, FieldsOf({}));
  std::istringstream lines(ReadFile("tables/defaults.txt"));
  for (std::string line; std::getline(lines, line);) {
    std::string text, status, tip, expand;
    int key = 0;
    if (!(std::istringstream(line) >> key >> text >> status >> tip >> expand)) continue;
    const std::string second_tip = key == 1070 ? text_of("10089") : "null";
    const std::string group = key == 1046 ? "1055" : "0";
    records.at(static_cast<std::size_t>(key - 1000)) = {expand,
                                                        "null",
                                                        text_of(text),
                                                        "0",
                                                        "\"\"",
                                                        status,
                                                        tip == "-" ? "\"\"" : text_of(tip),
                                                        second_tip,
                                                        "null",
                                                        "null",
                                                        "null",
                                                        group};
  }
  return records;
}

void LogOpening(Stream& stream, const recording_log::Opening& opening) {
  stream.Add(fmt::format("open log {} {} {} {} {} {} {}", opening.kind,
                         opening.first.value_or("null"), opening.second.value_or("null"),
                         opening.module, opening.reserved, opening.files, opening.flush));
}

}  // namespace

Player::Player() : host_(stream_) {
  DestroyAll();
  recording_log::Clear();
  recording_log::Observe(
      [this](const recording_log::Line& line) { stream_.Log(line); },
      [this](const recording_log::Opening& opening) { LogOpening(stream_, opening); });
  TheLibrary().report = [this](const std::string& line) { stream_.Add(line); };
  host_.react = [this](const std::string& step) { Do(step); };
}

Player::~Player() {
  DestroyAll();
  recording_log::Observe(nullptr, nullptr);
}

Lines Player::Play(const std::string& step) {
  usual_.clear();
  tail_.clear();
  rows_.clear();
  inner_ = 0;
  Do(step);
  if (host_.runs == Host::Runs::kAfterTheCall) host_.RunPending();
  Lines lines = stream_.Take();
  for (std::string& line : lines) {
    const std::size_t at = rows_.empty() ? line.npos : line.find(rows_);
    if (at != line.npos) line.replace(at, rows_.size(), "<rows>");
  }
  if (!shows_calls_) lines = WithoutUsual(std::move(lines));
  lines.insert(lines.end(), tail_.begin(), tail_.end());
  return lines;
}

// Only where everything that follows stands where it should.
Lines Player::WithoutUsual(Lines lines) const {
  const auto count = static_cast<std::ptrdiff_t>(usual_.size());
  const bool begins =
      std::mismatch(usual_.begin(), usual_.end(), lines.begin(), lines.end()).first == usual_.end();
  if (!begins) return lines;
  const bool stands = inner_ == 0
                          ? lines.size() == usual_.size() || Depth(lines[usual_.size()]) == 0
                          : std::all_of(lines.begin() + count, lines.end(),
                                        [this](const auto& line) { return Depth(line) >= inner_; });
  if (!stands) return lines;
  lines.erase(lines.begin(), lines.begin() + count);
  for (std::string& line : lines) line.erase(0, 2 * inner_);
  return lines;
}

void Player::Do(const std::string& step) {
  const auto [verb, rest] = Split(step);
  if (const Message* const command = FindMessage("command", verb)) return Send(*command, rest);
  if (DoSetting(verb, rest) || DoExport(verb, rest) || DoLibrary(verb, rest)) return;
  throw std::runtime_error("no such step: " + step);
}

bool Player::DoSetting(const std::string& verb, const std::string& rest) {
  if (verb == "host") {
    SetHost(rest);
  } else if (verb == "library") {
    SetLibrary(rest);
  } else if (verb == "show") {
    (rest == "data" ? stream_.shows_data_scopes : shows_calls_) = true;
  } else if (verb == "texts") {
    SendTexts(rest);
  } else {
    return false;
  }
  return true;
}

void Player::SetHost(const std::string& rest) {
  const auto [what, value] = Split(rest);
  const auto [first, second] = Split(value);
  if (what == "without") {
    host_.without.insert(value);
  } else if (what == "with") {
    host_.without.erase(value);
  } else if (what == "answers") {
    host_.answers[first] = std::stoll(second);
  } else if (what == "on") {
    host_.reactions[std::stoull(first)] = second;
  } else if (what == "runs" && value == "at once") {
    host_.runs = Host::Runs::kAtOnce;
  } else if (what == "runs" && value == "later") {
    host_.runs = Host::Runs::kLater;
  } else if (what == "turns") {
    host_.Turn();
  } else if (what == "runs" && value == "pending") {
    host_.RunPending();
  } else {
    throw std::runtime_error("no such host: " + rest);
  }
}

void Player::SetLibrary(const std::string& rest) {
  WidgetLibrary& library = TheLibrary();
  const auto [what, value] = Split(rest);
  if (what == "refuses") {
    library.refused.insert(value);
  } else if (what == "accepts") {
    library.refused.erase(value);
  } else if (what == "places") {
    int key = 0;
    Rectangle place;
    std::istringstream(value) >> key >> place.x >> place.y >> place.width >> place.height;
    library.places[key] = place;
  } else if (rest == "creates later") {
    library.created_later = true;
  } else if (rest == "closes later") {
    library.closed_later = true;
  } else {
    throw std::runtime_error("no such library: " + rest);
  }
}

void Player::Init() {
  const EventLoopTable table = host_.Table();
  const auto has = [this](const char* what) { return host_.without.count(what) == 0; };
  ExportedInit(has("request") ? &Host::OnRequest : nullptr,
               has("notify") ? &Host::OnNotify : nullptr, nullptr, has("loop") ? &table : nullptr,
               "first", "second", 5);
}

bool Player::DoExport(const std::string& verb, const std::string& rest) {
  bool result = true;
  if (verb == "init") {
    Init();
  } else if (verb == "start") {
    result = ExportedStart();
  } else if (verb == "stop") {
    result = ExportedStop();
  } else if (verb == "uninit") {
    result = ExportedUninit();
  } else if (verb == "event" || verb == "respond" || verb == "delegate" || verb == "drop") {
    const auto [number, arguments] = Split(rest);
    const std::uint64_t id = std::stoull(number);
    const Message* const response = FindMessage("response", id);
    Payload payload(response != nullptr && verb == "respond" ? response->record : Record{},
                    arguments != "null" ? ParseArguments(arguments) : std::vector<Argument>());
    void* const data = arguments != "null" ? payload.data() : nullptr;
    result = verb == "event"     ? ExportedCallEvent(Low(id), High(id), data)
             : verb == "respond" ? ExportedOnReceive(Low(id), High(id), data)
             : verb == "drop"    ? ExportedCallDrop(Low(id), High(id))
                                 : ExportedOnDelegate(Low(id), High(id), data);
  } else {
    return false;
  }
  if (!result) tail_.emplace_back("= false");
  return true;
}

void Player::SendTexts(const std::string& rest) {
  std::map<std::string, std::string> texts;
  for (int id = 10001; id <= 10096; ++id) texts[std::to_string(id)] = fmt::format("t{}", id);
  for (const Argument& argument : ParseArguments(rest)) texts[argument.name] = argument.value.text;
  std::vector<Argument> arguments = {{"ids", {}}, {"texts", {}}};
  for (const auto& [id, text] : texts) {
    arguments[0].value.items.push_back({id, false, {}, {}});
    arguments[1].value.items.push_back({text, false, {}, {}});
  }
  Payload payload(FindMessage("command", "setTextMap")->record, arguments);
  ExportedCallEvent(Low(FindMessage("command", "setTextMap")->id), 0, payload.data());
  TheLibrary().usual = UsualRecords(texts);
}

void Player::Send(const Message& command, const std::string& rest) {
  const bool synchronous = command.route == 'S';
  const bool at_once = host_.runs == Host::Runs::kAtOnce;
  const std::string id = std::to_string(host_.next_id);
  usual_ = {"in ExportedCallEvent", "  in " + command.name};
  if (command.route != '-')
    usual_.push_back(synchronous ? "    loop runSync" : "    loop post " + id);
  inner_ = synchronous || (at_once && command.route == 'P') ? 3 : 0;
  // The host's memory is gone when the command runs later.
  Payload payload(command.record, rest != "null" ? ParseArguments(rest) : std::vector<Argument>());
  void* const data = rest != "null" ? payload.data() : nullptr;
  if (!ExportedCallEvent(Low(command.id), High(command.id), data)) tail_.emplace_back("= false");
  const std::string answer = PrintFields(command.record, payload.data(), true);
  if (!answer.empty()) tail_.push_back("answer" + answer);
}

bool Player::DoLibrary(const std::string& verb, const std::string& rest) {
  WidgetLibrary& library = TheLibrary();
  const auto [what, value] = Split(rest);
  if (verb == "click") {
    Click(rest);
  } else if (verb == "ask") {
    Ask(std::stoi(rest));
  } else if (verb == "created" && what == "popup") {
    std::uint64_t id = 0;
    Rectangle place;
    std::istringstream(value) >> id >> place.x >> place.y >> place.width >> place.height;
    library.CreatedPopup(id, place);
  } else if (verb == "created") {
    library.Created();
  } else if (verb == "closed") {
    library.on_closed(what == "popup" ? &library : library.bar);
  } else {
    return false;
  }
  return true;
}

void Player::Click(const std::string& rest) {
  const auto [key, fields] = Split(rest);
  const std::vector<Argument> arguments = ParseArguments(fields);
  BtnParams event{};
  event.key = EventKey{std::stoi(key)};
  for (const auto& [name, value] : arguments) {
    const char* const text = value.is_null ? nullptr : value.text.c_str();
    if (name == "name")
      event.objectName = text;
    else if (name == "text")
      event.text = text;
    else if (name == "value")
      event.valueText = text;
    else if (name == "status")
      event.status = std::stoi(value.text);
    else if (name == "group")
      event.groupValue = std::stoi(value.text);
    else
      throw std::runtime_error("no field of a click: " + name);
  }
  const auto quoted = [](const char* text) { return Quoted(text != nullptr ? text : ""); };
  usual_ = {"in Manager::OnUIEvent", "  log OnUIEvent type:" + key,
            "  in Manager::OnItemValueChanged",
            fmt::format("    tell 18200573 uiEvent key={} itemName={} itemText={} tag={}", key,
                        quoted(event.objectName), quoted(event.text), quoted(event.valueText))};
  inner_ = 1;
  TheLibrary().on_event(event);
}

void Player::Ask(int key) {
  constexpr int kUntouched = -7;
  int count = kUntouched;
  const BtnParams* const rows = TheLibrary().on_show_window(EventKey{key}, count);
  if (rows == nullptr) {
    tail_.push_back("no rows, count " +
                    (count == kUntouched ? "untouched" : std::to_string(count)));
    return;
  }
  rows_ = fmt::format("{}", fmt::ptr(rows));
  for (const BtnParams* row = rows; row != rows + count; ++row) {
    tail_.push_back(
        fmt::format("row {}{}", static_cast<int>(row->key), Changes(FieldsOf({}), FieldsOf(*row))));
  }
}

}  // namespace streams

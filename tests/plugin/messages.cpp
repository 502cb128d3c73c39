// SPDX-License-Identifier: MIT
#include "plugin/messages.h"

#include <algorithm>
#include <cstring>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "plugin/text.h"

namespace streams {
namespace {

struct Size {
  std::size_t size, alignment;
};

Size SizeOf(const std::string& type) {
  if (type == "flag") {
    return {1, 1};
  }
  if (type == "int") {
    return {4, 4};
  }
  if (type == "text") {
    return {sizeof(void*), sizeof(void*)};
  }
  const Message* const record = FindMessage("record", type);
  return record != nullptr ? Size{record->size, record->alignment} : Size{8, 8};
}

std::size_t Place(Message& message, Size size) {
  const std::size_t before = (message.size + size.alignment - 1) / size.alignment * size.alignment;
  message.size = before + size.size;
  message.alignment = std::max(message.alignment, size.alignment);
  return before;
}

void AddField(Message& message, std::istringstream words) {
  Field field;
  std::size_t written_offset = 0;
  if (!(words >> written_offset >> field.type)) {
    return;
  }
  field.is_out = field.type == "out";
  if (field.is_out) {
    words >> field.type;
  }
  words >> field.name;
  field.is_array = field.type.ends_with("[]");
  if (field.is_array) {
    field.type.resize(field.type.size() - 2);
  }
  field.offset = Place(message, SizeOf(field.is_array ? "text" : field.type));
  if (field.is_array) {
    Place(message, SizeOf("int"));
  }
  if (sizeof(void*) == 4 && field.offset != written_offset) {
    throw std::runtime_error(message.name + '.' + field.name + " lies elsewhere");
  }
  message.fields.push_back(field);
}

Message ParseMessage(const std::string& line) {
  const std::size_t colon = line.find(':');
  Message message;
  std::istringstream words(line.substr(0, colon));
  words >> message.kind;
  if (message.kind != "record") {
    words >> message.id;
  }
  if (message.kind == "command") {
    words >> message.route;
  }
  words >> message.name;
  std::istringstream fields(line.substr(colon + 1));
  for (std::string field; std::getline(fields, field, ',');) {
    AddField(message, std::istringstream(field));
  }
  Place(message, {0, message.alignment});
  return message;
}

bool Take(std::string_view& rest, char letter) {
  if (!rest.starts_with(letter)) {
    return false;
  }
  rest.remove_prefix(1);
  return true;
}

Word TakeWord(std::string_view& rest) {
  rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
  Word word;
  if (!Take(rest, '"')) {
    word.text = rest.substr(0, rest.find_first_of(" ,]*"));
    rest.remove_prefix(word.text.size());
    word.is_null = word.text == "null";
    return word;
  }
  while (!rest.empty() && !Take(rest, '"')) {
    Take(rest, '\\');
    word.text += rest.front();
    rest.remove_prefix(1);
  }
  return word;
}

template <typename T>
T Load(const std::byte* at) {
  T value;
  std::memcpy(&value, at, sizeof value);
  return value;
}

template <typename T>
void Store(std::byte* at, T value) {
  std::memcpy(at, &value, sizeof value);
}

std::string PrintValue(const std::string& type, const std::byte* at) {
  if (type == "flag") {
    return std::to_string(Load<std::uint8_t>(at));
  }
  if (type == "int") {
    return std::to_string(Load<std::int32_t>(at));
  }
  if (type == "ulong") {
    return std::to_string(Load<std::uint64_t>(at));
  }
  if (type == "text") {
    return Quoted(Load<const char*>(at));
  }
  const Message* const nested = FindMessage("record", type);
  if (nested == nullptr) {
    return std::to_string(Load<std::int64_t>(at));
  }
  std::string list;
  for (const Field& field : nested->fields) {
    list += (list.empty() ? "[" : " ") + PrintValue(field.type, at + field.offset);
  }
  return list + "]";
}

}  // namespace

std::string ReadFile(const std::string& path) {
  std::ifstream file(std::string(VELLOMAR_STREAMS) + "/" + path, std::ios::binary);
  if (!file) {
    throw std::runtime_error("cannot read " + path);
  }
  return {std::istreambuf_iterator<char>(file), {}};
}

const std::vector<Message>& Messages() {
  static std::vector<Message> messages;
  static bool is_read = false;  // or being read: a record comes before those that hold it
  if (std::exchange(is_read, true)) {
    return messages;
  }
  std::istringstream lines(ReadFile("tables/messages.txt"));
  for (std::string line; std::getline(lines, line);) {
    if (!line.empty() && line[0] != '#') {
      messages.push_back(ParseMessage(line));
    }
  }
  return messages;
}

const Message* FindMessage(std::string_view kind, std::string_view name) {
  for (const Message& message : Messages()) {
    if (message.kind == kind && message.name == name) {
      return &message;
    }
  }
  return nullptr;
}

const Message* FindMessage(std::string_view kind, std::uint64_t id) {
  for (const Message& message : Messages()) {
    if (message.kind == kind && message.id == id) {
      return &message;
    }
  }
  return nullptr;
}

Arguments ParseArguments(std::string_view line) {
  Arguments arguments;
  std::string name, value;
  bool quoted = false, in_value = false;
  int depth = 0;
  for (std::size_t i = 0; i <= line.size(); ++i) {
    const char letter = i < line.size() ? line[i] : ' ';
    if (letter == '"' && line[i - 1] != '\\') {
      quoted = !quoted;
    }
    if (!quoted) {
      depth += letter == '[' ? 1 : letter == ']' ? -1 : 0;
    }
    if (letter == ' ' && !quoted && depth == 0) {
      if (!name.empty()) {
        arguments[std::exchange(name, "")] = std::exchange(value, "");
      }
      in_value = false;
    } else if (letter == '=' && !in_value) {
      in_value = true;
    } else {
      (in_value ? value : name) += letter;
    }
  }
  return arguments;
}

Word ParseWord(std::string_view value) {
  return TakeWord(value);
}

Payload::Payload(const Message& message, Arguments arguments)
    : record_(message.size / sizeof(std::uint64_t) + 1, 0xA5A5A5A5A5A5A5A5u) {
  auto* const bytes = reinterpret_cast<std::byte*>(record_.data());
  for (const Field& field : message.fields) {
    if (field.is_out) {
      continue;
    }
    const auto given = arguments.extract(field.name);
    std::string_view value = given ? std::string_view(given.mapped()) : "null";
    if (field.is_array) {
      WriteArray(field.type, value, bytes + field.offset);
    } else {
      Write(field.type, value, bytes + field.offset);
    }
  }
  if (!arguments.empty()) {
    throw std::runtime_error(message.name + " has no " + arguments.begin()->first);
  }
}

// "*N" behind the brackets gives a count that is not the list's own.
void Payload::WriteArray(const std::string& type, std::string_view rest, std::byte* at) {
  const std::size_t size = SizeOf(type).size;
  std::int32_t count = 0;
  Block* const block = Take(rest, '[') ? &arrays_.emplace_back(1) : nullptr;
  if (block == nullptr) {
    TakeWord(rest);  // null
  }
  while (block != nullptr && !Take(rest, ']')) {
    const std::size_t end = static_cast<std::size_t>(count++) * size;
    block->resize((end + size) / sizeof(std::uint64_t) + 1);
    Write(type, rest, reinterpret_cast<std::byte*>(block->data()) + end);
    if (!Take(rest, ',') && !rest.starts_with(']')) {
      throw std::runtime_error("no end of the list");
    }
  }
  if (Take(rest, '*')) {
    count = std::stoi(std::string(rest));
  }
  Store<const void*>(at, block != nullptr ? block->data() : nullptr);
  Store(at + sizeof(void*), count);
}

void Payload::Write(const std::string& type, std::string_view& rest, std::byte* at) {
  if (const Message* const nested = FindMessage("record", type)) {
    Take(rest, '[');
    for (const Field& field : nested->fields) {
      Write(field.type, rest, at + field.offset);
    }
    return;
  }
  const auto [text, is_null] = TakeWord(rest);
  if (type == "text") {
    return Store(at, is_null ? nullptr : texts_.emplace_back(text).c_str());
  }
  const bool is_zero = is_null || text.empty();
  const std::uint64_t number = is_zero ? 0 : std::stoull(text);  // takes a sign as well
  if (type == "flag") {
    return Store(at, static_cast<std::uint8_t>(number));
  }
  if (type == "int" || type == "slot") {
    return Store(at, static_cast<std::int32_t>(number));
  }
  Store(at, number);
}

std::string PrintFields(const Message& message, const void* payload, bool answers) {
  std::string line;
  for (const Field& field : message.fields) {
    if (answers && !field.is_out) {
      continue;
    }
    line += " " + field.name + "=" +
            PrintValue(field.type, static_cast<const std::byte*>(payload) + field.offset);
  }
  return line;
}

}  // namespace streams

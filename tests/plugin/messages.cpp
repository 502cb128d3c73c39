// SPDX-License-Identifier: MIT
#include "plugin/messages.h"

#include <algorithm>
#include <cstring>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "plugin/text.h"

namespace streams {
namespace {

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

struct Size {
  std::size_t size, alignment;
};

Size SizeOf(const std::string& type, std::size_t pointer_size) {
  if (type == "flag") return {1, 1};
  if (type == "int") return {4, 4};
  if (type == "long" || type == "ulong" || type == "slot") return {8, 8};
  if (type == "text") return {pointer_size, pointer_size};
  Record nested = FindMessage("record", type)->record;
  Place(nested, pointer_size);
  return {nested.size, nested.alignment};
}

Field ParseField(std::istringstream words) {
  Field field;
  words >> field.written_offset >> field.type;
  field.is_out = field.type == "out";
  if (field.is_out) words >> field.type;
  words >> field.name;
  field.is_array = field.type.ends_with("[]");
  if (field.is_array) field.type.resize(field.type.size() - 2);
  return field;
}

Message ParseMessage(const std::string& line) {
  const std::size_t colon = line.find(':');
  Message message;
  std::istringstream words(line.substr(0, colon));
  words >> message.kind;
  if (message.kind != "record") words >> message.id;
  if (message.kind == "command") words >> message.route;
  words >> message.name >> message.operation;
  std::istringstream fields(line.substr(colon + 1));
  for (std::string field; std::getline(fields, field, ',');) {
    if (field.find_first_not_of(' ') != field.npos) {
      message.record.fields.push_back(ParseField(std::istringstream(field)));
    }
  }
  return message;
}

// Reads arguments from left to right.
struct Reader {
  std::string_view rest;

  [[noreturn]] void Fail() const { throw std::runtime_error("cannot read: " + std::string(rest)); }
  void SkipBlanks() { rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size())); }
  bool Take(char letter) {
    if (!rest.starts_with(letter)) return false;
    rest.remove_prefix(1);
    return true;
  }
  std::string Word() {
    const std::size_t end = std::min(rest.find_first_of(" ,=[]*\""), rest.size());
    if (end == 0) Fail();
    const std::string word(rest.substr(0, end));
    rest.remove_prefix(end);
    return word;
  }
  std::string QuotedRest() {
    std::string text;
    while (!Take('"')) {
      Take('\\');
      if (rest.empty()) Fail();
      text += rest.front();
      rest.remove_prefix(1);
    }
    return text;
  }
  Value Plain() {
    Value value;
    if (Take('"')) {
      value.text = QuotedRest();
    } else {
      value.text = Word();
      value.is_null = value.text == "null";
    }
    return value;
  }
  Value Item() {
    Value item;
    for (SkipBlanks(); !rest.starts_with(',') && !rest.starts_with(']'); SkipBlanks()) {
      item.items.push_back(Plain());
    }
    return item;
  }
  Value Any() {
    Value value;
    if (!Take('[')) {
      value = Plain();
    } else if (!Take(']')) {
      do value.items.push_back(Item());
      while (Take(','));
      if (!Take(']')) Fail();
    }
    if (Take('*')) value.count = std::stoi(Word());
    return value;
  }
};

const std::string& Single(const Value& value) {
  return value.items.size() == 1 ? Single(value.items[0]) : value.text;
}

std::string PrintValue(const std::string& type, const std::byte* at) {
  if (type == "flag") return std::to_string(Load<std::uint8_t>(at));
  if (type == "int") return std::to_string(Load<std::int32_t>(at));
  if (type == "ulong") return std::to_string(Load<std::uint64_t>(at));
  if (type == "long" || type == "slot") return std::to_string(Load<std::int64_t>(at));
  if (type == "text") return Quoted(Load<const char*>(at));
  std::string list;
  for (const Field& field : FindMessage("record", type)->record.fields) {
    list += (list.empty() ? "[" : " ") + PrintValue(field.type, at + field.offset);
  }
  return list + "]";
}

}  // namespace

std::string ReadFile(const std::string& path) {
  std::ifstream file(std::string(VELLOMAR_STREAMS) + "/" + path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path);
  return {std::istreambuf_iterator<char>(file), {}};
}

void Place(Record& record, std::size_t pointer_size) {
  record.size = 0;
  record.alignment = 1;
  const auto add = [&record](Size size) {
    const std::size_t offset = (record.size + size.alignment - 1) / size.alignment * size.alignment;
    record.size = offset + size.size;
    record.alignment = std::max(record.alignment, size.alignment);
    return offset;
  };
  for (Field& field : record.fields) {
    field.offset =
        add(field.is_array ? Size{pointer_size, pointer_size} : SizeOf(field.type, pointer_size));
    if (field.is_array) add({4, 4});
  }
  record.size = (record.size + record.alignment - 1) / record.alignment * record.alignment;
}

const std::vector<Message>& Messages() {
  static std::vector<Message> messages;
  if (messages.empty()) {
    std::istringstream lines(ReadFile("tables/messages.txt"));
    for (std::string line; std::getline(lines, line);) {
      if (!line.empty() && line[0] != '#') messages.push_back(ParseMessage(line));
    }
    for (Message& message : messages) Place(message.record, sizeof(void*));
  }
  return messages;
}

const Message* FindMessage(std::string_view kind, std::string_view name) {
  for (const Message& message : Messages()) {
    if (message.kind == kind && message.name == name) return &message;
  }
  return nullptr;
}

const Message* FindMessage(std::string_view kind, std::uint64_t id) {
  for (const Message& message : Messages()) {
    if (message.kind == kind && message.id == id) return &message;
  }
  return nullptr;
}

std::vector<Argument> ParseArguments(std::string_view line) {
  std::vector<Argument> arguments;
  Reader reader{line};
  for (reader.SkipBlanks(); !reader.rest.empty(); reader.SkipBlanks()) {
    const std::string name = reader.Word();
    if (!reader.Take('=')) reader.Fail();
    arguments.push_back({name, reader.Any()});
  }
  return arguments;
}

Payload::Payload(const Record& record, const std::vector<Argument>& arguments)
    : record_(record.size / sizeof(std::uint64_t) + 1, 0xA5A5A5A5A5A5A5A5u) {
  auto* const bytes = reinterpret_cast<std::byte*>(record_.data());
  std::size_t used = 0;
  for (const Field& field : record.fields) {
    if (field.is_out) continue;
    const auto given = std::find_if(arguments.begin(), arguments.end(),
                                    [&](const Argument& a) { return a.name == field.name; });
    const bool has = given != arguments.end();
    used += has ? 1 : 0;
    Value none;
    none.is_null = field.is_array || field.type == "text";
    if (field.is_array) {
      WriteArray(field, has ? given->value : none, bytes);
    } else {
      Write(field.type, has ? given->value : none, bytes + field.offset);
    }
  }
  if (used != arguments.size()) throw std::runtime_error("an argument that the message has not");
}

void Payload::WriteArray(const Field& field, const Value& value, std::byte* record) {
  const std::size_t size = SizeOf(field.type, sizeof(void*)).size;
  const auto own_count = static_cast<std::int32_t>(value.items.size());
  std::byte* elements = nullptr;
  if (!value.is_null) {
    Block& block = arrays_.emplace_back(value.items.size() * size / sizeof(std::uint64_t) + 1);
    elements = reinterpret_cast<std::byte*>(block.data());
  }
  Store(record + field.offset, elements);
  Store(record + field.offset + sizeof elements, value.count.value_or(own_count));
  for (std::size_t i = 0; i < value.items.size(); ++i) {
    Write(field.type, value.items[i], elements + i * size);
  }
}

void Payload::Write(const std::string& type, const Value& value, std::byte* at) {
  if (const Message* const nested = FindMessage("record", type)) {
    // In brackets itself, or one item of a list.
    const bool in_brackets = value.items.size() == 1 && !value.items[0].items.empty();
    const auto& parts = in_brackets ? value.items[0].items : value.items;
    for (std::size_t i = 0; i < nested->record.fields.size(); ++i) {
      const Field& field = nested->record.fields[i];
      Write(field.type, i < parts.size() ? parts[i] : Value{}, at + field.offset);
    }
    return;
  }
  const std::string& text = Single(value);
  if (type == "text") {
    const bool is_null = value.is_null || (value.items.size() == 1 && value.items[0].is_null);
    return Store(at, is_null ? nullptr : texts_.emplace_back(text).c_str());
  }
  const std::int64_t number = text.empty()     ? 0
                              : text[0] == '-' ? std::stoll(text)
                                               : static_cast<std::int64_t>(std::stoull(text));
  if (type == "flag") return Store(at, static_cast<std::uint8_t>(number));
  if (type == "int" || type == "slot") return Store(at, static_cast<std::int32_t>(number));
  Store(at, number);
}

std::string PrintFields(const Record& record, const void* payload, bool answers) {
  std::string line;
  for (const Field& field : record.fields) {
    if (answers && !field.is_out) continue;
    line += " " + field.name + "=" +
            PrintValue(field.type, static_cast<const std::byte*>(payload) + field.offset);
  }
  return line;
}

}  // namespace streams

// SPDX-License-Identifier: MIT
// The messages of tables/messages.txt: who sends what by which number, and payload records made and
// read by the layouts that stand there.
//
//   const Message& command = *FindMessage("command", "setAudioStatus");
//   Payload payload(command.record, ParseArguments("status=2"));
//   ExportedCallEvent(command.id, 0, payload.data());
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace streams {

struct Field {
  std::size_t written_offset = 0;  // as the table has it, for the 32-bit target
  std::size_t offset = 0;          // in this build
  std::string type;                // flag, int, long, ulong, slot, text or the name of a record
  std::string name;
  bool is_array = false;
  bool is_out = false;
};

struct Record {
  std::vector<Field> fields;
  std::size_t size = 0;
  std::size_t alignment = 1;
};

struct Message {
  std::string kind;  // record, command, notification, request or response
  std::uint64_t id = 0;
  char route = ' ';
  std::string name;
  std::string operation;
  Record record;
};

const std::vector<Message>& Messages();
const Message* FindMessage(std::string_view kind, std::string_view name);
const Message* FindMessage(std::string_view kind, std::uint64_t id);

// Gives every field its offset for pointers of this size.
void Place(Record& record, std::size_t pointer_size);

// What follows a "=": a word, or a list in brackets, whose items are separated by commas. The parts
// of an item are separated by blanks: [mic-1 Headset, mic-2 "Built in"].
struct Value {
  std::string text;
  bool is_null = false;
  std::vector<Value> items;
  std::optional<std::int32_t> count;  // [..]*-1: a count that is not the list's own
};
struct Argument {
  std::string name;
  Value value;
};
std::vector<Argument> ParseArguments(std::string_view line);

// A record as the host makes it. What no argument is for is zero; what the plug-in has no business
// to read (padding, the upper halves of slots) or has to write is not.
class Payload {
 public:
  Payload(const Record& record, const std::vector<Argument>& arguments);
  void* data() { return record_.data(); }

 private:
  using Block = std::vector<std::uint64_t>;
  void Write(const std::string& type, const Value& value, std::byte* at);
  void WriteArray(const Field& field, const Value& value, std::byte* record);

  Block record_;
  std::deque<std::string> texts_;
  std::deque<Block> arrays_;
};

// " mute=1 position=[1 2 3 4]": the fields of a record, all or those that are answers.
std::string PrintFields(const Record& record, const void* payload, bool answers = false);

std::string ReadFile(const std::string& path);  // below the folder of these sources

}  // namespace streams

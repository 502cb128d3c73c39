// SPDX-License-Identifier: MIT
// The messages of tables/messages.txt: who sends what by which number, and payload records made and
// read by the layouts that stand there.
//
//   const Message& command = *FindMessage("command", "setAudioStatus");
//   Payload payload(command, ParseArguments("status=2"));
//   ExportedCallEvent(command.id, 0, payload.data());
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace streams {

struct Field {
  std::size_t offset = 0;
  std::string type;  // flag, int, long, ulong, slot, text or the name of a record
  std::string name;
  bool is_array = false;
  bool is_out = false;
};

struct Message {
  std::string kind;  // record, command, notification, request or response
  std::uint64_t id = 0;
  char route = ' ';
  std::string name;
  std::vector<Field> fields;
  std::size_t size = 0;
  std::size_t alignment = 1;
};

// With the offsets of this build; those of the 32-bit target are the written ones.
const std::vector<Message>& Messages();
// Null where there is none.
const Message* FindMessage(std::string_view kind, std::string_view name);
const Message* FindMessage(std::string_view kind, std::uint64_t id);

// The values of "name=value ..." by name. Lists are in brackets: [mic-1 Headset, mic-2 "Built in"].
using Arguments = std::map<std::string, std::string>;
Arguments ParseArguments(std::string_view line);

// A text out of an argument; null for the word null.
struct Word {
  std::string text;
  bool is_null = false;
};
Word ParseWord(std::string_view value);

// A message as the host makes it: null or zero where there is no argument. What the plug-in has no
// business to read (padding, the upper halves of slots) and what it has to write is neither.
class Payload {
 public:
  Payload(const Message& message, Arguments arguments);
  void* data() { return record_.data(); }

 private:
  using Block = std::vector<std::uint64_t>;
  void Write(const std::string& type, std::string_view& rest, std::byte* at);
  void WriteArray(const std::string& type, std::string_view rest, std::byte* at);

  Block record_;
  std::deque<std::string> texts_;
  std::deque<Block> arrays_;
};

// " mute=1 position=[1 2 3 4]": the fields, or of them the answers.
std::string PrintFields(const Message& message, const void* payload, bool answers = false);

// The file below the folder of these sources.
std::string ReadFile(const std::string& path);

}  // namespace streams

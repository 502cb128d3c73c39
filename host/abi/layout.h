// SPDX-License-Identifier: MIT
// Where the fields of a payload record lie, computed from the notation of the command table.
//
//   Layout layout = ParseLayout("slot key, flag visible");
//   layout.fields[1].offset  ->  8,  layout.size  ->  16
//
// Fields lie in order, each aligned on its own size, an array as a pointer and an int32 count.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vellomar_host {

enum class FieldType { kFlag, kInt, kLong, kULong, kSlot, kText, kRect, kDevice, kParticipant };

struct Field {
  std::string name;
  FieldType type = FieldType::kFlag;
  bool is_array = false;
  bool is_out = false;  // written by the plug-in
  std::size_t offset = 0;
  std::size_t count_offset = 0;  // of an array
};

struct Layout {
  std::vector<Field> fields;
  std::size_t size = 0;
  std::size_t alignment = 1;
};

// Throws HostError for what is not in the notation. The pointer size is that of the platform whose
// records are meant.
Layout ParseLayout(std::string_view notation, std::size_t pointer_size = sizeof(void*));

// As the notation writes it.
std::string_view TypeName(FieldType type);

// The fields of a rect, device or participant, in the same notation; empty for other types.
std::string_view NestedFields(FieldType type);

}  // namespace vellomar_host

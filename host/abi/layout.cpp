// SPDX-License-Identifier: MIT
// Reads the field notation.
#include "host/abi/layout.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "host/host_error.h"

namespace vellomar_host {
namespace {

constexpr std::size_t kPointer = 0;  // stands for the platform's pointer size
constexpr std::size_t kCountSize = 4;

struct TypeRow {
  std::string_view word;
  FieldType type;
  std::size_t size;         // of a plain value
  std::string_view nested;  // the fields of a record
};

constexpr std::array kTypes = {
    TypeRow{"flag", FieldType::kFlag, 1, ""},
    TypeRow{"int", FieldType::kInt, 4, ""},
    TypeRow{"long", FieldType::kLong, 8, ""},
    TypeRow{"ulong", FieldType::kULong, 8, ""},
    TypeRow{"slot", FieldType::kSlot, 8, ""},
    TypeRow{"text", FieldType::kText, kPointer, ""},
    TypeRow{"rect", FieldType::kRect, 0, "long x, long y, long width, long height"},
    TypeRow{"device", FieldType::kDevice, 0, "text id, text name"},
    TypeRow{"participant", FieldType::kParticipant, 0,
            "text userId, text instanceId, long number, text displayName, text room, "
            "text avatarKey, text avatarPath, flag flag"},
};

const TypeRow& RowOf(FieldType type) {
  return *std::find_if(kTypes.begin(), kTypes.end(),
                       [type](const TypeRow& row) { return row.type == type; });
}

bool TakePrefix(std::string_view& text, std::string_view prefix) {
  if (!text.starts_with(prefix)) {
    return false;
  }
  text.remove_prefix(prefix.size());
  return true;
}

bool TakeSuffix(std::string_view& text, std::string_view suffix) {
  if (!text.ends_with(suffix)) {
    return false;
  }
  text.remove_suffix(suffix.size());
  return true;
}

// Reserves room for a value at the end of the record and returns its offset.
std::size_t Place(Layout& layout, std::size_t size, std::size_t alignment) {
  const std::size_t offset = (layout.size + alignment - 1) / alignment * alignment;
  layout.size = offset + size;
  layout.alignment = std::max(layout.alignment, alignment);
  return offset;
}

void AddField(Layout& layout, std::string_view text, std::size_t pointer_size) {
  Field field;
  std::string_view rest = text;
  field.is_out = TakePrefix(rest, "out ");
  const auto space = rest.find(' ');
  std::string_view word = rest.substr(0, space);
  field.is_array = TakeSuffix(word, "[]");
  const auto* const row = std::find_if(kTypes.begin(), kTypes.end(),
                                       [word](const TypeRow& type) { return type.word == word; });
  const auto name = space != std::string_view::npos ? rest.substr(space + 1) : std::string_view();
  if (row == kTypes.end() || name.empty() || name.find_first_of(" ,") != std::string_view::npos) {
    throw HostError(fmt::format("\"{}\" is not a field: expected a type and a name", text));
  }
  field.type = row->type;
  field.name = name;
  if (field.is_array) {
    field.offset = Place(layout, pointer_size, pointer_size);
    field.count_offset = Place(layout, kCountSize, kCountSize);
  } else if (!row->nested.empty()) {
    const Layout nested = ParseLayout(row->nested, pointer_size);
    field.offset = Place(layout, nested.size, nested.alignment);
  } else {
    const std::size_t size = row->size == kPointer ? pointer_size : row->size;
    field.offset = Place(layout, size, size);
  }
  layout.fields.push_back(std::move(field));
}

}  // namespace

Layout ParseLayout(std::string_view notation, std::size_t pointer_size) {
  constexpr std::string_view kSeparator = ", ";
  Layout layout;
  for (bool more = !notation.empty(); more;) {
    const auto end = notation.find(kSeparator);
    AddField(layout, notation.substr(0, end), pointer_size);
    more = end != std::string_view::npos;
    if (more) {
      notation.remove_prefix(end + kSeparator.size());
    }
  }
  layout.size = (layout.size + layout.alignment - 1) / layout.alignment * layout.alignment;
  return layout;
}

std::string_view TypeName(FieldType type) {
  return RowOf(type).word;
}

std::string_view NestedFields(FieldType type) {
  return RowOf(type).nested;
}

}  // namespace vellomar_host

// SPDX-License-Identifier: MIT
#include "commands/decode.h"

namespace VELLOMAR_CONTROLBAR {
namespace {

template <typename Element>
std::size_t Size(const Element* array, std::int32_t count) {
  return array != nullptr && count > 0 ? static_cast<std::size_t>(count) : 0;
}

}  // namespace

DeviceList Owned(const VellomarDevice* devices, std::int32_t count, const char* current) {
  DeviceList list;
  list.devices.reserve(Size(devices, count));
  for (std::size_t i = 0; i < Size(devices, count); ++i) {
    list.devices.push_back({Owned(devices[i].id), Owned(devices[i].name)});
  }
  list.current_id = Owned(current);
  return list;
}

std::vector<std::uint64_t> Owned(const std::int64_t* numbers, std::int32_t count) {
  return {numbers, numbers + Size(numbers, count)};
}

std::vector<std::string> Owned(const char* const* texts, std::int32_t count) {
  std::vector<std::string> owned;
  owned.reserve(Size(texts, count));
  for (std::size_t i = 0; i < Size(texts, count); ++i) owned.push_back(Owned(texts[i]));
  return owned;
}

}  // namespace VELLOMAR_CONTROLBAR

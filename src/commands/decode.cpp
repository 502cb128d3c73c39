// SPDX-License-Identifier: MIT
#include "commands/decode.h"

#include <utility>

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
  for (std::size_t i = 0; i < Size(texts, count); ++i) {
    owned.push_back(Owned(texts[i]));
  }
  return owned;
}

SharedParticipantList Owned(const VellomarParticipant* participants, std::int32_t count) {
  using VELLOMAR_COMMON::OrEmpty;
  std::vector<ParticipantList::Item> items;
  items.reserve(Size(participants, count));
  for (std::size_t i = 0; i < Size(participants, count); ++i) {
    const VellomarParticipant& p = participants[i];
    items.push_back({{OrEmpty(p.userId), OrEmpty(p.instanceId), p.number},
                     OrEmpty(p.displayName),
                     OrEmpty(p.room),
                     OrEmpty(p.avatarKey),
                     OrEmpty(p.avatarPath),
                     p.flag != 0});
  }
  return std::make_shared<const ParticipantList>(std::move(items));
}

}  // namespace VELLOMAR_CONTROLBAR

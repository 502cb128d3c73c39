// SPDX-License-Identifier: MIT
// The commands that the host can send, by event id: storage and look-up. The rows come from the
// command table.
//
//     table.Add(28200737, &HandleSetTextMap);
//     if (const HostEventHandler handler = table.Find(id)) handler(id, payload);
#pragma once

#include <cstdint>
#include <unordered_map>

namespace VELLOMAR_CONTROLBAR {

// `payload` is the command's record and never null.
using HostEventHandler = void (*)(std::uint64_t id, void* payload);

class EventTable {
 public:
  void Add(std::uint64_t id, HostEventHandler handler) { m_handlers.emplace(id, handler); }

  // Null for an unknown id.
  HostEventHandler Find(std::uint64_t id) const {
    const auto found = m_handlers.find(id);
    return found != m_handlers.end() ? found->second : nullptr;
  }

  bool Empty() const { return m_handlers.empty(); }

 private:
  std::unordered_map<std::uint64_t, HostEventHandler> m_handlers;
};

}  // namespace VELLOMAR_CONTROLBAR

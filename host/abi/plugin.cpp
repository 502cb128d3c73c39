// SPDX-License-Identifier: MIT
// Resolves the exports and splits 64-bit ids into the two words that cross the boundary.
#include "host/abi/plugin.h"

namespace vellomar_host {
namespace {

std::uint32_t Low(std::uint64_t id) {
  return static_cast<std::uint32_t>(id);
}
std::uint32_t High(std::uint64_t id) {
  return static_cast<std::uint32_t>(id >> 32U);
}

}  // namespace

Plugin::Plugin(const std::filesystem::path& file)
    : library_(file),
      init_(library_.Resolve<decltype(ExportedInit)>("ExportedInit")),
      start_(library_.Resolve<decltype(ExportedStart)>("ExportedStart")),
      stop_(library_.Resolve<decltype(ExportedStop)>("ExportedStop")),
      uninit_(library_.Resolve<decltype(ExportedUninit)>("ExportedUninit")),
      on_receive_(library_.Resolve<decltype(ExportedOnReceive)>("ExportedOnReceive")),
      on_delegate_(library_.Resolve<decltype(ExportedOnDelegate)>("ExportedOnDelegate")),
      call_event_(library_.Resolve<decltype(ExportedCallEvent)>("ExportedCallEvent")),
      call_drop_(library_.Resolve<decltype(ExportedCallDrop)>("ExportedCallDrop")) {}

bool Plugin::Init(const InitArguments& arguments) const {
  return init_(arguments.request, arguments.notify, arguments.host, arguments.loop,
               arguments.log_file, "info", arguments.log_kind);
}

bool Plugin::OnReceive(std::uint64_t id, void* payload) const {
  return on_receive_(Low(id), High(id), payload);
}

bool Plugin::OnDelegate(std::uint64_t id, void* payload) const {
  return on_delegate_(Low(id), High(id), payload);
}

bool Plugin::CallEvent(std::uint64_t id, void* payload) const {
  return call_event_(Low(id), High(id), payload);
}

bool Plugin::CallDrop(std::uint64_t key) const {
  return call_drop_(Low(key), High(key));
}

}  // namespace vellomar_host

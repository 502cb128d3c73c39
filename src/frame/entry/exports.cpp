// SPDX-License-Identifier: MIT
// The eight functions that the host calls: set-up and tear-down of the process-wide objects, and
// the way in for commands, responses and delegate calls.
#include <new>

#include "bridge/antenna_event_loop.h"
#include "bridge/event_table.h"
#include "bridge/resources.h"
#include "bridge/server_api.h"
#include "commands/command_table.h"
#include "frame/entry/plugin.h"
#include "frame/log/guard.h"
#include "frame/log/log.h"
#include "frame/log/trace_scope.h"
#include "frame/notify/notifier.h"
#include "manager/controlbar_manager.h"
#include "vellomar/controlbar.h"

using VELLOMAR_CONTROLBAR::AntennaEventLoop;
using VELLOMAR_CONTROLBAR::ControlbarManager;
using VELLOMAR_CONTROLBAR::EventTable;
using VELLOMAR_CONTROLBAR::Notifier;
using VELLOMAR_CONTROLBAR::Plugin;
using VELLOMAR_LOG::Guarded;
using VELLOMAR_LOG::LogInstance;
using VELLOMAR_LOG::TraceScope;
using VELLOMAR_SERVER_API::VellomarServerApiRequester;
using VELLOMAR_SERVER_API::VellomarServerApiResponser;
using VELLOMAR_SERVER_API::VellomarServerApiSlot;

namespace {

std::uint64_t Id(std::uint32_t low, std::uint32_t high) {
  return (static_cast<std::uint64_t>(high) << 32) | low;
}

}  // namespace

bool ExportedInit(SendRequest* request, Notify* notify, void* host, const EventLoopTable* loop,
                  const char* first, const char* second, std::uint32_t kind) {
  // The one way in that lets an exception out: without its objects the plug-in cannot go on.
  bool out_of_memory = false;
  Guarded("ExportedInit", [&] {
    try {
      LogInstance::GetInstance()->Open(kind, first, second);  // before the first line is written
      const TraceScope scope("ExportedInit");
      VellomarServerApiRequester::GetInstance()->SetSendRequest(request);
      VellomarServerApiResponser::GetInstance();
      if (ControlbarManager::HasInstance()) {
        ControlbarManager::GetInstance()->Data().RegisterForAvatars();
      }
      VellomarServerApiSlot::GetInstance();
      Notifier::GetInstance()->SetNotify(notify);
      Plugin::GetInstance()->SetHost(host);
      if (loop != nullptr) {
        AntennaEventLoop::GetInstance()->Init(*loop);
      }
    } catch (const std::bad_alloc&) {
      out_of_memory = true;
    }
  });
  if (out_of_memory) {
    throw std::bad_alloc();
  }
  return true;
}

bool ExportedStart() {
  Guarded("ExportedStart", [] { const TraceScope scope("ExportedStart"); });
  return true;
}

bool ExportedStop() {
  Guarded("ExportedStop", [] { const TraceScope scope("ExportedStop"); });
  return true;
}

bool ExportedUninit() {
  Guarded("ExportedUninit", [] {
    // The exit line of this scope is written after LogInstance is gone and makes a new one: that
    // the line is always written matters more.
    const TraceScope scope("ExportedUninit");
    AntennaEventLoop::GetInstance()->Uninit();
    AntennaEventLoop::DestroyInstance();
    if (ControlbarManager::HasInstance()) {
      ControlbarManager::GetInstance()->ForgetPending();
    }
    Plugin::DestroyInstance();
    Notifier::DestroyInstance();
    VellomarServerApiRequester::DestroyInstance();
    VellomarServerApiResponser::DestroyInstance();
    VellomarServerApiSlot::DestroyInstance();
    LogInstance::DestroyInstance();
  });
  return true;
}

bool ExportedOnReceive(std::uint32_t id_low, std::uint32_t id_high, void* payload) {
  Guarded("ExportedOnReceive", [&] {
    const TraceScope scope("ExportedOnReceive");
    // The host is not told whether anything handled it.
    VellomarServerApiResponser::GetInstance()->OnReceive(Id(id_low, id_high), payload);
  });
  return true;
}

bool ExportedOnDelegate(std::uint32_t id_low, std::uint32_t id_high, void* payload) {
  Guarded("ExportedOnDelegate", [&] {
    const TraceScope scope("ExportedOnDelegate");
    VellomarServerApiSlot::GetInstance()->OnDelegate(Id(id_low, id_high), payload);
  });
  return true;
}

bool ExportedCallEvent(std::uint32_t id_low, std::uint32_t id_high, void* payload) {
  if (payload == nullptr) {
    return false;
  }
  bool handled = false;
  Guarded("ExportedCallEvent", [&] {
    static EventTable table;
    if (table.Empty()) {
      table = VELLOMAR_CONTROLBAR::MakeEventTable();
    }
    const std::uint64_t id = Id(id_low, id_high);
    const VELLOMAR_CONTROLBAR::HostEventHandler handler = table.Find(id);
    if (handler == nullptr) {
      return;
    }
    const TraceScope scope("ExportedCallEvent");
    handler(id, payload);
    handled = true;
  });
  return handled;
}

bool ExportedCallDrop(std::uint32_t key_low, std::uint32_t key_high) {
  Guarded("ExportedCallDrop", [&] {
    const TraceScope scope("ExportedCallDrop");
    VELLOMAR_CONTROLBAR::__ResourceCollectionPool__::GetInstance()->Drop(Id(key_low, key_high));
  });
  return true;
}

// SPDX-License-Identifier: MIT
// The plug-in, loaded: its eight exports with ids as whole 64-bit numbers.
//
//   Plugin plugin("lib/libvellomar-controlbar.so");
//   plugin.Init({.notify = OnNotify, .loop = loop.Table()});
//   plugin.CallEvent(VELLOMAR_COMMAND_setHostType, &record);
//
// What the members do and from which thread stands in vellomar/controlbar.h.
#pragma once

#include <cstdint>
#include <filesystem>

#include "host/abi/library.h"
#include "vellomar/controlbar.h"

namespace vellomar_host {

struct InitArguments {
  SendRequest* request = nullptr;
  Notify* notify = nullptr;
  void* host = nullptr;
  const EventLoopTable* loop = nullptr;
  // For the log library; read as its development build reads them. The lowest level is "info".
  const char* log_file = "";
  std::uint32_t log_kind = 3;  // 0: file and console, 1: file, 2: console, 3: no log
};

class Plugin {
 public:
  // Throws HostError when the file cannot be loaded or lacks an export.
  explicit Plugin(const std::filesystem::path& file);

  bool Init(const InitArguments& arguments) const;
  bool Start() const { return start_(); }
  bool Stop() const { return stop_(); }
  bool Uninit() const { return uninit_(); }
  bool OnReceive(std::uint64_t id, void* payload) const;
  bool OnDelegate(std::uint64_t id, void* payload) const;
  bool CallEvent(std::uint64_t id, void* payload) const;
  bool CallDrop(std::uint64_t key) const;

 private:
  SharedLibrary library_;
  decltype(&ExportedInit) init_;
  decltype(&ExportedStart) start_;
  decltype(&ExportedStop) stop_;
  decltype(&ExportedUninit) uninit_;
  decltype(&ExportedOnReceive) on_receive_;
  decltype(&ExportedOnDelegate) on_delegate_;
  decltype(&ExportedCallEvent) call_event_;
  decltype(&ExportedCallDrop) call_drop_;
};

}  // namespace vellomar_host

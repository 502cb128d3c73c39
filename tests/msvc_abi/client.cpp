// SPDX-License-Identifier: MIT
// A client as Microsoft's tools build it: linked to the plug-in through its import library, without
// any run-time library. Ends with 0 where every call went well, else with the number of the first
// that did not.
#include "vellomar/controlbar.h"

namespace {

int posted;

uint64_t Post(LoopCallback* callback, void* context) {
  ++posted;
  callback(context);
  return 0x100000001;
}

void RunSync(LoopCallback* callback, void* context) {
  callback(context);
}

int Run() {
  EventLoopTable loop = {};
  loop.postFn = Post;
  loop.runSyncFn = RunSync;
  constexpr uint32_t kNoLog = 3;
  if (!ExportedInit(nullptr, nullptr, nullptr, &loop, "", "", kNoLog)) return 1;
  if (!ExportedStart()) return 2;
  VellomarShowControlbar show = {{0, 0, 1920, 1080}, 0};
  if (!ExportedCallEvent(VELLOMAR_COMMAND_showSharedControlbar, 0, &show)) return 3;
  if (show.result != 1) return 4;
  VellomarRect position = {};
  if (!ExportedCallEvent(VELLOMAR_COMMAND_getControlbarPosition, 0, &position)) return 5;
  if (position.width <= 0) return 6;
  VellomarFlag visible = {1};
  if (!ExportedCallEvent(VELLOMAR_COMMAND_setSketchVisible, 0, &visible) || posted != 1) return 7;
  if (ExportedCallEvent(VELLOMAR_COMMAND_setSketchVisible, 1, &visible)) return 8;
  if (ExportedCallEvent(VELLOMAR_COMMAND_setSketchVisible, 0, nullptr)) return 9;
  if (!ExportedOnReceive(1, 0, &visible) || !ExportedOnDelegate(1, 0, &visible)) return 10;
  if (!ExportedCallDrop(VELLOMAR_COMMAND_showSharedControlbar, 0)) return 11;
  if (!ExportedCallEvent(VELLOMAR_COMMAND_closeSharedControlbar, 0, &show)) return 12;
  return ExportedStop() && ExportedUninit() ? 0 : 13;
}

}  // namespace

// What the system calls first.
extern "C" int Entry() {
  return Run();
}

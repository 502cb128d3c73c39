// SPDX-License-Identifier: MIT
// A client as Microsoft's tools build it: linked to the plug-in through its import library, without
// any run-time library. Ends with 0 where every call went well, else with the number of the first
// that did not.
#include "vellomar/controlbar.h"

namespace {

uint64_t Post(LoopCallback* callback, void* context) {
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
  if (!ExportedInit(nullptr, nullptr, nullptr, &loop, "", "", kNoLog)) {
    return 1;
  }
  if (!ExportedStart()) {
    return 2;
  }
  VellomarShowControlbar show = {{0, 0, 1920, 1080}, 0};
  if (!ExportedCallEvent(VELLOMAR_COMMAND_showSharedControlbar, 0, &show)) {
    return 3;
  }
  if (show.result != 1) {
    return 4;
  }
  VellomarFlag visible = {1};
  if (!ExportedCallEvent(VELLOMAR_COMMAND_setSketchVisible, 0, &visible)) {
    return 5;
  }
  if (!ExportedOnReceive(1, 0, &visible) || !ExportedOnDelegate(1, 0, &visible)) {
    return 6;
  }
  if (!ExportedCallDrop(VELLOMAR_COMMAND_showSharedControlbar, 0)) {
    return 7;
  }
  return ExportedStop() && ExportedUninit() ? 0 : 8;
}

}  // namespace

// What the system calls first.
extern "C" int Entry() {
  return Run();
}

// SPDX-License-Identifier: MIT
// A program of another project, which has the plug-in installed: one command from start to end.
#include <vellomar/controlbar.h>

int main() {
  constexpr uint32_t kNoLog = 3;
  bool ok = ExportedInit(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, kNoLog);
  ok = ok && ExportedStart();
  VellomarFlag visible = {1};
  ok = ok && ExportedCallEvent(VELLOMAR_COMMAND_setSketchVisible, 0, &visible);
  ok = ok && !ExportedCallEvent(0, 0, &visible);  // there is no such command
  ok = ok && ExportedStop() && ExportedUninit();
  return ok ? 0 : 1;
}

/* SPDX-License-Identifier: MIT */
/* The public headers as a host written in C sees them: they compile, and the ids are constants. */
#include "vellomar/controlbar.h"
#include "vellomar/log.h"
#include "vellomar_dev/lorimel_driver.h"

_Static_assert(VELLOMAR_COMMAND_setTextMap == 28200737, "a command's id");
_Static_assert(VELLOMAR_NOTIFY_muteAudio == 18200594, "a notification's id");
_Static_assert(sizeof(EventLoopTable) == 16 * sizeof(void*), "sixteen slots");

static uint64_t Post(LoopCallback* callback, void* context) {
  callback(context);
  return 1;
}

static void Count(void* context) {
  ++*(int*)context;
}

int main(void) {
  EventLoopTable table = {0};
  int runs = 0;
  table.postFn = &Post;
  table.postFn(&Count, &runs);
  return runs == 1 ? 0 : 1;
}

// SPDX-License-Identifier: MIT
// What the tiny widget library has been given, for the test that loads it. The library is compiled
// for the Microsoft C++ ABI, the test for MinGW's: besides the class, only plain records and C
// functions pass between them.
#pragma once

#include "vellomar/command_records.h"
#include "vellomar/lorimel.h"

struct TinyReceived {
  int wrongThis;  // calls of members with another `this` than GetInstance returned

  char title[32];
  VellomarRect display;
  int count, type;
  VELLOMAR_LORIMEL::BtnParams first, last;  // of the bar's records

  void* shownHandle;
  bool shown;
  uint64_t duration;
  int volume;
  VELLOMAR_LORIMEL::BtnParams pushed;  // the latest; the plug-in keeps its texts
};

// Exports of the library, besides the class.
using TinyGetReceived = const TinyReceived*();
// The user presses the button: the plug-in's event callback is called with the record.
using TinyPress = void(VELLOMAR_LORIMEL::EventKey key);
// The user opens a list: its rows.
using TinyOpen = const VELLOMAR_LORIMEL::BtnParams*(VELLOMAR_LORIMEL::EventKey key, int* count);

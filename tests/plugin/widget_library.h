// SPDX-License-Identifier: MIT
// A widget library for the streams: it reports every call as a line, does what it is told to do,
// and draws nothing.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "plugin/text.h"
#include "vellomar/lorimel.h"
#include "vellomar_dev/lorimel_driver.h"

namespace streams {

struct Rectangle {
  int x = 0, y = 0, width = 0, height = 0;
};

struct VELLOMAR_LORIMEL_DRIVER_API WidgetLibrary {
  std::function<void(const std::string&)> report;

  // How it behaves.
  std::set<std::string> refused;  // members that return false and do nothing
  bool created_later = false;     // the main bar is not reported before Create returns
  bool closed_later = false;      // nor its end before Close returns
  std::map<int, Rectangle> places = {{1000, {100, 20, 1000, 60}}};  // by key; others are not shown
  std::vector<Fields> usual;  // what the records of a new bar are compared with, by key - 1000

  // What it was given.
  VELLOMAR_LORIMEL::EventCallback* on_event = nullptr;
  VELLOMAR_LORIMEL::ShowWindowCallback* on_show_window = nullptr;
  VELLOMAR_LORIMEL::CreatedCallback* on_created = nullptr;
  VELLOMAR_LORIMEL::ClosedCallback* on_closed = nullptr;

  // Records of the plug-in's: the library may read them, and their texts, at any time.
  std::span<VELLOMAR_LORIMEL::BtnParams> records;              // of the newest bar
  std::map<int, std::span<VELLOMAR_LORIMEL::BtnParams>> rows;  // of windows, until the bar's end

  void* bar = nullptr;         // the handle of the newest bar, also after its end
  bool open = false;           // that bar is there
  std::deque<char> handles;    // a handle is the address of one of these
  std::map<int, Fields> last;  // the records last pushed since the bar was created, by key

  void ReportCreated();
  void ReportClosed();
};

VELLOMAR_LORIMEL_DRIVER_API WidgetLibrary& TheLibrary();

}  // namespace streams

// SPDX-License-Identifier: MIT
// Values that commands carry into the data model.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace VELLOMAR_CONTROLBAR {

// A camera, microphone, speaker or language.
struct Device {
  std::string id;
  std::string name;
};

struct DeviceList {
  std::vector<Device> devices;
  std::string current_id;
};

// Rows that show the devices share the list.
using SharedDevices = std::shared_ptr<const DeviceList>;

struct InterpretationInfo {
  DeviceList languages;
  bool first = false;
  bool second = false;
  bool can_manage = false;
};

struct MeetingDetail {
  std::string topic;
  std::string host_name;
  std::string meeting_link;
};

}  // namespace VELLOMAR_CONTROLBAR

// SPDX-License-Identifier: MIT
// The rows of the drop-down windows, built anew whenever the widget library opens one.
// [loop thread]
//
//     int count = 0;
//     BtnParams* const rows = lists.Cameras(count);
//
// A list with all its texts is valid until it is built again, or until DropClosed after CloseAll.
// A list that cannot be built for want of memory leaves the old one.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "data/button_store.h"
#include "data/meeting_state.h"
#include "data/participant_store.h"
#include "data/text_table.h"

namespace VELLOMAR_CONTROLBAR {

class DropDownLists {
 public:
  // What the rows show. All of it outlives the lists.
  struct Sources {
    const ButtonStore& buttons;
    const MeetingState& meeting;
    const ParticipantStore& participants;
    const TextTable& texts;                                  // kept with the rows
    std::function<const char*(std::uint64_t id)> find_text;  // in `texts`; null for an unknown id
  };

  explicit DropDownLists(Sources from) : m_from(std::move(from)) {}
  DropDownLists(const DropDownLists&) = delete;
  DropDownLists& operator=(const DropDownLists&) = delete;

  BtnParams* Audio(int& count);
  BtnParams* Cameras(int& count);
  BtnParams* HostControl(int& count);
  BtnParams* SharingPermissions(int& count);
  BtnParams* SharingOptions(int& count);
  BtnParams* More(int& count);
  BtnParams* Participants(int& count);
  BtnParams* SketchPens(int& count);
  BtnParams* SketchClear(int& count);  // null while a screen is shared
  BtnParams* Interpretation(int& count);
  BtnParams* ShareAudio(int& count);

  // The rows are kept: the widget library may still draw a window while it is told to close.
  // Changes nothing where memory runs out.
  void CloseAll();
  void DropClosed() { m_closed.clear(); }

 private:
  enum Window : std::uint8_t {
    kAudio,
    kCameras,
    kHostControl,
    kSharingPermissions,
    kSharingOptions,
    kMore,
    kParticipants,
    kSketchPens,
    kSketchClear,
    kInterpretation,
    kShareAudio,
    kWindowCount
  };
  // The rows of a window, and what their texts point into.
  struct List {
    std::vector<BtnParams> rows;
    std::vector<std::shared_ptr<const void>> owners;
  };
  struct Row {
    EventKey key;
    const char* object_name;  // null: none
    std::uint64_t text_id;    // text_id::kNone: none
    std::int32_t status = 0;
  };

  List NewList() const;
  BtnParams& AddRow(List& list, const Row& row) const;
  void AddRows(List& list, std::span<const Row> rows) const;
  void AddDeviceRows(List& list, const Row& row, const SharedDevices& devices) const;
  void AddSharingPermissions(List& list) const;
  std::int32_t OwnStatus(EventKey key) const { return m_from.buttons.At(key).status; }
  BtnParams* Fixed(Window window, std::span<const Row> rows, int& count);
  // The new rows take the place of the old ones.
  BtnParams* Finish(Window window, List list, int& count);

  const Sources m_from;
  std::array<List, kWindowCount> m_open;
  std::vector<List> m_closed;
};

}  // namespace VELLOMAR_CONTROLBAR

// SPDX-License-Identifier: MIT
// The host's texts by id.
#include <cstddef>
#include <utility>

#include "bridge/server_api.h"
#include "common/module_directory.h"
#include "data/control_bar_data_manager.h"

namespace VELLOMAR_CONTROLBAR {

bool ControlBarDataManager::InitTextMapping(std::vector<std::uint64_t> ids,
                                            std::vector<std::string> texts) {
  const Scope scope(__func__);
  if (ids.size() != texts.size()) {
    VELLOMAR_LOG::Write(VELLOMAR_LOG::kModule, VELLOMAR_LOG_REFUSED,
                        "[Controlbar] text mapping error!");
    return false;
  }
  std::string resource_path = VELLOMAR_COMMON::ModuleDirectory() + "res";
  auto mapping = std::make_shared<TextMap>();
  for (std::size_t i = 0; i < ids.size(); ++i) {
    mapping->try_emplace(ids[i], std::move(texts[i]));  // of two texts the first stays
  }
  // From here on nothing can fail.
  m_resourcePath = std::move(resource_path);
  VELLOMAR_LOG::Info("Init controlbar res path len: {}", m_resourcePath.size());
  m_previousTexts = std::exchange(m_texts, std::move(mapping));
  m_previousTestContent = std::exchange(m_testContent, {});
  ResetRecords();
  WriteDefaults();
  UpdateBtnShareNewExpandStatus();
  RegisterForAvatars();
  return true;
}

const char* ControlBarDataManager::GetNativeText(std::uint64_t id) const {
  const Scope scope(__func__);
  if (id == kNoText) {
    // "textid" here and "textId" below: both spellings are the log's own.
    VELLOMAR_LOG::Info("Invalid textid: {}.", id);
    return nullptr;
  }
  const auto found = m_texts->find(id);
  if (found == m_texts->end()) {
    VELLOMAR_LOG::Fault("Invalid textId: {}.", id);
    return nullptr;
  }
  return found->second.c_str();
}

void ControlBarDataManager::RegisterForAvatars() {
  const Scope scope(__func__);
  using VELLOMAR_SERVER_API::VellomarServerApiResponser;
  if (!VellomarServerApiResponser::HasInstance()) return;
  VellomarServerApiResponser::GetInstance()->SetAvatarCallback(
      [this](const std::string& key, const std::string& path) { SetAvatarPath(key, path); });
}

}  // namespace VELLOMAR_CONTROLBAR

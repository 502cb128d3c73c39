// SPDX-License-Identifier: MIT
#include "tools/workbench/content.h"

#include <algorithm>

#include "host/host_error.h"
#include "host/scenario/scenario.h"

namespace vellomar_workbench {

using nlohmann::json;
using std::filesystem::path;

namespace {

std::vector<path> JsonFiles(const path& folder) {
  std::vector<path> files;
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
    if (entry.path().extension() == ".json") {
      files.push_back(entry.path());
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

}  // namespace

std::optional<path> FindScenarioFolder(const path& program_folder) {
  std::vector<path> places = {program_folder / "../share/vellomar-controlbar/scenarios"};
  for (path above = program_folder; above != above.parent_path(); above = above.parent_path()) {
    places.push_back(above / "scenarios");
  }
  for (const path& place : places) {
    if (std::filesystem::is_directory(place / "presets")) {
      return place.lexically_normal();
    }
  }
  return std::nullopt;
}

std::vector<Preset> ListPresets(const path& folder) {
  std::vector<Preset> presets;
  for (const path& file : JsonFiles(folder / "presets")) {
    Preset preset = {file.stem().string(), file.stem().string(), "", file};
    try {
      const auto scenario = vellomar_host::LoadScenario(file);
      if (!scenario.name.empty()) {
        preset.title = scenario.name;
      }
      preset.description = scenario.description;
    } catch (const vellomar_host::HostError& error) {
      preset.description = error.what();
    }
    presets.push_back(std::move(preset));
  }
  return presets;
}

std::vector<std::string> ListLanguages(const path& folder) {
  std::vector<std::string> languages;
  for (const path& file : JsonFiles(folder / "texts")) {
    languages.push_back(file.stem().string());
  }
  return languages;
}

json ReadTexts(const path& folder, const std::string& language) {
  const json step = {{"send", "setTextMap"}, {"args", {{"file", language + ".json"}}}};
  const auto action = vellomar_host::ParseStep(step, folder / "texts");
  return std::get<vellomar_host::SendStep>(action).arguments;
}

}  // namespace vellomar_workbench

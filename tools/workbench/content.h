// SPDX-License-Identifier: MIT
// The data files that come with the tools: meetings to start with, and the languages of the texts.
//
//   const auto folder = FindScenarioFolder();
//   for (const Preset& preset : ListPresets(*folder)) ...
#pragma once

#include <filesystem>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

namespace vellomar_workbench {

// `presets/` and `texts/` lie in it. Beside the installed program, or in the source tree above it.
std::optional<std::filesystem::path> FindScenarioFolder(
    const std::filesystem::path& program_folder);

struct Preset {
  std::string name;   // the file's name without its ending
  std::string title;  // "name" of the scenario
  std::string description;
  std::filesystem::path file;
};

// By name. A file that cannot be read has its fault as description.
std::vector<Preset> ListPresets(const std::filesystem::path& folder);

// The names of the text files without their ending: "ar", "de", ...
std::vector<std::string> ListLanguages(const std::filesystem::path& folder);

// The arguments of setTextMap for a language. Throws HostError.
nlohmann::json ReadTexts(const std::filesystem::path& folder, const std::string& language);

}  // namespace vellomar_workbench

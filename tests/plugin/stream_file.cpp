// SPDX-License-Identifier: MIT
#include "plugin/stream_file.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "plugin/player.h"

namespace streams {
namespace {

constexpr std::string_view kHeading = "== ";
constexpr std::string_view kStep = "-- ";
constexpr std::string_view kGiven = "given ";

bool IsCaused(const std::string& line) {
  return !line.empty() && line[0] != '#' && !line.starts_with(kStep) && !line.starts_with(kGiven);
}

// Plays the steps of the block of this name in given.txt.
void PlayGiven(Player& player, const std::string& name) {
  const auto blocks = ReadBlocks("given.txt");
  const auto block = std::find_if(blocks.begin(), blocks.end(),
                                  [&name](const Block& given) { return given.name == name; });
  if (block == blocks.end()) {
    throw std::runtime_error("nothing given by the name of " + name);
  }
  for (const std::string& line : block->lines) {
    if (line.starts_with(kStep)) {
      player.Play(line.substr(kStep.size()));
    }
  }
}

}  // namespace

std::vector<Block> ReadBlocks(const std::string& file) {
  std::vector<Block> blocks;
  std::istringstream lines(ReadFile("streams/" + file));
  std::size_t number = 0;
  for (std::string line; std::getline(lines, line);) {
    ++number;
    if (line.starts_with(kHeading)) {
      blocks.push_back({line.substr(kHeading.size()), number, {}});
    } else if (!blocks.empty()) {
      blocks.back().lines.push_back(line);
    }
  }
  return blocks;
}

Lines PlayBlock(const Block& block) {
  Player player;
  Lines actual;
  bool ready = false;
  for (const std::string& line : block.lines) {
    if (line.starts_with(kGiven)) {
      std::istringstream names(line.substr(kGiven.size()));
      for (std::string name; names >> name;) {
        PlayGiven(player, name);
      }
      ready = true;
    }
    if (IsCaused(line)) {
      continue;
    }
    actual.push_back(line);
    if (!line.starts_with(kStep)) {
      continue;
    }
    if (!ready) {
      PlayGiven(player, "init");
    }
    ready = true;
    const Lines caused = player.Play(line.substr(kStep.size()));
    actual.insert(actual.end(), caused.begin(), caused.end());
  }
  return actual;
}

void Renew(const std::string& file, const Block& block, const Lines& lines) {
  std::vector<Block> blocks = ReadBlocks(file);
  std::istringstream old(ReadFile("streams/" + file));
  std::ofstream renewed(std::string(VELLOMAR_STREAMS) + "/streams/" + file, std::ios::binary);
  for (std::string line; std::getline(old, line) && !line.starts_with(kHeading);) {
    renewed << line << '\n';
  }
  for (const Block& each : blocks) {
    renewed << kHeading << each.name << '\n';
    for (const std::string& line : each.name == block.name ? lines : each.lines) {
      renewed << line << '\n';
    }
  }
}

}  // namespace streams

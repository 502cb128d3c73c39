// SPDX-License-Identifier: MIT
// Files of streams: blocks of steps, each with the lines that it causes.
#pragma once

#include <string>
#include <vector>

namespace streams {

struct Block {
  std::string name;
  std::size_t line = 0;            // of its heading, from 1
  std::vector<std::string> lines;  // below its heading, until the next
};

std::vector<Block> ReadBlocks(const std::string& file);  // "mute.txt"

// Plays a block and returns its lines as they are now.
std::vector<std::string> PlayBlock(const Block& block);

// Writes the lines in place of the block's.
void Renew(const std::string& file, const Block& block, const std::vector<std::string>& lines);

}  // namespace streams

// SPDX-License-Identifier: MIT
// For a program of its own that counts the plug-in's requests for memory, or refuses them: operator
// new, the log library and a host, none of which asks for memory itself.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "vellomar/controlbar.h"

namespace counted_memory {

inline std::size_t requests = 0;
inline std::size_t bytes_in_use = 0;
inline std::uint64_t until_refusal = 0;  // requests until the refused one; 0: none is refused
inline bool refuse_all_from_then = false;
inline bool refused = false;  // since the test has set it to false

// Lines at level 4 about memory that ran out.
inline int escapes = 0;
inline std::array<char, 128> last_escape{};

// What the host's loop was given last, and how many notifications there were.
inline LoopCallback* posted = nullptr;
inline void* posted_context = nullptr;
inline int told = 0;

inline void RunPosted() {
  posted(posted_context);
}
void Init();

}  // namespace counted_memory

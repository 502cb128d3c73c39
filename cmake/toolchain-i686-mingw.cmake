# SPDX-License-Identifier: MIT
# The product's target: 32-bit Windows, with MinGW-w64 (the variant with POSIX threads, for std::mutex
# and std::thread; Debian has two and says so in the name).
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86)

find_program(VELLOMAR_MINGW_CXX NAMES i686-w64-mingw32-g++-posix i686-w64-mingw32-g++ REQUIRED)
string(REGEX REPLACE "g\\+\\+([^/]*)$" "gcc\\1" VELLOMAR_MINGW_C "${VELLOMAR_MINGW_CXX}")
set(CMAKE_C_COMPILER "${VELLOMAR_MINGW_C}")
set(CMAKE_CXX_COMPILER "${VELLOMAR_MINGW_CXX}")
set(CMAKE_RC_COMPILER i686-w64-mingw32-windres)
set(CMAKE_DLLTOOL i686-w64-mingw32-dlltool)

# What is linked is the compiler's own or a target of the build; the build machine's libraries and
# headers have nothing to offer to another system.
set(CMAKE_FIND_ROOT_PATH /usr/i686-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Programs of the build, tests above all, run under Wine.
set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/../scripts/wine.sh;${CMAKE_BINARY_DIR}")

# SPDX-License-Identifier: MIT
# The libraries that we use as headers only, from the system's packages.
#
# A build for Linux asks their own CMake packages. A build for Windows takes the same headers, which
# do not depend on the system, but not through /usr/include: the compiler would find the C library's
# headers of the build machine there. Links to the few folders stand in the build folder instead.
if(NOT WIN32)
  find_package(fmt 7 REQUIRED)
  find_package(spdlog REQUIRED)
  find_package(nlohmann_json REQUIRED)
  find_package(CLI11 REQUIRED)
  return()
endif()

set(linked_headers "${PROJECT_BINARY_DIR}/system-headers")
file(MAKE_DIRECTORY "${linked_headers}")

# vellomar_header_library(TARGET HEADER): TARGET is the library whose main header is HEADER.
function(vellomar_header_library target header)
  cmake_path(GET header PARENT_PATH folder)
  find_path(VELLOMAR_HEADERS_${folder} ${header} PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  file(CREATE_LINK "${VELLOMAR_HEADERS_${folder}}/${folder}" "${linked_headers}/${folder}" SYMBOLIC)
  add_library(${target} INTERFACE IMPORTED GLOBAL)
  target_include_directories(${target} SYSTEM INTERFACE "${linked_headers}")
endfunction()

vellomar_header_library(fmt::fmt-header-only fmt/format.h)
target_compile_definitions(fmt::fmt-header-only INTERFACE FMT_HEADER_ONLY=1)
add_library(fmt::fmt ALIAS fmt::fmt-header-only)
vellomar_header_library(spdlog::spdlog_header_only spdlog/spdlog.h)
# Debian's spdlog stands on its fmt. File names are in UTF-16 on this system.
target_compile_definitions(spdlog::spdlog_header_only INTERFACE
  SPDLOG_FMT_EXTERNAL_HO SPDLOG_WCHAR_FILENAMES)
target_link_libraries(spdlog::spdlog_header_only INTERFACE fmt::fmt-header-only)
vellomar_header_library(nlohmann_json::nlohmann_json nlohmann/json.hpp)
vellomar_header_library(CLI11::CLI11 CLI/CLI.hpp)

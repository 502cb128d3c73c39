# SPDX-License-Identifier: MIT
# Whether a warning stops the build: ON, OFF, or KNOWN, which is ON for the compilers that
# CONTRIBUTING.md names. With any other, a warning that nobody has seen yet is not the builder's to mend.
set(VELLOMAR_WERROR OFF CACHE STRING "Warnings are errors: ON, OFF or KNOWN (compilers)")
set_property(CACHE VELLOMAR_WERROR PROPERTY STRINGS ON OFF KNOWN)
set(vellomar_known_compilers GNU-12 GNU-14 Clang-14 Clang-19)

set(vellomar_werror)
string(REGEX MATCH "^[0-9]+" compiler "${CMAKE_CXX_COMPILER_VERSION}")
string(PREPEND compiler "${CMAKE_CXX_COMPILER_ID}-")
set(known OFF)
if(compiler IN_LIST vellomar_known_compilers)
  set(known ON)
endif()
set(VELLOMAR_KNOWN_COMPILER ${known} CACHE INTERNAL "Whether CONTRIBUTING.md names the compiler")
if(NOT VELLOMAR_WERROR STREQUAL KNOWN)
  if(VELLOMAR_WERROR)
    set(vellomar_werror -Werror)
  endif()
elseif(known)
  set(vellomar_werror -Werror)
else()
  message(STATUS "Warnings are not errors: ${compiler} is none of ${vellomar_known_compilers}")
endif()

# vellomar_target(TARGET): the language level, warnings and hardening that all of our code is built with.
function(vellomar_target target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow
    ${vellomar_werror})
  set_target_properties(${target} PROPERTIES
    CXX_VISIBILITY_PRESET hidden C_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON
    CXX_EXTENSIONS OFF C_STANDARD 11 POSITION_INDEPENDENT_CODE ON)
  if(VELLOMAR_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=address,undefined
      -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(${target} PUBLIC -fsanitize=address,undefined)
    return()
  endif()
  target_compile_options(${target} PRIVATE -fstack-protector-strong)
  if(WIN32)
    # The compiler's run-time libraries are linked in: the client's folder has none of them. Data is
    # not run (DEP) and modules move (ASLR).
    target_link_options(${target} PRIVATE -static -fstack-protector-strong
      -Wl,--nxcompat,--dynamicbase)
  else()
    target_link_options(${target} PRIVATE -Wl,-z,relro,-z,now)
  endif()
endfunction()

# vellomar_library(TARGET DESCRIPTION): what all of our dynamic libraries have in common.
function(vellomar_library target description)
  vellomar_target(${target})
  if(WIN32)
    get_target_property(name ${target} OUTPUT_NAME)
    if(NOT name)
      set(name ${target})
    endif()
    set_target_properties(${target} PROPERTIES PREFIX "")
    set(VELLOMAR_FILE_NAME "${name}.dll")
    set(VELLOMAR_FILE_DESCRIPTION "${description}")
    configure_file("${PROJECT_SOURCE_DIR}/cmake/version.rc.in" "${CMAKE_CURRENT_BINARY_DIR}/${target}.rc" @ONLY)
    target_sources(${target} PRIVATE "${CMAKE_CURRENT_BINARY_DIR}/${target}.rc")
  elseif(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    # Unique symbols would keep the library in memory after its last user has unloaded it.
    target_compile_options(${target} PRIVATE -fno-gnu-unique)
  endif()
endfunction()

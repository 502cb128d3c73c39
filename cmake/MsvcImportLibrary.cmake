# SPDX-License-Identifier: MIT
# NAME.lib, by which programs that Microsoft's tools build link to NAME.dll.

# vellomar_msvc_import_library(NAME DEF_FILE): from a .def file that lists the exports.
function(vellomar_msvc_import_library name def_file)
  find_program(LLVM_DLLTOOL llvm-dlltool REQUIRED)
  set(library "${VELLOMAR_IMPORT_LIBRARIES}/${name}.lib")
  add_custom_command(OUTPUT "${library}"
    COMMAND "${LLVM_DLLTOOL}" -m i386 -d "${def_file}" -l "${library}"
    DEPENDS "${def_file}" VERBATIM)
  add_custom_target(${name}-msvc-import ALL DEPENDS "${library}")
endfunction()

# vellomar_msvc_import_library_of(TARGET): from what TARGET.dll exports, which the linker says.
function(vellomar_msvc_import_library_of target)
  find_program(LLVM_DLLTOOL llvm-dlltool REQUIRED)
  set(exports "${CMAKE_CURRENT_BINARY_DIR}/${target}.exports")
  set(def_file "${CMAKE_CURRENT_BINARY_DIR}/${target}.def")
  set(library "${VELLOMAR_IMPORT_LIBRARIES}/${target}.lib")
  target_link_options(${target} PRIVATE "LINKER:--output-def,${exports}")
  add_custom_command(TARGET ${target} POST_BUILD
    COMMAND sed "/^LIBRARY/d" "${exports}" > "${def_file}"  # the line has a base, which is not understood
    COMMAND "${LLVM_DLLTOOL}" -m i386 -D $<TARGET_FILE_NAME:${target}> -d "${def_file}" -l "${library}"
    BYPRODUCTS "${library}" VERBATIM)
endfunction()

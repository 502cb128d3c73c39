# SPDX-License-Identifier: MIT
# Writes vellomar-lorimel.def anew from vellomar/lorimel.h, or says that it is stale.
#
#     cmake -P stand_ins/widgets/abi/lorimel_def.cmake            writes it
#     cmake -DCHECK=ON -P stand_ins/widgets/abi/lorimel_def.cmake fails if it would change
#
# The compiler itself is asked for both names of every member: clang knows the name mangling of
# either ABI and prints it with the syntax tree.
cmake_minimum_required(VERSION 3.25)
set(def_file "${CMAKE_CURRENT_LIST_DIR}/vellomar-lorimel.def")
set(header "${CMAKE_CURRENT_LIST_DIR}/../../../include/vellomar/lorimel.h")

# member_names(TARGET OUT): the mangled names of the class's members for that target, in the header's
# order.
function(member_names target out)
  execute_process(
    COMMAND clang -target ${target} -std=c++20 -ffreestanding -x c++ -fsyntax-only -Wno-pragma-once-outside-header
      -I "${CMAKE_CURRENT_LIST_DIR}/../../../include"
      -Xclang -ast-dump=json -Xclang -ast-dump-filter=VELLOMAR_LORIMEL::Lorimel "${header}"
    OUTPUT_VARIABLE tree COMMAND_ERROR_IS_FATAL ANY)
  string(JSON members GET "${tree}" inner)
  string(JSON count LENGTH "${members}")
  math(EXPR last "${count} - 1")
  set(names)
  foreach(i RANGE ${last})
    string(JSON kind GET "${members}" ${i} kind)
    string(JSON implicit ERROR_VARIABLE written GET "${members}" ${i} isImplicit)
    if(kind STREQUAL CXXMethodDecl AND written)
      string(JSON name GET "${members}" ${i} mangledName)
      list(APPEND names "${name}")
    endif()
  endforeach()
  set(${out} "${names}" PARENT_SCOPE)
endfunction()

member_names(i686-w64-windows-gnu ours)
member_names(i686-pc-windows-msvc theirs)

set(text "; SPDX-License-Identifier: MIT
; Made from vellomar/lorimel.h by lorimel_def.cmake. On the left the name that MinGW gives a member
; of Lorimel, on the right the one that stands in the library: that of the Microsoft C++ ABI.
LIBRARY \"vellomar-lorimel.dll\"
EXPORTS
")
foreach(our their IN ZIP_LISTS ours theirs)
  string(SUBSTRING "${our}" 1 -1 our)  # a .def file leaves out the underscore of the object format
  string(APPEND text "  ${our} == ${their}\n")
endforeach()

if(NOT CHECK)
  file(WRITE "${def_file}" "${text}")
  return()
endif()
file(READ "${def_file}" current)
if(NOT current STREQUAL text)
  message(FATAL_ERROR "vellomar-lorimel.def is stale against vellomar/lorimel.h: it should be\n${text}\n"
    "To write it: cmake -P stand_ins/widgets/abi/lorimel_def.cmake")
endif()
list(LENGTH ours count)
message(STATUS "${count} members have their names")

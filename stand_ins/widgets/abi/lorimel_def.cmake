# SPDX-License-Identifier: MIT
# Writes vellomar-lorimel.def anew from vellomar/lorimel.h, or says that it is stale.
#
#     cmake -P stand_ins/widgets/abi/lorimel_def.cmake            writes it
#     cmake -DCHECK=ON -P stand_ins/widgets/abi/lorimel_def.cmake fails if it would change
#
# The compilers are asked: clang for the members and their names in the Microsoft ABI, which it prints
# with the syntax tree; MinGW's for its own, which are what a file that uses all members is missing.
cmake_minimum_required(VERSION 3.25)
set(def_file "${CMAKE_CURRENT_LIST_DIR}/vellomar-lorimel.def")
set(include "${CMAKE_CURRENT_LIST_DIR}/../../../include")

# The members' names in C++ and in the Microsoft ABI, in the header's order.
set(members)
set(theirs)
execute_process(
  COMMAND clang -target i686-pc-windows-msvc -std=c++20 -ffreestanding -x c++ -fsyntax-only
    -Wno-pragma-once-outside-header -I "${include}"
    -Xclang -ast-dump=json -Xclang -ast-dump-filter=VELLOMAR_LORIMEL::Lorimel
    "${include}/vellomar/lorimel.h"
  OUTPUT_VARIABLE tree COMMAND_ERROR_IS_FATAL ANY)
string(JSON nodes GET "${tree}" inner)
string(JSON count LENGTH "${nodes}")
math(EXPR last "${count} - 1")
foreach(i RANGE ${last})
  string(JSON kind GET "${nodes}" ${i} kind)
  string(JSON implicit ERROR_VARIABLE written GET "${nodes}" ${i} isImplicit)
  if(kind STREQUAL CXXMethodDecl AND written)
    string(JSON name GET "${nodes}" ${i} name)
    string(JSON their GET "${nodes}" ${i} mangledName)
    list(APPEND members "${name}")
    list(APPEND theirs "${their}")
  endif()
endforeach()

# A calling convention that is written is a part of MinGW's names, which clang leaves out.
if(DEFINED ENV{TMPDIR})
  set(scratch "$ENV{TMPDIR}/lorimel_def")
else()
  set(scratch "/tmp/lorimel_def")
endif()
set(uses "#include \"vellomar/lorimel.h\"\n")
foreach(member IN LISTS members)
  string(APPEND uses "auto use${member} = &VELLOMAR_LORIMEL::Lorimel::${member};\n")
endforeach()
string(RANDOM suffix)
set(scratch "${scratch}.${suffix}")
file(WRITE "${scratch}.cpp" "${uses}")
execute_process(
  COMMAND i686-w64-mingw32-g++-posix -std=c++20 -I "${include}" -c "${scratch}.cpp" -o "${scratch}.o"
  COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND i686-w64-mingw32-nm -u "${scratch}.o"
  OUTPUT_VARIABLE missing COMMAND_ERROR_IS_FATAL ANY)
file(REMOVE "${scratch}.cpp" "${scratch}.o")
set(ours)
foreach(member IN LISTS members)
  string(LENGTH "${member}" length)
  if(NOT missing MATCHES "_(_ZN[A-Za-z0-9_]*7Lorimel${length}${member}E[A-Za-z0-9_]*)")
    message(FATAL_ERROR "MinGW has no name for ${member}: ${missing}")
  endif()
  list(APPEND ours "${CMAKE_MATCH_1}")  # a .def file leaves out the underscore of the object format
endforeach()

set(text "; SPDX-License-Identifier: MIT
; Made from vellomar/lorimel.h by lorimel_def.cmake. On the left the name that MinGW gives a member
; of Lorimel, on the right the one that stands in the library: that of the Microsoft C++ ABI.
LIBRARY \"vellomar-lorimel.dll\"
EXPORTS
")
foreach(our their IN ZIP_LISTS ours theirs)
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

# SPDX-License-Identifier: MIT
# Compares a page of the printed reference with what the tool prints:
#   cmake -DTOOL=controlbar-host -DTABLE=commands -DPAGE=docs/commands.md -DPRINTED=file -P ...
execute_process(COMMAND ${TOOL} ${TABLE} --markdown OUTPUT_FILE ${PRINTED} RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "controlbar-host ${TABLE} --markdown failed: ${status}")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files --ignore-eol ${PRINTED} ${PAGE}
  RESULT_VARIABLE different OUTPUT_QUIET ERROR_QUIET)
if(different)
  message(FATAL_ERROR "docs/${TABLE}.md is stale. Renew it in the root of the repository with\n"
    "  ${TOOL} ${TABLE} --markdown > docs/${TABLE}.md")
endif()

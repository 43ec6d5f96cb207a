# Counts the instructions of each operation and of its reference, and fails if a ratio exceeds the
# expected one by more than a tenth. Unlike times, counts do not change on a busy machine, and their
# ratios are nearly the same on other machines.
#   cmake -D VALGRIND=<program> -D PROGRAM=<guard> -D FOLDER=<for its dumps> -D EXPECTED=<table>
#         [-D UPDATE=ON] -P Guard.cmake
cmake_minimum_required(VERSION 3.25)

file(REMOVE_RECURSE ${FOLDER})
file(MAKE_DIRECTORY ${FOLDER})
execute_process(
  COMMAND ${VALGRIND} --tool=callgrind --instr-atstart=no --callgrind-out-file=${FOLDER}/dump
    ${PROGRAM}
  OUTPUT_QUIET ERROR_VARIABLE errors RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "${errors}")
endif()

file(GLOB dumps ${FOLDER}/dump.*)
foreach(dump IN LISTS dumps)
  file(STRINGS ${dump} lines REGEX "^(desc: Trigger: Client Request: |totals: )")
  string(REGEX MATCH "Client Request: ([a-z]+)" ignored "${lines}")
  set(name "${CMAKE_MATCH_1}")
  string(REGEX MATCH "totals: ([0-9]+)" ignored "${lines}")
  set(${name}_count ${CMAKE_MATCH_1})
endforeach()

set(table "")
file(STRINGS ${EXPECTED} rows)
foreach(row IN LISTS rows)
  if(NOT row MATCHES "^([a-z]+) +([a-z]+) +([0-9]+)$")
    string(APPEND table "${row}\n")
    continue()
  endif()
  set(work ${CMAKE_MATCH_1})
  set(reference ${CMAKE_MATCH_2})
  set(expected ${CMAKE_MATCH_3})
  if(NOT ${work}_count OR NOT ${reference}_count)
    message(FATAL_ERROR "${work} or ${reference} was not counted.")
  endif()
  math(EXPR reached "${${work}_count} * 1000 / ${${reference}_count}")
  math(EXPR allowed "${expected} * 11 / 10")
  message(STATUS "${work}: ${${work}_count} instructions, ${reached} thousandths of ${reference} "
    "(${${reference}_count}); ${allowed} are allowed.")
  if(reached GREATER allowed AND NOT UPDATE)
    message(SEND_ERROR "${work} takes more instructions than before. If that is intended, "
      "scripts/guard.sh --update writes the new ratios.")
  endif()
  string(APPEND table "${work} ${reference} ${reached}\n")
endforeach()
if(UPDATE)
  file(WRITE ${EXPECTED} "${table}")
endif()

# Formats every source file or, with CHECK, fails if one is not formatted.
#   cmake -D ROOT=<tree> -D CLANG_FORMAT=<program> [-D CHECK=ON] -P Format.cmake
cmake_minimum_required(VERSION 3.25)

if(NOT CLANG_FORMAT)
  message(FATAL_ERROR "clang-format was not found.")
endif()
execute_process(COMMAND ${CLANG_FORMAT} --version OUTPUT_VARIABLE version)
if(NOT version MATCHES "version 14\\.")
  # Other releases break some lines differently, so they can neither check nor keep the layout.
  message(WARNING "The layout needs clang-format 14, but this is ${version}: nothing was formatted.")
  return()
endif()

set(sources)
foreach(folder IN ITEMS include src tools bindings tests examples benchmarks)
  file(GLOB_RECURSE found ${ROOT}/${folder}/*.h ${ROOT}/${folder}/*.c ${ROOT}/${folder}/*.cpp ${ROOT}/${folder}/*.mjs)
  list(APPEND sources ${found})
endforeach()

if(CHECK)
  set(mode --dry-run -Werror)
else()
  set(mode -i)
endif()
execute_process(COMMAND ${CLANG_FORMAT} --style=file ${mode} ${sources}
  COMMAND_ERROR_IS_FATAL ANY)
list(LENGTH sources count)
message(STATUS "${count} sources are formatted.")

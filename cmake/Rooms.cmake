# Reads every include of the tree and fails on an arrow that is not drawn here.
#   cmake -D ROOT=<tree> -P Rooms.cmake
cmake_minimum_required(VERSION 3.25)

# Every room sees itself and include/TrelvonUnits, and beyond them only what stands here.
set(rooms model registry json text formula schema engine loading prepared)
set(registry_sees model)
set(json_sees rapidjson)
set(text_sees model)
set(formula_sees text model)
set(schema_sees json registry model)
set(engine_sees schema formula registry text model)
# The folders around the library. A file may reach for RapidJSON where it checks our use of it.
set(robustness_sees ${rooms} robustness tests)
set(tests_sees ${rooms} tests)
set(fuzz_sees ${rooms} tests)
set(benchmarks_sees ${rooms} rapidjson)
set(tests/json_sees ${rooms} tests rapidjson)

set(count 0)
foreach(room IN LISTS rooms ITEMS include examples tests tests/json fuzz robustness benchmarks)
  file(GLOB_RECURSE files RELATIVE ${ROOT} ${ROOT}/${room}/*.h ${ROOT}/${room}/*.cpp)
  if(room STREQUAL tests)
    list(FILTER files EXCLUDE REGEX ^tests/json/)
  endif()
  foreach(file IN LISTS files)
    math(EXPR count "${count} + 1")
    file(STRINGS ${ROOT}/${file} includes REGEX "^[ \t]*#[ \t]*include")
    foreach(include IN LISTS includes)
      # A name in quotes starts at the root; of the others only those of a room are ours to judge.
      string(REGEX MATCH "([<\"])([^/\">]*)" ignored "${include}")
      set(bracket "${CMAKE_MATCH_1}")
      set(seen "${CMAKE_MATCH_2}")
      if(NOT seen IN_LIST ${room}_sees AND NOT seen STREQUAL room AND NOT seen STREQUAL TrelvonUnits
         AND (bracket STREQUAL "\"" OR seen IN_LIST rooms OR seen STREQUAL rapidjson))
        message(SEND_ERROR "${file}: an arrow that is not drawn: ${include}")
      endif()
    endforeach()
  endforeach()
endforeach()
message(STATUS "Read the includes of ${count} files.")

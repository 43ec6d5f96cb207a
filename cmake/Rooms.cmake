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
set(tests_sees ${rooms} tests)
set(tests/unit/json_sees ${rooms} tests rapidjson)
set(benchmarks_sees ${rooms} benchmarks rapidjson)

set(folders include examples tests tests/unit/json benchmarks)
list(TRANSFORM rooms PREPEND src/ OUTPUT_VARIABLE room_folders)
set(count 0)
foreach(folder IN LISTS room_folders folders)
  file(GLOB_RECURSE files RELATIVE ${ROOT} ${ROOT}/${folder}/*.h ${ROOT}/${folder}/*.cpp)
  if(folder STREQUAL tests)
    list(FILTER files EXCLUDE REGEX ^tests/unit/json/)
  endif()
  string(REGEX REPLACE "^src/" "" room ${folder})
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

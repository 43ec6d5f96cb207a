# Reads every #include and fails on a dependency between modules that is not listed here.
#   cmake -D ROOT=<tree> -P Rooms.cmake
cmake_minimum_required(VERSION 3.25)

# Every module may include itself, include/TrelvonUnits and only these:
set(rooms model registry json text formula schema engine explaining reporting loading prepared naming display parameters)
set(registry_sees model)
set(json_sees rapidjson)
set(text_sees model)
set(formula_sees text model)
set(schema_sees json registry model)
set(engine_sees schema formula prepared registry text model)
set(explaining_sees engine formula registry text model)
set(reporting_sees loading schema json text model)
set(naming_sees json text model)
set(parameters_sees explaining engine formula registry model)
set(display_sees json text model)
# The folders around the library. Only those that check our use of RapidJSON may include it.
set(tests_sees ${rooms} tests tools)
set(tests/unit/json_sees ${rooms} tests rapidjson)
set(benchmarks_sees ${rooms} benchmarks rapidjson)
# Other languages use only the public headers.
set(bindings_sees bindings)
# An independent host, which reads its command line with CLI11.
set(tools_sees tools rapidjson CLI)

set(folders include examples tools bindings tests tests/unit/json benchmarks)
list(TRANSFORM rooms PREPEND src/ OUTPUT_VARIABLE room_folders)
set(count 0)
foreach(folder IN LISTS room_folders folders)
  file(GLOB_RECURSE files RELATIVE ${ROOT}
    ${ROOT}/${folder}/*.h ${ROOT}/${folder}/*.c ${ROOT}/${folder}/*.cpp)
  if(folder STREQUAL tests)
    list(FILTER files EXCLUDE REGEX ^tests/unit/json/)
  endif()
  string(REGEX REPLACE "^src/" "" room ${folder})
  foreach(file IN LISTS files)
    math(EXPR count "${count} + 1")
    file(STRINGS ${ROOT}/${file} includes REGEX "^[ \t]*#[ \t]*include")
    foreach(include IN LISTS includes)
      # Names in quotes start at the root. Of those in angle brackets, check only modules' names.
      string(REGEX MATCH "([<\"])([^/\">]*)" ignored "${include}")
      set(bracket "${CMAKE_MATCH_1}")
      set(seen "${CMAKE_MATCH_2}")
      if(NOT seen IN_LIST ${room}_sees AND NOT seen STREQUAL room AND NOT seen STREQUAL TrelvonUnits
         AND (bracket STREQUAL "\"" OR seen IN_LIST rooms OR seen STREQUAL rapidjson OR seen STREQUAL CLI))
        message(SEND_ERROR "${file}: forbidden include: ${include}")
      endif()
      # Languages other than C may use only the C interface.
      if(file MATCHES "^bindings/" AND NOT file MATCHES "^bindings/c/" AND seen STREQUAL TrelvonUnits
         AND NOT include MATCHES "<TrelvonUnits/trelvon[.]h>")
        message(SEND_ERROR "${file}: may include only trelvon.h, not ${include}")
      endif()
      # For each library that the program uses, only one file includes its header.
      if((seen STREQUAL CLI AND NOT file STREQUAL tools/trelvon/Arguments.cpp) OR
         (seen STREQUAL histedit.h AND NOT file STREQUAL tools/trelvon/prompt/LineEditor.cpp))
        message(SEND_ERROR "${file}: must not include ${include}")
      endif()
    endforeach()
  endforeach()
endforeach()
message(STATUS "Read the includes of ${count} files.")

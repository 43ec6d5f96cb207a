# The test `guard` counts instructions instead of measuring time. The expected ratios are those of
# an optimized build with g++; other builds would fail it.
find_path(TRELVONUNITS_VALGRIND_DIR valgrind/callgrind.h DOC "Folder that holds valgrind/callgrind.h")
find_program(TRELVONUNITS_VALGRIND valgrind)
mark_as_advanced(TRELVONUNITS_VALGRIND_DIR TRELVONUNITS_VALGRIND)
if(NOT CMAKE_BUILD_TYPE STREQUAL "Release" OR NOT CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  return()
endif()

if(TRELVONUNITS_VALGRIND_DIR AND TRELVONUNITS_VALGRIND)
  add_host(guard Guard.cpp peers/BareConversion.cpp peers/Pairs.cpp)
  target_include_directories(guard SYSTEM PRIVATE ${TRELVONUNITS_VALGRIND_DIR})
  set(command ${CMAKE_COMMAND}
    -D VALGRIND=${TRELVONUNITS_VALGRIND} -D PROGRAM=$<TARGET_FILE:guard>
    -D FOLDER=${PROJECT_BINARY_DIR}/guard -D EXPECTED=${PROJECT_SOURCE_DIR}/benchmarks/guard.txt
    -P ${PROJECT_SOURCE_DIR}/cmake/Guard.cmake)
else()
  set(command ${CMAKE_COMMAND} -E echo "skipped: valgrind is not installed")
endif()
if(TRELVONUNITS_TESTS)
  add_test(NAME guard COMMAND ${command})
  set_tests_properties(guard PROPERTIES
    LABELS guard TIMEOUT 120 SKIP_REGULAR_EXPRESSION "skipped: ")
endif()

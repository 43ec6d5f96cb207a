# The layout is that of release 14, so prefer its own name.
find_program(TRELVONUNITS_CLANG_FORMAT NAMES clang-format-14 clang-format)
mark_as_advanced(TRELVONUNITS_CLANG_FORMAT)

set(format ${CMAKE_COMMAND} -D ROOT=${PROJECT_SOURCE_DIR}
  -D CLANG_FORMAT=${TRELVONUNITS_CLANG_FORMAT})
add_custom_target(format
  COMMAND ${format} -P ${PROJECT_SOURCE_DIR}/cmake/Format.cmake VERBATIM)
add_custom_target(format-check
  COMMAND ${format} -D CHECK=ON -P ${PROJECT_SOURCE_DIR}/cmake/Format.cmake VERBATIM)

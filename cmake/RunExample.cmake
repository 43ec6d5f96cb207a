# Runs an example and fails if it fails or if its output differs from the expected output.
#   cmake -D PROGRAM=<file> -D SCHEMAS=<folder> -D EXPECTED=<file> -P RunExample.cmake
execute_process(COMMAND ${PROGRAM} ${SCHEMAS}
  OUTPUT_VARIABLE printed COMMAND_ERROR_IS_FATAL ANY)
file(READ ${EXPECTED} expected)
if(NOT printed STREQUAL expected)
  message(FATAL_ERROR "Printed:\n${printed}\nExpected (${EXPECTED}):\n${expected}")
endif()

# Builds and runs the host with what pkg-config says, and no CMake package.
#   cmake -D COMPILER=<c++> -D LIBDIR=<folder> -D HOST=<source> -D PROGRAM=<file> -P PkgConfig.cmake
find_program(pkg_config NAMES pkg-config pkgconf REQUIRED)
set(ENV{PKG_CONFIG_PATH} ${LIBDIR}/pkgconfig)
foreach(what IN ITEMS --cflags --libs --variable=schemasdir)
  execute_process(COMMAND ${pkg_config} ${what} TrelvonUnits
    OUTPUT_VARIABLE ${what} OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  separate_arguments(${what} UNIX_COMMAND "${${what}}")
endforeach()
execute_process(COMMAND ${COMPILER} -std=c++17 ${--cflags}
  -D "SCHEMAS_DIR=\"${--variable=schemasdir}\"" ${HOST} -o ${PROGRAM}
  ${--libs} -Wl,-rpath,${LIBDIR} COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${PROGRAM} COMMAND_ERROR_IS_FATAL ANY)

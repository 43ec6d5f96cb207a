# Builds and runs the host with what pkg-config says, and no CMake package.
#   cmake -D COMPILER=<c++> -D LIBDIR=<folder> -D HOST=<source> -D PROGRAM=<file> -P PkgConfig.cmake
find_program(pkg_config NAMES pkg-config pkgconf REQUIRED)
set(ENV{PKG_CONFIG_PATH} ${LIBDIR}/pkgconfig)
function(ask question answer)
  execute_process(COMMAND ${pkg_config} ${question} TrelvonUnits
    OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  separate_arguments(flags UNIX_COMMAND "${flags}")
  set(${answer} ${flags} PARENT_SCOPE)
endfunction()
ask(--cflags cflags)
ask(--libs libs)
ask(--variable=schemasdir schemas_dir)
execute_process(COMMAND ${COMPILER} -std=c++17 -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror
  -I${CMAKE_CURRENT_LIST_DIR}/../.. ${cflags} ${HOST} -o ${PROGRAM} ${libs} -Wl,-rpath,${LIBDIR} COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${PROGRAM} ${schemas_dir} COMMAND_ERROR_IS_FATAL ANY)

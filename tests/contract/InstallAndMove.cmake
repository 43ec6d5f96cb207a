# Installs the build, then moves the whole: whoever uses it there shows that it can move.
#   cmake -D BUILD=<build> -D INSTALLED=<folder> -P InstallAndMove.cmake
file(REMOVE_RECURSE ${INSTALLED} ${INSTALLED}.before)
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${INSTALLED}.before
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(RENAME ${INSTALLED}.before ${INSTALLED})

# Debian's g++-s390x-linux-gnu.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR s390x)
set(CMAKE_CXX_COMPILER s390x-linux-gnu-g++)

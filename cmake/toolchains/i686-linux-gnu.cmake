# Debian's g++-i686-linux-gnu.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_CXX_COMPILER i686-linux-gnu-g++)
# Without these flags, doubles are evaluated in x87 registers, at higher precision.
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse")

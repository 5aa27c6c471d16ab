# Cross-compiles for 32-bit Windows with Debian's MinGW-w64 (posix thread model). The device is a
# 32-bit system: this build shows pointer-width and structure-size mistakes at compile time. Its
# programs are not run (the tests run on the 64-bit build).
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(QL_TRIPLE i686-w64-mingw32)

find_program(CMAKE_C_COMPILER NAMES ${QL_TRIPLE}-gcc-posix ${QL_TRIPLE}-gcc REQUIRED)
find_program(CMAKE_CXX_COMPILER NAMES ${QL_TRIPLE}-g++-posix ${QL_TRIPLE}-g++ REQUIRED)
find_program(CMAKE_RC_COMPILER NAMES ${QL_TRIPLE}-windres REQUIRED)

set(CMAKE_FIND_ROOT_PATH /usr/${QL_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)

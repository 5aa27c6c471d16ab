# Cross-compiles for 64-bit Windows with Debian's MinGW-w64 (posix thread model).
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(QL_TRIPLE x86_64-w64-mingw32)

find_program(CMAKE_C_COMPILER NAMES ${QL_TRIPLE}-gcc-posix ${QL_TRIPLE}-gcc REQUIRED)
find_program(CMAKE_CXX_COMPILER NAMES ${QL_TRIPLE}-g++-posix ${QL_TRIPLE}-g++ REQUIRED)
find_program(CMAKE_RC_COMPILER NAMES ${QL_TRIPLE}-windres REQUIRED)

set(CMAKE_FIND_ROOT_PATH /usr/${QL_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)

# Every executable is started through Wine; the wrapper picks the prefix and display.
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../scripts/wine-exec.sh)

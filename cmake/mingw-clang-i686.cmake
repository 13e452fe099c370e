# Cross compiler: Clang for 32-bit Windows. Wine here runs 64-bit programs alone, so what it builds is not run.
set(machine i686)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-clang.cmake)
unset(CMAKE_CROSSCOMPILING_EMULATOR)

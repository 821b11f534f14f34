# Cross build of 64-bit Windows binaries from the same sources: used to run
# the tests where a machine runs no 32-bit programs.
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(triple x86_64-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)

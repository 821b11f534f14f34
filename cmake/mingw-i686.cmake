# Cross build of the shipped 32-bit Windows binaries.
set(CMAKE_SYSTEM_PROCESSOR i686)
set(triple i686-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)

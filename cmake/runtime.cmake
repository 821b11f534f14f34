# The compiler's runtime DLLs, copied once into the binaries' folder.
foreach(dll libgcc_s_dw2-1.dll libstdc++-6.dll libwinpthread-1.dll)
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${dll}
                  OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(NOT IS_ABSOLUTE "${path}" OR NOT EXISTS "${path}")
    file(GLOB path /usr/lib/gcc/i686-w64-mingw32/*-posix/${dll}
         /usr/i686-w64-mingw32/lib/${dll})
    list(GET path 0 path)
  endif()
  if(NOT EXISTS "${path}")
    message(FATAL_ERROR "compiler runtime ${dll} not found")
  endif()
  file(COPY ${path} DESTINATION ${VRK_BIN})
endforeach()

# Libraries of the Win32 API that the modules use.
set(VRK_WIN32_LIBS user32 gdi32 comdlg32 comctl32 shell32 shlwapi ole32 oleaut32 uuid
    advapi32 version winspool)

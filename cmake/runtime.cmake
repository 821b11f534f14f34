# The compiler's runtime DLLs, copied once into the binaries' folder. The
# 32-bit gcc unwinds with DWARF-2, the 64-bit one with SEH.
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
  set(vrk_libgcc libgcc_s_seh-1.dll)
else()
  set(vrk_libgcc libgcc_s_dw2-1.dll)
endif()
foreach(dll ${vrk_libgcc} libstdc++-6.dll libwinpthread-1.dll)
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${dll}
                  OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(NOT IS_ABSOLUTE "${path}" OR NOT EXISTS "${path}")
    file(GLOB path /usr/lib/gcc/${triple}/*-posix/${dll}
         /usr/${triple}/lib/${dll})
    list(GET path 0 path)
  endif()
  if(NOT EXISTS "${path}")
    message(FATAL_ERROR "compiler runtime ${dll} not found")
  endif()
  file(COPY ${path} DESTINATION ${VRK_BIN})
  install(FILES ${path} DESTINATION bin)
endforeach()

# Libraries of the Win32 API that the modules use.
set(VRK_WIN32_LIBS user32 gdi32 comdlg32 comctl32 shell32 shlwapi ole32 oleaut32 uuid
    advapi32 version winspool)

# Fixtures of the frame's tests (included from vrk/CMakeLists.txt, so that
# they are built with VRK.dll).
#
# A German resource module, vrk_DEU.dll, and a small "anchor" module are put
# in bin/lang, a folder that is not on the search path of the test programs
# in bin/: vrk_DEU is found there only through the folder of the module that
# supplies the application's resources (a test points that at the anchor).
set(frame_fixture_dir ${CMAKE_SOURCE_DIR}/tests/vrk/frame/fixture)
add_library(vrk_deu SHARED ${frame_fixture_dir}/vrk_deu.cpp ${frame_fixture_dir}/vrk_deu.rc)
set_target_properties(vrk_deu PROPERTIES OUTPUT_NAME vrk_DEU RUNTIME_OUTPUT_DIRECTORY ${VRK_BIN}/lang)
target_include_directories(vrk_deu PRIVATE ${CMAKE_SOURCE_DIR}/vrk/resources_enu)
target_link_libraries(vrk_deu PRIVATE afx)

# Any module serves as the anchor that holds no strings: this one carries the
# load host's version resource only, and the C runtime's entry point.
add_library(vrk_langanchor SHARED ${frame_fixture_dir}/loadhost.rc)
set_target_properties(vrk_langanchor PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${VRK_BIN}/lang
                                                LINKER_LANGUAGE CXX)

# A host that loads VRK.dll at run time, so that a test can set the registry
# (and the resource handle) first and watch the start-up in a fresh process.
# VRK.dll comes in through the probe module, which imports it and reports
# what the host needs. The host carries a version resource with known file
# version words.
add_library(vrk_frame_probe SHARED ${frame_fixture_dir}/loadprobe.cpp)
target_link_libraries(vrk_frame_probe PRIVATE vrk afx)
add_executable(vrk_frame_loadhost ${frame_fixture_dir}/loadhost.cpp ${frame_fixture_dir}/loadhost.rc
                                  ${CMAKE_SOURCE_DIR}/tests/support/msgbox_catcher.cpp
                                  ${CMAKE_SOURCE_DIR}/tests/support/temp_dir.cpp)
target_include_directories(vrk_frame_loadhost PRIVATE ${CMAKE_SOURCE_DIR}/vrk/include
                           ${CMAKE_SOURCE_DIR}/vrk/resources_enu ${CMAKE_SOURCE_DIR}/tests/support)
target_link_libraries(vrk_frame_loadhost PRIVATE afx)
add_dependencies(vrk_frame_loadhost vrk_frame_probe vrk_enu vrk_deu vrk_langanchor)

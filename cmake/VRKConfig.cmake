# The package configuration of an installed VRK: imported targets VRK::afx
# (the MFC-compatible runtime, afx.dll) and VRK::vrk (VRK.dll). The DLLs,
# with vrk_enu.dll and the compiler's runtime, are in the tree's bin/ folder:
# copy them beside the host's executable.
include(${CMAKE_CURRENT_LIST_DIR}/VRKTargets.cmake)
get_filename_component(VRK_BIN_DIR ${CMAKE_CURRENT_LIST_DIR}/../../../bin ABSOLUTE)

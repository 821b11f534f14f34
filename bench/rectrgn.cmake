# The region bench times VRK.dll's VRectRgn: include this file from
# bench/CMakeLists.txt after the bench targets are made.
if(TARGET bench_rectrgn AND TARGET vrk)
  target_link_libraries(bench_rectrgn PRIVATE vrk)
  target_compile_definitions(bench_rectrgn PRIVATE BENCH_RECTRGN_WITH_VRK)
endif()

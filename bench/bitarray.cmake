# The bit-array bench times VRK.dll's VBitArray: include this file from
# bench/CMakeLists.txt after the bench targets are made.
if(TARGET bench_bitarray AND TARGET vrk)
  target_link_libraries(bench_bitarray PRIVATE vrk)
  target_compile_definitions(bench_bitarray PRIVATE BENCH_BITARRAY_WITH_VRK)
endif()

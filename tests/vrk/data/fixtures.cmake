# Fixtures of the data tests: binaries with version resources of known values
# (a DLL with two translations) and a DLL without one, built beside the test
# programs.
set(data_fixture_dir ${CMAKE_SOURCE_DIR}/tests/vrk/data/fixture)
add_library(vrk_data_verdll SHARED ${data_fixture_dir}/verdll.cpp ${data_fixture_dir}/verdll.rc)
add_library(vrk_data_noverdll SHARED ${data_fixture_dir}/noverdll.cpp)
if(TARGET vrk_data_version)
  add_dependencies(vrk_data_version vrk_data_verdll vrk_data_noverdll)
endif()

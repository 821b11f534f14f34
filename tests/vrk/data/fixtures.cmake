# Fixtures of the data tests: binaries with version resources of known values
# (a DLL with two translations, an executable) and a DLL without one, built
# beside the test programs.
set(data_fixture_dir ${CMAKE_SOURCE_DIR}/tests/vrk/data/fixture)
add_library(vrk_data_verdll SHARED ${data_fixture_dir}/verdll.cpp ${data_fixture_dir}/verdll.rc)
add_library(vrk_data_noverdll SHARED ${data_fixture_dir}/noverdll.cpp)
add_executable(vrk_data_verexe ${data_fixture_dir}/verexe.cpp ${data_fixture_dir}/verexe.rc)
if(TARGET vrk_data_version)
  add_dependencies(vrk_data_version vrk_data_verdll vrk_data_noverdll vrk_data_verexe)
endif()

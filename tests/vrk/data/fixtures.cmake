# Fixture of the data tests: a DLL with a version resource of known values in
# two translations, built beside the test programs.
set(data_fixture_dir ${CMAKE_SOURCE_DIR}/tests/vrk/data/fixture)
add_library(vrk_data_verdll SHARED ${data_fixture_dir}/verdll.cpp ${data_fixture_dir}/verdll.rc)
if(TARGET vrk_data_version)
  add_dependencies(vrk_data_version vrk_data_verdll)
endif()

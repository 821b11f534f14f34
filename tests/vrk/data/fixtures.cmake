# Fixture of the data tests: a DLL with a version resource of known values in
# two translations, built beside the test programs.
set(data_fixture_dir ${CMAKE_SOURCE_DIR}/tests/vrk/data/fixture)
# Resources only: the C runtime supplies the DLL's entry point.
add_library(vrk_data_verdll SHARED ${data_fixture_dir}/verdll.rc)
set_target_properties(vrk_data_verdll PROPERTIES LINKER_LANGUAGE CXX)
if(TARGET vrk_data_version)
  add_dependencies(vrk_data_version vrk_data_verdll)
endif()

# Starting a Windows program under Wine costs most of a second, so CTest runs one process for each
# suite. The suites are read from the sources; CMake runs again when a test file changes.
function(rowlark_windows_tests kind)
  file(GLOB sources CONFIGURE_DEPENDS ${kind}/*.cpp)
  file(GLOB helpers CONFIGURE_DEPENDS ${kind}/support/*.cpp)
  add_executable(rowlark_${kind}_tests ${sources} ${helpers})
  rowlark_options(rowlark_${kind}_tests)
  target_link_libraries(rowlark_${kind}_tests PRIVATE
    rowlark_test_support ${ARGN} GTest::gtest_main)
  rowlark_windows_link(rowlark_${kind}_tests)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${sources})
  set(suites)
  foreach(source ${sources})
    file(STRINGS ${source} lines REGEX "^TEST(_F|_P)?\\(")
    foreach(line ${lines})
      string(REGEX REPLACE "^TEST(_F|_P)?\\(([A-Za-z0-9_]+).*" "\\2" suite ${line})
      list(APPEND suites ${suite})
    endforeach()
  endforeach()
  list(REMOVE_DUPLICATES suites)
  foreach(suite ${suites})
    add_test(NAME ${kind}.${suite}
      COMMAND rowlark_${kind}_tests "--gtest_filter=${suite}.*:*/${suite}.*")
    # One display, one keyboard focus: suites with windows run one after the other.
    set_tests_properties(${kind}.${suite} PROPERTIES TIMEOUT 300 RESOURCE_LOCK display)
  endforeach()
endfunction()

# tev_add_gtest(name LABEL label SOURCES ... [GUI]): a GoogleTest executable linked to the
# product library. Its tests are listed when CTest runs them (GUI suites need the display that
# the test script provides). GUI suites get a main() with a QApplication.
function(tev_add_gtest name)
  cmake_parse_arguments(ARG "GUI" "LABEL" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE TevBasicViewer GTest::gtest ${ARG_LIBS})
  if(ARG_GUI)
    target_link_libraries(${name} PRIVATE tev_gui_test_support)
    tev_vtk_autoinit(${name})
  else()
    target_link_libraries(${name} PRIVATE GTest::gtest_main)
  endif()
  if(NOT ARG_LABEL)
    set(ARG_LABEL fe)
  endif()
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
                       PROPERTIES LABELS "${ARG_LABEL}" TIMEOUT 300)
endfunction()

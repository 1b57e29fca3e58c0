# tev_add_gtest(name SOURCES ... [GUI]): a GoogleTest executable linked to the product library,
# its tests discovered when CTest runs (GUI suites need the display that the test script provides).
function(tev_add_gtest name)
  cmake_parse_arguments(ARG "GUI" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE TevBasicViewer GTest::gtest ${ARG_LIBS})
  if(NOT ARG_GUI)
    target_link_libraries(${name} PRIVATE GTest::gtest_main)
  endif()
  set(labels fe)
  if(ARG_GUI)
    set(labels gui)
  endif()
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
                       PROPERTIES LABELS "${labels}" TIMEOUT 300)
endfunction()

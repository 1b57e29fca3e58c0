# tev_fe_library(name SOURCES ...): an object library of the finite element half. It may depend
# only on other finite element targets: Qt, VTK and OpenCASCADE are refused at generate time.
function(tev_fe_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
  add_library(${name} OBJECT ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
  foreach(dep IN LISTS ARG_DEPENDS)
    if(NOT dep MATCHES "^tev_fe_")
      message(FATAL_ERROR "${name}: the finite element half may not depend on ${dep}")
    endif()
  endforeach()
  target_link_libraries(${name} PUBLIC ${ARG_DEPENDS})
endfunction()

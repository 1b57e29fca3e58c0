# Installs the library from BUILD_DIR into a fresh prefix under WORK_DIR, configures and builds
# the host in HOST_SOURCE against that prefix alone, and runs the built host with --help, which
# loads every library it links. Any failing step fails the test with that step's output.
foreach(var BUILD_DIR WORK_DIR HOST_SOURCE)
  if(NOT DEFINED ${var})
    message(FATAL_ERROR "HostAgainstInstall: ${var} not given")
  endif()
endforeach()

set(prefix "${WORK_DIR}/prefix")
set(host_build "${WORK_DIR}/host")
file(REMOVE_RECURSE "${prefix}")

function(run_step name)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "${name} failed (${rc}):\n${out}\n${err}")
  endif()
  message(STATUS "${name}: done")
  set(step_output "${out}" PARENT_SCOPE)
endfunction()

run_step("install" ${CMAKE_COMMAND} --install "${BUILD_DIR}" --prefix "${prefix}")
foreach(file lib/cmake/TevBasicViewer/TevBasicViewerConfig.cmake include/TevBasicViewer/TevBasicViewer.h
             include/TevBasicViewer/vis_Connect.h lib/libTevBasicViewer.so lib/libTKIVtk.so)
  if(NOT EXISTS "${prefix}/${file}")
    message(FATAL_ERROR "install: ${file} missing from the prefix")
  endif()
endforeach()

set(launcher "")
find_program(CCACHE ccache)
if(CCACHE)
  set(launcher -DCMAKE_CXX_COMPILER_LAUNCHER=${CCACHE})
endif()
# Only the fresh prefix: the build tree must not be where the package is found.
run_step("configure host" ${CMAKE_COMMAND} -S "${HOST_SOURCE}" -B "${host_build}"
         -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_FIND_PACKAGE_NO_PACKAGE_REGISTRY=ON ${launcher})
run_step("build host" ${CMAKE_COMMAND} --build "${host_build}" -j 2)
run_step("run host" "${host_build}/tev_demo_host" --help)
if(NOT step_output MATCHES "tev_demo_host")
  message(FATAL_ERROR "run host: no usage text in:\n${step_output}")
endif()

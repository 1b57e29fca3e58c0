# Installation of the product as a CMake package: the library, the public headers of every
# subsystem in one folder, OCCT's VTK bridge beside the library (no system package has it), and
# the package config that a host finds with find_package(TevBasicViewer).
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(TEV_PACKAGE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/TevBasicViewer")
set(TEV_HEADER_DIRS fe/base fe/elem fe/connect fe/model fe/writers)
if(TEV_WITH_VIEWER)
  list(APPEND TEV_HEADER_DIRS siblings drawops snap viewer)
endif()

set(tev_public_headers "")
foreach(dir IN LISTS TEV_HEADER_DIRS)
  file(GLOB headers CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${dir}/*.h")
  # Headers named ...Internal.h are shared between the sources of one subsystem only.
  list(FILTER headers EXCLUDE REGEX "Internal\\.h$")
  list(APPEND tev_public_headers ${headers})
endforeach()

# The installed library finds the bridge installed beside it.
set_target_properties(TevBasicViewer PROPERTIES INSTALL_RPATH "$ORIGIN")
install(TARGETS TevBasicViewer LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(FILES ${tev_public_headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/TevBasicViewer)
if(TEV_WITH_VIEWER)
  install(FILES "${TEV_TKIVTK_LIBRARY}" DESTINATION ${CMAKE_INSTALL_LIBDIR})
  install(DIRECTORY "${TEV_IVTK_PREFIX}/include/opencascade-ivtk/"
          DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/TevBasicViewer/ivtk)
endif()

configure_package_config_file(cmake/TevBasicViewerConfig.cmake.in
  "${PROJECT_BINARY_DIR}/TevBasicViewerConfig.cmake" INSTALL_DESTINATION ${TEV_PACKAGE_DIR})
write_basic_package_version_file("${PROJECT_BINARY_DIR}/TevBasicViewerConfigVersion.cmake"
  COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/TevBasicViewerConfig.cmake"
              "${PROJECT_BINARY_DIR}/TevBasicViewerConfigVersion.cmake"
        DESTINATION ${TEV_PACKAGE_DIR})

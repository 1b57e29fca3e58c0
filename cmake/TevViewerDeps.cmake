# Qt 5, VTK 9 with its Qt module, OpenCASCADE and the VTK bridge built by scripts/build-ivtk.sh.
set(CMAKE_AUTOMOC ON)
find_package(Qt5 REQUIRED COMPONENTS Core Gui Widgets OpenGL Test)
# Debian's VTK config refers to MPI::MPI_C.
find_package(MPI COMPONENTS C)
set(TEV_VTK_COMPONENTS CommonCore CommonDataModel CommonExecutionModel CommonMath
  CommonTransforms FiltersCore FiltersGeneral FiltersSources GUISupportQt IOImage
  InteractionStyle InteractionWidgets RenderingAnnotation RenderingCore RenderingFreeType
  RenderingOpenGL2 RenderingUI)
find_package(VTK REQUIRED COMPONENTS ${TEV_VTK_COMPONENTS})
find_package(OpenCASCADE REQUIRED)

set(TEV_IVTK_PREFIX "${CMAKE_SOURCE_DIR}/.deps/occt-ivtk" CACHE PATH "Prefix of the built TKIVtk")
find_library(TEV_TKIVTK_LIBRARY TKIVtk PATHS "${TEV_IVTK_PREFIX}/lib" NO_DEFAULT_PATH)
if(NOT TEV_TKIVTK_LIBRARY)
  message(FATAL_ERROR "TKIVtk not found in ${TEV_IVTK_PREFIX}: run scripts/install-deps.sh")
endif()
add_library(TKIVtk SHARED IMPORTED)
set_target_properties(TKIVtk PROPERTIES IMPORTED_LOCATION "${TEV_TKIVTK_LIBRARY}"
  INTERFACE_INCLUDE_DIRECTORIES "${TEV_IVTK_PREFIX}/include/opencascade-ivtk;${OpenCASCADE_INCLUDE_DIR}")

# Everything the viewer half links: one interface target.
add_library(tev_viewer_deps INTERFACE)
# The installed package config (cmake/TevBasicViewerConfig.cmake.in) links the same lists.
set(TEV_OCCT_TOOLKITS TKernel TKMath TKG2d TKG3d TKGeomBase TKGeomAlgo TKBRep TKTopAlgo TKPrim
  TKBO TKBool TKFillet TKOffset TKShHealing TKMesh TKService TKV3d TKLCAF TKCAF TKXCAF TKCDF
  TKBin TKBinL TKBinXCAF TKXml TKXmlL TKXmlXCAF)
target_link_libraries(tev_viewer_deps INTERFACE Qt5::Widgets Qt5::OpenGL ${VTK_LIBRARIES}
  TKIVtk ${TEV_OCCT_TOOLKITS})
# OCCT's headers include system headers that -Wextra complains about.
target_include_directories(tev_viewer_deps SYSTEM INTERFACE ${OpenCASCADE_INCLUDE_DIR})

# Every target that creates VTK rendering objects needs the module factories registered.
function(tev_vtk_autoinit target)
  vtk_module_autoinit(TARGETS ${target} MODULES ${VTK_LIBRARIES})
endfunction()

# tev_viewer_library(name SOURCES ...): an object library of the viewer half.
function(tev_viewer_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES" ${ARGN})
  add_library(${name} OBJECT ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${name} PUBLIC tev_viewer_deps)
  tev_vtk_autoinit(${name})
endfunction()

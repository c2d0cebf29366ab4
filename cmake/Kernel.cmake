# The library around the geometry kernel, which the simulated host loads when it first writes or
# reads an exchange file. Without the kernel's headers it is left out, and such files hold no shape.
find_path(VX_KERNEL_HEADERS Standard_Failure.hxx PATH_SUFFIXES opencascade)
if(NOT VX_KERNEL_HEADERS)
    message(STATUS "No geometry kernel: exchange files of the simulated host will hold no shapes")
    return()
endif()
file(GLOB sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/simhost/kernel/occ/*.cpp")
add_library(simhost_kernel MODULE ${sources})
target_include_directories(simhost_kernel SYSTEM PRIVATE ${VX_KERNEL_HEADERS})
target_link_libraries(simhost_kernel PRIVATE simhost vx_warnings TKXDESTEP TKXDEIGES TKSTEP
    TKSTEPAttr TKSTEP209 TKSTEPBase TKIGES TKXSBase TKXCAF TKLCAF TKCAF TKCDF TKBO TKBool TKPrim
    TKShHealing TKMesh TKTopAlgo TKGeomAlgo TKBRep TKGeomBase TKG3d TKG2d TKMath TKernel)
# Nobody steps through it, and large files are measured in seconds.
target_compile_options(simhost_kernel PRIVATE $<$<NOT:$<BOOL:${VX_SANITIZE}>>:-O2>)
set_target_properties(simhost_kernel PROPERTIES
    LIBRARY_OUTPUT_DIRECTORY $<TARGET_FILE_DIR:simhost>)
add_dependencies(simhost_app simhost_kernel)

# The module against the real host: the vendor's headers and libraries in the place of ours.
if(NOT WIN32)
    message(FATAL_ERROR "VX_HOST_SDK needs a compiler for Windows, best the one that the kit names")
endif()
include(cmake/HostDefines.cmake)
target_compile_definitions(plugin_objects PUBLIC VX_HOST_SDK ${VX_HOST_DEFINES})
target_include_directories(plugin_objects SYSTEM PUBLIC "${VX_HOST_SDK}/includes")
# In one place with every generator.
set_target_properties(vorlatix PROPERTIES LIBRARY_OUTPUT_DIRECTORY "$<1:${PROJECT_BINARY_DIR}>"
                                          RUNTIME_OUTPUT_DIRECTORY "$<1:${PROJECT_BINARY_DIR}>")
target_link_libraries(vorlatix PRIVATE
    "${VX_HOST_SDK}/x86e_win64/obj/protk_dllmd_NU.lib"
    "${VX_HOST_SDK}/x86e_win64/obj/ucore.lib"
    "${VX_HOST_SDK}/x86e_win64/obj/udata.lib"
    advapi32 comdlg32 gdi32 mpr netapi32 ole32 psapi shell32 user32 winspool ws2_32)

# The module against the real host: the vendor's headers and libraries in the place of ours.
if(NOT WIN32)
    message(FATAL_ERROR "VX_HOST_SDK needs a compiler for Windows, best the one that the kit names")
endif()
target_compile_definitions(plugin_objects PUBLIC VX_HOST_SDK PRO_USE_VAR_ARGS)
target_include_directories(plugin_objects SYSTEM PUBLIC "${VX_HOST_SDK}/includes")
target_link_libraries(vorlatix PRIVATE
    "${VX_HOST_SDK}/x86e_win64/obj/protk_dllmd_NU.lib"
    "${VX_HOST_SDK}/x86e_win64/obj/ucore.lib"
    "${VX_HOST_SDK}/x86e_win64/obj/udata.lib"
    advapi32 comdlg32 gdi32 mpr netapi32 ole32 psapi shell32 user32 winspool ws2_32)

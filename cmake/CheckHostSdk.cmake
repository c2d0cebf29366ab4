# Whether VX_HOST_SDK names a folder of the host vendor's kit.
if(NOT VX_HOST_SDK)
    return()
endif()
foreach(needed includes/ProToolkit.h x86e_win64/obj/protk_dllmd_NU.lib x86e_win64/obj/ucore.lib
               x86e_win64/obj/udata.lib)
    if(NOT EXISTS "${VX_HOST_SDK}/${needed}")
        message(FATAL_ERROR
            "VX_HOST_SDK: there is no ${needed} in ${VX_HOST_SDK}\n"
            "Name the folder of the vendor's kit that holds includes/ and x86e_win64/obj/; "
            "docs/host-operations.md says what is expected of it.")
    endif()
endforeach()

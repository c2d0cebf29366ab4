# Whether VX_HOST_SDK names a folder of the vendor's kit that has the headers we include.
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

# All missing headers at once: kits differ in what they call them.
set(vx_vendor_header ${CMAKE_CURRENT_LIST_DIR}/../hostapi/vendor.h)
file(STRINGS ${vx_vendor_header} vx_includes REGEX "^#include <.*>")
set(vx_missing)
foreach(line IN LISTS vx_includes)
    string(REGEX REPLACE "^#include <(.*)>.*" "\\1" name "${line}")
    if(NOT EXISTS "${VX_HOST_SDK}/includes/${name}")
        list(APPEND vx_missing ${name})
    endif()
endforeach()
if(vx_missing)
    list(JOIN vx_missing ", " vx_missing)
    message(FATAL_ERROR
        "VX_HOST_SDK: the kit in ${VX_HOST_SDK} has no ${vx_missing}\n"
        "Put the names that it has into hostapi/vendor.h; docs/host-operations.md says what each "
        "operation needs.")
endif()

# The warnings that every target of ours is built with; all of them are errors. With a vendor's kit
# on Windows they are not: that compiler has never seen our sources, and nobody has to wait for us.
add_library(vx_warnings INTERFACE)
if(MSVC)
    target_compile_options(vx_warnings INTERFACE /utf-8 /W4 /permissive-)
    if(NOT VX_HOST_SDK)
        target_compile_options(vx_warnings INTERFACE /WX)
    endif()
else()
    target_compile_options(vx_warnings INTERFACE
        -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Werror)
endif()

if(VX_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

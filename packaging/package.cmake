# Makes the package as it is unpacked beside an installation of the host: the module and everything
# that it looks for beside itself, the host's registry file, and a short text on how to install it.
#
#   cmake -DMODULE=FILE -DFOLDER=DIST [-DGUIDE=HTML] -P packaging/package.cmake
#
# Writes DIST/vorlatix-5.1/, or DIST/vorlatix-5.1-simulated-host/ for a module that is bound to the
# simulated host. HTML is the folder of the user's guide, made by ./vx guide; without it the package
# has none. CMake is all that it needs, so that it runs wherever the module is built.
cmake_minimum_required(VERSION 3.25)

get_filename_component(root "${CMAKE_CURRENT_LIST_DIR}/.." ABSOLUTE)
if(NOT MODULE OR NOT FOLDER)
    message(FATAL_ERROR "package: "
        "cmake -DMODULE=FILE -DFOLDER=DIST [-DGUIDE=HTML] -P packaging/package.cmake")
endif()
get_filename_component(MODULE "${MODULE}" ABSOLUTE)
get_filename_component(FOLDER "${FOLDER}" ABSOLUTE)
if(NOT EXISTS "${MODULE}")
    message(FATAL_ERROR "package: there is no module ${MODULE}: build it first (docs/windows.md)")
endif()

# A module names the libraries that it calls.
file(STRINGS "${MODULE}" simulated REGEX "simhost\\.dll" LIMIT_COUNT 1)
set(name "vorlatix-5.1")
set(FOR_SIMULATED_HOST "")
if(simulated)
    string(APPEND name "-simulated-host")
    file(READ "${CMAKE_CURRENT_LIST_DIR}/模拟主机.txt" FOR_SIMULATED_HOST)
    # What replaces a word keeps its own line ends.
    string(REGEX REPLACE "\r?\n" "\r\n" FOR_SIMULATED_HOST "${FOR_SIMULATED_HOST}")
endif()

set(package "${FOLDER}/${name}")
file(REMOVE_RECURSE "${package}")
configure_file("${MODULE}" "${package}/vorlatix5.1.dll" COPYONLY)

# Settings and palettes, texts and dialogs. The drawing template in tp/, the group in vxudf/ and the
# profile of PDF files are files of the simulated host, and no other could read them.
set(folders VXconfig text)
if(simulated)
    list(APPEND folders tp vxudf)
endif()
foreach(each IN LISTS folders)
    file(GLOB_RECURSE files RELATIVE "${root}" "${root}/${each}/*")
    if(NOT simulated)
        list(FILTER files EXCLUDE REGEX "\\.dop$")
    endif()
    if(NOT files)
        message("package: ${each}/ is still empty and left out")
    endif()
    foreach(file IN LISTS files)
        configure_file("${root}/${file}" "${package}/${file}" COPYONLY)
    endforeach()
endforeach()

set(FOR_GUIDE "")
if(GUIDE)
    get_filename_component(GUIDE "${GUIDE}" ABSOLUTE)
    if(NOT EXISTS "${GUIDE}/index.html")
        message(FATAL_ERROR "package: there is no guide in ${GUIDE}: make it first (./vx guide)")
    endif()
    file(COPY "${GUIDE}/" DESTINATION "${package}/使用指南")
    set(FOR_GUIDE "\r\n使用方法：用浏览器打开 使用指南\\index.html，每个命令一页。\r\n")
else()
    message("package: without the user's guide; take it along with -DGUIDE=HTML (./vx guide)")
endif()

# People open these with Notepad.
foreach(each protk.dat 安装说明.txt)
    configure_file("${CMAKE_CURRENT_LIST_DIR}/${each}" "${package}/${each}" @ONLY
                   NEWLINE_STYLE CRLF)
endforeach()

message("${package}")
if(simulated)
    message("package: this module is bound to the simulated host; the CAD system cannot load it. "
            "docs/windows.md says how to build one that it can load")
endif()

# The libraries around the plug-in (the plug-in itself uses none): fmt, CLI11, toml++, GoogleTest.
if(NOT CMAKE_CROSSCOMPILING)
    find_package(fmt REQUIRED)
    find_package(CLI11 REQUIRED)
    find_package(GTest REQUIRED)
    return()
endif()

# For Windows only their headers are of use. They are seen through links in a folder of their own,
# because /usr/include holds the C library's headers, too.
set(VX_HEADERS ${PROJECT_BINARY_DIR}/headers)
file(MAKE_DIRECTORY ${VX_HEADERS})
foreach(library fmt CLI toml++)
    if(NOT IS_DIRECTORY /usr/include/${library})
        message(FATAL_ERROR "The headers of ${library} are missing: ./vx setup installs them")
    endif()
    file(CREATE_LINK /usr/include/${library} ${VX_HEADERS}/${library} SYMBOLIC)
endforeach()
foreach(target fmt_headers CLI11::CLI11 vx_headers)
    add_library(${target} INTERFACE IMPORTED)
    target_include_directories(${target} SYSTEM INTERFACE ${VX_HEADERS})
endforeach()

# The formatting library's own code, so that it is not compiled again in each file that uses it.
add_library(fmt_library STATIC cmake/fmt_library.cpp)
target_link_libraries(fmt_library PUBLIC fmt_headers)
add_library(fmt::fmt ALIAS fmt_library)

set(VX_GOOGLETEST /usr/src/googletest/googletest)
if(NOT EXISTS ${VX_GOOGLETEST}/CMakeLists.txt)
    message(FATAL_ERROR "The sources of GoogleTest are missing: ./vx setup installs them")
endif()
enable_language(C)
set(INSTALL_GTEST OFF)
set(CMAKE_POLICY_DEFAULT_CMP0077 NEW)
set(CMAKE_WARN_DEPRECATED OFF)
add_subdirectory(${VX_GOOGLETEST} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)

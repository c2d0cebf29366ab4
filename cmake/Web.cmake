# The workbench: the simulated host in a browser. The library for its server is not to be had for
# Windows.
file(GLOB VX_WEB_SOURCES CONFIGURE_DEPENDS simhost/web/*.cpp)
pkg_check_modules(HTTPLIB REQUIRED IMPORTED_TARGET cpp-httplib)
find_package(nlohmann_json REQUIRED)
add_library(simhost_web STATIC ${VX_WEB_SOURCES})
target_link_libraries(simhost_web PUBLIC simhost PkgConfig::HTTPLIB
                      nlohmann_json::nlohmann_json PRIVATE vx_warnings)
target_precompile_headers(simhost_web PRIVATE ${VX_COMMON_HEADERS} <nlohmann/json.hpp>)
target_link_libraries(simhost_app PRIVATE simhost_web)

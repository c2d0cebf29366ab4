# The simulated host as a Windows DLL: everything that the tests use of it comes out of it, not only
# the operations of hostapi/. It and the programs share the compiler's runtime, which is put beside
# them; the module has its own inside.
target_link_options(simhost PRIVATE -Wl,--export-all-symbols)
set_target_properties(simhost PROPERTIES PREFIX "" IMPORT_PREFIX "")
target_link_libraries(simhost PUBLIC vx_headers comdlg32 shlwapi)

foreach(dll libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${dll}
                    OUTPUT_VARIABLE place OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(NOT IS_ABSOLUTE "${place}")
        find_file(place_of_${dll} ${dll} PATHS ${CMAKE_FIND_ROOT_PATH}/lib NO_DEFAULT_PATH
                  NO_CMAKE_FIND_ROOT_PATH REQUIRED)
        set(place ${place_of_${dll}})
    endif()
    file(COPY_FILE "${place}" "${PROJECT_BINARY_DIR}/${dll}" ONLY_IF_DIFFERENT)
endforeach()
# Programs find the DLLs beside themselves.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR})
set_target_properties(simhost PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR})
# Wine shows this machine's own folders as drive Z.
if(CMAKE_CROSSCOMPILING)
    set(VX_DRIVE "Z:")
endif()

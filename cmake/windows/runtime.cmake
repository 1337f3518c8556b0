# The DLLs that both libraries need beside them: the C++ runtime, libgcrypt and what it stands on.
set(windows_runtime)
foreach(dll libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${dll}
        OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
    list(APPEND windows_runtime ${path})
endforeach()
foreach(dll libgcrypt-20.dll libgpg-error-0.dll)
    list(APPEND windows_runtime /usr/x86_64-w64-mingw32/bin/${dll})
endforeach()
foreach(path ${windows_runtime})
    if(NOT IS_ABSOLUTE ${path} OR NOT EXISTS ${path})
        message(FATAL_ERROR "no ${path}; install the packages of the group windows in packages.txt")
    endif()
endforeach()
# Their terms, and those of pugixml, which zelsuite.dll holds.
set(windows_licences)
foreach(package gcc-mingw-w64-x86-64-posix-runtime mingw-w64-x86-64-dev libgcrypt-mingw-w64-dev
        libgpg-error-mingw-w64-dev)
    list(APPEND windows_licences /usr/share/doc/${package}/copyright)
endforeach()
list(APPEND windows_licences
    ${PROJECT_SOURCE_DIR}/build/windows-dependencies/openimageio/usr/share/doc/libopenimageio-dev/copyright)
file(COPY ${windows_runtime} DESTINATION ${CMAKE_RUNTIME_OUTPUT_DIRECTORY} FOLLOW_SYMLINK_CHAIN)

# Name, version and description of a DLL, as Windows shows them among the properties of the file.
function(add_version_resource target description)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/windows/version.rc.in ${target}.rc @ONLY)
    target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
endfunction()

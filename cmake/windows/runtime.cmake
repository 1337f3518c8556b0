# The DLLs of Debian's MinGW that both libraries need beside them, without the symbols that only a debugger
# reads: the C++ runtime.
set(windows_runtime)
foreach(dll libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${dll}
        OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(NOT IS_ABSOLUTE ${path} OR NOT EXISTS ${path})
        message(FATAL_ERROR "no ${path}; install the packages of the group windows in packages.txt")
    endif()
    set(stripped ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${dll})
    if(${path} IS_NEWER_THAN ${stripped})
        file(MAKE_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
        execute_process(COMMAND ${CMAKE_STRIP} -o ${stripped} ${path} COMMAND_ERROR_IS_FATAL ANY)
    endif()
    list(APPEND windows_runtime ${stripped})
endforeach()

# Their terms, and those of the libraries that zelsuite.dll holds.
file(GLOB windows_licences
    /usr/share/doc/gcc-mingw-w64-x86-64-posix-runtime/copyright
    /usr/share/doc/mingw-w64-x86-64-dev/copyright
    ${PROJECT_SOURCE_DIR}/build/windows-dependencies/sources/*/LICENSE*)

# Name, version and description of a DLL, as Windows shows them among the properties of the file.
function(add_version_resource target description)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/windows/version.rc.in ${target}.rc @ONLY)
    target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
endfunction()

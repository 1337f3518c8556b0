include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/zelstandard)
set(targets zelstandard)
if(ZELSTANDARD_SUITE STREQUAL "embedded")
    list(APPEND targets zelsuite)
endif()
install(TARGETS ${targets} EXPORT zelstandard FILE_SET HEADERS)
if(TARGET command)
    install(TARGETS command)
    if(TARGET command_help)
        install(FILES ${PROJECT_BINARY_DIR}/command/zelstandard.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
        install(FILES ${PROJECT_BINARY_DIR}/command/zelstandard.bash
            DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME zelstandard)
    endif()
endif()
install(EXPORT zelstandard NAMESPACE zelstandard:: DESTINATION ${package_dir})
configure_package_config_file(cmake/zelstandardConfig.cmake.in
    ${PROJECT_BINARY_DIR}/zelstandardConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/zelstandardConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/zelstandardConfig.cmake
    ${PROJECT_BINARY_DIR}/zelstandardConfigVersion.cmake DESTINATION ${package_dir})

# Relative, so that the installation can be moved.
file(RELATIVE_PATH prefix_of_pkgconfig /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" prefix_of_pkgconfig "${prefix_of_pkgconfig}")
configure_file(cmake/zelstandard.pc.in zelstandard.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/zelstandard.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
install(DIRECTORY data/ DESTINATION ${CMAKE_INSTALL_DATADIR}/zelstandard)

install(FILES README.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs examples DESTINATION ${CMAKE_INSTALL_DOCDIR})
if(ZELSTANDARD_EXAMPLES)
    # Their names are too plain for a directory that they share with other programs; on Windows,
    # programs find the DLLs that lie beside them.
    get_property(examples DIRECTORY examples PROPERTY BUILDSYSTEM_TARGETS)
    set_target_properties(${examples} PROPERTIES INSTALL_RPATH "$ORIGIN/../..")
    if(WIN32)
        install(TARGETS ${examples})
    else()
        install(TARGETS ${examples} DESTINATION ${CMAKE_INSTALL_LIBDIR}/zelstandard/examples)
    endif()
endif()
if(WIN32)
    install(FILES ${windows_runtime} DESTINATION ${CMAKE_INSTALL_BINDIR})
    foreach(licence ${windows_licences})
        cmake_path(GET licence PARENT_PATH package)
        cmake_path(GET package FILENAME package)
        install(FILES ${licence} DESTINATION ${CMAKE_INSTALL_DOCDIR}/licences RENAME ${package}.txt)
    endforeach()
endif()

include(cmake/package.cmake)

include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/zelstandard)
set(targets zelstandard)
if(ZELSTANDARD_SUITE STREQUAL "embedded")
    list(APPEND targets zelsuite)
endif()
install(TARGETS ${targets} EXPORT zelstandard FILE_SET HEADERS)
install(EXPORT zelstandard NAMESPACE zelstandard:: DESTINATION ${package_dir})
configure_package_config_file(cmake/zelstandardConfig.cmake.in
    ${PROJECT_BINARY_DIR}/zelstandardConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/zelstandardConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/zelstandardConfig.cmake
    ${PROJECT_BINARY_DIR}/zelstandardConfigVersion.cmake DESTINATION ${package_dir})

configure_file(cmake/zelstandard.pc.in zelstandard.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/zelstandard.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
install(DIRECTORY data/ DESTINATION ${CMAKE_INSTALL_DATADIR}/zelstandard)

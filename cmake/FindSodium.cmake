# libsodium, which brings no package of its own for CMake: gives Sodium::Sodium.
find_package(PkgConfig QUIET)
if(PKG_CONFIG_FOUND AND NOT CMAKE_CROSSCOMPILING) # it would tell of the building machine's
    pkg_check_modules(PC_SODIUM QUIET libsodium)
endif()
find_path(SODIUM_INCLUDE_DIR sodium.h HINTS ${PC_SODIUM_INCLUDE_DIRS})
find_library(SODIUM_LIBRARY NAMES sodium libsodium HINTS ${PC_SODIUM_LIBRARY_DIRS})
mark_as_advanced(SODIUM_INCLUDE_DIR SODIUM_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Sodium REQUIRED_VARS SODIUM_LIBRARY SODIUM_INCLUDE_DIR)
if(Sodium_FOUND AND NOT TARGET Sodium::Sodium)
    add_library(Sodium::Sodium UNKNOWN IMPORTED)
    set_target_properties(Sodium::Sodium PROPERTIES
        IMPORTED_LOCATION ${SODIUM_LIBRARY}
        INTERFACE_INCLUDE_DIRECTORIES ${SODIUM_INCLUDE_DIR})
endif()

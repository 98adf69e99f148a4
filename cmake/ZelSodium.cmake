# ZelProtocol::sodium: libsodium, where pkg-config finds it. With ZEL_STATIC_SODIUM its archive, so that a program doesn't
# need the shared library. Sets ZelProtocol_sodium_FOUND.
find_package(PkgConfig QUIET)
if(PkgConfig_FOUND)
    pkg_check_modules(libsodium QUIET IMPORTED_TARGET GLOBAL libsodium)
endif()
set(ZelProtocol_sodium_FOUND ${libsodium_FOUND})
if(libsodium_FOUND AND NOT TARGET ZelProtocol::sodium)
    add_library(ZelProtocol::sodium INTERFACE IMPORTED GLOBAL)
    if(ZEL_STATIC_SODIUM)
        pkg_get_variable(ZelProtocol_sodium_libdir libsodium libdir)
        find_library(ZelProtocol_sodium_archive libsodium.a HINTS ${libsodium_LIBRARY_DIRS} ${ZelProtocol_sodium_libdir})
        mark_as_advanced(ZelProtocol_sodium_archive)
        if(NOT ZelProtocol_sodium_archive)
            message(FATAL_ERROR "ZEL_STATIC_SODIUM: there is no libsodium.a")
        endif()
        set_target_properties(ZelProtocol::sodium PROPERTIES
            INTERFACE_INCLUDE_DIRECTORIES "${libsodium_INCLUDE_DIRS}"
            INTERFACE_LINK_LIBRARIES "${ZelProtocol_sodium_archive};${libsodium_STATIC_LDFLAGS_OTHER}")
    else()
        set_target_properties(ZelProtocol::sodium PROPERTIES INTERFACE_LINK_LIBRARIES PkgConfig::libsodium)
    endif()
endif()

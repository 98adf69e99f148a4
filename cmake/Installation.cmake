# What is installed, in two parts: "runtime" is what programs need that are there already.
include(CMakePackageConfigHelpers)

set(ZEL_CONFIG_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/ZelProtocol")
set(ZEL_INSTALLED_TARGETS zelprotocol)
if(ZEL_BUILD_PLATFORM)
    list(APPEND ZEL_INSTALLED_TARGETS zelplatform)
endif()

install(TARGETS ${ZEL_INSTALLED_TARGETS} EXPORT ZelProtocolTargets
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT runtime NAMELINK_COMPONENT development
        ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development)
install(EXPORT ZelProtocolTargets NAMESPACE ZelProtocol:: DESTINATION "${ZEL_CONFIG_DIR}"
        COMPONENT development)
install(DIRECTORY include/zel_protocol DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}"
        COMPONENT development FILES_MATCHING PATTERN "*.h")
# An application that brings its own services includes these too.
install(DIRECTORY platform/include/zel_platform DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}"
        COMPONENT development FILES_MATCHING PATTERN "*.h")

# Archives leave their own needs to whoever links them, shared libraries don't.
set(ZEL_NEEDS_THIRD_PARTY OFF)
if(ZEL_BUILD_PLATFORM AND NOT BUILD_SHARED_LIBS)
    set(ZEL_NEEDS_THIRD_PARTY ON)
endif()

configure_package_config_file(cmake/ZelProtocolConfig.cmake.in
    "${CMAKE_CURRENT_BINARY_DIR}/ZelProtocolConfig.cmake" INSTALL_DESTINATION "${ZEL_CONFIG_DIR}")
write_basic_package_version_file("${CMAKE_CURRENT_BINARY_DIR}/ZelProtocolConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/ZelProtocolConfig.cmake"
              "${CMAKE_CURRENT_BINARY_DIR}/ZelProtocolConfigVersion.cmake"
              "${PROJECT_SOURCE_DIR}/cmake/ZelSodium.cmake"
        DESTINATION "${ZEL_CONFIG_DIR}" COMPONENT development)

# The paths in the pkg-config file count from the file itself, so that an installed tree may be moved.
set(ZEL_PC_DIR "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig")
file(RELATIVE_PATH ZEL_PC_LIBDIR "${ZEL_PC_DIR}" "${CMAKE_INSTALL_FULL_LIBDIR}")
string(REGEX REPLACE "/$" "" ZEL_PC_LIBDIR "${ZEL_PC_LIBDIR}")
file(RELATIVE_PATH ZEL_PC_INCLUDEDIR "${ZEL_PC_DIR}" "${CMAKE_INSTALL_FULL_INCLUDEDIR}")
set(ZEL_PC_LIBS "-lzelprotocol")
if(ZEL_BUILD_PLATFORM)
    string(APPEND ZEL_PC_LIBS " -lzelplatform")
endif()
set(ZEL_PC_REQUIRES_PRIVATE "")
set(ZEL_PC_LIBS_PRIVATE "")
if(ZEL_NEEDS_THIRD_PARTY AND ZEL_STATIC_SODIUM)
    set(ZEL_PC_LIBS_PRIVATE "-l:libsodium.a")
elseif(ZEL_NEEDS_THIRD_PARTY)
    set(ZEL_PC_REQUIRES_PRIVATE "libsodium")
endif()
configure_file(cmake/zelprotocol.pc.in "${CMAKE_CURRENT_BINARY_DIR}/zelprotocol.pc" @ONLY)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/zelprotocol.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig"
        COMPONENT development)

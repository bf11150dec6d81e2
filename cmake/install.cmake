# What an application programmer gets: the library, its headers, a CMake package and a pkg-config file. All paths in
# them are relative, so that the whole can be moved.
include(CMakePackageConfigHelpers)

set(VXSIGN_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/vxsign)
set(VXSIGN_PKGCONFIG_DIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(TARGETS vxsign EXPORT vxsignTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
if(VXSIGN_STATIC)
    install(TARGETS vxsign_static ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
endif()
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/vxsign DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
    FILES_MATCHING REGEX "\\.(h|hpp)$")

if(WIN32)
    install(FILES ${VXSIGN_DEF} ${VXSIGN_MSVC_LIBRARY} DESTINATION ${CMAKE_INSTALL_LIBDIR})
    install(EXPORT vxsignTargets NAMESPACE vxsign:: DESTINATION ${VXSIGN_PACKAGE_DIR})
    install(FILES ${PROJECT_SOURCE_DIR}/cmake/windows/vxsignConfig.cmake DESTINATION ${VXSIGN_PACKAGE_DIR})
else()
    install(EXPORT vxsignTargets FILE vxsignConfig.cmake NAMESPACE vxsign:: DESTINATION ${VXSIGN_PACKAGE_DIR})
endif()
write_basic_package_version_file(${PROJECT_BINARY_DIR}/vxsignConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/vxsignConfigVersion.cmake DESTINATION ${VXSIGN_PACKAGE_DIR})

file(RELATIVE_PATH VXSIGN_PREFIX_FROM_PKGCONFIG
    ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
configure_file(${CMAKE_CURRENT_LIST_DIR}/vxsign.pc.in ${PROJECT_BINARY_DIR}/vxsign.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/vxsign.pc DESTINATION ${VXSIGN_PKGCONFIG_DIR})

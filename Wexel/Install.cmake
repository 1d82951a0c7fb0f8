# What a user of the library gets: it may be unpacked anywhere, nothing in it knows the prefix.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Wexel)
install(TARGETS Wexel EXPORT WexelTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY Public/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/Wexel FILES_MATCHING PATTERN "*.h")
install(FILES ${PROJECT_BINARY_DIR}/share/wexel/Info.plist ${PROJECT_SOURCE_DIR}/Docs/better-bug-reports.html
        DESTINATION ${WEXEL_BUNDLE_DIR})
install(EXPORT WexelTargets NAMESPACE Wexel:: DESTINATION ${package_dir})

configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/WexelConfig.cmake.in
                              ${PROJECT_BINARY_DIR}/WexelConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/WexelConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/WexelConfig.cmake ${PROJECT_BINARY_DIR}/WexelConfigVersion.cmake
        DESTINATION ${package_dir})

file(RELATIVE_PATH prefix_from_pkgconfig ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
configure_file(${PROJECT_SOURCE_DIR}/cmake/wexel.pc.in ${PROJECT_BINARY_DIR}/wexel.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/wexel.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

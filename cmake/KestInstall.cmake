# Installation: headers and the library, a CMake package, a pkg-config file, Debian packages.
include(CMakePackageConfigHelpers)

install(TARGETS KestPlatformBase EXPORT KestPlatformBaseTargets
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT runtime)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/kest" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}"
    COMPONENT development)
# The Windows-named headers stand in a folder of their own: a project asks for them by linking Kest::WindowsHeaders.
install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/windows/" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/kest-windows"
    COMPONENT development)
install(TARGETS KestWindowsHeaders EXPORT KestPlatformBaseTargets)
install(FILES "${PROJECT_SOURCE_DIR}/abi/exports.tsv" DESTINATION "${CMAKE_INSTALL_DATADIR}/kest-platform-base"
    COMPONENT development)

set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/KestPlatformBase")
set_target_properties(KestPlatformBase PROPERTIES EXPORT_NAME PlatformBase)
set_target_properties(KestWindowsHeaders PROPERTIES EXPORT_NAME WindowsHeaders)
install(EXPORT KestPlatformBaseTargets NAMESPACE Kest:: DESTINATION "${package_folder}" COMPONENT development)
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/KestPlatformBaseConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/KestPlatformBaseConfig.cmake" INSTALL_DESTINATION "${package_folder}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/KestPlatformBaseConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/KestPlatformBaseConfig.cmake"
    "${PROJECT_BINARY_DIR}/KestPlatformBaseConfigVersion.cmake"
    DESTINATION "${package_folder}" COMPONENT development)

# Its prefix is relative to the file, so that the whole tree can be moved.
cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX BASE_DIRECTORY
    "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" OUTPUT_VARIABLE kest_pc_prefix)
configure_file("${PROJECT_SOURCE_DIR}/cmake/kest-platform-base.pc.in"
    "${PROJECT_BINARY_DIR}/kest-platform-base.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/kest-platform-base.pc"
    DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT development)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kest-platform-base)
set(CPACK_PACKAGE_VENDOR "Kest Platform Base")
set(CPACK_PACKAGE_CONTACT "Kest Platform Base maintainers <maintainers@kest.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_COMPONENTS_ALL runtime development)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libkestplatformbase)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "The Windows API for Linux ports: the shared object")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libkestplatformbase-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "libkestplatformbase (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "The Windows API for Linux ports: headers and build files")
include(CPack)

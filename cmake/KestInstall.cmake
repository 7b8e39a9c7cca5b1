# Installation: headers and libraries, a CMake package, pkg-config files, Debian packages.
include(CMakePackageConfigHelpers)

set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/KestPlatformBase")
# Of pkg-config files, relative to them, so that the whole tree can be moved.
cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX BASE_DIRECTORY
    "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" OUTPUT_VARIABLE kest_pc_prefix)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kest-platform-base)
set(CPACK_PACKAGE_VENDOR "Kest Platform Base")
set(CPACK_PACKAGE_CONTACT "Kest Platform Base maintainers <maintainers@kest.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL "")
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")

# Installs the shared library of target Kest<name>, as Kest::<name> in the CMake package, <pkg_config>.pc, and the Debian
# packages lib<target in lower case> and lib<target in lower case>-dev.
#   HEADERS     folders to copy to the include folder
#   INTERFACES  further targets that belong to it
#   REQUIRES    libraries of this project that it needs, by target
#   SUMMARY     what it is, in a few words
function(kest_install_library name pkg_config)
    cmake_parse_arguments(PARSE_ARGV 2 library "" "SUMMARY" "HEADERS;INTERFACES;REQUIRES")
    set(target "Kest${name}")
    string(TOLOWER "lib${target}" package)
    set(runtime "${package}")
    set(development "${package}_dev")

    set_property(GLOBAL APPEND PROPERTY KEST_INSTALLED_LIBRARIES ${target})
    set_target_properties(${target} PROPERTIES EXPORT_NAME ${name})
    install(TARGETS ${target} ${library_INTERFACES} EXPORT ${target}Targets
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT ${runtime})
    install(DIRECTORY ${library_HEADERS} DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT ${development})
    install(EXPORT ${target}Targets NAMESPACE Kest:: DESTINATION "${package_folder}" COMPONENT ${development})

    set(kest_pc_library "${target}")
    set(kest_pc_summary "${library_SUMMARY}")
    set(kest_pc_requires "")
    set(runtime_depends "")
    set(development_depends "${package} (= ${PROJECT_VERSION})")
    foreach(required IN LISTS library_REQUIRES)
        get_target_property(required_pc ${required} KEST_PKG_CONFIG)
        list(APPEND kest_pc_requires "${required_pc}")
        string(TOLOWER "lib${required}" required_package)
        list(APPEND runtime_depends "${required_package} (= ${PROJECT_VERSION})")
        list(APPEND development_depends "${required_package}-dev (= ${PROJECT_VERSION})")
    endforeach()
    list(JOIN kest_pc_requires " " kest_pc_requires)
    list(JOIN runtime_depends ", " runtime_depends)
    list(JOIN development_depends ", " development_depends)
    set_target_properties(${target} PROPERTIES KEST_PKG_CONFIG ${pkg_config})
    configure_file("${PROJECT_SOURCE_DIR}/cmake/kest.pc.in" "${PROJECT_BINARY_DIR}/${pkg_config}.pc" @ONLY)
    install(FILES "${PROJECT_BINARY_DIR}/${pkg_config}.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig"
        COMPONENT ${development})

    list(APPEND CPACK_COMPONENTS_ALL ${runtime} ${development})
    set(CPACK_COMPONENTS_ALL ${CPACK_COMPONENTS_ALL} PARENT_SCOPE)
    string(TOUPPER "${runtime}" part)
    set(CPACK_DEBIAN_${part}_PACKAGE_NAME "${package}" PARENT_SCOPE)
    set(CPACK_DEBIAN_${part}_PACKAGE_SHLIBDEPS ON PARENT_SCOPE)
    set(CPACK_DEBIAN_${part}_PACKAGE_DEPENDS "${runtime_depends}" PARENT_SCOPE)
    set(CPACK_COMPONENT_${part}_DESCRIPTION "${library_SUMMARY}: the shared object" PARENT_SCOPE)
    string(TOUPPER "${development}" part)
    set(CPACK_DEBIAN_${part}_PACKAGE_NAME "${package}-dev" PARENT_SCOPE)
    set(CPACK_DEBIAN_${part}_PACKAGE_SECTION libdevel PARENT_SCOPE)
    set(CPACK_DEBIAN_${part}_PACKAGE_DEPENDS "${development_depends}" PARENT_SCOPE)
    set(CPACK_COMPONENT_${part}_DESCRIPTION "${library_SUMMARY}: headers and build files" PARENT_SCOPE)
endfunction()

kest_install_library(PlatformBase kest-platform-base
    HEADERS "${PROJECT_SOURCE_DIR}/include/kest"
    INTERFACES KestWindowsHeaders
    SUMMARY "The Windows API for Linux ports")
kest_install_library(Companions kest-companions
    HEADERS "${PROJECT_SOURCE_DIR}/companions/include/kest"
    REQUIRES KestPlatformBase
    SUMMARY "The Windows API for Linux ports, its companions")
if(TARGET KestReferenceHost)
    kest_install_library(ReferenceHost kest-reference-host
        HEADERS "${PROJECT_SOURCE_DIR}/host/include/kest"
        REQUIRES KestPlatformBase
        SUMMARY "The Windows API for Linux ports, its reference host")
endif()

# ---- The tools for porting teams, in a package of their own ----------------------------------------------------------

if(KEST_BUILD_TOOLS)
    list(APPEND CPACK_COMPONENTS_ALL kesttools)
    set(CPACK_DEBIAN_KESTTOOLS_PACKAGE_NAME kest-tools)
    set(CPACK_DEBIAN_KESTTOOLS_PACKAGE_SECTION devel)
    set(CPACK_DEBIAN_KESTTOOLS_PACKAGE_SHLIBDEPS ON)
    set(CPACK_COMPONENT_KESTTOOLS_DESCRIPTION "The Windows API for Linux ports: tools for porting teams")
endif()

# ---- What comes with the library itself --------------------------------------------------------------------------

# The Windows-named headers stand in a folder of their own: a project asks for them by linking Kest::WindowsHeaders.
set_target_properties(KestWindowsHeaders PROPERTIES EXPORT_NAME WindowsHeaders)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/windows/" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/kest-windows"
    COMPONENT libkestplatformbase_dev)
install(FILES "${PROJECT_SOURCE_DIR}/abi/exports.tsv" DESTINATION "${CMAKE_INSTALL_DATADIR}/kest-platform-base"
    COMPONENT libkestplatformbase_dev)
install(FILES "${PROJECT_SOURCE_DIR}/companions/companions.tsv"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/kest-platform-base" COMPONENT libkestcompanions_dev)

configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/KestPlatformBaseConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/KestPlatformBaseConfig.cmake" INSTALL_DESTINATION "${package_folder}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/KestPlatformBaseConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/KestPlatformBaseConfig.cmake"
    "${PROJECT_BINARY_DIR}/KestPlatformBaseConfigVersion.cmake"
    "${PROJECT_SOURCE_DIR}/cmake/KestWindowsPrograms.cmake"
    "${PROJECT_SOURCE_DIR}/cmake/windows_program_entry.cpp.in"
    "${PROJECT_SOURCE_DIR}/cmake/windows_module_entry.cpp"
    DESTINATION "${package_folder}" COMPONENT libkestplatformbase_dev)

include(CPack)

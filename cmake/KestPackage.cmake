# What other programs find of the installed libraries: the CMake package, for which an application says
# find_package(KestCommon) and links kest::common, and descriptions for pkg-config.

include(CMakePackageConfigHelpers)
set(KEST_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/KestCommon)

configure_package_config_file(
    "${CMAKE_CURRENT_LIST_DIR}/KestCommonConfig.cmake.in"
    "${CMAKE_CURRENT_BINARY_DIR}/KestCommonConfig.cmake"
    INSTALL_DESTINATION ${KEST_PACKAGE_DIR})
write_basic_package_version_file(
    "${CMAKE_CURRENT_BINARY_DIR}/KestCommonConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(FILES
    "${CMAKE_CURRENT_BINARY_DIR}/KestCommonConfig.cmake"
    "${CMAKE_CURRENT_BINARY_DIR}/KestCommonConfigVersion.cmake"
    DESTINATION ${KEST_PACKAGE_DIR} COMPONENT Development)

# One export for each library, so that a component brings only what it needs.
foreach(name IN ITEMS foundation binfiles common)
    install(EXPORT KestCommon_${name}
        NAMESPACE kest::
        DESTINATION ${KEST_PACKAGE_DIR} COMPONENT Development)
endforeach()

# kest_pkg_config(name headers description requires requires_private): kest-<name>.pc, whose prefix follows
# from its own place, so that the tree can be moved.
function(kest_pkg_config name headers description requires requires_private)
    set(file "${CMAKE_CURRENT_BINARY_DIR}/kest-${name}.pc")
    set(directory ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
    file(RELATIVE_PATH to_prefix "/${directory}" "/")
    string(REGEX REPLACE "/$" "" to_prefix "${to_prefix}")
    configure_file("${PROJECT_SOURCE_DIR}/cmake/kest.pc.in" "${file}" @ONLY)
    install(FILES "${file}" DESTINATION ${directory} COMPONENT Development)
endfunction()

set(qt Qt${KEST_QT_MAJOR})
kest_pkg_config(foundation kest "Counted pointers, observers, properties and services of the Kest suite"
    "${qt}Widgets" "")
kest_pkg_config(binfiles kest/binfiles "Lock files of the Kest suite" "${qt}Core" "")
kest_pkg_config(common kest "${PROJECT_DESCRIPTION}" "kest-foundation = ${PROJECT_VERSION}, ${qt}Widgets"
    "kest-binfiles = ${PROJECT_VERSION}")

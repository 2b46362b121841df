# The installed CMake package: an application says find_package(KestCommon) and links kest::common.

include(CMakePackageConfigHelpers)
set(KEST_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/KestCommon)

configure_package_config_file(
    "${CMAKE_CURRENT_LIST_DIR}/KestCommonConfig.cmake.in"
    "${CMAKE_CURRENT_BINARY_DIR}/KestCommonConfig.cmake"
    INSTALL_DESTINATION ${KEST_PACKAGE_DIR})
write_basic_package_version_file(
    "${CMAKE_CURRENT_BINARY_DIR}/KestCommonConfigVersion.cmake"
    COMPATIBILITY SameMinorVersion)

install(FILES
    "${CMAKE_CURRENT_BINARY_DIR}/KestCommonConfig.cmake"
    "${CMAKE_CURRENT_BINARY_DIR}/KestCommonConfigVersion.cmake"
    DESTINATION ${KEST_PACKAGE_DIR} COMPONENT Development)
install(EXPORT KestCommonTargets
    NAMESPACE kest::
    DESTINATION ${KEST_PACKAGE_DIR} COMPONENT Development)

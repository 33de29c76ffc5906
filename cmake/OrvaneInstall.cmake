# What find_package(Orvane) reads in an installed tree.

include(CMakePackageConfigHelpers)

set(ORVANE_INSTALL_CMAKEDIR "${CMAKE_INSTALL_LIBDIR}/cmake/Orvane")

configure_package_config_file(
  "${CMAKE_CURRENT_LIST_DIR}/OrvaneConfig.cmake.in" "${Orvane_BINARY_DIR}/OrvaneConfig.cmake"
  INSTALL_DESTINATION "${ORVANE_INSTALL_CMAKEDIR}")
# Before 1.0 a new minor version may change an interface.
write_basic_package_version_file("${Orvane_BINARY_DIR}/OrvaneConfigVersion.cmake"
  COMPATIBILITY SameMinorVersion)
install(
  FILES "${Orvane_BINARY_DIR}/OrvaneConfig.cmake" "${Orvane_BINARY_DIR}/OrvaneConfigVersion.cmake"
  DESTINATION "${ORVANE_INSTALL_CMAKEDIR}")
install(EXPORT OrvaneTargets NAMESPACE orvane:: DESTINATION "${ORVANE_INSTALL_CMAKEDIR}")

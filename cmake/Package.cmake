# The package a host finds with find_package(IGD CONFIG REQUIRED): the libraries' targets under
# IGD::, and the dependencies their public headers and links need.
include(CMakePackageConfigHelpers)
set(IGD_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/IGD)
install(EXPORT IGDTargets NAMESPACE IGD:: DESTINATION ${IGD_CMAKE_DIR})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/IGDConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/IGDConfig.cmake INSTALL_DESTINATION ${IGD_CMAKE_DIR})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/IGDConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/IGDConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/IGDConfigVersion.cmake
  DESTINATION ${IGD_CMAKE_DIR})

# Install rules, so that find_package(OrreloSDK) and pkg-config find the kit.

include(CMakePackageConfigHelpers)

install(TARGETS orrelo EXPORT OrreloSDKTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/orrelo DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/OrreloSDK)
install(EXPORT OrreloSDKTargets NAMESPACE orrelo:: DESTINATION ${package_dir})
configure_package_config_file(
  ${PROJECT_SOURCE_DIR}/cmake/OrreloSDKConfig.cmake.in ${PROJECT_BINARY_DIR}/OrreloSDKConfig.cmake
  INSTALL_DESTINATION ${package_dir} PATH_VARS ORRELO_QML_DIR)
# Each minor version before 1.0 may change the public structs.
write_basic_package_version_file(
  ${PROJECT_BINARY_DIR}/OrreloSDKConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/OrreloSDKConfig.cmake ${PROJECT_BINARY_DIR}/OrreloSDKConfigVersion.cmake
  DESTINATION ${package_dir})

configure_file(${PROJECT_SOURCE_DIR}/cmake/orrelosdk.pc.in ${PROJECT_BINARY_DIR}/orrelosdk.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/orrelosdk.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

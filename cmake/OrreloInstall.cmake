# Install rules, so that find_package(OrreloSDK) and pkg-config find the kit.

include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/OrreloSDK)
set(pkgconfig_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
# Programs find the libraries relative to themselves, so that the installed tree can be moved.
file(RELATIVE_PATH libraries_from_programs /${CMAKE_INSTALL_BINDIR} /${CMAKE_INSTALL_LIBDIR})
set(ORRELO_PROGRAM_RPATH "$ORIGIN/${libraries_from_programs}")

# orrelo_install_library(<target> COMPONENT <component> HEADERS <folder> DESCRIPTION <text>
#   [PC_REQUIRES <module>...] [PC_STATIC_REQUIRES <module>...] [PC_STATIC_LIBS <flag>...])
#
# Installs one of the kit's libraries as orrelo::<component>: the library, its headers, its CMake targets in a
# file of their own, since a package may contain one component without the others, and its pkg-config file. A
# static library also needs the modules and libraries of the PC_STATIC arguments.
function(orrelo_install_library target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "COMPONENT;HEADERS;DESCRIPTION"
    "PC_REQUIRES;PC_STATIC_REQUIRES;PC_STATIC_LIBS")
  set_target_properties(${target} PROPERTIES EXPORT_NAME ${arg_COMPONENT} INSTALL_RPATH "$ORIGIN"
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
  install(TARGETS ${target} EXPORT OrreloSDK-${arg_COMPONENT}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
  install(DIRECTORY ${arg_HEADERS} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
  install(EXPORT OrreloSDK-${arg_COMPONENT} NAMESPACE orrelo:: DESTINATION ${package_dir}
    FILE OrreloSDK-${arg_COMPONENT}.cmake)

  set(pc_name orrelosdk)
  if(NOT arg_COMPONENT STREQUAL core)
    string(APPEND pc_name -${arg_COMPONENT})
  endif()
  file(RELATIVE_PATH prefix_from_pc /${pkgconfig_dir} /)
  string(REGEX REPLACE "/$" "" prefix_from_pc ${prefix_from_pc})
  get_target_property(library ${target} OUTPUT_NAME)
  if(NOT library)
    set(library ${target})
  endif()
  if(NOT BUILD_SHARED_LIBS)
    list(APPEND arg_PC_REQUIRES ${arg_PC_STATIC_REQUIRES})
    list(PREPEND arg_PC_STATIC_LIBS "")
  else()
    set(arg_PC_STATIC_LIBS "")
  endif()
  list(JOIN arg_PC_REQUIRES ", " requires)
  list(JOIN arg_PC_STATIC_LIBS " " static_libs)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/orrelosdk.pc.in ${PROJECT_BINARY_DIR}/${pc_name}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${pc_name}.pc DESTINATION ${pkgconfig_dir})
endfunction()

configure_package_config_file(
  ${PROJECT_SOURCE_DIR}/cmake/OrreloSDKConfig.cmake.in ${PROJECT_BINARY_DIR}/OrreloSDKConfig.cmake
  INSTALL_DESTINATION ${package_dir} PATH_VARS ORRELO_QML_DIR)
write_basic_package_version_file(
  ${PROJECT_BINARY_DIR}/OrreloSDKConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/OrreloSDKConfig.cmake ${PROJECT_BINARY_DIR}/OrreloSDKConfigVersion.cmake
  DESTINATION ${package_dir})

if(PROJECT_IS_TOP_LEVEL)
  add_custom_target(uninstall
    COMMAND ${CMAKE_COMMAND} -D MANIFEST=${PROJECT_BINARY_DIR}/install_manifest.txt
      -P ${PROJECT_SOURCE_DIR}/cmake/Uninstall.cmake
    COMMENT "Removing what the last installation wrote" VERBATIM)
endif()

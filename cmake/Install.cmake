include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/TrelvonUnits)
set(schemas_dir ${CMAKE_INSTALL_DATADIR}/TrelvonUnits/schemas)

install(TARGETS TrelvonUnits EXPORT TrelvonUnitsTargets FILE_SET HEADERS
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT TrelvonUnitsTargets NAMESPACE TrelvonUnits:: DESTINATION ${package_dir})
install(DIRECTORY schemas/ DESTINATION ${schemas_dir} FILES_MATCHING
  PATTERN *.json PATTERN README.md)
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})

configure_package_config_file(cmake/TrelvonUnitsConfig.cmake.in TrelvonUnitsConfig.cmake
  INSTALL_DESTINATION ${package_dir}
  PATH_VARS schemas_dir)
write_basic_package_version_file(TrelvonUnitsConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/TrelvonUnitsConfig.cmake
  ${PROJECT_BINARY_DIR}/TrelvonUnitsConfigVersion.cmake
  DESTINATION ${package_dir})

# The pkg-config file finds its neighbours from where it lies, so that an installed tree can move.
# An absolute folder given to CMake replaces the prefix, as it does in the installation itself.
set(pkgconfig_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
cmake_path(ABSOLUTE_PATH pkgconfig_dir BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX}
  OUTPUT_VARIABLE full_pkgconfig_dir)
file(RELATIVE_PATH pc_up ${full_pkgconfig_dir} ${CMAKE_INSTALL_PREFIX})
set(pc_libdir "\${prefix}")
cmake_path(APPEND pc_libdir ${CMAKE_INSTALL_LIBDIR})
set(pc_includedir "\${prefix}")
cmake_path(APPEND pc_includedir ${CMAKE_INSTALL_INCLUDEDIR})
set(pc_schemasdir "\${prefix}")
cmake_path(APPEND pc_schemasdir ${schemas_dir})
configure_file(cmake/TrelvonUnits.pc.in TrelvonUnits.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/TrelvonUnits.pc DESTINATION ${pkgconfig_dir})

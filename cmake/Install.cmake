include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/TrelvonUnits)
set(schemas_dir ${CMAKE_INSTALL_DATADIR}/TrelvonUnits/schemas)

# Six components, so that packages can separate them: Runtime (what programs load), Development
# (what hosts are built with), C (the header that hosts in C also need), Definitions (the catalog),
# Tool (the program trelvon) and SQLite (the extension that SQLite loads).
install(TARGETS TrelvonUnits EXPORT TrelvonUnitsTargets
  RUNTIME COMPONENT Runtime
  LIBRARY COMPONENT Runtime NAMELINK_COMPONENT Development
  ARCHIVE COMPONENT Development
  FILE_SET HEADERS COMPONENT Development
  FILE_SET c_header COMPONENT C
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT TrelvonUnitsTargets NAMESPACE TrelvonUnits:: DESTINATION ${package_dir}
  COMPONENT Development)
install(DIRECTORY schemas/ DESTINATION ${schemas_dir} COMPONENT Definitions FILES_MATCHING
  PATTERN *.json PATTERN README.md)
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT Runtime)

# A file of each component, by which the package can tell whether it is installed.
set(library_file $<IF:$<PLATFORM_ID:Windows>,${CMAKE_INSTALL_BINDIR},${CMAKE_INSTALL_LIBDIR}>)
string(APPEND library_file /$<TARGET_FILE_NAME:TrelvonUnits>)
set(header_file ${CMAKE_INSTALL_INCLUDEDIR}/TrelvonUnits/TrelvonUnits.h)
set(c_header_file ${CMAKE_INSTALL_INCLUDEDIR}/TrelvonUnits/trelvon.h)
set(tool_file ${CMAKE_INSTALL_BINDIR}/trelvon${CMAKE_EXECUTABLE_SUFFIX})
set(sqlite_file ${CMAKE_INSTALL_LIBDIR}/TrelvonUnits/mod_trelvonunits.so)
configure_package_config_file(cmake/TrelvonUnitsConfig.cmake.in ${PROJECT_BINARY_DIR}/Config.cmake
  INSTALL_DESTINATION ${package_dir}
  PATH_VARS library_file header_file c_header_file schemas_dir tool_file sqlite_file)
file(GENERATE OUTPUT TrelvonUnitsConfig.cmake INPUT ${PROJECT_BINARY_DIR}/Config.cmake)
write_basic_package_version_file(TrelvonUnitsConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/TrelvonUnitsConfig.cmake
  ${PROJECT_BINARY_DIR}/TrelvonUnitsConfigVersion.cmake
  DESTINATION ${package_dir} COMPONENT Development)

# The pkg-config file finds other folders relative to its own, so that an installed tree can move.
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
install(FILES ${PROJECT_BINARY_DIR}/TrelvonUnits.pc DESTINATION ${pkgconfig_dir}
  COMPONENT Development)

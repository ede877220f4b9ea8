# What cmake --install installs: headers, library, messages, schemas, the package for find_package(orva) and the
# file for pkg-config.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/orva)

install(TARGETS orva EXPORT orva
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

get_property(headers GLOBAL PROPERTY ORVA_PUBLIC_HEADERS)
get_property(internals GLOBAL PROPERTY ORVA_INSTALLED_INTERNALS)
foreach(header ${headers} ${internals})
  get_filename_component(folder ${header} DIRECTORY)
  install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${folder})
endforeach()

# The messages of the library in the languages of its users; the package gives programs the folder.
set(messages_dir ${CMAKE_INSTALL_DATADIR}/orva/messages)
install(FILES
  ${PROJECT_SOURCE_DIR}/orva/config/messages/config.xmc
  ${PROJECT_SOURCE_DIR}/orva/diagnostics/messages/diagnostics.xmc
  DESTINATION ${messages_dir})

# For editors of message catalogs.
install(FILES ${PROJECT_SOURCE_DIR}/orva/i18n/schema/xmc.rnc ${PROJECT_SOURCE_DIR}/orva/i18n/schema/xmc.xsd
  DESTINATION ${CMAKE_INSTALL_DATADIR}/orva)

install(EXPORT orva NAMESPACE orva:: FILE orva-targets.cmake DESTINATION ${package_dir})
configure_package_config_file(
  ${CMAKE_CURRENT_LIST_DIR}/orva-config.cmake.in ${PROJECT_BINARY_DIR}/orva-config.cmake
  INSTALL_DESTINATION ${package_dir} PATH_VARS messages_dir)
# The namespace has the major and the minor version, so another minor version is another library to the
# linker.
write_basic_package_version_file(${PROJECT_BINARY_DIR}/orva-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/orva-config.cmake ${PROJECT_BINARY_DIR}/orva-config-version.cmake
  DESTINATION ${package_dir})

# The path from lib/pkgconfig (or lib/<machine>/pkgconfig) up to the prefix.
file(RELATIVE_PATH ORVA_PC_TO_PREFIX /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(${CMAKE_CURRENT_LIST_DIR}/orva.pc.in ${PROJECT_BINARY_DIR}/orva.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/orva.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# What a host needs to use the module without this tree, as files and as a Debian package. Three
# components: "runtime" is enough to run, "dev" to write a host and to draw forms, "doc" is to read.

# Until 1.0 each minor version is an interface of its own.
set_target_properties(HostSupport HostSupportQt HostWidgets PROPERTIES
  VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})

# Everything finds its libraries from where it stands itself, so that the whole can be moved.
set_target_properties(HostSupport HostSupportQt HostWidgets Dialogs1 PROPERTIES
  INSTALL_RPATH "$ORIGIN")
set_target_properties(HostWidgetsDesigner PROPERTIES INSTALL_RPATH "$ORIGIN/..")
set_target_properties(Laplace_2 PROPERTIES
  INSTALL_RPATH "$ORIGIN/../../../${CMAKE_INSTALL_LIBDIR}")
set_target_properties(dialoghost brennixcheck PROPERTIES
  INSTALL_RPATH "$ORIGIN/${kv_libraries_from_programs}")

install(TARGETS kv_include HostSupport HostSupportQt HostWidgets EXPORT KelvarinDialogs
  RUNTIME COMPONENT runtime
  LIBRARY COMPONENT runtime NAMELINK_COMPONENT dev
  ARCHIVE COMPONENT dev)
install(TARGETS Dialogs1 LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime)
# A support library searches from the program, whatever LIBDIR is.
install(TARGETS Laplace_2 LIBRARY DESTINATION lib/kelvarin-dialogs/devices COMPONENT runtime)
install(TARGETS dialoghost brennixcheck RUNTIME COMPONENT runtime)
install(DIRECTORY docs/help docs/images DESTINATION ${kv_data_dir} COMPONENT runtime)
install(FILES docs/scripting.md DESTINATION ${kv_data_dir}/docs COMPONENT runtime)
install(DIRECTORY Samples/ DESTINATION ${kv_data_dir}/samples COMPONENT runtime)
# The licence sends the reader to the other file by this path.
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT runtime)
install(FILES docs/dependencies.md DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs COMPONENT runtime)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/KelvarinDialogs)
install(DIRECTORY Include/ DESTINATION ${kv_include_dir} COMPONENT dev
  FILES_MATCHING PATTERN "*.h" PATTERN "README.md")
install(TARGETS HostWidgetsDesigner LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/designer
  COMPONENT dev)
install(EXPORT KelvarinDialogs NAMESPACE Kelvarin:: DESTINATION ${package_dir} COMPONENT dev
  FILE KelvarinDialogsTargets.cmake)
set(kv_module_file
  ${CMAKE_INSTALL_LIBDIR}/${CMAKE_SHARED_MODULE_PREFIX}Dialogs1${CMAKE_SHARED_MODULE_SUFFIX})
include(CMakePackageConfigHelpers)
configure_package_config_file(cmake/KelvarinDialogsConfig.cmake.in
  ${CMAKE_BINARY_DIR}/KelvarinDialogsConfig.cmake
  INSTALL_DESTINATION ${package_dir} PATH_VARS kv_module_file)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/KelvarinDialogsConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_BINARY_DIR}/KelvarinDialogsConfig.cmake
  ${CMAKE_BINARY_DIR}/KelvarinDialogsConfigVersion.cmake
  DESTINATION ${package_dir} COMPONENT dev)

install(FILES docs/architecture.md docs/add-a-dialog.md
  DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs COMPONENT doc)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kelvarin-dialogs)
set(CPACK_PACKAGE_VENDOR "Kelvarin")
set(CPACK_PACKAGE_CONTACT "Kelvarin developers <dev@kelvarin.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /opt/kelvarin-dialogs)
set(CPACK_RESOURCE_FILE_LICENSE ${CMAKE_SOURCE_DIR}/LICENSE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_BINARY_DIR}/lib)
# What draws the icons is loaded by Qt; nothing links it.
set(CPACK_DEBIAN_PACKAGE_DEPENDS libqt5svg5)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS qtbase5-dev)  # to write a host
set(CPACK_STRIP_FILES ON)
include(CPack)

# What a host needs to use the module without this tree, as files and as a Debian package.

install(TARGETS kv_include HostSupport HostSupportQt HostWidgets EXPORT KelvarinDialogs
  LIBRARY DESTINATION lib)
install(TARGETS Dialogs1 LIBRARY DESTINATION lib)
install(TARGETS HostWidgetsDesigner LIBRARY DESTINATION lib/designer)
install(TARGETS dialoghost brennixcheck RUNTIME DESTINATION bin)
install(DIRECTORY Include/ DESTINATION include/kelvarin-dialogs FILES_MATCHING PATTERN "*.h")
install(DIRECTORY docs/help docs/images DESTINATION share/kelvarin-dialogs)
file(GLOB guides docs/*.md)
install(FILES ${guides} DESTINATION share/kelvarin-dialogs/docs)
install(DIRECTORY Samples/ DESTINATION share/kelvarin-dialogs/samples)

install(EXPORT KelvarinDialogs NAMESPACE Kelvarin:: DESTINATION lib/cmake/KelvarinDialogs
  FILE KelvarinDialogsTargets.cmake)
file(WRITE ${CMAKE_BINARY_DIR}/KelvarinDialogsConfig.cmake
"include(CMakeFindDependencyMacro)
find_dependency(Qt5 5.15 COMPONENTS Core Gui Widgets)
include(\${CMAKE_CURRENT_LIST_DIR}/KelvarinDialogsTargets.cmake)
set(KelvarinDialogs_MODULE \${CMAKE_CURRENT_LIST_DIR}/../../libDialogs1.so)
")
install(FILES ${CMAKE_BINARY_DIR}/KelvarinDialogsConfig.cmake
  DESTINATION lib/cmake/KelvarinDialogs)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kelvarin-dialogs)
set(CPACK_PACKAGE_VENDOR "Kelvarin")
set(CPACK_PACKAGE_CONTACT "Kelvarin developers <dev@kelvarin.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /opt/kelvarin-dialogs)
set(CPACK_RESOURCE_FILE_LICENSE ${CMAKE_SOURCE_DIR}/LICENSE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_BINARY_DIR}/lib)
set(CPACK_STRIP_FILES ON)
include(CPack)

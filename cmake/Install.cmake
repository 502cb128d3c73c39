# What `cmake --install` puts where: libraries, headers, scenarios, and the two descriptions by which
# other projects find them (CMake package, pkg-config). The tools install themselves.
include(CMakePackageConfigHelpers)

set(package_directory "${CMAKE_INSTALL_LIBDIR}/cmake/vellomar-controlbar")

# The libraries find each other, and the tools find them, wherever the prefix is moved to.
set_target_properties(vellomar-controlbar vellomar-lorimel vellomar-log-dll PROPERTIES
  INSTALL_RPATH "$ORIGIN")
set_target_properties(controlbar-host PROPERTIES
  INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")

set_target_properties(vellomar-headers PROPERTIES EXPORT_NAME headers)
set_target_properties(vellomar-controlbar PROPERTIES EXPORT_NAME controlbar)
set_target_properties(vellomar-lorimel PROPERTIES EXPORT_NAME lorimel)
set_target_properties(vellomar-log-dll PROPERTIES EXPORT_NAME log)

install(TARGETS vellomar-headers vellomar-controlbar vellomar-lorimel vellomar-log-dll
  EXPORT vellomar-controlbar
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
  ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}"
  RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
# Not for linking: it is loaded in place of the widget library, of which it has the name.
install(TARGETS vellomar-lorimel-headless
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}/vellomar/headless"
  RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}/vellomar/headless")
install(DIRECTORY include/vellomar DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
install(DIRECTORY scenarios/ DESTINATION "${CMAKE_INSTALL_DATADIR}/vellomar-controlbar/scenarios")
install(FILES LICENSE README.md DESTINATION "${CMAKE_INSTALL_DOCDIR}")

install(EXPORT vellomar-controlbar NAMESPACE vellomar:: DESTINATION "${package_directory}"
  FILE vellomar-controlbar-config.cmake)
write_basic_package_version_file(vellomar-controlbar-config-version.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/vellomar-controlbar-config-version.cmake"
  DESTINATION "${package_directory}")

# Where the prefix is, seen from the folder of the pkg-config file.
file(RELATIVE_PATH PREFIX_FROM_PKGCONFIG "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
configure_file(cmake/vellomar-controlbar.pc.in vellomar-controlbar.pc @ONLY)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/vellomar-controlbar.pc"
  DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")

# SPDX-License-Identifier: MIT
# What `cmake --install` puts where: libraries, headers, scenarios, and the two descriptions by which
# other projects find them (CMake package, pkg-config). The tools install themselves.
include(CMakePackageConfigHelpers)

set(package_directory "${CMAKE_INSTALL_LIBDIR}/cmake/vellomar-controlbar")

set(libraries vellomar-controlbar vellomar-log-dll)
if(NOT WIN32)
  list(APPEND libraries vellomar-lorimel)
  set_target_properties(vellomar-lorimel PROPERTIES EXPORT_NAME lorimel)
endif()
# The libraries find each other, and the tools find them, wherever the prefix is moved to.
set_target_properties(${libraries} PROPERTIES INSTALL_RPATH "$ORIGIN")
set_target_properties(controlbar-host PROPERTIES
  INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")

set_target_properties(vellomar-headers PROPERTIES EXPORT_NAME headers)
set_target_properties(vellomar-dev-headers PROPERTIES EXPORT_NAME dev-headers)
set_target_properties(vellomar-controlbar PROPERTIES EXPORT_NAME controlbar)
set_target_properties(vellomar-log-dll PROPERTIES EXPORT_NAME log)

install(TARGETS vellomar-headers vellomar-dev-headers ${libraries}
  EXPORT vellomar-controlbar
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
  ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}"
  RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
if(WIN32)
  # The one development build of the widget library, where the plug-in looks for it.
  install(TARGETS vellomar-lorimel-headless RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
  # Import libraries for Microsoft's linker, and of the widget library the one for MinGW as well.
  install(DIRECTORY "${VELLOMAR_IMPORT_LIBRARIES}/" DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    FILES_MATCHING PATTERN "*.lib")
  get_target_property(import_libraries vellomar-lorimel INTERFACE_LINK_LIBRARIES)
  list(FILTER import_libraries INCLUDE REGEX "\\.dll\\.a$")
  install(FILES ${import_libraries} DESTINATION "${CMAKE_INSTALL_LIBDIR}")
  # The folder whose path the plug-in works out from its own.
  install(DIRECTORY stand_ins/widgets/qt/icons/ DESTINATION "${CMAKE_INSTALL_BINDIR}/res")
else()
  # Not for linking: it is loaded in place of the widget library, of which it has the name.
  install(TARGETS vellomar-lorimel-headless
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}/vellomar/headless")
endif()
install(DIRECTORY include/vellomar stand_ins/include/vellomar_dev
  DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
install(DIRECTORY docs/ DESTINATION "${CMAKE_INSTALL_DOCDIR}/docs")
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

# What an installed Quillon consists of: both shared libraries, their headers, the CMake package and
# the pkg-config file. Every path in it is relative, so the tree may be moved.
include(CMakePackageConfigHelpers)

set_target_properties(quillon fdo_sdk PROPERTIES
  VERSION ${PROJECT_VERSION}
  SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}
  INSTALL_RPATH "$ORIGIN")

install(TARGETS quillon fdo_sdk EXPORT QuillonTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/fdo" DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY "${PROJECT_SOURCE_DIR}/sdk/include/" DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/fdo_sdk)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Quillon)
install(EXPORT QuillonTargets NAMESPACE Quillon:: DESTINATION ${package_dir})
write_basic_package_version_file("${PROJECT_BINARY_DIR}/QuillonConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
file(WRITE "${PROJECT_BINARY_DIR}/QuillonConfig.cmake"
  "include(\"\${CMAKE_CURRENT_LIST_DIR}/QuillonTargets.cmake\")\n")
install(FILES "${PROJECT_BINARY_DIR}/QuillonConfig.cmake" "${PROJECT_BINARY_DIR}/QuillonConfigVersion.cmake"
  DESTINATION ${package_dir})

# From the folder of the .pc file back to the prefix.
file(RELATIVE_PATH prefix_from_pc "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
configure_file("${PROJECT_SOURCE_DIR}/cmake/quillon.pc.in" "${PROJECT_BINARY_DIR}/quillon.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/quillon.pc" DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

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

# An installed copy is used as a program of somebody else would use it; sanitizers would want that
# program built with them, too.
if(QUILLON_BUILD_TESTS AND QUILLON_BUILD_EXAMPLES AND NOT QUILLON_SANITIZE AND NOT QUILLON_COVERAGE)
  add_test(NAME installed_package
    COMMAND ${CMAKE_COMMAND}
      -DBUILD_DIR=${PROJECT_BINARY_DIR}
      -DEXAMPLES_DIR=${PROJECT_SOURCE_DIR}/examples
      -DWORK_DIR=${PROJECT_BINARY_DIR}/installed-package
      -DLIBDIR=${CMAKE_INSTALL_LIBDIR}
      -DCXX=${CMAKE_CXX_COMPILER}
      -DINPUT=${QUILLON_TEST_DATA}/world.gpkg
      -P ${PROJECT_SOURCE_DIR}/cmake/check_install.cmake)
  set_tests_properties(installed_package PROPERTIES TIMEOUT 300)
endif()

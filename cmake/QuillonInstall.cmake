# What an installed Quillon consists of: both shared libraries, their headers, the CMake package and
# the pkg-config file. Every path in it is relative, so the tree may be moved.
include(CMakePackageConfigHelpers)

if(QUILLON_FDO_SDK STREQUAL "bundled")
  set(libraries quillon fdo_sdk)
  set(rpath "$ORIGIN")
  # System headers, as in the CMake package: compilers warn of published results such as const double.
  set(fdo_sdk_cflags "-isystem \${includedir}/fdo_sdk")
  set(fdo_sdk_libs "-lfdo_sdk")
else()
  set(libraries quillon)
  set(rpath "$ORIGIN;${QUILLON_FDO_SDK_LIBRARY_DIR}")
  set(fdo_sdk_cflags "-I${QUILLON_FDO_SDK_INCLUDE_DIR}")
  list(JOIN QUILLON_FDO_SDK_LIBRARIES " " fdo_sdk_libs)
endif()
set_target_properties(${libraries} PROPERTIES
  VERSION ${PROJECT_VERSION}
  SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}
  INSTALL_RPATH "${rpath}")

install(TARGETS ${libraries} EXPORT QuillonTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/fdo" DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
if(QUILLON_FDO_SDK STREQUAL "bundled")
  install(DIRECTORY "${PROJECT_SOURCE_DIR}/sdk/include/" DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/fdo_sdk)
endif()

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Quillon)
install(EXPORT QuillonTargets NAMESPACE Quillon:: DESTINATION ${package_dir})
write_basic_package_version_file("${PROJECT_BINARY_DIR}/QuillonConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
set(config "include(\"\${CMAKE_CURRENT_LIST_DIR}/QuillonTargets.cmake\")\n")
if(NOT QUILLON_FDO_SDK STREQUAL "bundled")
  # Whoever has the SDK elsewhere sets QUILLON_FDO_SDK before find_package.
  install(FILES "${PROJECT_SOURCE_DIR}/cmake/QuillonFdoSdk.cmake" DESTINATION ${package_dir})
  string(PREPEND config
    "if(NOT TARGET fdo_sdk)\n"
    "  if(NOT QUILLON_FDO_SDK)\n"
    "    set(QUILLON_FDO_SDK \"${QUILLON_FDO_SDK}\")\n"
    "  endif()\n"
    "  include(\"\${CMAKE_CURRENT_LIST_DIR}/QuillonFdoSdk.cmake\")\n"
    "  quillon_add_fdo_sdk(\"\${QUILLON_FDO_SDK}\")\n"
    "endif()\n")
endif()
file(WRITE "${PROJECT_BINARY_DIR}/QuillonConfig.cmake" "${config}")
install(FILES "${PROJECT_BINARY_DIR}/QuillonConfig.cmake" "${PROJECT_BINARY_DIR}/QuillonConfigVersion.cmake"
  DESTINATION ${package_dir})

# From the folder of the .pc file back to the prefix.
file(RELATIVE_PATH prefix_from_pc "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
configure_file("${PROJECT_SOURCE_DIR}/cmake/quillon.pc.in" "${PROJECT_BINARY_DIR}/quillon.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/quillon.pc" DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# An installed copy is used as a program of somebody else would use it; sanitizers would want that
# program built with them, too. For Windows the test windows_package does so with what is packed.
if(QUILLON_BUILD_TESTS AND QUILLON_BUILD_EXAMPLES AND UNIX AND NOT QUILLON_SANITIZE
   AND NOT QUILLON_COVERAGE AND QUILLON_FDO_SDK STREQUAL "bundled")
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

# The library compiles against an SDK that is installed elsewhere, laid out as official ones are.
if(QUILLON_BUILD_TESTS AND UNIX AND NOT QUILLON_SANITIZE AND NOT QUILLON_COVERAGE
   AND QUILLON_FDO_SDK STREQUAL "bundled")
  add_test(NAME external_fdo_sdk
    COMMAND ${CMAKE_COMMAND}
      -DSOURCE_DIR=${PROJECT_SOURCE_DIR}
      -DSDK_LIBRARY=$<TARGET_FILE:fdo_sdk>
      -DWORK_DIR=${PROJECT_BINARY_DIR}/external-fdo-sdk
      -DCXX=${CMAKE_CXX_COMPILER}
      -DLAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER}
      -DGENERATOR=${CMAKE_GENERATOR}
      -P ${PROJECT_SOURCE_DIR}/cmake/check_external_fdo_sdk.cmake)
  set_tests_properties(external_fdo_sdk PROPERTIES TIMEOUT 900)
endif()

# The ZIP that a Windows user unpacks and runs: what an installed Quillon consists of, the libraries of the compiler,
# licences and a README.txt. cpack makes it, in the build folder. For the cross-build of scripts/test-windows.

# Stripped copies of the compiler's libraries stand beside the programs in the build tree, too, so that its bin is
# complete.
set(quillon_runtime_folder "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
set(quillon_runtime)
foreach(library IN ITEMS libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
  execute_process(COMMAND "${CMAKE_CXX_COMPILER}" "-print-file-name=${library}"
    OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  if(NOT EXISTS "${file}")
    message(FATAL_ERROR "${library} is not found beside ${CMAKE_CXX_COMPILER}")
  endif()
  add_custom_command(OUTPUT "${quillon_runtime_folder}/${library}"
    COMMAND "${CMAKE_STRIP}" --strip-unneeded -o "${quillon_runtime_folder}/${library}" "${file}"
    DEPENDS "${file}" VERBATIM)
  list(APPEND quillon_runtime "${quillon_runtime_folder}/${library}")
endforeach()
add_custom_target(windows_runtime ALL DEPENDS ${quillon_runtime})
install(FILES ${quillon_runtime} DESTINATION "${CMAKE_INSTALL_BINDIR}")

# scripts/windows-libraries puts the licences of what it builds beside them; those of the compiler's libraries are
# Debian's.
install(DIRECTORY "${PROJECT_SOURCE_DIR}/build/windows-libraries/licenses" DESTINATION .)
install(FILES /usr/share/doc/gcc-mingw-w64-base/copyright DESTINATION licenses RENAME gcc-runtime.txt)
install(FILES /usr/share/doc/mingw-w64-common/copyright DESTINATION licenses RENAME mingw-w64.txt)
install(FILES /usr/share/common-licenses/GPL-3 DESTINATION licenses RENAME GPL-3.txt)
cmake_host_system_information(RESULT QUILLON_DEBIAN_RELEASE QUERY DISTRIB_VERSION_ID)
configure_file(cmake/windows-readme.txt.in "${PROJECT_BINARY_DIR}/README.txt" @ONLY NEWLINE_STYLE WIN32)
configure_file(LICENSE "${PROJECT_BINARY_DIR}/LICENSE.txt" @ONLY NEWLINE_STYLE WIN32)
install(FILES "${PROJECT_BINARY_DIR}/README.txt" "${PROJECT_BINARY_DIR}/LICENSE.txt" DESTINATION .)
install(DIRECTORY examples DESTINATION .)
install(FILES docs/windows.md DESTINATION docs)

set(quillon_package "quillon-${PROJECT_VERSION}-windows-x86_64")
set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_FILE_NAME "${quillon_package}")
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}")
set(CPACK_PACKAGE_VENDOR "The Quillon developers")
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)  # a test packs what is built
include(CPack)

if(QUILLON_BUILD_TESTS AND CMAKE_CROSSCOMPILING_EMULATOR)
  add_test(NAME windows_package
    COMMAND ${CMAKE_COMMAND}
      -DCPACK=${CMAKE_CPACK_COMMAND}
      -DCPACK_CONFIG=${PROJECT_BINARY_DIR}/CPackConfig.cmake
      -DPACKAGE=${PROJECT_BINARY_DIR}/${quillon_package}
      -DWORK_DIR=${PROJECT_BINARY_DIR}/windows-package
      -DTOOLCHAIN=${CMAKE_TOOLCHAIN_FILE}
      -DGENERATOR=${CMAKE_GENERATOR}
      -DOBJDUMP=${CMAKE_OBJDUMP}
      -DEMULATOR=${CMAKE_CROSSCOMPILING_EMULATOR}
      -DVERSION=${PROJECT_VERSION}
      -P ${PROJECT_SOURCE_DIR}/cmake/check_windows_package.cmake)
  set_tests_properties(windows_package PROPERTIES TIMEOUT 600)
endif()

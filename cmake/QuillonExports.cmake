# What the libraries offer to other programs is listed in cmake/exports, in one list for all platforms.
#
#   quillon_limit_exports(TARGET)   hides everything else of a shared object: cmake/exports/TARGET.map
#   quillon_test_exports(TARGET)    holds the library to the names in cmake/exports/TARGET.txt
#
# After a change of the interface, from the builds of the presets dev and mingw:
#
#   scripts/exported-interface list build/dev/lib/libquillon.so build/mingw/bin/quillon.dll >cmake/exports/quillon.txt

function(quillon_limit_exports target)
  if(CMAKE_EXECUTABLE_FORMAT STREQUAL "ELF")
    set(map "${PROJECT_SOURCE_DIR}/cmake/exports/${target}.map")
    target_link_options(${target} PRIVATE "LINKER:--version-script=${map}")
    set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS "${map}")
  endif()
endfunction()

# An instrumented library has the names of its instruments, too.
function(quillon_test_exports target)
  if(NOT QUILLON_BUILD_TESTS OR QUILLON_SANITIZE OR QUILLON_COVERAGE OR MSVC OR NOT CMAKE_HOST_UNIX)
    return()
  endif()
  add_test(NAME ${target}_exports
    COMMAND "${PROJECT_SOURCE_DIR}/scripts/exported-interface" check $<TARGET_FILE:${target}>
      "${PROJECT_SOURCE_DIR}/cmake/exports/${target}.txt")
endfunction()

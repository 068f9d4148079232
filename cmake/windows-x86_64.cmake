# Cross-builds for 64-bit Windows with mingw-w64, with threads as POSIX has them.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# Libraries are those of scripts/windows-libraries.
get_filename_component(windows_libraries "${CMAKE_CURRENT_LIST_DIR}/../build/windows-libraries" ABSOLUTE)
set(CMAKE_FIND_ROOT_PATH "${windows_libraries}" /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Tests run under Wine.
get_filename_component(run_under_wine "${CMAKE_CURRENT_LIST_DIR}/../scripts/run-under-wine" ABSOLUTE)
set(CMAKE_CROSSCOMPILING_EMULATOR "${run_under_wine}")

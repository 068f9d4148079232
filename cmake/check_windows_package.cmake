# Packs the ZIP, unpacks it into a folder of its own, and uses it there as somebody would who has nothing else: every
# library that is imported is in it or part of Windows, an example is built against it, and its quillon.exe works on the
# store that the example makes.
#
#   cmake -DCPACK=cpack -DCPACK_CONFIG=... -DPACKAGE=PATH_WITHOUT_SUFFIX -DWORK_DIR=... -DTOOLCHAIN=... -DGENERATOR=...
#         -DOBJDUMP=... -DEMULATOR=... -DVERSION=... -P check_windows_package.cmake
cmake_minimum_required(VERSION 3.25)
include("${CMAKE_CURRENT_LIST_DIR}/run_command.cmake")

run("${CPACK}" --config "${CPACK_CONFIG}")
file(REMOVE_RECURSE "${WORK_DIR}")
set(folder "${WORK_DIR}/Größe łąka 地図")
file(ARCHIVE_EXTRACT INPUT "${PACKAGE}.zip" DESTINATION "${folder}")
get_filename_component(name "${PACKAGE}" NAME)
set(root "${folder}/${name}")

foreach(file IN ITEMS
    bin/quillon.exe bin/quillon.dll bin/fdo_sdk.dll bin/providers.xml bin/providers/SQLiteProvider.dll
    lib/libquillon.dll.a lib/libfdo_sdk.dll.a lib/cmake/Quillon/QuillonConfig.cmake
    include/fdo/quillon.h include/fdo_sdk/Fdo.h
    README.txt LICENSE.txt docs/windows.md licenses/geos.txt licenses/sqlite3.txt licenses/gcc-runtime.txt)
  if(NOT EXISTS "${root}/${file}")
    message(FATAL_ERROR "${file} is not in ${PACKAGE}.zip")
  endif()
endforeach()

# Libraries that every 64-bit Windows has.
set(system advapi32.dll kernel32.dll msvcrt.dll psapi.dll shell32.dll user32.dll)
file(GLOB_RECURSE binaries RELATIVE "${root}" "${root}/*.exe" "${root}/*.dll")
list(LENGTH binaries count)
if(count LESS 6)
  message(FATAL_ERROR "only these are programs or libraries: ${binaries}")
endif()
foreach(binary IN LISTS binaries)
  run("${OBJDUMP}" -p "${root}/${binary}")
  string(REGEX MATCHALL "DLL Name: [^\n]+" imports "${output}")
  foreach(import IN LISTS imports)
    string(REPLACE "DLL Name: " "" import "${import}")
    string(TOLOWER "${import}" lower)
    if(NOT lower IN_LIST system AND NOT EXISTS "${root}/bin/${import}")
      message(FATAL_ERROR "${binary} needs ${import}, which is neither in the ZIP nor part of Windows")
    endif()
  endforeach()
  run("${OBJDUMP}" -h "${root}/${binary}")
  if(output MATCHES "\\.debug_")
    message(FATAL_ERROR "${binary} is not stripped")
  endif()
endforeach()

# A developer's program. The package of the ZIP is named, since the toolchain looks for packages in its own places.
run("${CMAKE_COMMAND}" -S "${root}/examples" -B "${WORK_DIR}/build" -G "${GENERATOR}" "--toolchain" "${TOOLCHAIN}"
    "-DQuillon_DIR=${root}/lib/cmake/Quillon" -DCMAKE_BUILD_TYPE=Debug "-DCMAKE_CXX_FLAGS_DEBUG=-O0")
run("${CMAKE_COMMAND}" --build "${WORK_DIR}/build")
file(COPY "${WORK_DIR}/build/sqlite_store.exe" "${WORK_DIR}/build/read_layer.exe" DESTINATION "${root}/bin")

# use(CODE EXPECTED PROGRAM ARGUMENT...) runs a program of the unpacked folder there, with nothing else to find libraries
# by.
function(use code expected program)
  execute_process(COMMAND "${EMULATOR}" --alone "${root}/bin/${program}" ${ARGN} WORKING_DIRECTORY "${root}"
    RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors)
  list(JOIN ARGN " " arguments)
  if(NOT result EQUAL code OR NOT "${output}${errors}" MATCHES "${expected}")
    message(FATAL_ERROR "${program} ${arguments}: ${result}, not ${code} with \"${expected}\"\n${output}${errors}")
  endif()
endfunction()
use(0 "4 towns, the largest has 52000" sqlite_store.exe places.sqlite)
use(0 "${VERSION}" quillon.exe --version)
use(0 "OSGeo.SQLite" quillon.exe providers)
use(0 "Town" quillon.exe info places.sqlite)
use(0 "Harbour" quillon.exe query places.sqlite --where "People > 50000")
use(0 "" quillon.exe convert places.sqlite łąka.sqlite)
use(0 "Harbour" quillon.exe query łąka.sqlite --where "People > 50000" --select Name,Place)
use(0 "52000" quillon.exe stats łąka.sqlite People)
# Files that no provider reads are for GDAL, which is not in the ZIP.
file(WRITE "${root}/points.csv" "id,x\n1,2\n")
use(1 "cannot open" read_layer.exe points.csv "id < 2")
use(3 "GDAL" quillon.exe info points.csv)
message(STATUS "${PACKAGE}.zip: ${count} programs and libraries")

# Puts the bundled SDK's headers and library into another prefix, under the names that official SDKs have, and
# builds what calls it most against that copy, without sdk/: the back end, and the tour of the SDK, which is
# run. With QUILLON_WHOLE_LIBRARY set in the environment, all of libquillon.
#
#   cmake -DSOURCE_DIR=... -DSDK_LIBRARY=FILE -DWORK_DIR=... -DCXX=g++ -DLAUNCHER= -DGENERATOR=Ninja
#         -P check_external_fdo_sdk.cmake
include("${CMAKE_CURRENT_LIST_DIR}/run_command.cmake")

file(REMOVE_RECURSE "${WORK_DIR}")
set(official "${WORK_DIR}/official")
file(COPY "${SOURCE_DIR}/sdk/include/" DESTINATION "${official}/Inc")
file(COPY "${SDK_LIBRARY}" DESTINATION "${official}/Lib64" FOLLOW_SYMLINK_CHAIN)
get_filename_component(library "${SDK_LIBRARY}" NAME)
# Programs ask for the library by its soname when they start.
get_filename_component(folder "${SDK_LIBRARY}" DIRECTORY)
file(GLOB names RELATIVE "${folder}" "${folder}/libfdo_sdk.so.*")
foreach(name IN LISTS names)
  if(NOT name STREQUAL library)
    file(CREATE_LINK "${library}" "${official}/Lib64/${name}" SYMBOLIC)
  endif()
endforeach()
# One library stands for all of them.
foreach(name IN ITEMS FDO FDOCommon FDOGeometry FDOSpatial)
  file(CREATE_LINK "${library}" "${official}/Lib64/lib${name}.so" SYMBOLIC)
endforeach()

run("${CMAKE_COMMAND}" -S "${SOURCE_DIR}" -B "${WORK_DIR}/build" -G "${GENERATOR}"
    "-DQUILLON_FDO_SDK=${official}" "-DCMAKE_CXX_COMPILER=${CXX}" "-DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER}"
    "-DCMAKE_CXX_FLAGS=-O0" -DCMAKE_EXPORT_COMPILE_COMMANDS=ON
    -DQUILLON_BUILD_TESTS=OFF -DQUILLON_BUILD_TOOLS=OFF -DQUILLON_BUILD_EXAMPLES=ON)
file(READ "${WORK_DIR}/build/compile_commands.json" commands)
if(commands MATCHES "sdk/(include|runtime|providers)")
  message(FATAL_ERROR "the bundled SDK is built or included: ${CMAKE_MATCH_0}")
endif()
set(targets quillon_fdo_backend fdo_sdk_tour)
if(DEFINED ENV{QUILLON_WHOLE_LIBRARY})
  list(APPEND targets quillon)
endif()
run("${CMAKE_COMMAND}" --build "${WORK_DIR}/build" --parallel 2 --target ${targets})
file(GLOB_RECURSE tour "${WORK_DIR}/build/fdo_sdk_tour" "${WORK_DIR}/build/*/fdo_sdk_tour")
list(GET tour 0 tour)
run("${tour}")
if(NOT output MATCHES "box 0 0 to 6 7")
  message(FATAL_ERROR "the tour of the SDK prints\n${output}")
endif()

# A path without an SDK is refused with what is missing there.
execute_process(
  COMMAND "${CMAKE_COMMAND}" -S "${SOURCE_DIR}" -B "${WORK_DIR}/refused" -G "${GENERATOR}"
    "-DQUILLON_FDO_SDK=${WORK_DIR}/nowhere" "-DCMAKE_CXX_COMPILER=${CXX}"
  RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
if(result EQUAL 0 OR NOT output MATCHES "there is no Fdo.h")
  message(FATAL_ERROR "a folder without an SDK was taken:\n${output}")
endif()

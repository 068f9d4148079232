# Installs the build tree, moves what was installed, and builds and runs the examples against the moved
# copy alone: once through find_package(Quillon), once through pkg-config.
#
#   cmake -DBUILD_DIR=... -DEXAMPLES_DIR=... -DWORK_DIR=... -DLIBDIR=lib -DCXX=g++ -DINPUT=FILE -P check_install.cmake
include("${CMAKE_CURRENT_LIST_DIR}/run_command.cmake")

file(REMOVE_RECURSE "${WORK_DIR}")
file(MAKE_DIRECTORY "${WORK_DIR}")
run("${CMAKE_COMMAND}" --install "${BUILD_DIR}" --prefix "${WORK_DIR}/installed")
set(moved "${WORK_DIR}/moved")
file(RENAME "${WORK_DIR}/installed" "${moved}")

run("${CMAKE_COMMAND}" -S "${EXAMPLES_DIR}" -B "${WORK_DIR}/build" "-DCMAKE_PREFIX_PATH=${moved}"
    "-DCMAKE_CXX_COMPILER=${CXX}")
run("${CMAKE_COMMAND}" --build "${WORK_DIR}/build")
run("${WORK_DIR}/build/read_layer" "${INPUT}" "pop > 200000000")
set(from_package "${output}")
# The provider is found beside the moved SDK.
run("${WORK_DIR}/build/sqlite_store" "${WORK_DIR}/places.sqlite")
# So are the libraries of the moved tool.
run("${moved}/bin/quillon" info "${WORK_DIR}/places.sqlite")

set(ENV{PKG_CONFIG_PATH} "${moved}/${LIBDIR}/pkgconfig")
run(pkg-config --cflags --libs quillon)
separate_arguments(flags UNIX_COMMAND "${output}")
# Nothing in the headers is to trouble those who want to hear of everything.
run("${CXX}" -std=c++17 -Wall -Wextra -Wpedantic -Wconversion -Werror
    "${EXAMPLES_DIR}/read_layer.cc" -o "${WORK_DIR}/read_layer" ${flags} "-Wl,-rpath,${moved}/${LIBDIR}")
run("${WORK_DIR}/read_layer" "${INPUT}" "pop > 200000000")

if(NOT output STREQUAL from_package OR NOT output MATCHES "China")
  message(FATAL_ERROR "the two programs print\n${from_package}\nand\n${output}")
endif()
message(STATUS "${output}")

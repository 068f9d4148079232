# An FDO SDK that is installed on the machine, as the target fdo_sdk, instead of the bundled one. Used while
# Quillon is built with QUILLON_FDO_SDK=PATH, and again by the package of a Quillon that was built so.
#
# The path is where an official SDK is (Inc/Fdo.h, libFDO and its companions in Lib, Lib64, lib or lib64), or
# the prefix of an installed Quillon (include/fdo_sdk/Fdo.h, libfdo_sdk).
set(quillon_fdo_sdk_headers Fdo.h FdoCommon.h FdoGeometry.h FdoSpatial.h)

function(quillon_add_fdo_sdk path)
  find_path(QUILLON_FDO_SDK_INCLUDE_DIR Fdo.h
    PATHS "${path}" PATH_SUFFIXES Inc inc include/fdo_sdk include NO_DEFAULT_PATH NO_CACHE)
  if(NOT QUILLON_FDO_SDK_INCLUDE_DIR)
    message(FATAL_ERROR "QUILLON_FDO_SDK: there is no Fdo.h in Inc, include/fdo_sdk or include of ${path}")
  endif()
  foreach(header IN LISTS quillon_fdo_sdk_headers)
    if(NOT EXISTS "${QUILLON_FDO_SDK_INCLUDE_DIR}/${header}")
      message(FATAL_ERROR "QUILLON_FDO_SDK: there is no ${header} in ${QUILLON_FDO_SDK_INCLUDE_DIR}")
    endif()
  endforeach()

  # One library holds all of this project's SDK. An official one needs FDO, and has the parts beside it.
  file(GLOB folders LIST_DIRECTORIES true "${path}/[Ll]ib*" "${path}/[Ll]ib*/*-linux-gnu")
  set(libraries)
  foreach(name IN ITEMS fdo_sdk FDO FDOCommon FDOGeometry FDOSpatial FDOMessage)
    find_library(QUILLON_FDO_SDK_${name} ${name} PATHS ${folders} NO_DEFAULT_PATH NO_CACHE)
    if(QUILLON_FDO_SDK_${name})
      list(APPEND libraries "${QUILLON_FDO_SDK_${name}}")
    endif()
  endforeach()
  if(NOT QUILLON_FDO_SDK_fdo_sdk AND NOT QUILLON_FDO_SDK_FDO)
    message(FATAL_ERROR "QUILLON_FDO_SDK: there is neither libFDO nor libfdo_sdk in Lib* or lib* of ${path}")
  endif()
  list(GET libraries 0 first)
  get_filename_component(folder "${first}" DIRECTORY)

  add_library(fdo_sdk INTERFACE IMPORTED GLOBAL)
  set_target_properties(fdo_sdk PROPERTIES
    INTERFACE_INCLUDE_DIRECTORIES "${QUILLON_FDO_SDK_INCLUDE_DIR}"
    INTERFACE_LINK_LIBRARIES "${libraries}")
  add_library(Quillon::fdo_sdk ALIAS fdo_sdk)

  set(QUILLON_FDO_SDK_INCLUDE_DIR "${QUILLON_FDO_SDK_INCLUDE_DIR}" PARENT_SCOPE)
  set(QUILLON_FDO_SDK_LIBRARIES "${libraries}" PARENT_SCOPE)
  set(QUILLON_FDO_SDK_LIBRARY_DIR "${folder}" PARENT_SCOPE)
endfunction()

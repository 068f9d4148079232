# Runs every job of BENCH once over little data, to show that both sides work and agree, and that the
# figures come out as the JSON that is promised. Times are not looked at.
#
#   cmake -DBENCH=program -DDIRECTORY=scratch -P smoke_test.cmake
cmake_minimum_required(VERSION 3.25)

file(REMOVE_RECURSE "${DIRECTORY}")
file(MAKE_DIRECTORY "${DIRECTORY}")
execute_process(COMMAND "${BENCH}" --list OUTPUT_VARIABLE listing COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^\n]+" jobs "${listing}")
list(LENGTH jobs job_count)

execute_process(
  COMMAND "${BENCH}" --smoke --rows 2000 --data "${DIRECTORY}/data" --json "${DIRECTORY}/figures.json"
  COMMAND_ERROR_IS_FATAL ANY)
file(READ "${DIRECTORY}/figures.json" figures)
string(JSON figure_count LENGTH "${figures}")
if(job_count EQUAL 0 OR NOT figure_count EQUAL job_count)
  message(FATAL_ERROR "${job_count} jobs are listed, ${figure_count} have figures")
endif()

math(EXPR last "${figure_count} - 1")
foreach(i RANGE ${last})
  foreach(key IN ITEMS job data unit)
    string(JSON type TYPE "${figures}" ${i} ${key})
    if(NOT type STREQUAL "STRING")
      message(FATAL_ERROR "figure ${i}: \"${key}\" is ${type}")
    endif()
  endforeach()
  foreach(key IN ITEMS ours peer ratio)
    string(JSON type TYPE "${figures}" ${i} ${key})
    if(NOT type STREQUAL "NUMBER")
      message(FATAL_ERROR "figure ${i}: \"${key}\" is ${type}")
    endif()
  endforeach()
  string(JSON name GET "${figures}" ${i} job)
  string(JSON data GET "${figures}" ${i} data)
  list(GET jobs ${i} listed)
  if(NOT listed STREQUAL "${name} ${data}")
    message(FATAL_ERROR "figure ${i} is of \"${name} ${data}\", listed is \"${listed}\"")
  endif()
endforeach()

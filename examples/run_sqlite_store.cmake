# Runs sqlite_store, which makes a new file, where an earlier run may have left one.
#
#   cmake -DPROGRAM=.../sqlite_store -DFILE=.../places.sqlite -P run_sqlite_store.cmake
#
# PROGRAM may be a list that begins with what runs programs of another platform.
file(REMOVE "${FILE}")
execute_process(COMMAND ${PROGRAM} "${FILE}" COMMAND_ERROR_IS_FATAL ANY)

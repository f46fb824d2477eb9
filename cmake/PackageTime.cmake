# Read by cpack: the time that all files in the package get, so that the same commit gives the same package.

if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})
  execute_process(COMMAND git -C ${CPACK_KORVEX_SOURCE_DIR} log -1 --format=%ct
    RESULT_VARIABLE failed OUTPUT_VARIABLE moment OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
  if(failed)
    # No repository: the day of the version must do.
    execute_process(COMMAND date --utc --date=${CPACK_KORVEX_VERSION_DATE} +%s
      OUTPUT_VARIABLE moment OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  endif()
  set(ENV{SOURCE_DATE_EPOCH} ${moment})
endif()

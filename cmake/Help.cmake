# The help: everything under help/KORVEXV2001 put into a target's resources, as :/help/KORVEXV2001/PAGE.html and so on.
# korvex_help(korvex_ui)

function(korvex_help target)
  file(GLOB_RECURSE files CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/help/KORVEXV2001/*)
  if(NOT files)
    message(FATAL_ERROR "help/KORVEXV2001 holds no page")
  endif()
  qt_add_resources(${target} help PREFIX /help BASE ${CMAKE_SOURCE_DIR}/help FILES ${files}
    OPTIONS --format-version 1)
endfunction()

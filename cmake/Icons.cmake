# Icons: every src/ui/icons/NAME.svg drawn into PNGs at build time and put into a target's resources.
# korvex_icons(korvex_ui) makes :/icons/NAME-16.png and so on; the files themselves lie in KORVEX_ICON_FOLDER.

set(KORVEX_ICON_FOLDER ${CMAKE_BINARY_DIR}/icons)
# Desktops show the program's own icon in docks and menus, far larger than the list shows the others.
set(KORVEX_PROGRAM_ICON_SIZES 16 24 32 48 64 128 256)

function(korvex_icons target)
  file(GLOB pictures CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/ui/icons/*.svg)
  if(NOT pictures)
    message(FATAL_ERROR "src/ui/icons holds no picture")
  endif()
  file(MAKE_DIRECTORY ${KORVEX_ICON_FOLDER})

  set(drawn "")
  foreach(picture IN LISTS pictures)
    get_filename_component(name ${picture} NAME_WE)
    set(sizes 16 24 32 48)
    if(name STREQUAL PROJECT_NAME)
      set(sizes ${KORVEX_PROGRAM_ICON_SIZES})
    endif()
    foreach(size IN LISTS sizes)
      set(file ${KORVEX_ICON_FOLDER}/${name}-${size}.png)
      add_custom_command(OUTPUT ${file}
        COMMAND draw_icons ${picture} ${size} ${file}
        DEPENDS draw_icons ${picture}
        COMMENT "Drawing ${name} at ${size} pixels"
        VERBATIM)
      list(APPEND drawn ${file})
    endforeach()
  endforeach()

  # Later formats hold the time when each picture was drawn: no two builds would give the same program.
  qt_add_resources(${target} icons PREFIX /icons BASE ${KORVEX_ICON_FOLDER} FILES ${drawn} OPTIONS --format-version 1)
endfunction()

# What is installed and where, and the Debian package made of it: cmake --build --preset release --target package

include(GNUInstallDirs)
include(Icons)

set(KORVEX_PACKAGING ${CMAKE_SOURCE_DIR}/packaging)
set(KORVEX_PACKAGING_BINARY ${CMAKE_BINARY_DIR}/packaging)
set(KORVEX_MAINTAINER "autoři programu KORVEX <korvex@localhost.invalid>")

# korvex_compressed(FILE): FILE.gz beside it when everything is built, the same bytes from the same file.
function(korvex_compressed file)
  get_filename_component(name ${file} NAME)
  add_custom_command(OUTPUT ${file}.gz
    COMMAND gzip -9nkf ${file}
    DEPENDS ${file}
    COMMENT "Compressing ${name}"
    VERBATIM)
  add_custom_target(compressed_${name} ALL DEPENDS ${file}.gz)
endfunction()

# korvex_install_program(korvexzdr): the program and its manual pages packaging/korvexzdr.1.in and korvexzdr.cs.1.in.
function(korvex_install_program name)
  install(TARGETS ${name} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  foreach(language en cs)
    set(page ${name}.${language}.1)
    set(folder ${CMAKE_INSTALL_MANDIR}/${language}/man1)
    if(language STREQUAL "en")
      set(page ${name}.1)
      set(folder ${CMAKE_INSTALL_MANDIR}/man1)
    endif()
    configure_file(${KORVEX_PACKAGING}/${page}.in ${KORVEX_PACKAGING_BINARY}/${page} @ONLY)
    korvex_compressed(${KORVEX_PACKAGING_BINARY}/${page})
    install(FILES ${KORVEX_PACKAGING_BINARY}/${page}.gz DESTINATION ${folder} RENAME ${name}.1.gz)
  endforeach()
endfunction()

# Appends a line of an entry to the changelog, broken as Debian wants it: before the 80th column.
function(korvex_append_wrapped text_var mark line)
  string(REPLACE ";" "\\;" words "${line}")
  string(REPLACE " " ";" words "${words}")
  set(text "${${text_var}}")
  set(row "${mark}")
  foreach(word IN LISTS words)
    string(LENGTH "${row} ${word}" width)
    if(width GREATER 79)
      string(APPEND text "${row}\n")
      set(row "   ")
    endif()
    string(APPEND row " ${word}")
  endforeach()
  set(${text_var} "${text}${row}\n" PARENT_SCOPE)
endfunction()

# The text of CHANGELOG.md as the package's changelog and as the releases of the metainfo. What is not released yet
# belongs to the version that is being built.
function(korvex_read_changelog debian_var releases_var)
  set(debian "")
  set(releases "")
  set(trailer "")
  file(STRINGS ${CMAKE_SOURCE_DIR}/CHANGELOG.md lines ENCODING UTF-8)
  foreach(line IN LISTS lines)
    if(line MATCHES "^## (.+)$")
      set(heading "${CMAKE_MATCH_1}")
      if(heading STREQUAL "Unreleased")
        set(version ${PROJECT_VERSION})
        set(date ${KORVEX_VERSION_DATE})
        set(type development)
      elseif(heading MATCHES "^([0-9.]+) \\(([0-9-]+)\\)$")
        set(version ${CMAKE_MATCH_1})
        set(date ${CMAKE_MATCH_2})
        set(type stable)
      else()
        message(FATAL_ERROR "CHANGELOG.md: the heading \"${heading}\" is neither \"Unreleased\" nor \"VERSION (DATE)\"")
      endif()
      execute_process(COMMAND date --utc --rfc-email --date=${date}
        OUTPUT_VARIABLE moment OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
      string(APPEND debian "${trailer}korvexzdr (${version}) unstable; urgency=medium\n\n")
      set(trailer "\n -- ${KORVEX_MAINTAINER}  ${moment}\n\n")
      string(APPEND releases "        <release version=\"${version}\" date=\"${date}\" type=\"${type}\"/>\n")
    elseif(line MATCHES "^- (.+)$")
      korvex_append_wrapped(debian "  *" "${CMAKE_MATCH_1}")
    elseif(line MATCHES "^  (.+)$")
      korvex_append_wrapped(debian "   " "${CMAKE_MATCH_1}")
    endif()
  endforeach()
  string(STRIP "${trailer}" last_trailer)
  set(${debian_var} "${debian}\n ${last_trailer}\n" PARENT_SCOPE)
  set(${releases_var} "${releases}" PARENT_SCOPE)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/CHANGELOG.md)
endfunction()

korvex_install_program(korvexzdr)
korvex_install_program(korvexzdr-cli)
install(FILES ${KORVEX_PACKAGING}/completion/korvexzdr-cli
  DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)

# The desktop's part.
korvex_read_changelog(KORVEX_DEBIAN_CHANGELOG KORVEX_RELEASES)
configure_file(${KORVEX_PACKAGING}/korvexzdr.metainfo.xml.in ${KORVEX_PACKAGING_BINARY}/korvexzdr.metainfo.xml @ONLY)
install(FILES ${KORVEX_PACKAGING_BINARY}/korvexzdr.metainfo.xml
  DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo RENAME invalid.korvex.korvexzdr.metainfo.xml)
install(FILES ${KORVEX_PACKAGING}/korvexzdr.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${KORVEX_PACKAGING}/korvexzdr-mime.xml
  DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages RENAME korvexzdr.xml)
foreach(size IN LISTS KORVEX_PROGRAM_ICON_SIZES)
  install(FILES ${KORVEX_ICON_FOLDER}/korvexzdr-${size}.png
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps RENAME korvexzdr.png)
endforeach()
install(FILES ${CMAKE_SOURCE_DIR}/src/ui/icons/korvexzdr.svg
  DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)

# What is there to read.
file(CONFIGURE OUTPUT ${KORVEX_PACKAGING_BINARY}/changelog CONTENT "@KORVEX_DEBIAN_CHANGELOG@" @ONLY)
korvex_compressed(${KORVEX_PACKAGING_BINARY}/changelog)
file(READ ${CMAKE_SOURCE_DIR}/LICENSE licence)
string(REGEX MATCH "Copyright [^\n]+" copyright_line "${licence}")
string(REGEX REPLACE "^.*Copyright [^\n]+\n\n" "" licence "${licence}")
string(REGEX REPLACE "^Copyright \\(c\\)" "Copyright:" KORVEX_COPYRIGHT "${copyright_line}")
string(STRIP "${licence}" licence)
string(REPLACE "\n\n" "\n.\n" licence "${licence}")
string(REPLACE "\n" "\n " KORVEX_LICENCE_TEXT " ${licence}")
configure_file(${KORVEX_PACKAGING}/copyright.in ${KORVEX_PACKAGING_BINARY}/copyright @ONLY)
install(FILES ${KORVEX_PACKAGING_BINARY}/changelog.gz ${KORVEX_PACKAGING_BINARY}/copyright
  ${CMAKE_SOURCE_DIR}/docs/file-formats.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY ${CMAKE_SOURCE_DIR}/examples DESTINATION ${CMAKE_INSTALL_DOCDIR})

# The package.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME korvexzdr)
set(CPACK_PACKAGE_CONTACT ${KORVEX_MAINTAINER})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "editor of air-pollution source inventories")
file(READ ${KORVEX_PACKAGING}/description.txt CPACK_DEBIAN_PACKAGE_DESCRIPTION)
# The times in the package are those of the commit: cmake/PackageTime.cmake sets them when cpack runs.
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_SOURCE_DIR}/cmake/PackageTime.cmake)
set(CPACK_KORVEX_SOURCE_DIR ${CMAKE_SOURCE_DIR})
set(CPACK_KORVEX_VERSION_DATE ${KORVEX_VERSION_DATE})
include(CPack)

# Configures tiny projects with the real folder table and cmake/Folders.cmake: the ones that break the table must be
# refused with the words for it, and the one that keeps to it must not.
# Run as: cmake -DTOP=… -DWORK=… -DGENERATOR=… -DCOMPILER=… -P folder_refusals.cmake

foreach(needed TOP WORK GENERATOR COMPILER)
  if(NOT DEFINED ${needed})
    message(FATAL_ERROR "${needed} is not given")
  endif()
endforeach()

# Makes a project of two folders, with one extra line of CMake at the place where src/files/CMakeLists.txt would end,
# and configures it.
function(configure_planted name sources_arguments beside status_var output_var)
  set(project ${WORK}/${name})
  file(REMOVE_RECURSE ${project})
  file(COPY ${TOP}/cmake/folders.txt ${TOP}/cmake/Folders.cmake DESTINATION ${project}/cmake)
  file(WRITE ${project}/empty.cpp "")
  file(WRITE ${project}/CMakeLists.txt "
cmake_minimum_required(VERSION 3.25)
project(planted LANGUAGES CXX)
add_library(korvex_options INTERFACE)
add_library(toolkit INTERFACE)
add_library(Qt6::Widgets ALIAS toolkit)
add_library(Qt::Widgets ALIAS toolkit)
include(cmake/Folders.cmake)
korvex_folder(FOLDER files/text SOURCES empty.cpp)
korvex_folder(FOLDER sources SOURCES empty.cpp USES files/text ${sources_arguments})
korvex_folder(FOLDER files SOURCES empty.cpp USES files/text sources)
${beside}
get_property(folders GLOBAL PROPERTY KORVEX_FOLDERS)
foreach(folder IN LISTS folders)
  korvex_check_links(\${folder})
endforeach()
")
  # The compiler is known to work: trying it out would take longer than all the rest.
  execute_process(COMMAND ${CMAKE_COMMAND} -S ${project} -B ${project}/build -G ${GENERATOR}
    -DCMAKE_CXX_COMPILER=${COMPILER} -DCMAKE_CXX_COMPILER_FORCED=ON
    RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
  # Messages are wrapped to the width of a terminal.
  string(REGEX REPLACE "[ \n]+" " " output "${output}")
  set(${status_var} "${status}" PARENT_SCOPE)
  set(${output_var} "${output}" PARENT_SCOPE)
endfunction()

function(expect_accepted name sources_arguments beside)
  configure_planted(${name} "${sources_arguments}" "${beside}" status output)
  if(NOT status EQUAL 0)
    message(SEND_ERROR "${name}: a project that keeps to the table was refused:\n${output}")
  endif()
endfunction()

function(expect_refused name sources_arguments beside refusal)
  configure_planted(${name} "${sources_arguments}" "${beside}" status output)
  if(status EQUAL 0)
    message(SEND_ERROR "${name}: configured, though it breaks the table")
    return()
  endif()
  string(FIND "${output}" "${refusal}" found)
  if(found EQUAL -1)
    message(SEND_ERROR "${name}: refused without \"${refusal}\":\n${output}")
  endif()
endfunction()

set(linked_with_files "src/sources is linked with korvex_files, which cmake/folders.txt forbids")

expect_accepted(keeps_to_the_table "" "")
expect_accepted(links_what_is_allowed "" "target_link_libraries(korvex_files PUBLIC korvex_files_text)")
expect_refused(uses_upwards "files" "" "src/sources may not use src/files: see cmake/folders.txt")
expect_refused(uses_qt "QT Qt6::Widgets" "" "src/sources may not use Qt: see cmake/folders.txt")
expect_refused(has_no_row "" "korvex_folder(FOLDER unheard SOURCES empty.cpp)"
  "src/unheard has no row in cmake/folders.txt")
expect_refused(links_upwards "" "target_link_libraries(korvex_sources PRIVATE korvex_files)" "${linked_with_files}")
expect_refused(hands_on_upwards "" "target_link_libraries(korvex_sources INTERFACE korvex_files)"
  "${linked_with_files}")
expect_refused(links_qt "" "target_link_libraries(korvex_sources PRIVATE Qt6::Widgets)"
  "src/sources is linked with Qt6::Widgets, which cmake/folders.txt forbids")
expect_refused(links_qt_by_its_short_name "" "target_link_libraries(korvex_sources PRIVATE Qt::Widgets)"
  "src/sources is linked with Qt::Widgets, which cmake/folders.txt forbids")

# Installs the build into a fresh prefix and runs the installed programs from there, with no
# variable pointing at the data: they must find it from where they are installed. Only
# HLYD_CONFIG_DIR is set, to a temporary folder, so that the run does not write the user's settings.
set(prefix ${WORK}/install-prefix)
file(REMOVE_RECURSE ${prefix})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${prefix}
                RESULT_VARIABLE rc OUTPUT_QUIET)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "cmake --install failed: ${rc}")
endif()

foreach(part bin/halyard bin/hlyd-dump share/halyard/BASICLAN.KEY
        share/halyard/examples/Sample/Sample.vbp share/applications/halyard.desktop
        share/mime/packages/halyard.xml share/man/man1/halyard.1 share/man/man1/hlyd-dump.1
        share/icons/hicolor/scalable/apps/halyard.svg share/icons/hicolor/48x48/apps/halyard.png
        share/icons/hicolor/128x128/apps/halyard.png share/icons/hicolor/256x256/apps/halyard.png
        share/halyard/help/index.html share/halyard/help/topics.html share/halyard/help/using-help.html
        share/halyard/help/help.css)
  if(NOT EXISTS ${prefix}/${part})
    message(FATAL_ERROR "not installed: ${part}")
  endif()
endforeach()

set(clean_env ${CMAKE_COMMAND} -E env HLYD_CONFIG_DIR=${WORK}/install-config
    QT_QPA_PLATFORM=offscreen)
execute_process(COMMAND ${clean_env} ${prefix}/bin/halyard --version
                RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT rc EQUAL 0 OR NOT out MATCHES "[0-9]+\\.[0-9]+")
  message(FATAL_ERROR "installed halyard --version: ${rc} ${out} ${err}")
endif()
execute_process(COMMAND ${clean_env} ${prefix}/bin/hlyd-dump
                        ${prefix}/share/halyard/examples/Sample/Sample.bas
                WORKING_DIRECTORY ${WORK}
                RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT rc EQUAL 0 OR NOT out MATCHES "\"kind\":\"end\",\"BabStatus\":11")
  message(FATAL_ERROR "installed hlyd-dump: ${rc} ${out} ${err}")
endif()

# The menu entry as the desktop reads it, and the manual pages as man formats them: no complaint.
find_program(validate desktop-file-validate)
find_program(groff groff)
if(NOT validate OR NOT groff)
  message(FATAL_ERROR "desktop-file-validate and groff are needed (scripts/setup installs them)")
endif()
execute_process(COMMAND ${validate} ${prefix}/share/applications/halyard.desktop
                RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT rc EQUAL 0 OR NOT "${out}${err}" STREQUAL "")
  message(FATAL_ERROR "desktop-file-validate: ${rc} ${out} ${err}")
endif()
file(READ ${prefix}/share/applications/halyard.desktop entry)
if(NOT entry MATCHES "\nExec=halyard --open %f\n")
  message(FATAL_ERROR "the menu entry does not open the file it is given in the window")
endif()
foreach(page halyard.1 hlyd-dump.1)
  execute_process(COMMAND ${groff} -man -ww -z -Tutf8 ${prefix}/share/man/man1/${page}
                  RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0 OR NOT "${out}${err}" STREQUAL "")
    message(FATAL_ERROR "groff on ${page}: ${rc} ${out} ${err}")
  endif()
endforeach()

cmake_policy(SET CMP0007 NEW)
include(${CMAKE_CURRENT_LIST_DIR}/read_pdf.cmake)
# The program from the command line, as a script or a build job runs it: no display, the sample
# project to a PDF that is read back, the default <name>.pdf, and failures that leave nothing. Run by
# CTest with HALYARD, PROJECT and WORK set.
set(dir ${WORK})
file(REMOVE_RECURSE ${dir})
file(MAKE_DIRECTORY ${dir})
# No display and no platform chosen: the program must find its way offscreen by itself.
set(halyard ${CMAKE_COMMAND} -E env --unset=DISPLAY --unset=WAYLAND_DISPLAY --unset=QT_QPA_PLATFORM ${HALYARD})

function(expect_no_pdf where why)
  file(GLOB_RECURSE pdfs ${dir}/*.pdf ${dir}/*.tmp* ${dir}/.*)
  if(pdfs)
    message(FATAL_ERROR "${why} left ${pdfs}")
  endif()
endfunction()

foreach(option --version --help)
  execute_process(COMMAND ${halyard} ${option} RESULT_VARIABLE rc OUTPUT_VARIABLE out)
  if(NOT rc EQUAL 0 OR out STREQUAL "")
    message(FATAL_ERROR "halyard ${option} gave exit ${rc} and printed \"${out}\"")
  endif()
endforeach()

execute_process(COMMAND ${halyard} --pdf ${dir}/Sample.pdf ${PROJECT}
                RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT rc EQUAL 0 OR NOT out STREQUAL "${dir}/Sample.pdf\n")
  message(FATAL_ERROR "halyard --pdf gave exit ${rc}, said \"${out}\": ${err}")
endif()
foreach(member Main.frm Sample.bas Counter.cls)
  if(NOT err MATCHES "halyard: printing [^\n]*${member}\n")
    message(FATAL_ERROR "no progress line for ${member}: ${err}")
  endif()
endforeach()

# The members only, without the project's own listing.
read_back_sample_pdf(${dir}/Sample.pdf "[1-9]")
file(REMOVE ${dir}/Sample.pdf)

# The PDF printer with no --pdf: <name>.pdf in the current directory; --quiet says nothing.
execute_process(COMMAND ${halyard} --quiet --printer PDF ${PROJECT} WORKING_DIRECTORY ${dir}
                RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT rc EQUAL 0 OR NOT EXISTS ${dir}/Sample.pdf OR NOT out STREQUAL "${dir}/Sample.pdf\n" OR err MATCHES "printing")
  message(FATAL_ERROR "halyard --quiet --printer PDF gave exit ${rc}, said \"${out}\" and \"${err}\"")
endif()
file(REMOVE ${dir}/Sample.pdf)

# A folder that cannot be made (under a regular file, which stops root too): non-zero, one line,
# nothing left behind.
file(WRITE ${dir}/somefile "")
execute_process(COMMAND ${halyard} --pdf ${dir}/somefile/out.pdf ${PROJECT}
                RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(rc EQUAL 0 OR NOT out STREQUAL "" OR NOT err MATCHES "halyard: cannot [^\n]*somefile/out.pdf")
  message(FATAL_ERROR "an unwritable target gave exit ${rc}, said \"${out}\": ${err}")
endif()
expect_no_pdf(${dir} "an unwritable target")

# The settings name a printer that has gone: the start switches printing off, and --pdf still
# prints; the settings keep the user's choice as the start left it.
file(WRITE $ENV{HLYD_CONFIG_DIR}/HLYD.INI "[General]\nCurrentPrinter=Office Laser\n")
execute_process(COMMAND ${halyard} --pdf ${dir}/Gone.pdf ${PROJECT} RESULT_VARIABLE rc OUTPUT_QUIET ERROR_VARIABLE err)
if(NOT rc EQUAL 0 OR NOT EXISTS ${dir}/Gone.pdf)
  message(FATAL_ERROR "--pdf after a printer that has gone gave exit ${rc}: ${err}")
endif()
file(REMOVE ${dir}/Gone.pdf)

# A printer that is not there: nothing is written, and no PDF is spoken of.
get_filename_component(projectDir ${PROJECT} DIRECTORY)
file(COPY ${projectDir}/Sample.bas DESTINATION ${dir}/input)
execute_process(COMMAND ${halyard} --printer "No Such Printer" ${dir}/input/Sample.bas WORKING_DIRECTORY ${dir}
                RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT rc EQUAL 3 OR NOT out STREQUAL "" OR err MATCHES "\\.pdf")
  message(FATAL_ERROR "an unknown printer gave exit ${rc}, said \"${out}\": ${err}")
endif()
expect_no_pdf(${dir} "an unknown printer")

# The output named like the input is refused, and the input stays as it was.
file(READ ${dir}/input/Sample.bas before)
execute_process(COMMAND ${halyard} --pdf ${dir}/input/Sample.bas ${dir}/input/Sample.bas RESULT_VARIABLE rc OUTPUT_QUIET ERROR_QUIET)
file(READ ${dir}/input/Sample.bas after)
if(NOT rc EQUAL 3 OR NOT after STREQUAL before)
  message(FATAL_ERROR "the source was written over (exit ${rc})")
endif()

# A file that is not there: non-zero.
execute_process(COMMAND ${halyard} --pdf ${dir}/Gone.pdf ${dir}/Gone.bas RESULT_VARIABLE rc OUTPUT_QUIET ERROR_QUIET)
if(rc EQUAL 0)
  message(FATAL_ERROR "a missing file ended with exit 0")
endif()
expect_no_pdf(${dir} "a missing file")
file(REMOVE_RECURSE ${dir})

cmake_policy(SET CMP0007 NEW)
# The command line as a user at a terminal meets it: the window refused without a display,
# mistyped options, several files and patterns, and names that are no file. Run by CTest with
# HALYARD, PROJECT and WORK set.
set(dir ${WORK})
file(REMOVE_RECURSE ${dir})
file(MAKE_DIRECTORY ${dir})
set(noDisplay ${CMAKE_COMMAND} -E env --unset=DISPLAY --unset=WAYLAND_DISPLAY --unset=QT_QPA_PLATFORM)
set(halyard ${noDisplay} ${HALYARD})
get_filename_component(projectDir ${PROJECT} DIRECTORY)

function(expect_run what expectedRc errPattern)
  execute_process(COMMAND ${ARGN} WORKING_DIRECTORY ${dir} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err
                  TIMEOUT 60)
  if(NOT rc STREQUAL "${expectedRc}" OR NOT err MATCHES "${errPattern}")
    message(FATAL_ERROR "${what}: exit ${rc} (not ${expectedRc}), said \"${out}\" and \"${err}\"")
  endif()
  set(out "${out}" PARENT_SCOPE)
endfunction()

# The window without a display: told, with the way to print without one, instead of an abort.
foreach(args "" "--open;${projectDir}/Sample.bas" "/idemode")
  expect_run("halyard ${args} without a display" 2 "needs a display.*--pdf OUT.pdf FILE" ${halyard} ${args})
endforeach()
# A display named that does not answer: the window system gives up, and the run says the same.
expect_run("halyard with a display that is not there" 2 "needs a display.*--pdf OUT.pdf FILE"
           ${CMAKE_COMMAND} -E env --unset=WAYLAND_DISPLAY DISPLAY=:4711 QT_QPA_PLATFORM=xcb ${HALYARD})

# A mistyped option is refused by name with the usage, wherever it stands.
foreach(args "--bogus;Sample.bas" "Sample.bas;-x" "-")
  expect_run("halyard ${args}" 64 "unknown option [^\n]*\nUsage: halyard" ${halyard} ${args})
endforeach()

# Several files, one of them found through its pattern, print as one job in the order given.
file(COPY ${projectDir}/Sample.bas ${projectDir}/Counter.cls DESTINATION ${dir}/src)
expect_run("two files" 0 "printing [^\n]*Counter.cls\nhalyard: printing [^\n]*Sample.bas\n"
           ${halyard} --pdf ${dir}/Two.pdf ${dir}/src/Counter.cls ${dir}/src/Sample.bas)
if(NOT out STREQUAL "${dir}/Two.pdf\n")
  message(FATAL_ERROR "two files wrote \"${out}\"")
endif()
find_program(PDFTOTEXT pdftotext)
if(PDFTOTEXT)
  execute_process(COMMAND ${PDFTOTEXT} ${dir}/Two.pdf - OUTPUT_VARIABLE text)
  string(FIND "${text}" "Public Property Get Value() As Long" counter)
  string(FIND "${text}" "Private Const MAX_ITEMS As Integer = 100" sample)
  if(counter EQUAL -1 OR sample EQUAL -1 OR sample LESS counter)
    message(FATAL_ERROR "Two.pdf does not hold Counter.cls, then Sample.bas:\n${text}")
  endif()
endif()
expect_run("a pattern" 0 "printing [^\n]*Sample.bas\n" ${halyard} --pdf ${dir}/Pattern.pdf ${dir}/src/*.bas)
expect_run("a pattern that matches nothing" 2 "no file matches [^\n]*/src/\\*.frm"
           ${halyard} --pdf ${dir}/None.pdf ${dir}/src/*.frm)
if(EXISTS ${dir}/None.pdf)
  message(FATAL_ERROR "a pattern that matches nothing wrote a PDF")
endif()
expect_run("a name that is not there" 2 "does not exist" ${halyard} --pdf ${dir}/Gone.pdf ${dir}/src/Gone.bas)

# A folder, a FIFO and a device hold no listing: refused, nothing written.
set(names ${dir}/src /dev/zero)
find_program(MKFIFO mkfifo)
if(MKFIFO)
  execute_process(COMMAND ${MKFIFO} ${dir}/Pipe.bas)
  list(APPEND names ${dir}/Pipe.bas)
endif()
foreach(name ${names})
  expect_run("--html of ${name}" 2 "cannot print ${name}: " ${halyard} --html ${dir}/Out.html ${name})
  if(EXISTS ${dir}/Out.html)
    message(FATAL_ERROR "--html of ${name} wrote Out.html")
  endif()
endforeach()
file(REMOVE_RECURSE ${dir})

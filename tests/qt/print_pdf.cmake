cmake_policy(SET CMP0007 NEW)
include(${CMAKE_CURRENT_LIST_DIR}/read_pdf.cmake)
# The sample project printed to a PDF through the desktop's PDF printer and read back: its pages,
# its text line for line, its fonts embedded; a target that cannot be written leaves nothing.
# Run by CTest with RENDER, PROJECT and WORK set.
set(dir ${WORK})
file(REMOVE_RECURSE ${dir})
# A first run's settings each time, not those an earlier run of the test saved.
if(DEFINED ENV{HLYD_CONFIG_DIR})
  file(REMOVE_RECURSE $ENV{HLYD_CONFIG_DIR})
endif()
file(MAKE_DIRECTORY ${dir})

execute_process(COMMAND ${RENDER} --pdf ${dir}/Sample.pdf ${PROJECT} RESULT_VARIABLE rc ERROR_VARIABLE err OUTPUT_QUIET)
if(NOT rc EQUAL 0 OR NOT EXISTS ${dir}/Sample.pdf)
  message(FATAL_ERROR "printing the sample project failed (exit ${rc}): ${err}")
endif()
file(GLOB leftovers ${dir}/*)
list(LENGTH leftovers count)
if(NOT count EQUAL 1)
  message(FATAL_ERROR "the job left more than its PDF behind: ${leftovers}")
endif()

# The project listing and its three members, a page each.
read_back_sample_pdf(${dir}/Sample.pdf 4 "Module=modSample; Sample.bas")

# A folder that cannot be written: exit 3, nothing written, the reason on standard error.
file(MAKE_DIRECTORY ${dir}/locked)
file(CHMOD ${dir}/locked PERMISSIONS OWNER_READ OWNER_EXECUTE)
execute_process(COMMAND ${RENDER} --pdf ${dir}/locked/Sample.pdf ${PROJECT} RESULT_VARIABLE rc ERROR_VARIABLE err OUTPUT_QUIET)
file(GLOB written ${dir}/locked/*)
file(CHMOD ${dir}/locked PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
if(NOT rc EQUAL 3 OR written)
  # Root writes anywhere; then the folder proved nothing.
  execute_process(COMMAND id -u OUTPUT_VARIABLE uid OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(NOT uid STREQUAL "0")
    message(FATAL_ERROR "a locked folder gave exit ${rc} and left ${written}: ${err}")
  endif()
endif()

# The output named like an input is refused, and the input stays as it was.
get_filename_component(projectDir ${PROJECT} DIRECTORY)
file(COPY ${projectDir}/Sample.bas DESTINATION ${dir}/input)
file(READ ${dir}/input/Sample.bas before)
execute_process(COMMAND ${RENDER} --pdf ${dir}/input/Sample.bas ${dir}/input/Sample.bas RESULT_VARIABLE rc OUTPUT_QUIET ERROR_QUIET)
file(READ ${dir}/input/Sample.bas after)
if(NOT rc EQUAL 3 OR NOT after STREQUAL before)
  message(FATAL_ERROR "the source was written over (exit ${rc})")
endif()
file(REMOVE_RECURSE ${dir})

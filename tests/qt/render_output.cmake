# hlyd-render never writes its PNG over a file it read (however named) or over a FIFO, and writes
# through a link to its target. Run by CTest with RENDER and SOURCE set.
set(dir ${WORK})
file(REMOVE_RECURSE ${dir})
file(MAKE_DIRECTORY ${dir}/sub)
file(COPY ${SOURCE} DESTINATION ${dir})
get_filename_component(name ${SOURCE} NAME)
file(READ ${dir}/${name} before)

foreach(out ${dir}/${name} ${dir}/sub/../${name})
  execute_process(COMMAND ${RENDER} --view ${dir}/${name} --out ${out} RESULT_VARIABLE rc OUTPUT_QUIET ERROR_QUIET)
  file(READ ${dir}/${name} after)
  if(NOT rc EQUAL 3 OR NOT after STREQUAL before)
    message(FATAL_ERROR "the source was written over through ${out} (exit ${rc})")
  endif()
endforeach()

execute_process(COMMAND mkfifo ${dir}/pipe.png)
execute_process(COMMAND ${RENDER} --view ${dir}/${name} --out ${dir}/pipe.png RESULT_VARIABLE rc OUTPUT_QUIET
                ERROR_VARIABLE err TIMEOUT 60)
if(NOT rc EQUAL 3 OR NOT err MATCHES "Not a regular file")
  message(FATAL_ERROR "a FIFO as output gave exit ${rc}: ${err}")
endif()

file(WRITE ${dir}/real.png "old")
file(CREATE_LINK ${dir}/real.png ${dir}/link.png SYMBOLIC)
execute_process(COMMAND ${RENDER} --view ${dir}/${name} --out ${dir}/link.png RESULT_VARIABLE rc OUTPUT_QUIET ERROR_QUIET)
file(READ ${dir}/real.png png LIMIT 4 HEX)
if(NOT rc EQUAL 0 OR NOT IS_SYMLINK ${dir}/link.png OR NOT png STREQUAL "89504e47")
  message(FATAL_ERROR "the link was not written through (exit ${rc}, ${png})")
endif()
file(REMOVE_RECURSE ${dir})

# The order of the layers, from the ground up: a file includes only from its own folder and from
# folders on lower lines. Folders on one line stand side by side and use neither of each other.
# A higher layer reaches a lower one by a call; a lower one reaches up only through a callback or a
# model it owns, so that no include ever runs upward and no two folders need each other.
set(HLYD_LAYERS
  "platform"                           # ports, line reading, text encoding, upper case
  "platform/pdf"                       # the PDF writer and its fonts' programs, without Qt
  "platform/posix platform/windows platform/qt"  # the adapters of the ports
  "base"                               # error model, log, debug switches, app info, message box
  "settings analysis"                  # the settings and their records; the language analysis
  "files"                              # file table, loading, projects, recent files, window model
  "display xref"                       # layout, connectors, screen emitter, viewing, command states;
                                       # the cross-reference of names
  "printing html"                      # paper and HTML output
  "models"                             # the plain models of the dialogs, named as their forms
  "shell"                              # start and stop, command handlers, command line, error report
  "dialogs"                            # Qt forms, the windowed run, main
  "tools/common"                       # what the tools share
  "tools/dump tools/bench tools/render tools/fuzz")

# Run as: cmake -DROOT=<checkout> -P layer_order.cmake. Reads src/ and tools/ only; builds nothing.
if(NOT ROOT)
  message(FATAL_ERROR "layer_order.cmake: ROOT is not set")
endif()

set(folders "")
set(rank 0)
foreach(line ${HLYD_LAYERS})
  string(REPLACE " " ";" names "${line}")
  foreach(name ${names})
    list(APPEND folders ${name})
    set(rank_${name} ${rank})
  endforeach()
  math(EXPR rank "${rank} + 1")
endforeach()

# The folder of the table that a path (relative to src/ or to the checkout) lies in, the longest
# that fits; empty when none does.
function(layer_of path out)
  string(REGEX REPLACE "^src/" "" path "${path}")
  set(best "")
  foreach(folder ${folders})
    string(LENGTH "${folder}/" length)
    string(SUBSTRING "${path}" 0 ${length} head)
    string(LENGTH "${best}" bestLength)
    if(head STREQUAL "${folder}/" AND length GREATER bestLength)
      set(best ${folder})
    endif()
  endforeach()
  set(${out} "${best}" PARENT_SCOPE)
endfunction()

# The folder that an include names: a path under src/, or a bare name found beside the file or in
# tools/common (the tools' shared include directory). System and library headers have none.
function(included_layer file dir include out)
  set(found "")
  if(include MATCHES "/")
    if(EXISTS "${ROOT}/src/${include}")
      layer_of("${include}" found)
    elseif(EXISTS "${dir}/${include}")
      file(RELATIVE_PATH relative "${ROOT}" "${dir}/${include}")
      layer_of("${relative}" found)
    endif()
  elseif(EXISTS "${dir}/${include}")
    file(RELATIVE_PATH relative "${ROOT}" "${dir}")
    layer_of("${relative}/" found)
  elseif(EXISTS "${ROOT}/tools/common/${include}")
    set(found tools/common)
  endif()
  set(${out} "${found}" PARENT_SCOPE)
endfunction()

file(GLOB_RECURSE sources RELATIVE "${ROOT}" "${ROOT}/src/*.h" "${ROOT}/src/*.cpp"
     "${ROOT}/tools/*.h" "${ROOT}/tools/*.cpp")
set(faults 0)
foreach(source ${sources})
  layer_of("${source}" own)
  if(own STREQUAL "")
    message(SEND_ERROR "${source}: its folder has no place in the order of layers")
    math(EXPR faults "${faults} + 1")
    continue()
  endif()
  get_filename_component(dir "${ROOT}/${source}" DIRECTORY)
  file(STRINGS "${ROOT}/${source}" includes REGEX "^[ \t]*#[ \t]*include[ \t]*\"")
  foreach(line ${includes})
    string(REGEX REPLACE "^[ \t]*#[ \t]*include[ \t]*\"([^\"]+)\".*" "\\1" include "${line}")
    included_layer("${source}" "${dir}" "${include}" other)
    if(other STREQUAL "" OR other STREQUAL own)
      continue()
    endif()
    if(NOT rank_${other} LESS rank_${own})
      message(SEND_ERROR "${source} includes ${include}: ${own} may not use ${other}, "
                         "which does not stand below it")
      math(EXPR faults "${faults} + 1")
    endif()
  endforeach()
endforeach()
if(faults GREATER 0)
  message(FATAL_ERROR "${faults} include(s) against the order of layers")
endif()
list(LENGTH sources count)
message(STATUS "${count} files, every include points down")

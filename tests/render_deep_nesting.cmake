# Draws the view with hlyd-render from every record where a level of 11 or more closes, in files
# whose blocks nest to level 40 (41 openers: a procedure's own body stands at level 0). Each run is
# a fresh process, so the connector stack starts at its first size and the first screen (comments
# only) never grows it. Any exit but 0 fails.
set(pad 60)
set(depth 41)

# The opening or closing line of a level: If and End If for kind "if"; for "mixed" For, Do, With
# and While in turn.
function(block_line kind level end out)
  if(end)
    set(forms "Next i@" "Loop" "End With" "Wend")
    set(line "End If")
  else()
    set(forms "For i@ = 1 To 2" "Do While a@" "With o@" "While b@")
    set(line "If a@ Then")
  endif()
  if(kind STREQUAL "mixed")
    math(EXPR at "${level} % 4")
    list(GET forms ${at} line)
  endif()
  string(REPLACE "@" "${level}" line "${line}")
  set(${out} "${line}" PARENT_SCOPE)
endfunction()

function(write_nested path kind)
  set(text "Attribute VB_Name = \"Deep\"\n")
  foreach(i RANGE 1 ${pad})
    string(APPEND text "' line ${i} of the preamble\n")
  endforeach()
  string(APPEND text "Public Sub Deep()\n")
  foreach(level RANGE 1 ${depth})
    block_line(${kind} ${level} FALSE line)
    string(APPEND text "${line}\n")
  endforeach()
  string(APPEND text "x = 1\n")
  foreach(level RANGE ${depth} 1 -1)
    block_line(${kind} ${level} TRUE line)
    string(APPEND text "${line}\n")
  endforeach()
  string(APPEND text "End Sub\n")
  file(WRITE ${path} "${text}")
endfunction()

# The first closer (level 40) follows the header, the preamble, the Sub line, the openers and the
# body; the closer of level L is 40 - L records further.
math(EXPR firstCloser "1 + ${pad} + 1 + ${depth} + 1 + 1")
math(EXPR lastCloser "${firstCloser} + 40 - 11")
foreach(kind if mixed)
  set(source ${WORK}/deep-${kind}.bas)
  write_nested(${source} ${kind})
  foreach(record RANGE ${firstCloser} ${lastCloser})
    execute_process(COMMAND ${RENDER} --view ${source} --first ${record} --out ${WORK}/deep.png
                    RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
    if(NOT rc EQUAL 0)
      message(FATAL_ERROR "hlyd-render --view ${source} --first ${record} exited with ${rc}: ${err}")
    endif()
  endforeach()
endforeach()

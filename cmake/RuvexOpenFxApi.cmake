# Whether our declarations of the OpenFX interface are those of the published headers.

set(RUVEX_OPENFX_HEADERS "" CACHE PATH
  "A folder with the published headers of OpenFX, to use instead of our declarations")
if(RUVEX_OPENFX_HEADERS AND NOT EXISTS "${RUVEX_OPENFX_HEADERS}/ofxCore.h")
  message(FATAL_ERROR "RUVEX_OPENFX_HEADERS: there is no ofxCore.h in ${RUVEX_OPENFX_HEADERS}")
endif()

# ruvex_openfx_api(TARGET SCOPE): lets TARGET use the published headers if there are any.
function(ruvex_openfx_api target scope)
  if(RUVEX_OPENFX_HEADERS)
    target_include_directories(${target} SYSTEM ${scope} "${RUVEX_OPENFX_HEADERS}")
    target_compile_definitions(${target} ${scope} RUVEX_OPENFX_HEADERS)
  endif()
endfunction()

# ruvex_openfx_constants(VARIABLE FILES...): gives in VARIABLE a line of C++ for each constant that FILES
# declare, which prints its name and value.
function(ruvex_openfx_constants variable)
  set(lines "")
  foreach(file ${ARGN})
    file(STRINGS "${file}" declared REGEX "^inline constexpr [A-Za-z]+ kOfx[A-Za-z0-9]+")
    foreach(line IN LISTS declared)
      string(REGEX MATCH "kOfx[A-Za-z0-9]+" name "${line}")
      string(APPEND lines "    print(\"${name}\", ${name});\n")
    endforeach()
  endforeach()
  set(${variable} "${lines}" PARENT_SCOPE)
endfunction()

# ruvex_openfx_layouts(VARIABLE FILE): the same for the size of each struct that FILE declares, and the
# places of its members.
function(ruvex_openfx_layouts variable file)
  set(lines "")
  set(struct "")
  file(STRINGS "${file}" declared)
  foreach(line IN LISTS declared)
    set(members "")
    if(line MATCHES "^struct (Ofx[A-Za-z0-9]+) {")
      set(struct "${CMAKE_MATCH_1}")
      string(APPEND lines "    print(\"${struct}\", sizeof(${struct}));\n")
    elseif(line MATCHES "^}")
      set(struct "")
    elseif(struct AND line MATCHES "\\(\\*([A-Za-z0-9]+)\\)\\(")
      set(members "${CMAKE_MATCH_1}")
    elseif(struct AND line MATCHES "^    [A-Za-z* ]+ ([A-Za-z0-9, ]+);")
      string(REPLACE ", " ";" members "${CMAKE_MATCH_1}")
    endif()
    foreach(member ${members})
      string(APPEND lines
        "    print(\"${struct}.${member}\", offsetof(${struct}, ${member}));\n")
    endforeach()
  endforeach()
  set(${variable} "${lines}" PARENT_SCOPE)
endfunction()

# Compares the library's defined dynamic symbols (demangled) with the lines of the *.txt lists beside
# this script. Run as: cmake -DLIBRARY=... -DEXPECTED_DIR=... [-DSANITIZED=ON] -P CheckExports.cmake
cmake_minimum_required(VERSION 3.25)
execute_process(COMMAND nm -D --defined-only --demangle ${LIBRARY}
  OUTPUT_VARIABLE nm_output RESULT_VARIABLE nm_result)
if(NOT nm_result EQUAL 0)
  message(FATAL_ERROR "nm failed on ${LIBRARY}")
endif()

file(GLOB lists ${EXPECTED_DIR}/*.txt)
set(expected "")
foreach(list_file IN LISTS lists)
  file(STRINGS ${list_file} names)
  foreach(name IN LISTS names)
    if(NOT name STREQUAL "" AND NOT name MATCHES "^#")
      list(APPEND expected "${name}")
    endif()
  endforeach()
endforeach()

string(REPLACE "\n" ";" nm_lines "${nm_output}")
set(actual "")
foreach(line IN LISTS nm_lines)
  # "<address> <type> <name>": keep the name, whatever spaces a C++ signature holds.
  if(line MATCHES "^[0-9a-fA-F]+ [A-Za-z] (.+)$")
    set(name "${CMAKE_MATCH_1}")
    # The vptr checks of UndefinedBehaviorSanitizer pull in weak copies of the host services' type
    # information, and AddressSanitizer adds an "__odr_asan." indicator beside every exported variable;
    # they belong to the instrumentation, not to the library (whose own listed type information stays).
    if(SANITIZED AND NOT name IN_LIST expected
       AND (name MATCHES "^typeinfo (name )?for kivo::" OR name MATCHES "^__odr_asan\\."))
      continue()
    endif()
    list(APPEND actual "${name}")
  endif()
endforeach()

set(unexpected ${actual})
list(REMOVE_ITEM unexpected ${expected})
set(absent ${expected})
list(REMOVE_ITEM absent ${actual})
if(unexpected OR absent)
  list(JOIN unexpected "\n  " unexpected_text)
  list(JOIN absent "\n  " absent_text)
  message(FATAL_ERROR "exported symbols differ from the lists\nexported but not listed:\n  ${unexpected_text}\nlisted but not exported:\n  ${absent_text}")
endif()
list(LENGTH actual count)
message(STATUS "${count} exported symbols, as listed")

# Checks that each exported function is called by a test that refuses allocations in turn:
#   cmake -DOBJECTS=... -DNM=... -DLIST=... -P swept_exports.cmake
# OBJECTS are those of the tests, of which the files *_failure_test.cpp count. They are compiled without inlining, so that
# each exported function that they call is among their symbols. Constructors and destructors have several symbols for one
# body, of which one is enough; tables of classes are no functions.
cmake_minimum_required(VERSION 3.25)

# Private members: reached through the public ones that need them, and by nothing else.
set(private_members
  _ZN10CExtString11AppendKnownEPKci _ZN10CExtString7GrowForEx _ZN10CExtString7InstallEPcii
  _ZN10CExtString9StartWithEb _ZN10CExtString9TakeFreshEPKci
  _ZN11CExtStrList10InsertTextEP20CExtStrList_ListNodeS1_PKc
  _ZN9CFilePath14ShowSeparatorsER10CExtStringb _ZNK9CFilePath11JoinDirPathER10CExtString
  _ZNK9CFilePath12JoinFullPathER10CExtString _ZNK9CFilePath13JoinShortPathER10CExtStringi)

list(FILTER OBJECTS INCLUDE REGEX "_failure_test\\.cpp\\.obj?$")
execute_process(COMMAND ${NM} ${OBJECTS} OUTPUT_VARIABLE symbols ERROR_QUIET COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL " [A-Za-z] [A-Za-z_][A-Za-z0-9_.$]*" called "${symbols}")
list(TRANSFORM called REPLACE "^ [A-Za-z] (\\.refptr\\.)?" "")

file(STRINGS ${LIST} exports)
list(FILTER exports EXCLUDE REGEX "^_ZT[VIS]")
foreach(names exports called)
  list(TRANSFORM ${names} REPLACE "C2E" "C1E")
  list(TRANSFORM ${names} REPLACE "D[02]Ev$" "D1Ev")
  list(REMOVE_DUPLICATES ${names})
endforeach()
list(LENGTH exports count)
if(count LESS 900)
  message(FATAL_ERROR "only ${count} exported functions found in ${LIST}")
endif()

foreach(name IN LISTS private_members)
  if(NOT name IN_LIST exports)
    message(SEND_ERROR "${name} is not exported; take it out of this list")
  endif()
endforeach()
list(REMOVE_ITEM exports ${called} ${private_members})
if(exports)
  list(JOIN exports "\n  " exports)
  message(FATAL_ERROR "No test refuses allocations to these exported functions:\n  ${exports}")
endif()

# Compares the names that the DLL exports with the kept list:
#   cmake -DDLL=... -DOBJDUMP=... -DLIST=... [-DUPDATE=ON] -P exports.cmake
# With UPDATE the list is written anew.
cmake_minimum_required(VERSION 3.25)

execute_process(COMMAND ${OBJDUMP} -p ${DLL} OUTPUT_VARIABLE dump COMMAND_ERROR_IS_FATAL ANY)
string(REGEX REPLACE ".*\\[Ordinal/Name Pointer\\] Table([^.]*).*" "\\1" table "${dump}")
string(REGEX MATCHALL "[A-Za-z_][A-Za-z0-9_]*\n" names "${table}")
string(REPLACE "\n" "" names "${names}")
list(SORT names)
list(LENGTH names count)
if(count LESS 10)
  message(FATAL_ERROR "no exported names found in ${DLL}")
endif()

if(UPDATE)
  list(JOIN names "\n" text)
  file(WRITE ${LIST} "${text}\n")
  return()
endif()

file(STRINGS ${LIST} kept)
set(added ${names})
set(missing ${kept})
list(REMOVE_ITEM added ${kept})
list(REMOVE_ITEM missing ${names})
if(added OR missing)
  list(JOIN added "\n  " added)
  list(JOIN missing "\n  " missing)
  message(FATAL_ERROR "The DLL's exports differ from ${LIST}. Missing:\n  ${missing}\nAdded:\n  ${added}\n"
    "If that is meant, build the target update_exports.")
endif()

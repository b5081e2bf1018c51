# Checks the shared library as it is shipped:
#   cmake -DLIBRARY=... -DOBJDUMP=... [-DSTRIP=... -DSTRIPPED=...] [-DELF_VERSION=...] -P shared_library.cmake
# With STRIP, it is a release build for Windows: stripped, as the file STRIPPED, it must stay small. With
# ELF_VERSION it is an ELF library of that version; otherwise a DLL that may need nothing but the system's own.
cmake_minimum_required(VERSION 3.25)

execute_process(COMMAND ${OBJDUMP} -p ${LIBRARY} OUTPUT_VARIABLE headers COMMAND_ERROR_IS_FATAL ANY)

if(ELF_VERSION)
  # The name changes with what may need hosts to be changed: the major version or, while that is 0, the minor one.
  string(REGEX REPLACE "^(0\\.[0-9]+|[1-9][0-9]*)\\..*" "liborvil.so.\\1" soname ${ELF_VERSION})
  if(NOT headers MATCHES "SONAME +([^\n]+)\n" OR NOT CMAKE_MATCH_1 STREQUAL soname)
    message(SEND_ERROR "${LIBRARY} is named '${CMAKE_MATCH_1}', not ${soname}")
  endif()
else()
  string(REGEX MATCHALL "DLL Name: [^\n\r]+" needed "${headers}")
  list(TRANSFORM needed REPLACE "DLL Name: " "")
  if(NOT "KERNEL32.dll" IN_LIST needed)
    message(FATAL_ERROR "no import table found in ${LIBRARY}")
  endif()
  list(REMOVE_ITEM needed KERNEL32.dll msvcrt.dll)
  if(needed)
    message(SEND_ERROR "${LIBRARY} needs more than the system's KERNEL32.dll and msvcrt.dll: ${needed}")
  endif()
endif()

if(STRIP)
  set(largest 1500000)
  execute_process(COMMAND ${STRIP} -o ${STRIPPED} ${LIBRARY} COMMAND_ERROR_IS_FATAL ANY)
  file(SIZE ${STRIPPED} size)
  if(size GREATER_EQUAL largest)
    message(SEND_ERROR "${LIBRARY} has ${size} bytes when it is stripped; it must stay below ${largest}")
  endif()
endif()

# Checks that the library asks for memory in no way that throws: hosts need not catch, and where the C++ runtime has no
# memory for the exception either, the program would end.
#   cmake -DLIBRARY=... -DNM=... -P no_exceptions.cmake
cmake_minimum_required(VERSION 3.25)

execute_process(COMMAND ${NM} ${LIBRARY} OUTPUT_VARIABLE symbols ERROR_QUIET COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL " U [A-Za-z_][A-Za-z0-9_]*" needed "${symbols}")
list(REMOVE_DUPLICATES needed)
list(LENGTH needed count)
if(NOT needed MATCHES "nothrow" OR count LESS 10)
  message(FATAL_ERROR "no needed symbols found in ${LIBRARY}")
endif()

# operator new without nothrow, and what the standard containers and smart pointers throw.
list(FILTER needed INCLUDE REGEX
  " U (_Zn[wa][a-z]|_Zn[wa][a-z]St11align_val_t|__cxa_throw|__cxa_allocate_exception|_ZSt.*__throw_(bad|length|logic|system).*)$")
if(needed)
  message(FATAL_ERROR "${LIBRARY} may throw:${needed}")
endif()

# Checks rules of the source tree that no compiler checks; run in its root by `cmake -P`.
cmake_minimum_required(VERSION 3.25)

# forbid(PATTERN WHY FILE...): no line of the files matches.
function(forbid pattern why)
  foreach(file IN LISTS ARGN)
    file(STRINGS ${file} lines REGEX "${pattern}")
    if(lines)
      message(SEND_ERROR "${file}: ${why}: ${lines}")
    endif()
  endforeach()
endfunction()

file(GLOB_RECURSE headers RELATIVE ${CMAKE_SOURCE_DIR} include/*.h)
file(GLOB_RECURSE library RELATIVE ${CMAKE_SOURCE_DIR} include/*.h src/*.h src/*.cpp)
list(LENGTH headers header_count)
if(header_count LESS 3)
  message(FATAL_ERROR "run this in the root of the source tree")
endif()

# The platform is asked for in one public header and in one folder.
set(portable ${library})
list(FILTER portable EXCLUDE REGEX "^src/platform/|^include/orvil/export.h$")
set(platform_macros "_WIN32|_WIN64|WINNT|__MINGW|__CYGWIN__|_MSC_VER|__linux|__unix|__APPLE__|__ELF__|_POSIX_")
set(platform_headers "include <(windows|winbase|io|direct|process|unistd|dirent|dlfcn|strings|syslog|pthread)\\.h>|include <sys/")
forbid("${platform_macros}|${platform_headers}" "platforms are told apart in src/platform" ${portable})

# <windows.h> may define min and max as macros, which would take these for their calls.
forbid("(std::|>::)(min|max) ?\\(" "write (std::min)(a, b), because of the macros of <windows.h>" ${headers})

# Two classes of one name and namespace would be one to the linker, which keeps either's functions for both.
file(GLOB_RECURSE internal_headers RELATIVE ${CMAKE_SOURCE_DIR} src/*.h)
set(class_names)
foreach(header IN LISTS internal_headers)
  file(STRINGS ${header} classes REGEX "^(class|struct) .*{$")
  foreach(class IN LISTS classes)
    string(REGEX REPLACE "^(class|struct) (alignas\\([0-9]+\\) )?([A-Za-z]+).*" "\\3" name "${class}")
    if(name IN_LIST class_names)
      message(SEND_ERROR "${header}: there is another class ${name}")
    endif()
    list(APPEND class_names ${name})
  endforeach()
endforeach()

# The umbrella header includes every other public header, in order.
file(STRINGS include/orvil/orvil.h umbrella REGEX "^#include ")
set(expected ${headers})
list(REMOVE_ITEM expected include/orvil/orvil.h)
list(TRANSFORM expected REPLACE "^include/(.*)$" "#include \"\\1\"")
list(SORT expected)
if(NOT umbrella STREQUAL expected)
  list(JOIN expected "\n" expected)
  message(SEND_ERROR "include/orvil/orvil.h must contain exactly:\n${expected}")
endif()

# The host in the README is the one that is compiled and run.
file(READ README.md readme)
file(READ examples/list_layers.cpp example)
string(FIND "${readme}" "```cpp\n${example}```" position)
if(position EQUAL -1)
  message(SEND_ERROR "README.md does not show examples/list_layers.cpp as it is")
endif()

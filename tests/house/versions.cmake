# Checks that whatever names the version names that of include/orvil/version.h; run in the root of the source tree:
#   cmake -DVERSION=... -P versions.cmake
# VERSION is the project's, from which the package files, the archives and the shared library's names are made.
cmake_minimum_required(VERSION 3.25)

file(READ include/orvil/version.h header)
set(numbers)
foreach(part MAJOR MINOR PATCH)
  if(NOT header MATCHES "#define ORVIL_VERSION_${part} ([0-9]+)\n")
    message(FATAL_ERROR "include/orvil/version.h has no ORVIL_VERSION_${part}")
  endif()
  list(APPEND numbers ${CMAKE_MATCH_1})
endforeach()
list(JOIN numbers . version)
list(POP_BACK numbers)
list(JOIN numbers . series)

if(NOT VERSION STREQUAL version)
  message(SEND_ERROR "the project's version is ${VERSION}, the header's is ${version}")
endif()

# The newest heading is that of this version, released or not.
file(STRINGS CHANGELOG.md headings REGEX "^## ")
list(GET headings 0 newest)
string(REGEX REPLACE "^## (Unreleased: )?([0-9.]+).*$" "\\2" newest_version "${newest}")
if(NOT newest_version STREQUAL version)
  message(SEND_ERROR "CHANGELOG.md begins with '${newest}', not with ${version}")
endif()

# Hosts ask for the series.
foreach(file README.md docs/hosting.md tests/consumer/CMakeLists.txt)
  file(STRINGS ${file} requests REGEX "find_package\\(orvil ")
  list(LENGTH requests count)
  if(count EQUAL 0)
    message(SEND_ERROR "${file} shows no find_package(orvil ...)")
  endif()
  foreach(request IN LISTS requests)
    if(NOT request MATCHES "find_package\\(orvil ${series} REQUIRED\\)")
      message(SEND_ERROR "${file}: not version ${series}: ${request}")
    endif()
  endforeach()
endforeach()

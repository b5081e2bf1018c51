# What every target of this project is compiled with. Installed targets hand none of it on to their users.

find_program(ORVIL_CCACHE ccache)
mark_as_advanced(ORVIL_CCACHE)
if(PROJECT_IS_TOP_LEVEL AND ORVIL_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${ORVIL_CCACHE})
endif()

add_library(orvil_options INTERFACE)
# A multiplication and an addition are never fused: results are the same with every compiler and processor.
target_compile_options(orvil_options INTERFACE -ffp-contract=off)
# A shared library with unique symbols, which GCC makes of static data in templates, is never unloaded.
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  target_compile_options(orvil_options INTERFACE -fno-gnu-unique)
endif()
if(ORVIL_DEVELOPER_WARNINGS)
  target_compile_options(orvil_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Werror)
  # GCC 12 optimizes `"text" + std::move(string)` into copies that it then takes for overlapping ones.
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(orvil_options INTERFACE $<$<CONFIG:Release>:-Wno-restrict>)
  endif()
endif()
set(ORVIL_SANITIZERS "" CACHE STRING "Sanitizers, as -fsanitize takes them")
if(ORVIL_SANITIZERS)
  target_compile_options(orvil_options INTERFACE
    -fsanitize=${ORVIL_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(orvil_options INTERFACE -fsanitize=${ORVIL_SANITIZERS})
endif()
option(ORVIL_COVERAGE "Count executed lines and branches" OFF)
if(ORVIL_COVERAGE)
  target_compile_options(orvil_options INTERFACE --coverage -fprofile-abs-path)
  target_link_options(orvil_options INTERFACE --coverage)
endif()

# Cross-builds for 64-bit Windows with mingw-w64's posix threads flavour; programs run under Wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# PCRE_ROOT is where tools/build-pcre-windows was told to install.
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 ${PCRE_ROOT})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The runtime libraries go into each program: a DLL of ours needs nothing but the system's.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")

# Wine's 64-bit loader is called itself: the `wine` wrapper asks for a 32-bit one. The environment variable
# ORVIL_WINEPREFIX names a prefix to share between build folders.
find_program(ORVIL_WINE NAMES wine64 PATHS /usr/lib/wine NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
if(ORVIL_WINE)
  set(orvil_wineprefix ${CMAKE_BINARY_DIR}/wine)
  if(DEFINED ENV{ORVIL_WINEPREFIX})
    set(orvil_wineprefix $ENV{ORVIL_WINEPREFIX})
  endif()
  set(CMAKE_CROSSCOMPILING_EMULATOR env;WINEDEBUG=-all;WINEPREFIX=${orvil_wineprefix};${ORVIL_WINE})
endif()

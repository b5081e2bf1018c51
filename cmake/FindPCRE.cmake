# Finds PCRE with its classic C interface and defines the target PCRE::PCRE.
# PCRE_ROOT names a prefix to look in first.
find_path(PCRE_INCLUDE_DIR pcre.h)
find_library(PCRE_LIBRARY pcre)
mark_as_advanced(PCRE_INCLUDE_DIR PCRE_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(PCRE REQUIRED_VARS PCRE_LIBRARY PCRE_INCLUDE_DIR)

if(PCRE_FOUND AND NOT TARGET PCRE::PCRE)
  add_library(PCRE::PCRE UNKNOWN IMPORTED)
  set_target_properties(PCRE::PCRE PROPERTIES
    IMPORTED_LOCATION "${PCRE_LIBRARY}"
    INTERFACE_INCLUDE_DIRECTORIES "${PCRE_INCLUDE_DIR}")
  if(PCRE_LIBRARY MATCHES "\\.a$")
    set_target_properties(PCRE::PCRE PROPERTIES INTERFACE_COMPILE_DEFINITIONS PCRE_STATIC)
  endif()
endif()

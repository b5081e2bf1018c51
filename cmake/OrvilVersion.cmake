# Reads ORVIL_VERSION from the public header, the one place where the version is written.
file(STRINGS ${CMAKE_CURRENT_LIST_DIR}/../include/orvil/version.h orvil_version_lines REGEX "define ORVIL_VERSION_")
string(REGEX MATCHALL "[0-9]+" orvil_version_numbers "${orvil_version_lines}")
list(JOIN orvil_version_numbers . ORVIL_VERSION)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS include/orvil/version.h)

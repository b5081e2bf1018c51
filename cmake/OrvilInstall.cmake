# What `cmake --install` puts where: the library, its headers, documents, views for debuggers, the CMake package `orvil`
# and the pkg-config file.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(orvil_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/orvil)

install(TARGETS orvil EXPORT orvil)
install(DIRECTORY include/orvil TYPE INCLUDE FILES_MATCHING PATTERN "*.h")

# Views of the classes for debuggers.
install(FILES debug/orvil_gdb.py debug/orvil.natvis DESTINATION ${CMAKE_INSTALL_DATADIR}/orvil)

install(FILES README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs TYPE DOC FILES_MATCHING PATTERN "*.md")

# A library that contains PCRE comes with PCRE's notice.
if(PCRE_LIBRARY MATCHES "\\.a$")
  find_file(PCRE_NOTICE copyright PATHS /usr/share/doc/libpcre3-dev NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
  mark_as_advanced(PCRE_NOTICE)
  if(PCRE_NOTICE)
    install(FILES ${PCRE_NOTICE} DESTINATION ${CMAKE_INSTALL_DOCDIR} RENAME PCRE-copyright.txt)
  endif()
endif()

# The package needs no others, since PCRE is linked privately: the exported target is the whole of it.
install(EXPORT orvil NAMESPACE orvil:: FILE orvilConfig.cmake DESTINATION ${orvil_package_dir})
write_basic_package_version_file(orvilConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/orvilConfigVersion.cmake DESTINATION ${orvil_package_dir})

# Paths in the pkg-config file start from where it lies, so that an installation can be moved. The import library is
# named by its file, since `-lORVIL` does not find it in a static link.
file(RELATIVE_PATH orvil_pc_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" orvil_pc_prefix ${orvil_pc_prefix})
set(orvil_pc_library orvil)
if(WIN32)
  set(orvil_pc_library :libORVIL.dll.a)
endif()
configure_file(cmake/orvil.pc.in orvil.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/orvil.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

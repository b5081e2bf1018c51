# Makes the archive, compares what is in it with what is promised, and unpacks it as UNPACKED/orvil, with the consumer
# beside it:
#   cmake -DCPACK=... -DCONFIG=... -DARCHIVES=... -DUNPACKED=... -DNAME=... -DVERSION=... -DWINDOWS=0|1 -DCONSUMER=...
#     -P package.cmake
cmake_minimum_required(VERSION 3.25)

file(REMOVE_RECURSE ${ARCHIVES} ${UNPACKED})
execute_process(COMMAND ${CPACK} --config ${CONFIG} -B ${ARCHIVES} COMMAND_ERROR_IS_FATAL ANY)

set(archive ${ARCHIVES}/${NAME}.tar.gz)
set(library_files lib/liborvil.so lib/liborvil.so.${VERSION})
if(WINDOWS)
  set(archive ${ARCHIVES}/${NAME}.zip)
  set(library_files bin/ORVIL.dll lib/libORVIL.dll.a share/doc/orvil/PCRE-copyright.txt)
endif()
file(ARCHIVE_EXTRACT INPUT ${archive} DESTINATION ${UNPACKED})
file(RENAME ${UNPACKED}/${NAME} ${UNPACKED}/orvil)

# Each header and each document; of the rest, these files and no others.
foreach(folder include docs)
  file(GLOB_RECURSE ${folder}_files RELATIVE ${CONSUMER}/../../${folder} ${CONSUMER}/../../${folder}/*.h
    ${CONSUMER}/../../${folder}/*.md)
endforeach()
list(TRANSFORM include_files PREPEND include/)
list(TRANSFORM docs_files PREPEND share/doc/orvil/docs/)
set(expected ${library_files} ${include_files} ${docs_files}
  share/doc/orvil/README.md share/doc/orvil/CHANGELOG.md
  share/orvil/orvil.natvis share/orvil/orvil_gdb.py
  lib/cmake/orvil/orvilConfig.cmake lib/cmake/orvil/orvilConfigVersion.cmake lib/pkgconfig/orvil.pc)
file(GLOB_RECURSE found RELATIVE ${UNPACKED}/orvil ${UNPACKED}/orvil/*)
set(missing ${expected})
list(REMOVE_ITEM missing ${found})
set(added ${found})
list(REMOVE_ITEM added ${expected})
# One for each kind of build, and the shared library's short name.
list(FILTER added EXCLUDE REGEX "^lib/cmake/orvil/orvilConfig-[a-z]+\\.cmake$|^lib/liborvil\\.so\\.[0-9.]+$")
if(missing OR added)
  message(FATAL_ERROR "The archive ${archive} lacks: ${missing}\nand holds beside what is expected: ${added}")
endif()

file(COPY ${CONSUMER} DESTINATION ${UNPACKED})

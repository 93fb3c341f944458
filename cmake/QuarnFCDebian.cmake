# SPDX-License-Identifier: MIT
# Debian packages, a package for each component.
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The host program's own library is found, though no package that is installed holds it.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/bin")
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS OFF)
set(library libquarnfc${PROJECT_VERSION_MAJOR})
set(debian_files "${PROJECT_BINARY_DIR}/debian")

# debian_package(<component> <name> <section> <summary> <description>)
macro(debian_package component name section summary description)
  set(CPACK_DEBIAN_${component}_PACKAGE_NAME ${name})
  set(CPACK_DEBIAN_${component}_PACKAGE_SECTION ${section})
  set(CPACK_DEBIAN_${component}_DESCRIPTION "${summary}\n${description}")
endmacro()

debian_package(RUNTIME ${library} libs "C++ foundation classes: strings, JSON, geodesy, HTTP, codecs, CSV"
"The library that programs load. Strings and collections for code pages, JSON
documents, coordinate systems and projections, an HTTP client, digests and
encodings, a CSV reader, and times, with a plain C interface.")
file(CONFIGURE OUTPUT "${debian_files}/shlibs" @ONLY
     CONTENT "libQuarnFC ${PROJECT_VERSION_MAJOR} ${library} (>= ${PROJECT_VERSION})\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${PROJECT_SOURCE_DIR}/packaging/debian/triggers"
                                               "${debian_files}/shlibs")
if(QUARNFC_HTTP)
  # Loaded with the first request.
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS "libcurl4 (>= 7.85)")
endif()

debian_package(DEVEL libquarnfc-dev libdevel "Headers and package configuration of QuarnFC"
"What building a program with the library needs: headers, package
configurations for CMake and pkg-config, and what gdb shows of its classes.")
set(CPACK_DEBIAN_DEVEL_PACKAGE_DEPENDS "${library} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_DEVEL_PACKAGE_SHLIBDEPS OFF)

debian_package(TOOLS quarnfc-tools utils "Host program of QuarnFC for JSON, coordinates, texts and HTTP"
"The program qn: reads and writes JSON, converts coordinates and texts, makes
digests, reads CSV and fetches from the web, each by a command of its own.")
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${library} (>= ${PROJECT_VERSION})")

debian_package(DOC quarnfc-doc doc "Documentation of QuarnFC, in English and Chinese"
"Pages for every family of classes, the reference of the public headers, and
the sources of the samples.")
set(CPACK_DEBIAN_DOC_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_DOC_PACKAGE_SHLIBDEPS OFF)

debian_package(DEBUG ${library}-dbg debug "Debug information of QuarnFC"
"What debuggers and the program quarnfc-resolve, which is in this package, need
to show functions, files and lines of the library and of qn.")
set(CPACK_DEBIAN_DEBUG_PACKAGE_DEPENDS "${library} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_DEBUG_PACKAGE_SHLIBDEPS OFF)

# Each package brings its licence and a change log along, as Debian wants them; what grows is
# compressed. Only what goes into the system's own folders is a package of Debian's kind.
string(TIMESTAMP day "%a, %d %b %Y %H:%M:%S +0000" UTC)
file(CONFIGURE OUTPUT "${debian_files}/changelog" @ONLY CONTENT
"quarnfc (${PROJECT_VERSION}) stable; urgency=medium

  * What has changed is told in NEWS.md of the package quarnfc-doc.

 -- ${CPACK_PACKAGE_CONTACT}  ${day}
")
set(compressed_tools ../../man/man1/qn.1)
set(compressed_debug ../../man/man1/quarnfc-resolve.1)
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  string(TOUPPER ${component} key)
  set(folder "/usr/share/doc/${CPACK_DEBIAN_${key}_PACKAGE_NAME}")
  install(CODE "
    if(CMAKE_INSTALL_PREFIX STREQUAL \"/usr\")
      file(INSTALL DESTINATION \"${folder}\" TYPE FILE RENAME copyright
           FILES \"${PROJECT_SOURCE_DIR}/LICENSE\")
      file(INSTALL DESTINATION \"${folder}\" TYPE FILE FILES \"${debian_files}/changelog\")
      execute_process(COMMAND gzip -9 -n -f ${compressed_${component}} changelog
                      WORKING_DIRECTORY \"\$ENV{DESTDIR}${folder}\" COMMAND_ERROR_IS_FATAL ANY)
    endif()" COMPONENT ${component})
endforeach()

# SPDX-License-Identifier: MIT
# What `cmake --install` puts where. Components:
#   runtime  what a program linked with the library needs to run
#   devel    what building such a program needs: headers, import library, package configuration
#   debug    the debug information of the released binaries (with QUARNFC_SPLIT_DEBUG)
#   tools    the host program qn
#   doc      documentation
# The licences come with runtime. Everything may be moved to another folder after it is installed.

if(WIN32)
  # A ZIP for Windows is a folder of its own: bin, include, lib, docs, licences.
  set(CMAKE_INSTALL_DOCDIR docs CACHE PATH "Documentation")
  set(QUARNFC_INSTALL_LICENCEDIR licences CACHE PATH "Licences")
endif()
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
set(QUARNFC_INSTALL_LICENCEDIR "${CMAKE_INSTALL_DOCDIR}" CACHE PATH "Licences")
set(QUARNFC_INSTALL_CMAKEDIR "${CMAKE_INSTALL_LIBDIR}/cmake/QuarnFC" CACHE PATH
                                                                          "Package configuration")

install(
  TARGETS QuarnFC
  EXPORT QuarnFCTargets
  RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT runtime
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT runtime NAMELINK_COMPONENT devel
  ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT devel
  INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
get_target_property(runtime_files QuarnFC QUARNFC_RUNTIME_FILES)
if(NOT runtime_files)
  set(runtime_files "")
endif()
foreach(name IN LISTS runtime_files)
  install(FILES "$<TARGET_FILE_DIR:QuarnFC>/${name}" DESTINATION "${CMAKE_INSTALL_BINDIR}"
          COMPONENT runtime)
endforeach()
install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" DESTINATION "${QUARNFC_INSTALL_LICENCEDIR}"
        COMPONENT runtime)
if(runtime_files)
  # The tool chain's own statements about its run-time libraries, where it has them.
  install(FILES "${PROJECT_SOURCE_DIR}/packaging/licences/run-time-libraries.txt"
          DESTINATION "${QUARNFC_INSTALL_LICENCEDIR}" COMPONENT runtime)
  install(FILES /usr/share/doc/gcc-mingw-w64-x86-64-posix-runtime/copyright
          DESTINATION "${QUARNFC_INSTALL_LICENCEDIR}" RENAME gcc-copyright.txt COMPONENT runtime
          OPTIONAL)
  install(FILES /usr/share/common-licenses/GPL-3 DESTINATION "${QUARNFC_INSTALL_LICENCEDIR}"
          COMPONENT runtime OPTIONAL)
endif()

if(QUARNFC_MSVC_ABI)
  # The standard library that is linked in.
  install(FILES "${PROJECT_SOURCE_DIR}/packaging/licences/standard-library.txt"
          DESTINATION "${QUARNFC_INSTALL_LICENCEDIR}" COMPONENT runtime)
  install(FILES /usr/share/doc/libc++-19-dev/copyright
          DESTINATION "${QUARNFC_INSTALL_LICENCEDIR}" RENAME libcxx-copyright.txt
          COMPONENT runtime OPTIONAL)
endif()
if(runtime_files OR QUARNFC_MSVC_ABI)
  install(FILES /usr/share/doc/mingw-w64-x86-64-dev/copyright
          DESTINATION "${QUARNFC_INSTALL_LICENCEDIR}" RENAME mingw-w64-copyright.txt
          COMPONENT runtime OPTIONAL)
endif()

install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/quarnfc"
        DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT devel)
if(WIN32)
  install(FILES "$<TARGET_FILE_DIR:QuarnFC>/QuarnFC.def" DESTINATION "${CMAKE_INSTALL_LIBDIR}"
          COMPONENT devel OPTIONAL)
endif()

# find_package(QuarnFC 1.0 CONFIG)
configure_package_config_file(
  "${PROJECT_SOURCE_DIR}/cmake/QuarnFCConfig.cmake.in" "${PROJECT_BINARY_DIR}/QuarnFCConfig.cmake"
  INSTALL_DESTINATION "${QUARNFC_INSTALL_CMAKEDIR}" PATH_VARS CMAKE_INSTALL_DATADIR
  NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/QuarnFCConfigVersion.cmake"
                                 COMPATIBILITY SameMajorVersion)
install(
  FILES "${PROJECT_BINARY_DIR}/QuarnFCConfig.cmake"
        "${PROJECT_BINARY_DIR}/QuarnFCConfigVersion.cmake"
        "${PROJECT_SOURCE_DIR}/cmake/QuarnFCCopyRuntime.cmake"
  DESTINATION "${QUARNFC_INSTALL_CMAKEDIR}" COMPONENT devel)
install(EXPORT QuarnFCTargets NAMESPACE QuarnFC:: DESTINATION "${QUARNFC_INSTALL_CMAKEDIR}"
        COMPONENT devel)

# pkg-config quarnfc. Paths are relative to the file itself.
set(pkgconfig_dir "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
file(RELATIVE_PATH QUARNFC_PC_PREFIX "/prefix/${pkgconfig_dir}" "/prefix")
if(NOT WIN32)
  set(QUARNFC_PC_CFLAGS " -fshort-wchar")
endif()
configure_file("${PROJECT_SOURCE_DIR}/cmake/quarnfc.pc.in" "${PROJECT_BINARY_DIR}/quarnfc.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/quarnfc.pc" DESTINATION "${pkgconfig_dir}" COMPONENT devel)

# Debug information stands beside the binary it belongs to; in the system's own folders it has a place
# of its own, where gdb looks as well.
function(quarnfc_install_debug target folder)
  install(CODE "
    set(place \"\${CMAKE_INSTALL_PREFIX}/${folder}\")
    if(CMAKE_INSTALL_PREFIX STREQUAL \"/usr\")
      string(PREPEND place /usr/lib/debug)
    endif()
    file(INSTALL DESTINATION \"\${place}\" TYPE FILE FILES \"$<TARGET_FILE:${target}>.debug\")"
          COMPONENT debug)
endfunction()
if(MSVC)
  install(FILES "$<TARGET_PDB_FILE:QuarnFC>" DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT debug
          OPTIONAL)
  if(TARGET qn)
    install(FILES "$<TARGET_PDB_FILE:qn>" DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT debug
            OPTIONAL)
  endif()
elseif(QUARNFC_SPLIT_DEBUG)
  set(module_dir "${CMAKE_INSTALL_LIBDIR}")
  if(WIN32)
    set(module_dir "${CMAKE_INSTALL_BINDIR}")
  endif()
  quarnfc_install_debug(QuarnFC "${module_dir}")
  if(TARGET qn)
    quarnfc_install_debug(qn "${CMAKE_INSTALL_BINDIR}")
  endif()
endif()

# What debuggers show. gdb looks for a file named after the library's own.
set(printers "${PROJECT_SOURCE_DIR}/tools/debug/quarnfc-gdb.py")
install(FILES "${PROJECT_SOURCE_DIR}/tools/debug/quarnfc.natvis"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/quarnfc" COMPONENT devel)
if(MSVC)
  # gdb reads no debug information of this kind.
elseif(WIN32)
  install(FILES "${printers}" DESTINATION "${CMAKE_INSTALL_BINDIR}"
          RENAME QuarnFC.dll-gdb.py COMPONENT devel)
else()
  # For the system's own folders gdb trusts another place alone, where it does not look if it has found
  # one beside the library.
  install(CODE "
    set(place \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}\")
    if(CMAKE_INSTALL_PREFIX STREQUAL \"/usr\")
      string(PREPEND place /usr/share/gdb/auto-load)
    endif()
    file(INSTALL DESTINATION \"\${place}\" TYPE FILE
         RENAME \"libQuarnFC.so.${PROJECT_VERSION}-gdb.py\" FILES \"${printers}\")"
          COMPONENT devel)
  install(PROGRAMS "${PROJECT_SOURCE_DIR}/tools/debug/quarnfc-resolve.sh"
          DESTINATION "${CMAKE_INSTALL_BINDIR}" RENAME quarnfc-resolve COMPONENT debug)
  install(FILES "${PROJECT_SOURCE_DIR}/tools/debug/quarnfc-resolve.1"
          DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT debug)
endif()

if(TARGET qn)
  if(NOT WIN32)
    file(RELATIVE_PATH lib_from_bin "/prefix/${CMAKE_INSTALL_BINDIR}"
         "/prefix/${CMAKE_INSTALL_LIBDIR}")
    set_target_properties(qn PROPERTIES INSTALL_RPATH "$ORIGIN/${lib_from_bin}")
  endif()
  install(TARGETS qn RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT tools)
  if(NOT WIN32 AND NOT CMAKE_CROSSCOMPILING)
    # Where man and bash look for them.
    install(FILES "${PROJECT_BINARY_DIR}/qn.1" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1"
            COMPONENT tools)
    install(FILES "${PROJECT_BINARY_DIR}/qn.bash"
            DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" RENAME qn
            COMPONENT tools)
  endif()
endif()

install(FILES "${PROJECT_SOURCE_DIR}/README.md" "${PROJECT_SOURCE_DIR}/README.zh-CN.md"
              "${PROJECT_SOURCE_DIR}/NEWS.md"
              "${PROJECT_SOURCE_DIR}/SECURITY.md" "${PROJECT_SOURCE_DIR}/SECURITY.zh-CN.md"
              "${PROJECT_SOURCE_DIR}/CONTRIBUTING.md" "${PROJECT_SOURCE_DIR}/CONTRIBUTING.zh-CN.md"
        DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT doc)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/docs/" DESTINATION "${CMAKE_INSTALL_DOCDIR}/docs"
        COMPONENT doc
        FILES_MATCHING PATTERN "*.md" PATTERN "*.svg")
if(NOT QUARNFC_INSTALL_LICENCEDIR STREQUAL CMAKE_INSTALL_DOCDIR)
  install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT doc)
endif()
# Hosts that are built elsewhere for Windows may copy it.
install(FILES "${PROJECT_SOURCE_DIR}/cmake/toolchain-mingw-w64.cmake"
        DESTINATION "${CMAKE_INSTALL_DOCDIR}/cmake" COMPONENT doc)
if(QUARNFC_BUILD_REFERENCE)
  install(DIRECTORY "${PROJECT_BINARY_DIR}/reference/html/"
          DESTINATION "${CMAKE_INSTALL_DOCDIR}/reference" COMPONENT doc)
endif()
install(DIRECTORY "${PROJECT_SOURCE_DIR}/samples" DESTINATION "${CMAKE_INSTALL_DOCDIR}"
        COMPONENT doc)

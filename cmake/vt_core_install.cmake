# Installing vt_core: the library and its headers, the host library vt_host and its headers,
# vtpool with its man page and bash completion, a CMake package (vt_core::vt_core,
# vt_core::vt_host, vt_core::vtpool) and pkg-config files; and, from the same rules, the Debian
# package that CPack builds. Everything installed finds the rest relative to where it lands, so
# an installed tree can be moved and never refers back to the build.
include(CMakePackageConfigHelpers)

set(VT_CORE_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/vt_core)
set(VT_CORE_INSTALL_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/vt_core)
set(VT_HOST_INSTALL_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/vt_host)

# While the version is 0.x a new minor version may change the interface (the soname changes
# with it), so a package asking for 0.2 accepts 0.2.x only; from 1.0 on, any later 1.x.
if(PROJECT_VERSION_MAJOR EQUAL 0)
  set(VT_CORE_COMPATIBILITY SameMinorVersion)
else()
  set(VT_CORE_COMPATIBILITY SameMajorVersion)
endif()

install(TARGETS vt_core EXPORT vt_core_targets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  FILE_SET HEADERS DESTINATION ${VT_CORE_INSTALL_INCLUDEDIR}
  FILE_SET generated_headers DESTINATION ${VT_CORE_INSTALL_INCLUDEDIR})

if(TARGET vt_host)
  # vtpool finds the library through a path relative to itself, unless the library lands in a
  # folder the loader searches anyway (/usr/lib/<arch> for the Debian package).
  set(system_dirs ${CMAKE_PLATFORM_IMPLICIT_LINK_DIRECTORIES} ${CMAKE_CXX_IMPLICIT_LINK_DIRECTORIES})
  if(NOT CMAKE_INSTALL_FULL_LIBDIR IN_LIST system_dirs)
    file(RELATIVE_PATH lib_from_bin ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
    set_target_properties(vtpool PROPERTIES INSTALL_RPATH "$ORIGIN/${lib_from_bin}")
  endif()
  install(TARGETS vt_host vtpool EXPORT vt_core_targets
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
    FILE_SET HEADERS DESTINATION ${VT_HOST_INSTALL_INCLUDEDIR})

  # vtpool's man page and bash completion, written by vtpool itself from its command table.
  if(VT_CORE_DOCS)
    find_program(VT_CORE_GZIP gzip)
    mark_as_advanced(VT_CORE_GZIP)
    set(docs_dir ${PROJECT_BINARY_DIR}/docs)
    set(man_page ${docs_dir}/vtpool.1)
    if(VT_CORE_GZIP)
      set(man_page ${man_page}.gz)
    endif()
    add_custom_command(OUTPUT ${man_page} ${docs_dir}/vtpool.bash
      COMMAND ${CMAKE_COMMAND} -DVTPOOL=$<TARGET_FILE:vtpool> -DDIR=${docs_dir} -DGZIP=${VT_CORE_GZIP}
              -P ${PROJECT_SOURCE_DIR}/cmake/vtpool_docs.cmake
      DEPENDS vtpool ${PROJECT_SOURCE_DIR}/cmake/vtpool_docs.cmake
      COMMENT "Writing vtpool's man page and bash completion")
    add_custom_target(vtpool_docs ALL DEPENDS ${man_page} ${docs_dir}/vtpool.bash)
    install(FILES ${man_page} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
    install(FILES ${docs_dir}/vtpool.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
      RENAME vtpool)
  endif()
  # The bitmap font compiled into vt_host and vtpool comes with its licence.
  install(FILES ${PROJECT_SOURCE_DIR}/tools/render/font/COPYING DESTINATION ${CMAKE_INSTALL_DOCDIR}
    RENAME font-COPYING)
endif()
install(FILES ${PROJECT_SOURCE_DIR}/README.md DESTINATION ${CMAKE_INSTALL_DOCDIR})

# The CMake package: find_package(vt_core 0.2 CONFIG REQUIRED).
install(EXPORT vt_core_targets NAMESPACE vt_core:: FILE vt_core-targets.cmake
  DESTINATION ${VT_CORE_INSTALL_CMAKEDIR})
configure_package_config_file(cmake/vt_core-config.cmake.in ${PROJECT_BINARY_DIR}/vt_core-config.cmake
  INSTALL_DESTINATION ${VT_CORE_INSTALL_CMAKEDIR} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/vt_core-config-version.cmake
  COMPATIBILITY ${VT_CORE_COMPATIBILITY})
install(FILES ${PROJECT_BINARY_DIR}/vt_core-config.cmake ${PROJECT_BINARY_DIR}/vt_core-config-version.cmake
  DESTINATION ${VT_CORE_INSTALL_CMAKEDIR})
# CMake functions for projects that use vt_core come with the package; the config file
# includes every one installed beside it.
file(GLOB VT_CORE_CMAKE_FUNCTIONS CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/vt_core_add_*.cmake)
install(FILES ${VT_CORE_CMAKE_FUNCTIONS} DESTINATION ${VT_CORE_INSTALL_CMAKEDIR})

# pkg-config files, relative to where they land.
file(RELATIVE_PATH VT_CORE_PC_PREFIX ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" VT_CORE_PC_PREFIX "${VT_CORE_PC_PREFIX}")
set(VT_CORE_PC_FILES vt_core)
if(TARGET vt_host)
  list(APPEND VT_CORE_PC_FILES vt_host)
endif()
foreach(pc ${VT_CORE_PC_FILES})
  configure_file(cmake/${pc}.pc.in ${PROJECT_BINARY_DIR}/${pc}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${pc}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endforeach()

# The Debian package (cpack -G DEB, or scripts/package.sh): everything above in one package,
# its dependencies on Debian's Qt packages found by dpkg-shlibdeps from what the binaries link.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vt-core)
set(CPACK_PACKAGE_CONTACT "vt_core developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "ISO 11783-6 Virtual Terminal object pools: library and vtpool")
set(CPACK_PACKAGE_DESCRIPTION
  "vt_core models every object of an ISO 11783-6 (ISOBUS) Virtual Terminal object pool.
The package holds the shared library, the host library vt_host, their headers,
CMake package and pkg-config files, and vtpool, which builds pool descriptions
into object-pool bytes for a terminal, reads, checks, dumps and draws pools, and
generates C++ source that compiles a pool in.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
# Packages built against this one accept any later 0.2.x (the soname says which are compatible).
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
# Building against the headers needs Qt's headers too.
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "qtbase5-dev (>= ${VT_CORE_QT_MIN}), pkg-config")
set(CPACK_STRIP_FILES ON)
include(CPack)

# CPack: "cpack" in a Linux build directory makes the three Debian packages,
# in a Windows build directory the archive zelt-<version>-win64.zip.
set(CPACK_PACKAGE_NAME zelt)
set(CPACK_PACKAGE_VENDOR "The zelt authors")
set(CPACK_PACKAGE_CONTACT "The zelt authors <zelt@example.org>")
# CPack writes the summary before each component's description unless it is
# its own default; each package's description starts with its own synopsis.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_NAME} built using CMake")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CHECKSUM SHA256)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL runtime development tool)
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS runtime)
set(CPACK_COMPONENT_TOOL_DEPENDS runtime)

if(WIN32)
  set(CPACK_GENERATOR ZIP)
  set(CPACK_PACKAGE_FILE_NAME zelt-${PROJECT_VERSION}-win64)
  set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY OFF)
  set(CPACK_ARCHIVE_COMPONENT_INSTALL OFF)
else()
  set(CPACK_GENERATOR DEB)
  set(CPACK_DEB_COMPONENT_INSTALL ON)
  set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
  set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
  # The tool's dependency on the library comes from the component
  # dependency; dpkg-shlibdeps finds the library in its package's tree.
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
      ${PROJECT_BINARY_DIR}/_CPack_Packages/Linux/DEB/zelt-${PROJECT_VERSION}-Linux/runtime${CMAKE_INSTALL_FULL_LIBDIR})

  set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libzelt${PROJECT_VERSION_MAJOR})
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
  set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
  set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_SOURCE_DIR}/triggers)
  set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "configuration document library of the security agent
zelt holds the configuration of the security agent: one JSON document,
loaded from text or a file, presented as a tree of typed configuration
elements, changed and written back.

This package holds the shared library.")

  set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libzelt-dev)
  set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
  set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "configuration document library of the security agent - development files
zelt holds the configuration of the security agent: one JSON document,
loaded from text or a file, presented as a tree of typed configuration
elements, changed and written back.

This package holds the headers, the CMake package, the pkg-config file and
the API reference.")

  set(CPACK_DEBIAN_TOOL_PACKAGE_NAME zeltcfg)
  set(CPACK_DEBIAN_TOOL_PACKAGE_SECTION utils)
  set(CPACK_COMPONENT_TOOL_DESCRIPTION "check, show, change and format configuration documents of the agent
zeltcfg checks a configuration document of the security agent and says
what is wrong and where, shows it as a typed tree, reads or changes one
value by its path, rewrites it in the library's layout, starts a new one
and prints a JSON Schema of it.

This package holds the tool, its manual page, its bash completion and the
JSON Schema.")
endif()

include(CPack)

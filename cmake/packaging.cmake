# Debian packages of the installed parts, made by CPack (`cpack -G DEB` in a
# build configured with CMAKE_INSTALL_PREFIX=/usr; scripts/packages.sh):
#   libcorvane1     runtime: libcorvane.so.1, and the component module with its
#                   type library where this tree builds them
#   libcorvane-dev  dev: headers, the libcorvane.so link, CMake package,
#                   pkg-config file
#   corvane-tools   tools: the command-line client where this tree builds it,
#                   the schema scripts under /usr/share/corvane
# The package revision, maintainer and the Debian changelog live here and in
# cmake/debian/.

set(CORVANE_DEB_REVISION 1 CACHE STRING "Debian revision of the packages")
set(CORVANE_DEB_MAINTAINER "Corvane maintainers <maintainers@corvane.example>"
  CACHE STRING "Maintainer field of the Debian packages")
set(CORVANE_DEB_VERSION ${PROJECT_VERSION}-${CORVANE_DEB_REVISION})

# The component module (beside the library, with the type library that it
# writes beside itself) and the command-line client, when they are built.
if(TARGET corvane_component)
  install(TARGETS corvane_component
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime)
  install(FILES $<TARGET_FILE_DIR:corvane_component>/corvane.tlb.json
    DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime OPTIONAL)
endif()
if(TARGET corvane_cli)
  install(TARGETS corvane_cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tools)
endif()

# What Debian wants of every package: a copyright file and the Debian
# changelog, compressed without a time stamp. Only the packages take them.
file(STRINGS ${PROJECT_SOURCE_DIR}/cmake/debian/changelog corvane_changelog_top LIMIT_COUNT 1)
if(NOT corvane_changelog_top MATCHES "^corvane \\(${CORVANE_DEB_VERSION}\\) ")
  message(WARNING "cmake/debian/changelog does not start with an entry for ${CORVANE_DEB_VERSION}")
endif()
set(corvane_changelog_gz ${PROJECT_BINARY_DIR}/debian/changelog.Debian.gz)
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/debian)
execute_process(COMMAND gzip -9nc ${PROJECT_SOURCE_DIR}/cmake/debian/changelog
  OUTPUT_FILE ${corvane_changelog_gz} COMMAND_ERROR_IS_FATAL ANY)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/debian/changelog)
foreach(part runtime dev tools)
  set(package_of_runtime libcorvane1)
  set(package_of_dev libcorvane-dev)
  set(package_of_tools corvane-tools)
  install(FILES ${PROJECT_SOURCE_DIR}/cmake/debian/copyright ${corvane_changelog_gz}
    DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/${package_of_${part}}
    COMPONENT ${part} EXCLUDE_FROM_ALL)
endforeach()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME corvane)
set(CPACK_PACKAGE_VENDOR "Corvane")
set(CPACK_PACKAGE_CONTACT "${CORVANE_DEB_MAINTAINER}")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL runtime dev tools)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${CORVANE_DEB_REVISION})
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${CORVANE_DEB_MAINTAINER}")
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
# Dependencies on shared libraries (libc6, libstdc++6, libmariadb3 and so on)
# come from dpkg-shlibdeps; libcorvane.so.1 itself is found in the build tree.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR})

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libcorvane1)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
# A program built against 1.x needs at least the version it was built with:
# a minor release only adds symbols (the shlibs file names the package of
# every library with a SONAME). The dynamic linker's cache is renewed by the
# ldconfig trigger.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/cmake/debian/triggers)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION
"Corvane manufacturing and sales data layer - shared library
Corvane is the data layer of a manufacturing and sales management system:
seventeen repository classes that a desktop client creates and calls to read
and write customers, sales people, customer studies, samples, quotations with
their attached files, sales orders, order changes, outsourced production
orders and cost estimates in a MariaDB or MySQL database.
.
This package contains the shared library.")

set(CPACK_DEBIAN_DEV_PACKAGE_NAME libcorvane-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "libcorvane1 (= ${CORVANE_DEB_VERSION})")
set(CPACK_COMPONENT_DEV_DESCRIPTION
"Corvane manufacturing and sales data layer - development files
Corvane is the data layer of a manufacturing and sales management system:
seventeen repository classes that a desktop client creates and calls to read
and write its records in a MariaDB or MySQL database.
.
This package contains the C++20 headers, the link to the shared library, the
CMake package (find_package(corvane) gives corvane::corvane) and the
pkg-config file corvane.pc.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME corvane-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION database)
set(CPACK_COMPONENT_TOOLS_DESCRIPTION
"Corvane manufacturing and sales data layer - tools
Corvane is the data layer of a manufacturing and sales management system:
seventeen repository classes that a desktop client creates and calls to read
and write its records in a MariaDB or MySQL database.
.
This package contains the scripts that create the business and attachment
databases' tables (under /usr/share/corvane), and the corvane command-line
client where it is built.")
if(TARGET corvane_cli)
  set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "libcorvane1 (= ${CORVANE_DEB_VERSION})")
else()
  # Only the schema scripts: nothing in the package depends on the machine.
  set(CPACK_DEBIAN_TOOLS_PACKAGE_ARCHITECTURE all)
endif()

include(CPack)

# The test that installs the packages into this machine with apt-get, builds
# the demo client against them alone and runs it on the sandbox server, then
# removes them (root only; scripts/packages.sh configures it).
option(CORVANE_TEST_PACKAGES "Test the Debian packages by installing them (needs root)" OFF)
if(CORVANE_TEST_PACKAGES)
  enable_testing()
  add_test(NAME packages.InstallBuildAndRunTheDemo
           COMMAND ${PROJECT_SOURCE_DIR}/tests/packages/packages_test.sh ${PROJECT_BINARY_DIR} ${PROJECT_SOURCE_DIR})
  set_tests_properties(packages.InstallBuildAndRunTheDemo PROPERTIES
    LABELS packages TIMEOUT 600 RUN_SERIAL ON)
endif()

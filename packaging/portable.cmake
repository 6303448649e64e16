# SPDX-License-Identifier: MIT
# Read by CPack before it makes each package. The archive holds the component `portable` and nothing
# else, in a folder without a version in its name: the settings name the theme by its path, so an
# update should be unpacked over its predecessor.

if(CPACK_GENERATOR STREQUAL TGZ)
  list(TRANSFORM CPACK_INSTALL_CMAKE_PROJECTS REPLACE "^ALL$" portable)
  set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY OFF)
  set(CPACK_PACKAGING_INSTALL_PREFIX /${CPACK_PACKAGE_NAME})
endif()

# SPDX-License-Identifier: MIT
# Read by cpack once for each kind of package.
if(CPACK_GENERATOR STREQUAL "DEB")
  set(CPACK_COMPONENTS_GROUPING IGNORE)
  set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
  # Each package has a summary of its own.
  set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
else()
  set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
  set(CPACK_COMPONENT_INCLUDE_TOPLEVEL_DIRECTORY ON)
endif()

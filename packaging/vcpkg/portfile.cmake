# SPDX-License-Identifier: MIT
# Untried. The port builds the tree it stands in.
vcpkg_check_linkage(ONLY_DYNAMIC_LIBRARY)
get_filename_component(SOURCE_PATH "${CMAKE_CURRENT_LIST_DIR}/../.." ABSOLUTE)
vcpkg_cmake_configure(
  SOURCE_PATH "${SOURCE_PATH}"
  OPTIONS -DQUARNFC_BUILD_TESTS=OFF -DQUARNFC_BUILD_TOOLS=OFF -DQUARNFC_BUILD_SAMPLES=OFF
          -DQUARNFC_INSTALL=ON)
vcpkg_cmake_install()
vcpkg_cmake_config_fixup(PACKAGE_NAME QuarnFC CONFIG_PATH lib/cmake/QuarnFC)
vcpkg_fixup_pkgconfig()
file(REMOVE_RECURSE "${CURRENT_PACKAGES_DIR}/debug/include" "${CURRENT_PACKAGES_DIR}/debug/share"
     "${CURRENT_PACKAGES_DIR}/debug/docs" "${CURRENT_PACKAGES_DIR}/docs"
     "${CURRENT_PACKAGES_DIR}/licences" "${CURRENT_PACKAGES_DIR}/debug/licences")
vcpkg_install_copyright(FILE_LIST "${SOURCE_PATH}/LICENSE")

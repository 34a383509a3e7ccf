# Installs the library, the reference host it links against, the public headers, a CMake package
# (find_package(kivoudtmf) gives kivo::udtmf) and a pkg-config file, in the components the Debian
# packages are made of (cmake/KivoPackages.cmake): `library` (libkivoudtmf.so.0), `host` (the reference
# host's two libraries), `development` (headers, the .so names to link with, the CMake package and the
# pkg-config file); kivodt's own rules put it in `kivodt`, the Python package's in `kivo_python`.
include(CMakePackageConfigHelpers)

install(TARGETS kivoudtmf
  EXPORT kivoudtmfTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(TARGETS kivoxcore kivoxutil
  EXPORT kivoudtmfTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT host NAMELINK_COMPONENT development
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY include/kivo DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)
install(DIRECTORY host/kivox DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)

set(KIVO_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/kivoudtmf)
install(EXPORT kivoudtmfTargets NAMESPACE kivo:: DESTINATION ${KIVO_CMAKE_DIR} COMPONENT development)
configure_package_config_file(cmake/kivoudtmfConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/kivoudtmfConfig.cmake
  INSTALL_DESTINATION ${KIVO_CMAKE_DIR})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/kivoudtmfConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/kivoudtmfConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/kivoudtmfConfigVersion.cmake
  DESTINATION ${KIVO_CMAKE_DIR} COMPONENT development)

# The pkg-config file finds the prefix from where it lies, however deep the libdir (lib/x86_64-linux-gnu).
set(KIVO_PKGCONFIG_DIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH KIVO_PKGCONFIG_TO_PREFIX /prefix/${KIVO_PKGCONFIG_DIR} /prefix)
configure_file(cmake/kivoudtmf.pc.in ${CMAKE_CURRENT_BINARY_DIR}/kivoudtmf.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/kivoudtmf.pc DESTINATION ${KIVO_PKGCONFIG_DIR} COMPONENT development)

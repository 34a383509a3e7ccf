# Installs the library, the reference host it links against, the public headers, a CMake package
# (find_package(kivoudtmf) gives kivo::udtmf) and a pkg-config file.
include(CMakePackageConfigHelpers)

install(TARGETS kivoudtmf kivoxcore kivoxutil
  EXPORT kivoudtmfTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY include/kivo DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY host/kivox DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

set(KIVO_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/kivoudtmf)
install(EXPORT kivoudtmfTargets NAMESPACE kivo:: DESTINATION ${KIVO_CMAKE_DIR})
configure_package_config_file(cmake/kivoudtmfConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/kivoudtmfConfig.cmake
  INSTALL_DESTINATION ${KIVO_CMAKE_DIR})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/kivoudtmfConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/kivoudtmfConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/kivoudtmfConfigVersion.cmake
  DESTINATION ${KIVO_CMAKE_DIR})

configure_file(cmake/kivoudtmf.pc.in ${CMAKE_CURRENT_BINARY_DIR}/kivoudtmf.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/kivoudtmf.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

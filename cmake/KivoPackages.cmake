# Debian packages made from the install rules by CMake's own CPack, in a release build directory:
#
#   cmake --preset abi && cmake --build --preset abi && (cd build/abi && cpack -G DEB)
#
# One package per install component, with the dependencies dpkg-shlibdeps finds for what it links and
# the packages of this project it needs, at this version:
#   libkivoudtmf0        the library (the name follows the SONAME: libkivoudtmf.so.0)
#   libkivox-reference0  the reference host's two libraries, apart, so that a real host can stand in
#   libkivoudtmf-dev     the headers, the .so names to link with, the CMake package and pkg-config file
#   kivodt               the command line, its manual page and bash completion
#   python3-kivo         the Python package, where it was built
set(CPACK_PACKAGE_NAME kivoudtmf)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "libkivoudtmf maintainers <maintainers@kivoudtmf.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_STRIP_FILES ON)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
# The project's own libraries are found in the build, not in an installed package: dpkg-shlibdeps looks
# for them there, and the component dependencies below name their packages.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/src ${PROJECT_BINARY_DIR}/refhost)

set(KIVO_PACKAGED_COMPONENTS library host development kivodt)
if(KIVO_BUILD_PYTHON)
  list(APPEND KIVO_PACKAGED_COMPONENTS kivo_python)
endif()
set(CPACK_COMPONENTS_ALL ${KIVO_PACKAGED_COMPONENTS})

# name section dependencies(components) summary
function(kivo_package component name section summary)
  string(TOUPPER ${component} COMPONENT)
  set(CPACK_DEBIAN_${COMPONENT}_PACKAGE_NAME ${name} PARENT_SCOPE)
  set(CPACK_DEBIAN_${COMPONENT}_PACKAGE_SECTION ${section} PARENT_SCOPE)
  set(CPACK_COMPONENT_${COMPONENT}_DESCRIPTION "${summary}" PARENT_SCOPE)
  set(CPACK_COMPONENT_${COMPONENT}_DEPENDS ${ARGN} PARENT_SCOPE)
endfunction()

kivo_package(library libkivoudtmf${KIVO_ABI_MAJOR} libs
  "Date, time and datetime formats and informats\n The library of formats (a number in, a fixed-width text field out) and informats (a text field in, a number out) that a data-processing runtime calls once per value." host)
kivo_package(host libkivox-reference${KIVOX_ABI_MAJOR} libs
  "Reference host for libkivoudtmf\n The calendar, names, missing values, options and failure reporting libkivoudtmf needs of its host (libkivoxcore, libkivoxutil); a real host's libraries may stand in.")
kivo_package(development libkivoudtmf-dev libdevel
  "Date, time and datetime formats and informats - development files\n Headers, the CMake package (find_package(kivoudtmf)) and the pkg-config file." library host)
kivo_package(kivodt kivodt utils
  "Date, time and datetime fields from the command line\n Formats numbers as date, time and number fields, reads such fields back, converts the date columns of a CSV and guesses which informat reads a column." library host)
kivo_package(kivo_python python3-kivo python
  "Date, time and datetime fields for numpy, pandas and Dask\n The kivo package: the formats and informats of libkivoudtmf on whole arrays and columns." library host)
set(CPACK_DEBIAN_KIVO_PYTHON_PACKAGE_DEPENDS "python3 (>= 3.11), python3 (<< 3.12), python3-numpy")
set(CPACK_DEBIAN_KIVO_PYTHON_PACKAGE_SUGGESTS "python3-pandas, python3-dask")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_HOST_PACKAGE_GENERATE_SHLIBS ON)

include(CPack)

# What `cmake --install` gives a C++ user beyond the files: versioned
# shared objects, run paths that need no LD_LIBRARY_PATH, the CMake package
# (find_package(wrlLoader CONFIG) and the target wrlLoader::wrlLoader) and
# the pkg-config module wrlLoader. Both describe the install wherever its
# prefix is moved.
include(CMakePackageConfigHelpers)

set_target_properties(wrlLoader_dp csplatform PROPERTIES
  VERSION ${PROJECT_VERSION}
  SOVERSION ${PROJECT_VERSION_MAJOR})
set_target_properties(wrlLoader_dp PROPERTIES EXPORT_NAME wrlLoader INSTALL_RPATH "$ORIGIN")
set_target_properties(wrlload PROPERTIES INSTALL_RPATH "$ORIGIN/${WRL_BIN_TO_LIB}")
# The toolkit's headers are C++17, and so must be their users.
target_compile_features(csplatform PUBLIC cxx_std_17)

set(WRL_CMAKE_INSTALL_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/wrlLoader)
install(EXPORT wrlLoaderTargets NAMESPACE wrlLoader:: DESTINATION ${WRL_CMAKE_INSTALL_DIR})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/wrlLoaderConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/wrlLoaderConfig.cmake
  INSTALL_DESTINATION ${WRL_CMAKE_INSTALL_DIR})
# No promise across 0.x versions: only the same minor version is compatible.
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/wrlLoaderConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/wrlLoaderConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/wrlLoaderConfigVersion.cmake
  DESTINATION ${WRL_CMAKE_INSTALL_DIR})

set(WRL_PKGCONFIG_INSTALL_DIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH WRL_PKGCONFIG_TO_PREFIX ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" WRL_PKGCONFIG_TO_PREFIX "${WRL_PKGCONFIG_TO_PREFIX}")
configure_file(${CMAKE_CURRENT_LIST_DIR}/wrlLoader.pc.in ${CMAKE_CURRENT_BINARY_DIR}/wrlLoader.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/wrlLoader.pc DESTINATION ${WRL_PKGCONFIG_INSTALL_DIR})

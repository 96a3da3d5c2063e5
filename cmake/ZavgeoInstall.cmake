# Installs every library with its headers and the package files that find_package(zavgeo) reads.
include(CMakePackageConfigHelpers)

get_property(libraries GLOBAL PROPERTY ZAVGEO_LIBRARIES)
foreach(library IN LISTS libraries)
  install(TARGETS ${library} EXPORT zavgeoTargets FILE_SET HEADERS)
endforeach()
install(EXPORT zavgeoTargets NAMESPACE zavgeo:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/zavgeo)

configure_package_config_file(
  ${CMAKE_CURRENT_LIST_DIR}/zavgeoConfig.cmake.in ${PROJECT_BINARY_DIR}/zavgeoConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/zavgeo)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/zavgeoConfigVersion.cmake
                                 COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/zavgeoConfig.cmake
              ${PROJECT_BINARY_DIR}/zavgeoConfigVersion.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/zavgeo)

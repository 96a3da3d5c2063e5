# Installs every library with its headers and the package files that find_package(zavgeo) reads.
# A build with static and one with shared libraries may be installed to the same place.
include(CMakePackageConfigHelpers)
if(BUILD_SHARED_LIBS)
  set(kind shared)
else()
  set(kind static)
endif()

get_property(libraries GLOBAL PROPERTY ZAVGEO_LIBRARIES)
foreach(library IN LISTS libraries)
  install(TARGETS ${library} EXPORT zavgeoTargets
          FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zavgeo
          LIBRARY COMPONENT runtime NAMELINK_COMPONENT development)
endforeach()
install(EXPORT zavgeoTargets FILE zavgeo-${kind}.cmake NAMESPACE zavgeo::
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/zavgeo)

configure_package_config_file(
  ${CMAKE_CURRENT_LIST_DIR}/zavgeoConfig.cmake.in ${PROJECT_BINARY_DIR}/zavgeoConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/zavgeo)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/zavgeoConfigVersion.cmake
                                 COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/zavgeoConfig.cmake
              ${PROJECT_BINARY_DIR}/zavgeoConfigVersion.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/zavgeo)

# For builds without CMake. Libraries that use others come first.
set(core_libraries ${libraries})
list(REMOVE_ITEM core_libraries zavgeo_qt)
list(REVERSE core_libraries)
list(TRANSFORM core_libraries PREPEND "-l" OUTPUT_VARIABLE ZAVGEO_PC_LIBS)
list(JOIN ZAVGEO_PC_LIBS " " ZAVGEO_PC_LIBS)
# A program needs to link it itself only with static libraries.
if(BUILD_SHARED_LIBS)
  set(ZAVGEO_PC_REQUIRES Requires.private)
else()
  set(ZAVGEO_PC_REQUIRES Requires)
endif()
file(RELATIVE_PATH ZAVGEO_PC_PREFIX /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(${CMAKE_CURRENT_LIST_DIR}/zavgeo.pc.in ${PROJECT_BINARY_DIR}/zavgeo.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/zavgeo.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
if(ZAVGEO_QT)
  configure_file(${CMAKE_CURRENT_LIST_DIR}/zavgeo-qt.pc.in ${PROJECT_BINARY_DIR}/zavgeo-qt.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/zavgeo-qt.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endif()

# GeographicLib (Debian: libgeographiclib-dev): areas in the viewer; the judge of the projections in tests and benchmarks.
find_path(GeographicLib_INCLUDE_DIR GeographicLib/TransverseMercator.hpp)
find_library(GeographicLib_LIBRARY NAMES GeographicLib Geographic)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(GeographicLib DEFAULT_MSG GeographicLib_LIBRARY
                                  GeographicLib_INCLUDE_DIR)
if(GeographicLib_FOUND AND NOT TARGET GeographicLib::GeographicLib)
  add_library(GeographicLib::GeographicLib UNKNOWN IMPORTED)
  set_target_properties(
    GeographicLib::GeographicLib
    PROPERTIES IMPORTED_LOCATION ${GeographicLib_LIBRARY} INTERFACE_INCLUDE_DIRECTORIES
                                                          ${GeographicLib_INCLUDE_DIR})
endif()

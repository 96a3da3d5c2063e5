# One function a library, so that every unit is built, checked and installed alike.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

find_program(ZAVGEO_CCACHE ccache)
if(ZAVGEO_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${ZAVGEO_CCACHE})
  if(ZAVGEO_PCH) # it knows precompiled headers when told not to mind their macros and times
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros
                                    ${ZAVGEO_CCACHE})
  endif()
endif()

add_library(zavgeo_options INTERFACE)
target_compile_options(
  zavgeo_options
  INTERFACE -Wall -Wextra -Wconversion -Wshadow
            # The same numbers on every compiler and processor: no fused multiply-add.
            -ffp-contract=off $<$<BOOL:${ZAVGEO_WERROR}>:-Werror>
            # For ccache.
            $<$<AND:$<BOOL:${ZAVGEO_PCH}>,$<CXX_COMPILER_ID:GNU>>:-fpch-preprocess>)
if(ZAVGEO_SANITIZE)
  target_compile_options(zavgeo_options INTERFACE -fsanitize=address,undefined
                                                  -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(zavgeo_options INTERFACE -fsanitize=address,undefined)
endif()
if(ZAVGEO_FUZZ)
  target_compile_options(
    zavgeo_options INTERFACE -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
  target_link_options(zavgeo_options INTERFACE -fsanitize=address,undefined)
endif()

# zavgeo_precompile(TARGET HEADER ...): headers that most files of a target include, read once.
function(zavgeo_precompile Target)
  if(ZAVGEO_PCH)
    target_precompile_headers(${Target} PRIVATE ${ARGN})
  endif()
endfunction()

# zavgeo_library(NAME SOURCES ... HEADERS ... [LINKS ...]): a library zavgeo_NAME, alias zavgeo::NAME;
# static unless BUILD_SHARED_LIBS. Headers are included by their path below src, in the tree and
# installed.
function(zavgeo_library Name)
  cmake_parse_arguments(arg "" "" "SOURCES;HEADERS;LINKS;PRIVATE_LINKS" ${ARGN})
  set(target zavgeo_${Name})
  add_library(${target})
  add_library(zavgeo::${Name} ALIAS ${target})
  target_sources(${target} PRIVATE ${arg_SOURCES})
  target_sources(
    ${target}
    PUBLIC FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR}/src FILES ${arg_HEADERS})
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_link_libraries(${target} PUBLIC ${arg_LINKS} PRIVATE $<BUILD_INTERFACE:zavgeo_options>
                                                              ${arg_PRIVATE_LINKS})
  # Only what is marked with ZAVGEO_API is seen outside. Shared libraries still export everything:
  # some functions that one library takes from another are not marked yet.
  set(visibility hidden)
  if(BUILD_SHARED_LIBS)
    set(visibility default)
  endif()
  set_target_properties(
    ${target}
    PROPERTIES EXPORT_NAME ${Name}
               VERSION ${PROJECT_VERSION}
               SOVERSION ${PROJECT_VERSION_MAJOR}
               CXX_VISIBILITY_PRESET ${visibility}
               VISIBILITY_INLINES_HIDDEN ON
               DEFINE_SYMBOL "")
  set_property(GLOBAL APPEND PROPERTY ZAVGEO_LIBRARIES ${target})
endfunction()

# zavgeo_test(NAME SOURCES ... [LINKS ...] [ENVIRONMENT ...] [PRECOMPILE ...]): a GoogleTest program
# zavgeo_NAME_test.
function(zavgeo_test Name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINKS;ENVIRONMENT;PRECOMPILE" ${ARGN})
  set(target zavgeo_${Name}_test)
  add_executable(${target} ${arg_SOURCES} ${PROJECT_SOURCE_DIR}/tests/support/user_locale.cpp)
  target_link_libraries(${target} PRIVATE zavgeo_options ${arg_LINKS} GTest::gtest_main)
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_compile_definitions(
    ${target} PRIVATE ZAVGEO_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data"
                      ZAVGEO_SAMPLES="${PROJECT_SOURCE_DIR}/samples")
  zavgeo_precompile(${target} <gtest/gtest.h> <string> <vector> ${arg_PRECOMPILE})
  gtest_discover_tests(${target} DISCOVERY_TIMEOUT 60 PROPERTIES ENVIRONMENT "${arg_ENVIRONMENT}")
endfunction()

# qd_add_test_program(NAME LIBRARIES...): one test program from every source of the calling folder.
find_package(GTest CONFIG QUIET)
include(GoogleTest)

# Gives a path of the build to the sources that mention it, alone: what holds no path compiles the same in every
# folder, and a compiler cache knows it again. A fixture may mention the path for its users.
function(qd_give_path target name value)
  get_target_property(sources ${target} SOURCES)
  foreach(source IN LISTS sources)
    file(STRINGS ${source} mentions REGEX "${name}|(printer|stamp)_fixture\\.h")
    if(mentions)
      set_property(SOURCE ${source} APPEND PROPERTY COMPILE_DEFINITIONS ${name}=${value})
    endif()
  endforeach()
endfunction()

# How a test's own code is compiled.
function(qd_compile_as_test target)
  target_link_libraries(${target} PRIVATE qd_options)
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/tests)
  # It runs once; what it tests is optimised as the flavour says.
  target_compile_options(${target} PRIVATE -O0)
  if(QD_SANITIZE)
    # The sanitizers watch what is tested: a test's own code takes much longer to build with them than to run.
    add_library(${target}_plain INTERFACE)
    target_compile_options(${target}_plain INTERFACE -fno-sanitize=all)
    target_link_libraries(${target} PRIVATE ${target}_plain)
  endif()
endfunction()

# The headers that every test needs, precompiled once for all programs that compile alike.
function(qd_precompile_test_headers)
  set(source ${CMAKE_CURRENT_BINARY_DIR}/test_headers.cc)
  file(CONFIGURE OUTPUT ${source} CONTENT "")
  add_library(qd_test_headers OBJECT ${source})
  # As the programs are compiled.
  set_target_properties(qd_test_headers PROPERTIES POSITION_INDEPENDENT_CODE OFF)
  target_compile_options(qd_test_headers PRIVATE -fPIE)
  qd_compile_as_test(qd_test_headers)
  target_link_libraries(qd_test_headers PRIVATE qd_gtest)
  target_precompile_headers(qd_test_headers PRIVATE <gtest/gtest.h> <gmock/gmock.h> <string> <vector>)
endfunction()

function(qd_add_test_program name)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cc)
  foreach(library ${ARGN})
    if(NOT TARGET ${library})
      return()
    endif()
  endforeach()
  if(NOT sources)
    return()
  endif()
  add_executable(${name} ${sources})
  target_link_libraries(${name} PRIVATE ${ARGN} qd_gtest)
  qd_compile_as_test(${name})
  # Qt has flags of its own.
  if("qdhost" IN_LIST ARGN OR "qddesktop" IN_LIST ARGN)
    target_precompile_headers(${name} PRIVATE <gtest/gtest.h> <gmock/gmock.h> <string> <vector>)
  else()
    target_precompile_headers(${name} REUSE_FROM qd_test_headers)
  endif()
  if(TARGET qd480ui)
    # At the end of the folder, when all sources are named.
    cmake_language(EVAL CODE "cmake_language(DEFER CALL qd_give_path ${name} QD_MODULE_PATH
                                                    [[u\"$<TARGET_FILE:qd480ui>\"]])")
    add_dependencies(${name} qd480ui)
  endif()
  if(QD_SANITIZE)
    # The sanitizers' start takes longer than most tests: one run of the program for all of them.
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT 600)
  else()
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 300)
  endif()
endfunction()

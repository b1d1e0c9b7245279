# How every target of the house is made: one warning set, one include root, one place for sanitizers.

include(GoogleTest OPTIONAL)

add_library(zel_options INTERFACE)
# g++ 12 takes "text = literal" for an overlapping copy once it is inlined, which it is not.
target_compile_options(zel_options INTERFACE -Wall -Wextra -Werror $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
target_include_directories(zel_options INTERFACE "${PROJECT_SOURCE_DIR}/src")
if(ZEL_SANITIZE)
  target_compile_options(zel_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                               -fno-omit-frame-pointer)
  target_link_options(zel_options INTERFACE -fsanitize=address,undefined)
endif()

# zel_library(NAME SOURCES... DEPENDS...): a static library of one source folder.
function(zel_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS;PRIVATE_DEPENDS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC zel_options ${ARG_DEPENDS} PRIVATE ${ARG_PRIVATE_DEPENDS})
endfunction()

# zel_program(NAME SOURCES... DEPENDS...): an executable.
function(zel_program name)
  cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE zel_options ${ARG_DEPENDS})
endfunction()

# Tells the tests of a CTest run where their common folder is, see tests/support/run_folder.h.
set(ZEL_TEST_RUN_NOTE "${CMAKE_BINARY_DIR}/test-run")

# zel_test(NAME SOURCES... DEPENDS...): a GoogleTest program whose cases are each known to CTest. Those that link
# zel_test_support share the databases' server of the run.
function(zel_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE zel_options ${ARG_DEPENDS} GTest::gmock GTest::gtest_main)
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
  set(properties TIMEOUT 300)
  if("zel_test_support" IN_LIST ARG_DEPENDS OR "zel_test_server" IN_LIST ARG_DEPENDS)
    list(APPEND properties FIXTURES_REQUIRED zel_test_run ENVIRONMENT "ZEL_TEST_RUN=${ZEL_TEST_RUN_NOTE}")
    add_dependencies(${name} zel_test_run) # so that ctest can run one program of tests when only that was built
  endif()
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 120 PROPERTIES ${properties})
endfunction()

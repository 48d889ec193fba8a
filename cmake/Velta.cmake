# How every target of the project is compiled, and how tests are declared.

add_library(velta_options INTERFACE)
target_compile_options(
  velta_options
  INTERFACE -Wall
            -Wextra
            -Wpedantic
            -Wconversion
            -Wshadow
            $<$<BOOL:${VELTA_WERROR}>:-Werror>
            # GCC 12 sees an overlap in "text" + std::string where there is none.
            $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
            # The printed haléř must be the same on every machine: no fused multiply-add.
            -ffp-contract=off)
target_include_directories(velta_options INTERFACE ${PROJECT_SOURCE_DIR})
if(VELTA_SANITIZE)
  target_compile_options(velta_options INTERFACE -fsanitize=address,undefined
                                                 -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  target_link_options(velta_options INTERFACE -fsanitize=address,undefined)
endif()

# velta_library(<name> SOURCES <file>... [LINK <target>...]): a static library of the project.
function(velta_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINK")
  add_library(${name} STATIC ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC velta_options ${arg_LINK})
endfunction()

# velta_tests(<name> SOURCES <file>... [LINK <target>...]): a GoogleTest program, each test one test of
# CTest. It finds the project's folder in VELTA_SOURCE_DIR.
function(velta_tests name)
  if(NOT BUILD_TESTING)
    return()
  endif()
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINK")
  find_package(GTest REQUIRED)
  include(GoogleTest)
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE velta_options ${arg_LINK} GTest::gmock_main)
  target_compile_definitions(${name} PRIVATE VELTA_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST)
endfunction()

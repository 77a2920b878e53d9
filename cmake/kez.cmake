# SPDX-License-Identifier: MIT
# The house rules of the build: warnings, sanitizers, layers and tests.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 11)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)

find_program(KEZ_CCACHE ccache)
if(KEZ_CCACHE)
    set(CMAKE_C_COMPILER_LAUNCHER ${KEZ_CCACHE})
    set(CMAKE_CXX_COMPILER_LAUNCHER ${KEZ_CCACHE})
endif()

# -ffp-contract=off: fused products would change the picture arithmetic, which is exact to the bit.
add_compile_options(-Wall -Wextra -Wconversion -Wshadow -Werror -ffp-contract=off)
if(KEZ_SANITIZE)
    add_compile_options(-fsanitize=${KEZ_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${KEZ_SANITIZE})
endif()
if(WIN32)
    add_compile_definitions(NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0501)
    add_compile_options(-msse2 -mfpmath=sse -mstackrealign)
    add_link_options(-static)
    # This compiler takes a literal in front of a string for a copy onto itself.
    if(CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
        add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-Wno-restrict>)
    endif()
endif()

# kez_layer(name SOURCES ... USES lower layers ... LIBRARIES ...): one folder of src/ as a library.
function(kez_layer name)
    cmake_parse_arguments(PARSE_ARGV 1 layer "" "" "SOURCES;USES;LIBRARIES")
    add_library(kez_${name} STATIC ${layer_SOURCES})
    target_include_directories(kez_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_compile_options(kez_${name} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-fno-exceptions>
                                               -fvisibility=hidden)
    list(TRANSFORM layer_USES PREPEND kez_)
    target_link_libraries(kez_${name} PUBLIC ${layer_USES} ${layer_LIBRARIES})
    set_property(GLOBAL APPEND PROPERTY KEZ_LAYERS kez_${name})
endfunction()

# kez_test(name SOURCES ... LINKS libraries ...): one program of tests, each test known to CTest.
function(kez_test name)
    cmake_parse_arguments(PARSE_ARGV 1 test "" "" "SOURCES;LINKS")
    add_executable(${name} ${test_SOURCES})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(${name} PRIVATE ${test_LINKS} GTest::gtest_main GTest::gmock)
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 120)
endfunction()

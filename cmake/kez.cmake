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

# Without a place for its cache, as where HOME cannot be written, ccache would fail each compilation.
find_program(KEZ_CCACHE ccache)
if(KEZ_CCACHE)
    file(WRITE ${CMAKE_BINARY_DIR}/probe.cpp "int main() { }\n")
    execute_process(COMMAND ${KEZ_CCACHE} ${CMAKE_CXX_COMPILER} -c probe.cpp -o probe.o
        WORKING_DIRECTORY ${CMAKE_BINARY_DIR} RESULT_VARIABLE fails OUTPUT_QUIET ERROR_QUIET)
    if(NOT fails)
        set(CMAKE_C_COMPILER_LAUNCHER ${KEZ_CCACHE})
        set(CMAKE_CXX_COMPILER_LAUNCHER ${KEZ_CCACHE})
    endif()
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

# kez_vector_sources(variable family): the sources of a family of loops that exists for each vector
# level, <family>_kernels_<level>.cpp with the options of that level, and the table of them; a level
# may have no loops of its own. -O3 takes the small loops over a vector's parts apart.
function(kez_vector_sources variable family)
    if(NOT CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64|i[3-6]86)$")
        set(${variable} ${family}_levels_other.cpp PARENT_SCOPE)
        return()
    endif()
    set(options_sse2 -msse2)
    set(options_avx2 -mavx2)
    # The compiler's own header reads what it calls undefined.
    set(options_avx512 -mavx512f -mavx512bw -mavx512dq -mavx512vl -mavx512vbmi
        $<$<CXX_COMPILER_ID:GNU>:-Wno-uninitialized>
        $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
    set(sources ${family}_levels_x86.cpp)
    foreach(level sse2 avx2 avx512)
        if(NOT EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${family}_kernels_${level}.cpp)
            continue()
        endif()
        list(APPEND sources ${family}_kernels_${level}.cpp)
        set_source_files_properties(${family}_kernels_${level}.cpp PROPERTIES
            COMPILE_OPTIONS "${options_${level}};$<$<NOT:$<CONFIG:Debug>>:-O3>")
    endforeach()
    set(${variable} ${sources} PARENT_SCOPE)
endfunction()

# kez_test(name SOURCES ... LINKS libraries ... NATIVE sources BECAUSE reason): one program of tests.
# Each test is known to CTest; on Windows the program as a whole is, for each start of Wine takes half
# a second. The NATIVE sources are left out there, by name and with the reason.
function(kez_test name)
    cmake_parse_arguments(PARSE_ARGV 1 test "" "BECAUSE" "SOURCES;NATIVE;LINKS")
    if(NOT WIN32)
        list(APPEND test_SOURCES ${test_NATIVE})
    endif()
    add_executable(${name} ${test_SOURCES})
    # Tests take much longer to optimise than to run.
    target_compile_options(${name} PRIVATE -O0)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(${name} PRIVATE ${test_LINKS} GTest::gtest_main GTest::gmock)
    if(NOT WIN32)
        gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 120)
        return()
    endif()
    target_link_libraries(${name} PRIVATE kez_test_system)
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT 300)
    foreach(source IN LISTS test_NATIVE)
        kez_left_out(${name}.${source} "${test_BECAUSE}")
    endforeach()
endfunction()

# kez_left_out(name reason): shows among the tests as one that is skipped.
function(kez_left_out name reason)
    add_test(NAME ${name} COMMAND ${CMAKE_COMMAND} -E echo "left out: ${reason}")
    set_tests_properties(${name} PROPERTIES SKIP_REGULAR_EXPRESSION "left out")
endfunction()

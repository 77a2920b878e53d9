# SPDX-License-Identifier: MIT
# What the tests need to be built for Windows and run under Wine: GoogleTest from its sources, and in
# place of our own layer's controls those in support/windows, which stand before the system's own
# functions. The visits and the package take the content and the kit from a native build.
set(KEZ_GOOGLETEST /usr/src/googletest CACHE PATH "The sources of GoogleTest")
set(KEZ_NATIVE_BIN ${PROJECT_SOURCE_DIR}/build/release/bin CACHE PATH "Where a native build lies")
set(CMAKE_CROSSCOMPILING_EMULATOR ${PROJECT_SOURCE_DIR}/scripts/wine-run)

set(INSTALL_GTEST OFF)
add_subdirectory(${KEZ_GOOGLETEST} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
foreach(library gtest gtest_main gmock gmock_main)
    target_compile_options(${library} PRIVATE -w)
endforeach()

add_library(kez_test_system OBJECT support/windows/debug_output_hook.cpp
    support/windows/message_box.cpp support/windows/script_clock.cpp)
target_include_directories(kez_test_system PUBLIC support/windows)

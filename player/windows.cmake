# SPDX-License-Identifier: MIT
# A double click opens no console beside the window, and the program has its icon. The icon's pictures
# are content, which a native build makes: until there is one, the program goes without.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
set_target_properties(kez-player PROPERTIES WIN32_EXECUTABLE ON)

set(icons)
foreach(size IN ITEMS 16 24 32 48 64 128 256)
    list(APPEND icons ${KEZ_NATIVE_BIN}/data/icons/icon${size}.png)
endforeach()
if(NOT EXISTS ${KEZ_NATIVE_BIN}/data/icons/icon256.png)
    message(STATUS "kez-player.exe gets no icon: ${KEZ_NATIVE_BIN} holds no content yet")
    return()
endif()

set(resources ${CMAKE_CURRENT_BINARY_DIR}/resources)
configure_file(kez-player.rc.in ${resources}/kez-player.rc @ONLY)
add_custom_command(
    OUTPUT ${resources}/kez.ico
    COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_SOURCE_DIR}/make_icon.py
            ${resources}/kez.ico ${icons}
    DEPENDS make_icon.py ${icons}
    VERBATIM)
set_source_files_properties(${resources}/kez-player.rc PROPERTIES
    OBJECT_DEPENDS ${resources}/kez.ico)
target_sources(kez-player PRIVATE ${resources}/kez-player.rc)

# SPDX-License-Identifier: MIT
# What only the Windows library has: its resources, and import libraries for hosts of both compilers.
find_package(Python3 REQUIRED COMPONENTS Interpreter)

set(resources ${CMAKE_CURRENT_BINARY_DIR}/resources)
set(drawings ${PROJECT_SOURCE_DIR}/content/pointers)
set(cursors)
foreach(name arrow wait help)
    add_custom_command(
        OUTPUT ${resources}/${name}.cur
        COMMAND ${Python3_EXECUTABLE} ${drawings}/make_cursor.py
                ${drawings}/${name}.txt ${resources}/${name}.cur
        DEPENDS ${drawings}/make_cursor.py ${drawings}/${name}.txt
        VERBATIM)
    list(APPEND cursors ${resources}/${name}.cur)
endforeach()
configure_file(kez.rc.in ${resources}/kez.rc @ONLY)
set_source_files_properties(${resources}/kez.rc PROPERTIES OBJECT_DEPENDS "${cursors}")

set_target_properties(kez PROPERTIES PREFIX "" ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)
target_sources(kez PRIVATE kez.def ${resources}/kez.rc)

# libkez.dll.a comes with the library and is mingw's; kez.lib knows the platform compiler's names.
find_program(KEZ_DLLTOOL NAMES llvm-dlltool llvm-dlltool-14 REQUIRED)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/kez.def)
file(STRINGS kez.def names REGEX "^ +[?]")
list(TRANSFORM names REPLACE " = [^ ]+" "")
list(JOIN names "\n" names)
file(GENERATE OUTPUT ${resources}/platform.def CONTENT "LIBRARY kez.dll\nEXPORTS\n${names}\n")
add_custom_command(
    OUTPUT ${CMAKE_BINARY_DIR}/lib/kez.lib
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/lib
    COMMAND ${KEZ_DLLTOOL} -m i386 -d ${resources}/platform.def -l ${CMAKE_BINARY_DIR}/lib/kez.lib
    DEPENDS ${resources}/platform.def
    VERBATIM)
add_custom_target(kez_import_library ALL DEPENDS ${CMAKE_BINARY_DIR}/lib/kez.lib)

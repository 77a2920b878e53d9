# SPDX-License-Identifier: MIT
# The zip: unpacked anywhere, kez-player.exe starts by a double click. What is needed for that lies at
# the top; `host` has what a host author links, `licences` the terms of what is linked in.

install(TARGETS kez-player kez qxdcdll RUNTIME DESTINATION . LIBRARY DESTINATION .
        ARCHIVE DESTINATION host)

# The content is the same for every system, and only a native build can make it.
install(CODE "
    if(NOT EXISTS \"${KEZ_NATIVE_BIN}/data/kez.wad\")
        message(FATAL_ERROR \"${KEZ_NATIVE_BIN} holds no content; make it first with: \"
                            \"cmake --preset release && cmake --build --preset release --target content\")
    endif()")
install(DIRECTORY ${KEZ_NATIVE_BIN}/data ${KEZ_NATIVE_BIN}/audio ${KEZ_NATIVE_BIN}/languages
    DESTINATION . PATTERN icons EXCLUDE)

install(FILES ${CMAKE_BINARY_DIR}/lib/kez.lib ${PROJECT_SOURCE_DIR}/src/host/kez.h
              ${PROJECT_SOURCE_DIR}/driver/qxdcdll.h ${PROJECT_SOURCE_DIR}/docs/host.md
              ${PROJECT_SOURCE_DIR}/docs/camera.md
    DESTINATION host)

# Texts for an editor that knows no other line ends.
function(kez_text from to)
    configure_file(${from} ${to} @ONLY NEWLINE_STYLE CRLF)
    get_filename_component(folder ${to} DIRECTORY)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${to} DESTINATION ./${folder})
endfunction()

set(sources ${KEZ_WINDOWS_DEPS}/src)
set(doc /usr/share/doc)
kez_text(README-windows.txt.in README.txt)
kez_text(${PROJECT_SOURCE_DIR}/LICENSE LICENCE.txt)
foreach(notice IN ITEMS
        libjpeg-turbo:${sources}/libjpeg-turbo/debian/copyright:scripts/windows-deps
        libpng:${sources}/libpng1.6/debian/copyright:scripts/windows-deps
        zlib:${doc}/libz-mingw-w64-dev/copyright:libz-mingw-w64-dev
        CLI11:${doc}/libcli11-dev/copyright:libcli11-dev
        mingw-w64:${doc}/mingw-w64-i686-dev/copyright:mingw-w64-i686-dev
        gcc-runtime:${doc}/g++-mingw-w64-i686-posix/copyright:g++-mingw-w64-i686-posix)
    string(REPLACE ":" ";" notice ${notice})
    list(GET notice 0 name)
    list(GET notice 1 file)
    list(GET notice 2 package)
    kez_notice(terms ${file} ${package})
    file(CONFIGURE OUTPUT licences/${name}.txt CONTENT "@terms@" @ONLY NEWLINE_STYLE CRLF)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/licences/${name}.txt DESTINATION licences)
endforeach()

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_FILE_NAME kez-${PROJECT_VERSION}-windows)

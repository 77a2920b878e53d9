# SPDX-License-Identifier: MIT
# Where things go under a prefix, and the Debian package. Programs find libraries and content from
# where they lie themselves, so the tree works wherever it is unpacked.
include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

set(kezdir ${CMAKE_INSTALL_DATADIR}/kez)
set(docdir ${CMAKE_INSTALL_DATADIR}/doc/kez)
file(RELATIVE_PATH libraries ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})

# Libraries that hosts link are numbered by the interface that they offer.
set_target_properties(kez kez_winapi PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION 0)
set_target_properties(kez kez_winapi qxdcdll PROPERTIES
    INSTALL_RPATH "$ORIGIN" BUILD_WITH_INSTALL_RPATH ON)
# The build's path is to be no shorter than the installed one: CMake fills it up with colons, and an
# empty part of it stands for the current directory, where no library is to be looked for.
set_target_properties(kez-player kez-tool PROPERTIES
    INSTALL_RPATH "$ORIGIN/${libraries}" BUILD_RPATH "$ORIGIN/${libraries}")
install(TARGETS kez-player kez-tool kez kez_winapi qxdcdll)

# For hosts: the class, the Win32 names that it is declared with, and two ways to find them.
set(winapi windows.h windef.h winbase.h wingdi.h winuser.h mmsystem.h mmreg.h dsound.h ddraw.h
    ddraw_errors.h unknwn.h)
list(TRANSFORM winapi PREPEND ${PROJECT_SOURCE_DIR}/src/platform/winapi/)
install(FILES ${PROJECT_SOURCE_DIR}/src/host/kez.h ${PROJECT_SOURCE_DIR}/driver/qxdcdll.h
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kez)
install(FILES ${winapi} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kez/winapi)
configure_file(kez.pc.in kez.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/kez.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
set(cmakedir ${CMAKE_INSTALL_LIBDIR}/cmake/kez)
configure_package_config_file(kez-config.cmake.in kez-config.cmake
    INSTALL_DESTINATION ${cmakedir}
    PATH_VARS CMAKE_INSTALL_INCLUDEDIR CMAKE_INSTALL_LIBDIR kezdir)
write_basic_package_version_file(kez-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/kez-config.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/kez-config-version.cmake
    DESTINATION ${cmakedir})

# The content; the icons have their places in the desktop's theme instead.
set(content ${CMAKE_BINARY_DIR}/bin)
install(DIRECTORY ${content}/data DESTINATION ${kezdir} PATTERN icons EXCLUDE)
install(DIRECTORY ${content}/audio ${content}/languages DESTINATION ${kezdir})
foreach(size IN ITEMS 16 24 32 48 64 128 256 512)
    install(FILES ${content}/data/icons/icon${size}.png RENAME kez.png
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
endforeach()

# The desktop's entries.
configure_file(org.kez.player.metainfo.xml.in org.kez.player.metainfo.xml @ONLY)
install(FILES org.kez.player.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/org.kez.player.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

# Documents. Manuals and the list of changes are packed, as Debian has them; -n leaves out the time.
file(READ ${PROJECT_SOURCE_DIR}/LICENSE licence)
kez_notice(cli11_notice /usr/share/doc/libcli11-dev/copyright libcli11-dev)
configure_file(copyright.in copyright @ONLY)
set(guides host.md camera.md content.md formats.md)
list(TRANSFORM guides PREPEND ${PROJECT_SOURCE_DIR}/docs/)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/copyright ${guides} DESTINATION ${docdir})
set(packed)
# kez_packed(file name folder): installs the file as <folder>/<name>.gz.
function(kez_packed file name folder)
    set(result ${CMAKE_CURRENT_BINARY_DIR}/${name}.gz)
    add_custom_command(
        OUTPUT ${result}
        COMMAND gzip -9nc ${file} > ${result}
        DEPENDS ${file}
        VERBATIM)
    install(FILES ${result} DESTINATION ${folder})
    set(packed ${packed} ${result} PARENT_SCOPE)
endfunction()
kez_packed(${PROJECT_SOURCE_DIR}/docs/man/kez.1 kez.1 ${CMAKE_INSTALL_MANDIR}/man1)
kez_packed(${PROJECT_SOURCE_DIR}/docs/man/kez-player.1 kez-player.1 ${CMAKE_INSTALL_MANDIR}/man1)
kez_packed(${PROJECT_SOURCE_DIR}/CHANGELOG.md changelog ${docdir})
add_custom_target(packed_documents ALL DEPENDS ${packed})

set(CPACK_GENERATOR DEB)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "The Kez authors <kez@localhost>")
set(CPACK_DEBIAN_PACKAGE_SECTION education)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"A child fetches pictures from a small camera onto a pinboard, keeps them in
a photo book, names and enlarges them, takes them in from files and out
again. A guide explains every button aloud, in English or German.
.
With the activity come the library to show it in a program of your own, its
headers, the camera driver and the kit that makes the content.")
# What the programs link is looked up; the fonts are found by name when they run.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_BINARY_DIR}/bin)
# The camera driver is loaded by name and has no number; CPack's own list would warn of it.
file(CONFIGURE OUTPUT shlibs CONTENT
    "libkez 0 kez (= @PROJECT_VERSION@)\nlibkez_winapi 0 kez (= @PROJECT_VERSION@)\n" @ONLY)
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA
    ${CMAKE_CURRENT_BINARY_DIR}/shlibs ${CMAKE_CURRENT_SOURCE_DIR}/triggers)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS fonts-dejavu-core)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS zenity) # shows what is wrong where the X server has no fonts

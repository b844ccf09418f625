# Installation and the Debian package: `cmake --build build --target package` makes
# vantrellion_<version>_<arch>.deb with CPack. Included from the top-level CMakeLists, so that
# CPack sees its settings.
#
# The program and its port library stand side by side in the package's own library folder, as
# the program loads the library from beside its real file; /usr/bin/vantrellion links to it.
include(GNUInstallDirs)

set(VANTRELLION_HOMEPAGE "https://vantrellion.org" CACHE STRING "The project's home page")
set(VANTRELLION_SCREENSHOT "${VANTRELLION_HOMEPAGE}/screenshots/main-window.png"
    CACHE STRING "Where the screenshot of the main window is published")
set(VANTRELLION_MAINTAINER "Vantrellion developers <maintainers@vantrellion.org>"
    CACHE STRING "The package's maintainer")

set(PKG_SRC ${CMAKE_SOURCE_DIR}/packaging)
set(PKG_BIN ${CMAKE_BINARY_DIR}/packaging)
# The multiarch folder (lib/x86_64-linux-gnu/vantrellion on amd64), where the dynamic loader's
# cache is not involved: the port library is loaded by its full path.
if(CMAKE_LIBRARY_ARCHITECTURE)
  set(PKG_LIBDIR lib/${CMAKE_LIBRARY_ARCHITECTURE}/vantrellion)
else()
  set(PKG_LIBDIR lib/vantrellion)
endif()
set(PKG_DOCDIR ${CMAKE_INSTALL_DATADIR}/doc/vantrellion)

install(TARGETS vantrellion RUNTIME DESTINATION ${PKG_LIBDIR})
install(TARGETS Vantrellion LIBRARY DESTINATION ${PKG_LIBDIR})
file(MAKE_DIRECTORY ${PKG_BIN})
file(CREATE_LINK ../${PKG_LIBDIR}/vantrellion ${PKG_BIN}/vantrellion SYMBOLIC)
install(FILES ${PKG_BIN}/vantrellion DESTINATION ${CMAKE_INSTALL_BINDIR})

# The service beside the program, with its units for the user's and the system's service manager.
install(TARGETS vantrelliond RUNTIME DESTINATION ${PKG_LIBDIR})
file(CREATE_LINK ../${PKG_LIBDIR}/vantrelliond ${PKG_BIN}/vantrelliond SYMBOLIC)
install(FILES ${PKG_BIN}/vantrelliond DESTINATION ${CMAKE_INSTALL_BINDIR})
set(VANTRELLIOND /usr/bin/vantrelliond)
configure_file(${PKG_SRC}/vantrelliond.service ${PKG_BIN}/vantrelliond.service @ONLY)
configure_file(${PKG_SRC}/vantrelliond@.service ${PKG_BIN}/vantrelliond@.service @ONLY)
install(FILES ${PKG_BIN}/vantrelliond.service DESTINATION lib/systemd/user)
install(FILES ${PKG_BIN}/vantrelliond@.service DESTINATION lib/systemd/system)

install(FILES ${PKG_SRC}/org.vantrellion.Vantrellion.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
configure_file(${PKG_SRC}/org.vantrellion.Vantrellion.metainfo.xml.in
               ${PKG_BIN}/org.vantrellion.Vantrellion.metainfo.xml @ONLY)
install(FILES ${PKG_BIN}/org.vantrellion.Vantrellion.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
foreach(size 16 22 24 32 48 64 128 256)
  install(FILES ${PKG_SRC}/icons/vantrellion-${size}.png
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps
          RENAME vantrellion.png)
endforeach()

# The manual page and the changelog go in compressed, without time stamps in the archive.
set(VERSION ${PROJECT_VERSION})
configure_file(${PKG_SRC}/vantrellion.1 ${PKG_BIN}/vantrellion.1 @ONLY)
configure_file(${PKG_SRC}/vantrelliond.8 ${PKG_BIN}/vantrelliond.8 @ONLY)
configure_file(${PKG_SRC}/changelog.in ${PKG_BIN}/changelog @ONLY)
configure_file(${PKG_SRC}/copyright ${PKG_BIN}/copyright @ONLY)
foreach(doc vantrellion.1 vantrelliond.8 changelog)
  add_custom_command(OUTPUT ${PKG_BIN}/${doc}.gz
                     COMMAND gzip -9nc ${PKG_BIN}/${doc} > ${PKG_BIN}/${doc}.gz
                     DEPENDS ${PKG_BIN}/${doc} VERBATIM)
endforeach()
add_custom_target(package_docs ALL DEPENDS ${PKG_BIN}/vantrellion.1.gz ${PKG_BIN}/vantrelliond.8.gz
                                          ${PKG_BIN}/changelog.gz)
install(FILES ${PKG_BIN}/vantrellion.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${PKG_BIN}/vantrelliond.8.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man8)
install(FILES ${PKG_BIN}/changelog.gz ${PKG_BIN}/copyright DESTINATION ${PKG_DOCDIR})
# The user's manual, which Help opens in the desktop's browser, registered with doc-base.
install(FILES ${CMAKE_SOURCE_DIR}/docs/manual/index.html DESTINATION ${PKG_DOCDIR}/manual)
install(FILES ${PKG_SRC}/vantrellion.doc-base DESTINATION ${CMAKE_INSTALL_DATADIR}/doc-base
        RENAME vantrellion)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vantrellion)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "The Vantrellion developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "controller of relay schedules on digital I/O boards")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${VANTRELLION_MAINTAINER})
set(CPACK_DEBIAN_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE ${VANTRELLION_HOMEPAGE})
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The remote status needs the MQTT client library of version 2 (the operating system's
# certificate store for mqtts); the libraries found by shlibdeps are added to this.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libmosquitto1 (>= 2.0)")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "Vantrellion runs a daily time schedule for the relays of a digital I/O board
unattended: about once a second it works out for each relay whether it
should be on, drives the board's output port, reads outputs and inputs back,
shows one row per relay, counts input events and keeps a daily log. Without
a board it runs in emulation mode.

It must never be used for life-support systems.")
# Only what the program needs: the tests and the benchmark are not installed.
set(CPACK_INSTALL_CMAKE_PROJECTS "${CMAKE_BINARY_DIR};Vantrellion;ALL;/")
include(CPack)

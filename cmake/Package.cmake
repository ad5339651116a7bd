# Debian packages, one for the terminal and one for the window: tools/package makes them.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME wayfell)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "position, speed, heading, waypoint and track outdoors")
set(CPACK_PACKAGE_CONTACT "Wayfell maintainers <maintainers@wayfell.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL Unspecified window)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)

set(CPACK_DEBIAN_UNSPECIFIED_PACKAGE_NAME wayfell)
set(CPACK_COMPONENT_UNSPECIFIED_DESCRIPTION
"The panel, live in a terminal, and tools around it: positions in other
formats and on other datums, distances, settings and addresses.")
set(CPACK_DEBIAN_UNSPECIFIED_PACKAGE_RECOMMENDS "gpsd, xdg-utils")

# What only Qt's engine loads is not found by looking at the program.
set(CPACK_DEBIAN_WINDOW_PACKAGE_NAME wayfell-widget)
set(CPACK_COMPONENT_WINDOW_DESCRIPTION
"The panel in a small window of its own, for desktops and handhelds.")
set(CPACK_DEBIAN_WINDOW_PACKAGE_DEPENDS
  "wayfell (= ${PROJECT_VERSION}), qml6-module-qtquick, qml6-module-qtquick-window, qml6-module-qtqml-workerscript")
set(CPACK_DEBIAN_WINDOW_PACKAGE_RECOMMENDS
  "gpsd, libqt6positioning6-plugins, qt6-wayland, fonts-noto-core | fonts-dejavu-core")
set(CPACK_DEBIAN_WINDOW_PACKAGE_SUGGESTS "geoclue-2.0")

include(CPack)

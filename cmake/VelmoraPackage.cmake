# The package for Debian and its relatives: scripts/make_package.sh.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME velmora)
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "prices special sprockets, pulleys, gears and racks")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"For metalworking shops that cut chain sprockets, discs, pulleys, gears and
racks to order: geometry, stock sizes, weights, costs and prices from a
toothing; proposals with labour, history, tracking, papers and work orders.
All windows are in Spanish.
.
The database is embedded, or a server's over ODBC.")
set(CPACK_PACKAGE_CONTACT "VELMORA developers <developers@velmora.invalid>")
set(CPACK_PACKAGE_VENDOR "VELMORA developers")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
  WORLD_READ WORLD_EXECUTE)
# Without what only a developer's build needs.
set(CPACK_INSTALL_CMAKE_PROJECTS "${PROJECT_BINARY_DIR};${PROJECT_NAME};program;/")

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The letters of windows and papers; opening papers and spreadsheets; the toolkit's own words in Spanish, and its
# windows where there is no X server.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
  "fonts-dejavu-core, fonts-dejavu-extra, xdg-utils, qt6-translations-l10n, qt6-wayland")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "tdsodbc, sane-utils")
include(CPack)

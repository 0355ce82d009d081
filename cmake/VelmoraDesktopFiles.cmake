# What an installation of the programs has besides them: manual pages, the desktop's entry with its icon, licences,
# documents. All of it is of the component `program`; libraries and headers are of the component `development`.

find_program(GZIP gzip)

# velmora_compressed(<source> <file>): the file, compressed so that two builds give the same bytes.
function(velmora_compressed source file)
  add_custom_command(OUTPUT "${file}"
    COMMAND "${GZIP}" -9nc "${source}" > "${file}"
    DEPENDS "${source}"
    VERBATIM)
endfunction()

# velmora_manual_page(<template below packaging/man> <page> [<language>]): NAME.SECTION of a template, for installation.
function(velmora_manual_page template page)
  set(language "${ARGV2}")
  set(text "${PROJECT_BINARY_DIR}/man/${language}/${page}")
  configure_file("${PROJECT_SOURCE_DIR}/packaging/man/${template}" "${text}" @ONLY)
  velmora_compressed("${text}" "${text}.gz")
  set_property(GLOBAL APPEND PROPERTY VELMORA_DESKTOP_FILES "${text}.gz")
  install(FILES "${text}.gz" DESTINATION "${CMAKE_INSTALL_MANDIR}/${language}/man1" COMPONENT program)
endfunction()

velmora_manual_page(velmora.1.in velmora.1)
velmora_manual_page(velmora.es.1.in velmora.1 es)
velmora_manual_page(velmora-drive.1.in velmora-drive.1)
velmora_manual_page(velmora-scan.1.in velmora-scan.1)

install(FILES "${PROJECT_SOURCE_DIR}/packaging/velmora.desktop"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/applications" COMPONENT program)
install(FILES "${PROJECT_SOURCE_DIR}/packaging/velmora.metainfo.xml"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo" RENAME local.velmora.velmora.metainfo.xml COMPONENT program)
install(DIRECTORY "${VELMORA_ICONS}/hicolor" DESTINATION "${CMAKE_INSTALL_DATADIR}/icons" COMPONENT program)

# The licence in the form that Debian's tools read: the lines of the text indented, a dot for an empty one.
file(READ "${PROJECT_SOURCE_DIR}/LICENSE" licence)
string(REGEX REPLACE "^MIT License\n\nCopyright[^\n]*\n\n" "" licence "${licence}")
string(STRIP "${licence}" licence)
string(REPLACE "\n\n" "\n.\n" licence "${licence}")
string(REPLACE "\n" "\n " licence "${licence}")
set(VELMORA_LICENCE " ${licence}")
configure_file("${PROJECT_SOURCE_DIR}/packaging/copyright.in" "${PROJECT_BINARY_DIR}/copyright" @ONLY)

velmora_compressed("${PROJECT_SOURCE_DIR}/CHANGELOG.md" "${PROJECT_BINARY_DIR}/changelog.gz")
set_property(GLOBAL APPEND PROPERTY VELMORA_DESKTOP_FILES "${PROJECT_BINARY_DIR}/changelog.gz")
install(FILES
  "${PROJECT_BINARY_DIR}/copyright"
  "${PROJECT_BINARY_DIR}/changelog.gz"
  "${PROJECT_SOURCE_DIR}/THIRD-PARTY.md"
  "${PROJECT_SOURCE_DIR}/docs/driving.md"
  "${PROJECT_SOURCE_DIR}/docs/datos-csv.md"
  "${VELMORA_GUIDE}"
  DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT program)

get_property(files GLOBAL PROPERTY VELMORA_DESKTOP_FILES)
# The sanitizers' programs are never installed.
set(with_all ALL)
if(VELMORA_SANITIZE)
  set(with_all "")
endif()
add_custom_target(velmora_desktop_files ${with_all} DEPENDS ${files})
add_dependencies(velmora_desktop_files velmora_icons velmora_guide)

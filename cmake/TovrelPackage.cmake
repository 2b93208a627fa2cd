# What a Debian package has beside an installed program, and how CPack makes it: see scripts/package,
# which sets
# SOURCE_DATE_EPOCH. All that is made here is the same bytes for the same commit.
find_package(Python3 REQUIRED COMPONENTS Interpreter)

set(made "${PROJECT_BINARY_DIR}/packaging")
file(MAKE_DIRECTORY "${made}")

# tovrel_run(<output> <command>...): a file of what a command writes.
function(tovrel_run output)
    execute_process(COMMAND ${ARGN} OUTPUT_FILE "${output}" COMMAND_ERROR_IS_FATAL ANY)
endfunction()

set(notes "${PROJECT_SOURCE_DIR}/tools/build_release_notes.py")
set(metainfo_template "${PROJECT_SOURCE_DIR}/packaging/tovrel.metainfo.xml.in")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
    "${notes}" "${metainfo_template}" "${PROJECT_SOURCE_DIR}/CHANGELOG.md" ${manual_pages})

execute_process(
    COMMAND "${Python3_EXECUTABLE}" "${notes}" metainfo "${PROJECT_VERSION}" "$ENV{SOURCE_DATE_EPOCH}"
    INPUT_FILE "${metainfo_template}"
    OUTPUT_FILE "${made}/org.tovrel.tovrel.metainfo.xml"
    COMMAND_ERROR_IS_FATAL ANY)
install(FILES "${made}/org.tovrel.tovrel.metainfo.xml"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo")

tovrel_run("${made}/changelog"
    "${Python3_EXECUTABLE}" "${notes}" debian "${PROJECT_VERSION}" "$ENV{SOURCE_DATE_EPOCH}")
tovrel_run("${made}/changelog.gz" gzip --best --no-name --stdout "${made}/changelog")
install(FILES "${made}/changelog.gz" "${PROJECT_SOURCE_DIR}/packaging/copyright"
    DESTINATION "${doc_folder}")
foreach(page IN LISTS manual_pages)
    cmake_path(GET page FILENAME name)
    tovrel_run("${made}/${name}.gz" gzip --best --no-name --stdout "${page}")
    install(FILES "${made}/${name}.gz" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")
endforeach()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tovrel)
set(CPACK_PACKAGE_CONTACT "Tovrel authors <tovrel@users.noreply.example.org>")
set(CPACK_PACKAGING_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SECTION hamradio)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_DESCRIPTION
"Tovrel shows radio amateurs where their contacts lie. It takes a station's
log in ADIF form and draws it on a world map: as coloured dots on an azimuthal
map centred on the home station, where distance and bearing can be read off,
or on a cylindrical map.

Contacts are filtered by band, mode and IOTA continent and sorted into
confirmed, worked and heard ones. Maps are saved as pictures, and logs exported
for Google Earth. The program tovrel-batch does the same for scripts, without a
window.")
# The libraries are found in the programs. The font is the metric twin of the one that the windows
# and the stamps of the maps are set in.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-liberation")
# What opens the guide and the file for Google Earth, and a desktop without X11.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "qt6-wayland")
include(CPack)

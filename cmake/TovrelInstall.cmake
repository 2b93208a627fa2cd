if(WIN32)
    # One folder holds all; scripts/package-windows adds the libraries.
    install(TARGETS tovrel tovrel-batch RUNTIME DESTINATION .)
    install(FILES ${TOVREL_DATA_FILES} DESTINATION .)
    return()
endif()

# The programs look for their data beside themselves, so they live in a folder of their own,
# with links to them in the folder for programs.
include(GNUInstallDirs)

set(program_folder "${CMAKE_INSTALL_LIBEXECDIR}/tovrel")
set(doc_folder "${CMAKE_INSTALL_DATAROOTDIR}/doc/tovrel")

file(MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/links")
foreach(program IN ITEMS tovrel tovrel-batch)
    install(TARGETS ${program} RUNTIME DESTINATION "${program_folder}")
    file(RELATIVE_PATH link_target
        "${CMAKE_INSTALL_FULL_BINDIR}"
        "${CMAKE_INSTALL_FULL_LIBEXECDIR}/tovrel/${program}")
    file(CREATE_LINK "${link_target}" "${PROJECT_BINARY_DIR}/links/${program}" SYMBOLIC)
    install(FILES "${PROJECT_BINARY_DIR}/links/${program}" DESTINATION "${CMAKE_INSTALL_BINDIR}")
endforeach()

install(FILES ${TOVREL_DATA_FILES} DESTINATION "${program_folder}")
file(RELATIVE_PATH link_target
    "${CMAKE_INSTALL_FULL_DATAROOTDIR}/doc/tovrel"
    "${CMAKE_INSTALL_FULL_LIBEXECDIR}/tovrel/Tovrel-Help.pdf")
file(CREATE_LINK "${link_target}" "${PROJECT_BINARY_DIR}/links/Tovrel-Help.pdf" SYMBOLIC)
install(FILES "${PROJECT_BINARY_DIR}/links/Tovrel-Help.pdf" DESTINATION "${doc_folder}")

install(FILES "${PROJECT_SOURCE_DIR}/data/tovrel.desktop"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/applications")
install(FILES "${PROJECT_SOURCE_DIR}/packaging/tovrel-mime.xml"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/mime/packages"
    RENAME tovrel.xml)
foreach(size IN ITEMS 16 24 32 48 64 128 256)
    install(FILES "${PROJECT_SOURCE_DIR}/data/icons/tovrel-${size}.png"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps"
        RENAME tovrel.png)
endforeach()
install(FILES "${PROJECT_SOURCE_DIR}/data/icons/tovrel.svg"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps")

set(manual_pages "${PROJECT_SOURCE_DIR}/docs/tovrel.1" "${PROJECT_SOURCE_DIR}/docs/tovrel-batch.1")
if(TOVREL_PACKAGE)
    include(TovrelPackage)
else()
    install(FILES ${manual_pages} DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")
endif()

# The data files that lie beside the program at run time. A file that is added to data/ is found
# at the next build, without an edit here.
file(GLOB TOVREL_DATA_FILES CONFIGURE_DEPENDS
    "${PROJECT_SOURCE_DIR}/data/*.pnt"
    "${PROJECT_SOURCE_DIR}/data/*.txt"
    "${PROJECT_SOURCE_DIR}/data/*.png"
    "${PROJECT_SOURCE_DIR}/data/Tovrel-Help.pdf"
    "${PROJECT_SOURCE_DIR}/data/sample.adi")

set(copied_files)
foreach(file IN LISTS TOVREL_DATA_FILES)
    cmake_path(GET file FILENAME name)
    set(copy "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${name}")
    add_custom_command(
        OUTPUT "${copy}"
        COMMAND "${CMAKE_COMMAND}" -E copy "${file}" "${copy}"
        DEPENDS "${file}"
        COMMENT "Copying ${name} beside the program"
        VERBATIM)
    list(APPEND copied_files "${copy}")
endforeach()

add_custom_target(tovrel_data ALL DEPENDS ${copied_files})

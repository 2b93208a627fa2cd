# What a Windows program carries within itself: icon, version and manifest.
find_package(Python3 REQUIRED COMPONENTS Interpreter)

set(resources "${PROJECT_BINARY_DIR}/windows")
set(icon "${resources}/tovrel.ico")
set(icon_pictures)
foreach(size IN ITEMS 16 24 32 48 64 128 256)
    list(APPEND icon_pictures "${PROJECT_SOURCE_DIR}/data/icons/tovrel-${size}.png")
endforeach()
set(manifest "${resources}/tovrel.manifest")
configure_file("${PROJECT_SOURCE_DIR}/packaging/windows/tovrel.manifest" "${manifest}" COPYONLY)
set(icon_tool "${PROJECT_SOURCE_DIR}/tools/build_ico.py")
add_custom_command(
    OUTPUT "${icon}"
    COMMAND Python3::Interpreter -B "${icon_tool}" "${icon}" ${icon_pictures}
    DEPENDS "${icon_tool}" ${icon_pictures}
    COMMENT "Putting the icon together"
    VERBATIM)
add_custom_target(tovrel_icon DEPENDS "${icon}")

# tovrel_add_resources(<target> <description>): the description is what the task manager shows.
function(tovrel_add_resources target description)
    get_target_property(program ${target} OUTPUT_NAME)
    if(NOT program)
        set(program ${target})
    endif()
    string(REPLACE "." "," version_numbers "${PROJECT_VERSION}")
    set(script "${resources}/${target}.rc")
    configure_file("${PROJECT_SOURCE_DIR}/packaging/windows/tovrel.rc.in" "${script}" @ONLY)
    set_source_files_properties("${script}" PROPERTIES OBJECT_DEPENDS "${icon};${manifest}")
    target_sources(${target} PRIVATE "${script}")
    add_dependencies(${target} tovrel_icon)
endfunction()

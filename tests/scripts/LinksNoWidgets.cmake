# cmake -D PROGRAM=<file> -P LinksNoWidgets.cmake: fails if the program loads Qt's widgets.
execute_process(
    COMMAND ldd "${PROGRAM}"
    OUTPUT_VARIABLE libraries
    COMMAND_ERROR_IS_FATAL ANY)
if(NOT libraries MATCHES "libQt6Core")
    message(FATAL_ERROR "${PROGRAM}: no Qt at all, which can't be:\n${libraries}")
endif()
if(libraries MATCHES "libQt6Widgets")
    # A notice is printed as it is; an error's text is broken into lines, wherever the path ends.
    message(NOTICE "links Qt Widgets")
    message(FATAL_ERROR "${PROGRAM} must not")
endif()

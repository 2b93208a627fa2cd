# Toolchain: 64-bit Windows from a Debian machine, by the compilers of g++-mingw-w64-x86-64-posix.
# Qt itself is built with it as well, see scripts/build-windows-qt, whose folder TOVREL_WINDOWS_QT names.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR AMD64)

set(triplet x86_64-w64-mingw32)
# The -posix compilers have the standard library's threads.
set(CMAKE_C_COMPILER ${triplet}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triplet}-g++-posix)
set(CMAKE_RC_COMPILER ${triplet}-windres)

list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES TOVREL_WINDOWS_QT)
set(CMAKE_FIND_ROOT_PATH "${TOVREL_WINDOWS_QT}" /usr/${triplet})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Qt's build runs its own tools (moc, rcc) on the machine that builds.
set(QT_HOST_PATH /usr)
# CMake sets CC while it looks at the compilers, which dpkg-architecture would ask as well.
execute_process(COMMAND "${CMAKE_COMMAND}" -E env --unset=CC dpkg-architecture -q DEB_HOST_MULTIARCH
    OUTPUT_VARIABLE multiarch OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
set(QT_HOST_PATH_CMAKE_DIR "/usr/lib/${multiarch}/cmake")

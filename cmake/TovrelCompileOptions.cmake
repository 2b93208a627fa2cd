# What every target of Tovrel is compiled with. Each of them links this one target privately.
add_library(tovrel_options INTERFACE)

# Left out on purpose:
#   -Wsign-conversion   Qt's sizes are signed and the standard library's are not; the casts that it
#                       asks for hide more than they show.
#   -Wnull-dereference  with optimisation it reports paths inside the standard library's headers.
#   -Wmaybe-uninitialized, -Wrestrict
#                       GCC 12 sees both in its own std::string when that is optimised. Reads of
#                       what was never set are left to clang-tidy.
target_compile_options(tovrel_options INTERFACE
    -Wall
    -Wextra
    -Wpedantic
    -Wshadow
    -Wconversion
    -Wold-style-cast
    -Woverloaded-virtual
    -Wnon-virtual-dtor
    # Every machine has to draw the same map, so a product and a sum stay two rounded steps.
    -ffp-contract=off)

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(tovrel_options INTERFACE -Wno-maybe-uninitialized -Wno-restrict)
endif()

# Clang's -Wconversion is wider than that of GCC, for which the warnings were chosen.
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    target_compile_options(tovrel_options INTERFACE
        -Wno-sign-conversion -Wno-shorten-64-to-32 -Wno-implicit-int-float-conversion)
endif()

if(TOVREL_WERROR)
    target_compile_options(tovrel_options INTERFACE -Werror)
endif()

if(TOVREL_SANITIZE)
    target_compile_options(tovrel_options INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(tovrel_options INTERFACE -fsanitize=address,undefined)
endif()

if(TOVREL_FUZZ)
    # The library tells the fuzzer what an input reaches; the fuzzer itself belongs to the targets.
    target_compile_options(tovrel_options INTERFACE
        -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    target_link_options(tovrel_options INTERFACE -fsanitize=address,undefined)
endif()

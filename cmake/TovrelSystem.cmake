# What differs between the systems, or can be tested on one of them only, stands in files of its own
# whose names tell the system. This is what is left out of the lists of sources.
if(WIN32)
    set(TOVREL_OTHER_SYSTEM "_unix\\.(cpp|h)$")
else()
    set(TOVREL_OTHER_SYSTEM "_win\\.(cpp|h)$")
endif()

#pragma once

#include "platform/TestFolder.h"

#include <initializer_list>

namespace tovrel {

/// Puts supplied files into a folder: without names the map that is drawn in small pictures.
inline void copySupplied(const TestFolder& folder,
                         std::initializer_list<const char*> names = {"mapper.pnt", "paintma.txt"}) {
    for (const char* name : names)
        std::filesystem::copy_file(systemPath(joinPath(TOVREL_DATA_DIR, name)),
                                   systemPath(folder.path(name)),
                                   std::filesystem::copy_options::skip_existing);
}

} // namespace tovrel

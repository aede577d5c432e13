// The files embedded in the library.

#ifndef PSL_RESOURCES_H
#define PSL_RESOURCES_H

#include <cstddef>
#include <vector>

/// A file that the library carries in its data.
struct EmbeddedFile
{
    /// Its name in the memory file system, below the resource folder.
    const char* name;
    const unsigned char* data;
    std::size_t size;
    const char* mimeType;
};

/// All embedded files in the order of their registration. Generated from the resource documents.
const std::vector<EmbeddedFile>& embeddedFiles();

#endif

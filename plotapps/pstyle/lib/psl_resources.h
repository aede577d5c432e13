// The files embedded in the library.

#ifndef PSL_RESOURCES_H
#define PSL_RESOURCES_H

#include <wx/string.h>

#include <cstddef>
#include <vector>

class wxClassInfo;

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

/// Whether the dialogs and pictures are known to the toolkit's global resource loader.
bool areResourcesRegistered();

/// A named control of an embedded dialog.
struct EmbeddedControl
{
    wxString name;
    const wxClassInfo* kind;
};

/// The named controls that an embedded dialog describes, whatever the toolkit has made of them.
std::vector<EmbeddedControl> embeddedControls(const char* dialog);

#endif

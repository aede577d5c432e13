// Registration of the embedded files with the toolkit.

#include "psl_resources.h"

#include "psl.h"

#include <wx/filesys.h>
#include <wx/fs_mem.h>
#include <wx/xrc/xmlres.h>

#include <cstring>
#include <memory>

namespace
{

const char* const resourceFolder = "XRC_resource/";

// There is no way to ask for an installed handler, so a probe file has to be opened through it.
bool hasMemoryFileSystem()
{
    const wxString probe = wxString(resourceFolder) + "dummy_file";
    wxMemoryFSHandler::AddFile(probe, wxString("dummy one"));
    const std::unique_ptr<wxFSFile> file(wxFileSystem().OpenFile("memory:" + probe));
    wxMemoryFSHandler::RemoveFile(probe);
    return file != nullptr;
}

} // namespace

void InitPslXmlResource()
{
    if (!hasMemoryFileSystem())
        wxFileSystem::AddHandler(new wxMemoryFSHandler);
    for (const EmbeddedFile& file : embeddedFiles())
        wxMemoryFSHandler::AddFileWithMimeType(wxString(resourceFolder) + file.name, file.data,
                                               file.size, file.mimeType);
    for (const EmbeddedFile& file : embeddedFiles())
        if (std::strcmp(file.mimeType, "text/xml") == 0)
            wxXmlResource::Get()->Load(wxString("memory:") + resourceFolder + file.name);
}

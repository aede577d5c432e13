// Registration of the embedded files with the toolkit.

#include "psl_resources.h"

#include "psl.h"

#include <wx/filesys.h>
#include <wx/fs_mem.h>
#include <wx/mstream.h>
#include <wx/window.h>
#include <wx/xml/xml.h>
#include <wx/xrc/xmlres.h>

#include <algorithm>
#include <cstring>
#include <memory>

namespace
{

const char* const resourceFolder = "XRC_resource/";

// One of each document.
const char* const resources[] = {"DlgNewTable", "DlgPlotStyleEditor", "DlgSelectTable", "BmpCTB"};

bool isDocument(const EmbeddedFile& file)
{
    return std::strcmp(file.mimeType, "text/xml") == 0;
}

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
        if (isDocument(file))
            wxXmlResource::Get()->Load(wxString("memory:") + resourceFolder + file.name);
}

bool areResourcesRegistered()
{
    return std::all_of(std::begin(resources), std::end(resources),
                       [](const char* name)
                       { return wxXmlResource::Get()->GetResourceNode(name) != nullptr; });
}

namespace
{

// Adds the named controls below a node of a resource document. Nodes of other classes than windows
// stand for places in the layout.
void collectControls(const wxXmlNode& node, std::vector<EmbeddedControl>& controls)
{
    for (const wxXmlNode* child = node.GetChildren(); child; child = child->GetNext())
    {
        const wxString name = child->GetAttribute("name");
        const wxClassInfo* kind = wxClassInfo::FindClass(child->GetAttribute("class"));
        if (!name.empty() && kind && kind->IsKindOf(wxCLASSINFO(wxWindow)))
            controls.push_back({name, kind});
        collectControls(*child, controls);
    }
}

} // namespace

std::vector<EmbeddedControl> embeddedControls(const char* dialog)
{
    std::vector<EmbeddedControl> controls;
    for (const EmbeddedFile& file : embeddedFiles())
    {
        if (!isDocument(file))
            continue;
        wxMemoryInputStream stream(file.data, file.size);
        const wxXmlDocument document(stream);
        for (const wxXmlNode* node = document.GetRoot()->GetChildren(); node;
             node = node->GetNext())
            if (node->GetAttribute("name") == dialog)
            {
                collectControls(*node, controls);
                return controls;
            }
    }
    return controls;
}

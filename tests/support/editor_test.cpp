// Tables for the editor's tests, and its operation.

#include "support/editor_test.h"

#include <wx/checkbox.h>
#include <wx/image.h>
#include <wx/listctrl.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

Editor::Editor(const wxString& file, const wxString& source)
    : DlgPlotStyleEditor(file, source, nullptr)
{
    InitDialog();
}

void Editor::press(int id)
{
    updateUi(*this);
    wxWindow* button = FindWindow(id);
    ASSERT_NE(button, nullptr);
    wxCommandEvent event(wxEVT_BUTTON, id);
    event.SetEventObject(button);
    button->GetEventHandler()->ProcessEvent(event);
}

void Editor::press(const std::string& name)
{
    press(wxXmlResource::GetXRCID(name));
}

// A cancelled question leaves everything as it was; without a question the dialog would have ended.
bool Editor::isModified()
{
    struct Refusal : wxModalDialogHook
    {
        Refusal() { Register(); }
        int Enter(wxDialog*) override { return wxID_CANCEL; }
    } refusal;
    press(wxID_CANCEL);
    const bool asked = !hasEnded();
    m_ended = 0;
    return asked;
}

void EditorTest::SetUpTestSuite()
{
    static const bool once = (InitPslXmlResource(), true);
    ASSERT_TRUE(once);
}

wxString EditorTest::makeTable(const wxString& name,
                               const std::function<void(OdPsPlotStyleTable&)>& change)
{
    const auto table = cma::createPlotStyleTable(name.Lower().EndsWith(".ctb"), L"");
    if (change)
        change(*table);
    const wxString file = folder.file(name);
    EXPECT_TRUE(cma::savePlotStyleTable(OdString(file.wc_str()), table)) << file;
    return file;
}

wxString EditorTest::makeFile(const wxString& name, const std::string& bytes)
{
    const wxString file = folder.file(name);
    writeBytes(file, bytes);
    return file;
}

std::function<void(OdPsPlotStyleTable&)> describe(const wchar_t* description)
{
    return [description](OdPsPlotStyleTable& table) { table.setDescription(description); };
}

OdPsPlotStyleTablePtr loadTable(const wxString& file)
{
    const auto table = cma::loadPlotStyleTable(OdString(file.wc_str()));
    if (table.isNull())
        throw std::runtime_error("no table: " + file.utf8_string());
    return table;
}

void expectNoTable(Editor& editor)
{
    updateUi(editor);
    EXPECT_EQ(find<wxStaticText>(editor, "StatFileType")->GetLabelText(), "No table");
    EXPECT_EQ(find<wxStaticText>(editor, "StatNumStyles")->GetLabelText(), "Number of styles: 0");
    EXPECT_EQ(find<wxTextCtrl>(editor, "TextTableDescr")->GetValue(), "");
    EXPECT_EQ(find<wxTextCtrl>(editor, "TextScale")->GetValue(), "1");
    EXPECT_FALSE(find<wxCheckBox>(editor, "CheckScale")->GetValue());
    EXPECT_EQ(find<wxListCtrl>(editor, "ListStyles")->GetItemCount(), 0);
    EXPECT_FALSE(find<wxWindow>(editor, "BtnLwSort")->IsShown());
    for (const char* name : {"wxID_OK", "BtnSaveAs", "BtnExport"})
        EXPECT_FALSE(find<wxWindow>(editor, name)->IsEnabled()) << name;
    EXPECT_TRUE(find<wxWindow>(editor, "BtnOpen")->IsEnabled());
    EXPECT_TRUE(find<wxWindow>(editor, "wxID_CANCEL")->IsEnabled());
}

std::string bytesOf(const wxBitmap& bitmap)
{
    const wxImage image = bitmap.ConvertToImage();
    const auto pixels =
        static_cast<size_t>(image.GetWidth()) * static_cast<size_t>(image.GetHeight());
    std::string bytes(reinterpret_cast<const char*>(image.GetData()), pixels * 3);
    if (image.HasAlpha())
        bytes.append(reinterpret_cast<const char*>(image.GetAlpha()), pixels);
    return bytes;
}

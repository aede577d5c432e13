// A host that loads the library as a plug-in, uses it, unloads it, loads it again, and ends. It is
// not linked with the library.

#include <gtest/gtest.h>

#include <wx/app.h>
#include <wx/dialog.h>
#include <wx/log.h>
#include <wx/modalhook.h>
#include <wx/xrc/xmlres.h>

#include <dlfcn.h>

namespace
{

class Host : public wxApp
{
    bool OnInit() override
    {
        wxXmlResource::Get()->InitAllHandlers();
        return true;
    }

    int OnRun() override { return RUN_ALL_TESTS(); }
};

class Confirmations : public wxModalDialogHook
{
public:
    Confirmations() { Register(); }
    ~Confirmations() override { Unregister(); }

    int count = 0;

private:
    int Enter(wxDialog* dialog) override
    {
        dialog->InitDialog();
        ++count;
        return wxID_OK;
    }
};

class Messages : public wxLog
{
public:
    std::vector<wxString> all;

private:
    void DoLogText(const wxString& message) override { all.push_back(message); }
};

} // namespace

TEST(Reload, FindsEverythingRegistered)
{
    auto* messages = new Messages;
    delete wxLog::SetActiveTarget(messages); // the toolkit deletes it in the end
    Confirmations confirmations;
    for (int call = 1; call <= 3; ++call)
    {
        void* const library = dlopen(PSTYLE_LIBRARY, RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(library, nullptr) << dlerror();
        const auto edit = reinterpret_cast<bool (*)(const wxString&, wxWindow*)>(
            dlsym(library, "_Z18editPlotStyleTableRK8wxStringP8wxWindow"));
        ASSERT_NE(edit, nullptr);
        EXPECT_TRUE(edit("new.ctb", nullptr));
        EXPECT_EQ(confirmations.count, call);
        EXPECT_EQ(dlclose(library), 0);
    }
    EXPECT_TRUE(messages->all.empty()) << messages->all.front();
}

// The end of the process is part of the test.
int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    wxApp::SetInstance(new Host);
    return wxEntry(argc, argv);
}

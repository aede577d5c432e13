// A host that loads the library as a plug-in, uses it, unloads it, loads it again, and ends. It is
// not linked with the library.

#include "support/confirmations.h"
#include "support/kept_log.h"

#include <gtest/gtest.h>

#include <wx/app.h>
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

} // namespace

TEST(Reload, FindsEverythingRegistered)
{
    const support::KeptLog log;
    const support::Confirmations confirmations;
    std::string expected;
    for (int call = 1; call <= 3; ++call)
    {
        void* const library = dlopen(PSTYLE_LIBRARY, RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(library, nullptr) << dlerror();
        const auto edit = reinterpret_cast<bool (*)(const wxString&, wxWindow*)>(
            dlsym(library, "_Z18editPlotStyleTableRK8wxStringP8wxWindow"));
        ASSERT_NE(edit, nullptr);
        EXPECT_TRUE(edit("new.ctb", nullptr));
        EXPECT_EQ(confirmations.names, expected += "DlgPlotStyleEditor ");
        EXPECT_EQ(dlclose(library), 0);
    }
    EXPECT_TRUE(log.messages.empty()) << log.messages.front();
}

// The end of the process is part of the test.
int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    wxApp::SetInstance(new Host);
    return wxEntry(argc, argv);
}

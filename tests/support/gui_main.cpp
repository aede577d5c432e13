// Runs a program of dialog tests. An assertion of the toolkit fails the test that meets it.

#include "support/gui_support.h"

#include <gtest/gtest.h>

#include <wx/app.h>
#include <wx/image.h>
#include <wx/log.h>
#include <wx/xrc/xmlres.h>

namespace
{

class TestApp : public wxApp
{
public:
    bool OnInit() override
    {
        failOnAsserts();
        SetAppName("pstyle-test");
        wxInitAllImageHandlers();
        wxXmlResource::Get()->InitAllHandlers();
        // Without a test's own capture, messages go to the program's output.
        delete wxLog::SetActiveTarget(new wxLogStderr);
        return true;
    }

    int OnRun() override { return RUN_ALL_TESTS(); }
};

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    wxApp::SetInstance(new TestApp);
    return wxEntry(argc, argv);
}

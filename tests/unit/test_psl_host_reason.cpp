// What is heard of the host's trace, and that nobody else notices.

#include "psl_host_reason.h"

#include "cmdapi/cma.h"
#include "support/kept_log.h"

#include <gtest/gtest.h>

#include <wx/init.h>
#include <wx/log.h>

#include <vector>

namespace
{

class HostReason : public testing::Test
{
protected:
    void TearDown() override
    {
        wxLog::ClearTraceMasks();
        wxLog::SetLogLevel(wxLOG_Max);
    }

    static wxString reasonOfLoadingNothing()
    {
        return hostReason([] { EXPECT_TRUE(cma::loadPlotStyleTable(L"/missing.ctb").isNull()); });
    }

    const wxInitializer toolkit;
    support::KeptLog log;
};

} // namespace

TEST_F(HostReason, IsThatOfTheFailure)
{
    EXPECT_EQ(reasonOfLoadingNothing(), "No such file or directory");
    EXPECT_EQ(hostReason([] {}), "");
    EXPECT_TRUE(log.messages.empty());
}

TEST_F(HostReason, IsTheLastOne)
{
    EXPECT_EQ(hostReason(
                  []
                  {
                      wxLogTrace("cmdapi", "first");
                      wxLogTrace("cmdapi", "last");
                      wxLogTrace("another", "mask");
                  }),
              "last");
}

TEST_F(HostReason, LeavesTheLogAsItWas)
{
    wxLog::SetLogLevel(wxLOG_Warning);
    reasonOfLoadingNothing();
    EXPECT_EQ(wxLog::GetActiveTarget(), &log);
    EXPECT_EQ(wxLog::GetLogLevel(), wxLOG_Warning);
    EXPECT_FALSE(wxLog::IsAllowedTraceMask("cmdapi"));
}

TEST_F(HostReason, IsTracedWhereTheHostTraces)
{
    wxLog::AddTraceMask("cmdapi");
    wxLog::SetLogLevel(wxLOG_Trace);
    EXPECT_EQ(reasonOfLoadingNothing(), "No such file or directory");
    EXPECT_TRUE(wxLog::IsAllowedTraceMask("cmdapi"));
    EXPECT_EQ(log.messages.size(), 1u);
}

TEST_F(HostReason, LetsOtherMessagesThrough)
{
    hostReason(
        []
        {
            wxLogWarning("a warning");
            wxLogTrace("another", "a trace");
        });
    EXPECT_EQ(log.messages, std::vector<wxString>{"a warning"});
}

TEST_F(HostReason, StandsBehindTheMessageOnALineOfItsOwn)
{
    EXPECT_EQ(withReason("It failed.", "the disk is full"), "It failed.\nThe disk is full");
    EXPECT_EQ(withReason("It failed.", ""), "It failed.");
}

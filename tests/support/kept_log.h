// What is logged, for tests to look at.

#ifndef TESTS_SUPPORT_KEPT_LOG_H
#define TESTS_SUPPORT_KEPT_LOG_H

#include <wx/log.h>

#include <vector>

namespace support
{

/// The toolkit's log target as long as it lives; keeps every message.
class KeptLog : public wxLog
{
public:
    KeptLog()
        : m_before(wxLog::SetActiveTarget(this))
    {
    }
    ~KeptLog() override { wxLog::SetActiveTarget(m_before); }
    KeptLog(const KeptLog&) = delete;
    KeptLog& operator=(const KeptLog&) = delete;

    std::vector<wxString> messages;

private:
    void DoLogRecord(wxLogLevel, const wxString& message, const wxLogRecordInfo&) override
    {
        messages.push_back(message);
    }

    wxLog* m_before;
};

} // namespace support

#endif

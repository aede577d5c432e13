// Listening to the host's trace.

#include "psl_host_reason.h"

#include <wx/log.h>

namespace
{

const char* const mask = "cmdapi";

// Listens while it lives.
class Listener : public wxLog
{
public:
    Listener()
        : m_others(wxLog::GetActiveTarget()) // makes the default target where there is none yet
        , m_wasTraced(wxLog::IsAllowedTraceMask(mask))
        , m_level(wxLog::GetLogLevel())
    {
        wxLog::SetActiveTarget(this);
        wxLog::SetLogLevel(wxLOG_Trace);
        if (!m_wasTraced)
            wxLog::AddTraceMask(mask);
    }

    ~Listener() override
    {
        if (!m_wasTraced)
            wxLog::RemoveTraceMask(mask);
        wxLog::SetLogLevel(m_level);
        wxLog::SetActiveTarget(m_others);
    }

    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    const wxString& reason() const { return m_reason; }

private:
    void DoLogRecord(wxLogLevel level, const wxString& message,
                     const wxLogRecordInfo& info) override
    {
        wxString traced;
        const bool isReason = level == wxLOG_Trace &&
                              info.GetStrValue(wxLOG_KEY_TRACE_MASK, &traced) && traced == mask;
        // The toolkit puts the mask before the message.
        if (isReason && !message.StartsWith(wxString::Format("(%s) ", mask), &m_reason))
            m_reason = message;
        if (m_others && level <= m_level && (!isReason || m_wasTraced))
            m_others->LogRecord(level, message, info);
    }

    wxLog* m_others;
    bool m_wasTraced;
    wxLogLevel m_level;
    wxString m_reason;
};

} // namespace

wxString hostReason(const std::function<void()>& step)
{
    Listener listener;
    step();
    return listener.reason();
}

wxString withReason(const wxString& message, const wxString& reason)
{
    return reason.empty() ? message : message + "\n" + reason.Left(1).Upper() + reason.Mid(1);
}

void reportFailure(const wxString& message)
{
    wxLogStatus("%s", message);
    wxLogError("%s", message);
}

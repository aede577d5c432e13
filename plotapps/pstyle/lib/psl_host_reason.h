// Why the host could not load or save a table.

#ifndef PSL_HOST_REASON_H
#define PSL_HOST_REASON_H

#include <wx/string.h>

#include <functional>

/// Has the host load or save a table, and collects the reason of a failure: the host's command
/// interface itself tells no more than that it failed, and traces the reason under the mask
/// "cmdapi". All other messages go where they went before.
/// @return the reason, for the user; empty when the host has given none
wxString hostReason(const std::function<void()>& step);

/// A message with a reason on a line of its own behind it, where there is one, that begins with a
/// capital letter.
wxString withReason(const wxString& message, const wxString& reason);

/// Tells the user of a failure with a file, and the toolkit's status line, too, for hosts that
/// write down what they are told.
void reportFailure(const wxString& message);

#endif

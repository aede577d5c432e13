// What the library's dialogs have in common: they lie on the stack of the function that shows them.

#ifndef PSL_STACK_DIALOG_H
#define PSL_STACK_DIALOG_H

#include <wx/dialog.h>

#include <utility>

/// A dialog that is built from a resource and lies on the stack.
class StackDialog : public wxDialog
{
public:
    /// @return wxID_CANCEL at once for a dialog that could not be built
    int ShowModal() override
    {
        if (!m_isBuilt)
            return wxID_CANCEL;
        StackDialog* const below = std::exchange(s_innermost, this);
        m_isOpen = true;
        const int result = wxDialog::ShowModal();
        m_isOpen = false;
        s_innermost = below;
        return result;
    }

    /// Cancels the dialog while it is open: a host that destroys all windows means this one, too,
    /// but the toolkit must not delete it. A dialog that has opened another ends when that has
    /// ended: the toolkit cannot end an outer loop before an inner one.
    bool Destroy() override
    {
        if (!m_isOpen)
            return wxDialog::Destroy();
        if (this == s_innermost && IsModal())
            EndModal(wxID_CANCEL);
        return true;
    }

protected:
    bool m_isBuilt = false;

private:
    bool m_isOpen = false;
    static inline StackDialog* s_innermost = nullptr;
};

#endif

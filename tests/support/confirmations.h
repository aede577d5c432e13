// Dialogs that are confirmed unseen.

#ifndef TESTS_SUPPORT_CONFIRMATIONS_H
#define TESTS_SUPPORT_CONFIRMATIONS_H

#include <wx/dialog.h>
#include <wx/modalhook.h>

#include <string>

namespace support
{

/// Initialises and confirms every dialog that is to be shown as long as it lives, and tells which
/// there were.
class Confirmations : public wxModalDialogHook
{
public:
    Confirmations() { Register(); }
    ~Confirmations() override { Unregister(); }

    /// The classes of the dialogs in their order, with a blank behind each.
    std::string names;

private:
    int Enter(wxDialog* dialog) override
    {
        dialog->InitDialog();
        names += (dialog->GetClassInfo()->GetClassName() + wxString(" ")).utf8_string();
        return wxID_OK;
    }
};

} // namespace support

#endif

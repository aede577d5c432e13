// The program: a window with the tables of a folder.

#ifndef OTHER_HOST_H
#define OTHER_HOST_H

#include <wx/app.h>
#include <wx/frame.h>

class wxListView;

class MainWindow : public wxFrame
{
public:
    MainWindow();

private:
    void addButton(const char* name, const wxString& label, const std::function<void()>& action);
    void editTable();
    void createTable(bool isColorDependent);
    void listTables();

    wxListView* tables;
};

/// Takes the folder of the tables as its only argument.
class OtherHost : public wxApp
{
public:
    bool OnInit() override;
};

#endif

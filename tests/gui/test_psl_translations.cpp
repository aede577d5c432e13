// The dialogs in the user's language: every text translated, nothing cut off, no mnemonic twice.

#include "support/editor_driver.h"

#include "psl_dlg_new_table.h"
#include "psl_dlg_select_table.h"

#include "util/ut.h"
#include "wxgui/color_dialog.h"

#include <wx/checkbox.h>
#include <wx/filename.h>
#include <wx/listctrl.h>
#include <wx/msgdlg.h>
#include <wx/notebook.h>
#include <wx/odcombo.h>
#include <wx/radiobut.h>
#include <wx/spinctrl.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/tooltip.h>
#include <wx/translation.h>
#include <wx/utils.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <set>

namespace
{

// The user's language, for as long as this lives.
class Language
{
public:
    explicit Language(const char* language)
    {
        wxSetEnv("LANGUAGE", language);
        ut::loadTranslations();
    }
    ~Language()
    {
        wxTranslations::Set(nullptr);
        wxUnsetEnv("LANGUAGE");
    }
    Language(const Language&) = delete;
    Language& operator=(const Language&) = delete;
};

// Every text of a window and the windows in it, by the place that it stands in.
using Texts = std::map<std::string, wxString>;

void collectItems(const wxWindow& window, const std::string& place, Texts& texts)
{
    const auto add = [&](const std::string& part, const wxString& text)
    { texts[place + part] = text; };
    if (const auto* book = dynamic_cast<const wxNotebook*>(&window))
        for (size_t page = 0; page < book->GetPageCount(); ++page)
            add(" page " + std::to_string(page), book->GetPageText(page));
    if (const auto* items = dynamic_cast<const wxItemContainerImmutable*>(&window))
        for (unsigned item = 0; item < items->GetCount(); ++item)
            add(" item " + std::to_string(item), items->GetString(item));
    if (const auto* list = dynamic_cast<const wxListCtrl*>(&window))
    {
        wxListItem column;
        column.SetMask(wxLIST_MASK_TEXT);
        if (list->GetColumn(0, column))
            add(" column", column.GetText());
        for (int row = 0; row < list->GetItemCount(); ++row)
            add(" row " + std::to_string(row), list->GetItemText(row));
    }
    if (const auto* spin = dynamic_cast<const wxSpinCtrl*>(&window))
        add(" text", spin->GetTextValue());
}

void collect(const wxWindow& window, const std::string& place, Texts& texts)
{
    texts[place] = window.GetLabel();
    // That of a combo box is its value, which is among the entries.
    if (window.GetToolTip() && !dynamic_cast<const wxOwnerDrawnComboBox*>(&window))
        texts[place + " tip"] = window.GetToolTip()->GetTip();
    collectItems(window, place, texts);
    int number = 0;
    for (const wxWindow* child : window.GetChildren())
        collect(*child,
                place + "/" + std::to_string(number++) + " " + child->GetName().utf8_string(),
                texts);
}

Texts textsOf(const wxWindow& dialog)
{
    Texts texts;
    collect(dialog, "", texts);
    return texts;
}

// Opens one dialog after the other, unshown, and gives each to `visit` under its name.
class Dialogs : public EditorTest
{
protected:
    using Visit = std::function<void(const std::string& name, wxDialog& dialog)>;

    void forEachDialog(const Visit& visit)
    {
        for (const char* name : {"table.ctb", "table.stb"})
        {
            Editor editor(folder.file(name));
            visit(name, editor);
            find<wxListCtrl>(editor, "ListStyles")
                ->SetItemState(0, wxLIST_STATE_SELECTED, wxLIST_STATE_SELECTED);
            visit(std::string(name) + " with a style", editor);
        }
        Editor none(makeFile("broken.ctb", "no table"));
        visit("no table", none);
        visitChooser(visit);
        for (const bool colorDependent : {false, true})
        {
            DlgNewTable dialog(colorDependent, folder.path(), nullptr);
            dialog.InitDialog();
            visit(colorDependent ? "new ctb" : "new stb", dialog);
        }
        wxg::ColorDialog colors(nullptr, _("Color Control"), wxg::indexColor(5));
        visit("colors", colors);
    }

    DialogAnswers answers;
    ErrorLog errors;

private:
    static void visitChooser(const Visit& visit)
    {
        DlgSelectTable chooser(nullptr);
        chooser.InitDialog();
        for (const char* mode : {"RadOpen", "RadNew", "RadCopy"})
        {
            auto* button = find<wxRadioButton>(chooser, mode);
            button->SetValue(true);
            wxCommandEvent event(wxEVT_RADIOBUTTON, button->GetId());
            event.SetEventObject(button);
            button->HandleWindowEvent(event);
            visit(mode, chooser);
        }
    }

    void SetUp() override
    {
        makeTable("table.ctb", describe(L""));
        makeTable("table.stb", describe(L""));
    }
};

// Names, of files too, and numbers with their units.
bool isOfNoLanguage(const std::string& text)
{
    static const std::set<std::string> names{"OK", "CTB", "STB", "Normal", "wxSpinButton"};
    const wxString extension = wxFileName(wxString::FromUTF8(text)).GetExt();
    const bool hasLetters =
        std::any_of(text.begin(), text.end(), [](unsigned char c) { return std::isalpha(c) != 0; });
    return !hasLetters || names.count(text) || std::isdigit(static_cast<unsigned char>(text[0])) ||
           extension == "ctb" || extension == "stb";
}

class Translations : public Dialogs
{
protected:
    std::map<std::string, Texts> allTexts(const char* language)
    {
        const Language user(language);
        std::map<std::string, Texts> all;
        // The broken table's message.
        answers.press(wxID_OK);
        forEachDialog([&](const std::string& name, wxDialog& dialog)
                      { all[name] = textsOf(dialog); });
        return all;
    }

    // Expects that every text differs from the English one, except for names.
    void expectTranslated(const char* language, const std::set<std::string>& alike)
    {
        const auto english = allTexts("en");
        const auto translated = allTexts(language);
        ASSERT_EQ(english.size(), translated.size());
        int compared = 0;
        for (const auto& [dialog, texts] : english)
        {
            ASSERT_EQ(texts.size(), translated.at(dialog).size()) << dialog;
            for (const auto& [place, text] : texts)
            {
                const std::string plain = wxControl::RemoveMnemonics(text).utf8_string();
                if (isOfNoLanguage(plain) || alike.count(plain))
                    continue;
                ++compared;
                const wxString other = translated.at(dialog).at(place);
                EXPECT_NE(wxControl::RemoveMnemonics(other).utf8_string(), plain)
                    << dialog << place;
            }
        }
        EXPECT_GT(compared, 1000);
    }
};

} // namespace

TEST_F(Translations, LeaveNothingEnglishUnderGerman)
{
    expectTranslated("de", {"Name", "Cyan", "Magenta"});
}

TEST_F(Translations, LeaveNothingEnglishUnderFrench)
{
    expectTranslated("fr", {"Cyan", "Magenta", "Description:"});
}

TEST_F(Translations, FollowTheOrderOfTheUsersLanguages)
{
    const std::pair<const char*, const char*> cases[] = {
        {"de", "Rot"},        {"de_AT:fr", "Rot"}, {"de_DE.UTF-8", "Rot"},
        {"fr@euro", "Rouge"}, {"fr", "Rouge"},     {"sv:fr", "Rouge"},
        {"en:de", "Red"},     {"sv", "Red"},       {"", "Red"},
    };
    for (const auto& [language, red] : cases)
    {
        const Language user(language);
        EXPECT_EQ(strColor(1), red) << language;
    }
}

TEST_F(Translations, FindTextsWithTrailingBlanks)
{
    const Language user("de");
    EXPECT_EQ(strLineType(0), "Durchgezogen ");
    EXPECT_EQ(strFillStyle(64), L"Ausgefüllt  ");
    const wxString path = _("Path: ");
    EXPECT_EQ(path, "Pfad: ");
    EXPECT_EQ(wxString(_("Number of styles: ")), "Anzahl der Stile: ");
}

TEST_F(Translations, ReachMessagesAndQuestions)
{
    const Language user("de");
    Editor editor(folder.file("table.stb"));
    find<wxTextCtrl>(editor, "TextTableDescr")->SetValue("changed");
    answers.press(wxID_CANCEL);
    editor.press(wxID_CANCEL);
    ASSERT_EQ(answers.shown().size(), 1u);
    EXPECT_EQ(answers.shown()[0].message, L"Möchten Sie die Änderungen speichern?");
    EXPECT_EQ(answers.shown()[0].caption, "Plotstiltabellen-Editor");

    answers.type("normal");
    editor.press("BtnStyleAddForm");
    ASSERT_EQ(errors.messages().size(), 1u);
    EXPECT_EQ(errors.messages()[0], L"Ein Stil namens „normal“ ist bereits vorhanden. Bitte geben "
                                    L"Sie einen eindeutigen Stilnamen ein.");
    errors.clear();
}

namespace
{

const std::set<std::string> informative{"StatFileName", "StatFileType", "StatNumStyles",
                                        "StatFilePath", "StatMessage",  "StatOpen1",
                                        "StatOpen2",    "staticText"};

bool isButton(const wxWindow& window)
{
    return dynamic_cast<const wxButton*>(&window) || dynamic_cast<const wxCheckBox*>(&window) ||
           dynamic_cast<const wxRadioButton*>(&window);
}

bool isLabel(const wxWindow& window)
{
    return dynamic_cast<const wxStaticText*>(&window) && !window.GetLabel().empty() &&
           !informative.count(window.GetName().utf8_string());
}

// The letter behind a lone ampersand; 0 for none.
wxUniChar mnemonicOf(const wxString& label)
{
    wxString text = label;
    text.Replace("&&", wxString());
    const int place = text.Find('&');
    return place == wxNOT_FOUND ? wxUniChar(0) : wxUniChar(wxToupper(text[size_t(place) + 1]));
}

void forEachWindow(const wxWindow& window, const std::function<void(const wxWindow&)>& visit)
{
    visit(window);
    for (const wxWindow* child : window.GetChildren())
        forEachWindow(*child, visit);
}

// Expects that everything that can be operated below a window has a mnemonic of its own.
void expectMnemonics(const std::string& where, const wxWindow& window,
                     const std::function<bool(const wxWindow&)>& isThere)
{
    std::map<char, wxString> taken;
    forEachWindow(window,
                  [&](const wxWindow& control)
                  {
                      const wxString label = control.GetLabel();
                      const bool isOther = control.GetName() == "BtnBrowse" || label == _("Cancel");
                      if (!isThere(control) || isOther || !(isButton(control) || isLabel(control)))
                          return;
                      const wxUniChar letter = mnemonicOf(label);
                      EXPECT_TRUE(letter.IsAscii() && wxIsalpha(letter)) << where << ": " << label;
                      const auto [other, isNew] = taken.emplace(char(letter), label);
                      EXPECT_TRUE(isNew) << where << ": " << label << " and " << other->second;
                  });
    EXPECT_GT(taken.size(), 2u) << where;
}

// Expects it for what each page of the editor shows together with the buttons below.
void expectMnemonicsOfPages(const std::string& where, const wxDialog& editor)
{
    const auto* book = find<wxNotebook>(editor, "NoteBook");
    for (size_t page = 0; page < book->GetPageCount(); ++page)
        expectMnemonics(where + " page " + std::to_string(page), editor,
                        [&](const wxWindow& control)
                        {
                            return !book->IsDescendant(const_cast<wxWindow*>(&control)) ||
                                   book->GetPage(page)->IsDescendant(
                                       const_cast<wxWindow*>(&control));
                        });
}

} // namespace

TEST_F(Dialogs, HaveNoMnemonicTwiceInAnyLanguage)
{
    for (const char* language : {"en", "de", "fr"})
    {
        const Language user(language);
        answers.press(wxID_OK);
        forEachDialog(
            [&](const std::string& name, const wxDialog& dialog)
            {
                const std::string where = std::string(language) + " " + name;
                if (dynamic_cast<const DlgPlotStyleEditor*>(&dialog))
                    expectMnemonicsOfPages(where, dialog);
                else
                    expectMnemonics(where, dialog,
                                    [](const wxWindow& control) { return control.IsShown(); });
            });
    }
}

namespace
{

// How many lines a text takes that is broken between words.
int linesOf(const wxWindow& window, const wxString& text, int width)
{
    int lines = 1;
    wxString line;
    for (const wxString& word : wxSplit(text, ' '))
    {
        const wxString longer = line.empty() ? word : line + " " + word;
        if (window.GetTextExtent(longer).x <= width)
        {
            line = longer;
            continue;
        }
        ++lines;
        line = word;
    }
    return lines;
}

// Expects that what a window has to say fits into it.
void expectRoom(const std::string& where, const wxWindow& window)
{
    const wxString label = wxControl::RemoveMnemonics(window.GetLabel());
    if (window.GetName() == "StatMessage")
    {
        const int lines = linesOf(window, label, window.GetClientSize().x);
        EXPECT_LE(lines * window.GetCharHeight(), window.GetClientSize().y) << where << label;
    }
    else if (isButton(window) || dynamic_cast<const wxStaticText*>(&window))
    {
        EXPECT_GE(window.GetSize().x, window.GetBestSize().x) << where << label;
        EXPECT_GE(window.GetSize().y, window.GetBestSize().y) << where << label;
    }
    else if (const auto* combo = dynamic_cast<const wxOwnerDrawnComboBox*>(&window))
    {
        // The field has a tip where it is too narrow for its text.
        EXPECT_EQ(combo->GetToolTipText(), "") << where << combo->GetValue();
    }
    else if (const auto* spin = dynamic_cast<const wxSpinCtrl*>(&window))
    {
        const int text = spin->GetTextExtent(spin->GetTextValue()).x;
        EXPECT_GE(spin->GetSize().x, spin->GetSizeFromTextSize(text).x) << where;
    }
}

// Expects it of everything that shows, and that it lies inside of what it is in.
void expectNothingCutOff(const std::string& where, const wxWindow& window)
{
    for (const wxWindow* child : window.GetChildren())
    {
        // A list's rows scroll.
        if (!child->IsShown() || child->IsTopLevel() || dynamic_cast<const wxListCtrl*>(child))
            continue;
        const std::string place = where + "/" + child->GetName().utf8_string() + " ";
        const bool isPage = dynamic_cast<const wxNotebook*>(&window);
        EXPECT_TRUE(isPage || wxRect(window.GetClientSize()).Contains(child->GetRect())) << place;
        expectRoom(place, *child);
        if (!dynamic_cast<const wxControl*>(child) || dynamic_cast<const wxNotebook*>(child) ||
            dynamic_cast<const wxStaticBox*>(child))
            expectNothingCutOff(place, *child);
    }
}

class OnScreen : public EditorTest
{
protected:
    // Shows the dialog that `open` opens, and inspects it when it has its size.
    void inspect(const std::function<void()>& open, const std::function<void(wxDialog&)>& script)
    {
        answers.run(
            [&](wxDialog* dialog)
            {
                ASSERT_TRUE(waitFor([dialog] { return dialog->IsShownOnScreen(); }));
                script(*dialog);
            });
        open();
    }

    DialogAnswers answers;
};

} // namespace

TEST_F(OnScreen, NothingIsCutOffInAnyLanguage)
{
    const wxString table = makeTable("table.stb", describe(L""));
    for (const std::string language : {"en", "de", "fr"})
    {
        const Language user(language.c_str());
        inspect([&] { DlgPlotStyleEditor(table, wxString(), nullptr).ShowModal(); },
                [&](wxDialog& dialog)
                {
                    auto* book = find<wxNotebook>(dialog, "NoteBook");
                    find<wxListCtrl>(dialog, "ListStyles")
                        ->SetItemState(0, wxLIST_STATE_SELECTED, wxLIST_STATE_SELECTED);
                    for (size_t page = 0; page < book->GetPageCount(); ++page)
                    {
                        book->SetSelection(page);
                        updateUi(dialog);
                        wxYield();
                        expectNothingCutOff(language + " page " + std::to_string(page), dialog);
                    }
                });
        inspect([] { DlgSelectTable(nullptr).ShowModal(); },
                [&](wxDialog& dialog)
                {
                    for (const char* mode : {"RadOpen", "RadNew", "RadCopy"})
                    {
                        auto* button = find<wxRadioButton>(dialog, mode);
                        button->SetValue(true);
                        wxCommandEvent event(wxEVT_RADIOBUTTON, button->GetId());
                        event.SetEventObject(button);
                        button->HandleWindowEvent(event);
                        wxYield();
                        expectNothingCutOff(language + " " + mode, dialog);
                    }
                });
        for (const bool colorDependent : {false, true})
            inspect([&] { DlgNewTable(colorDependent, folder.path(), nullptr).ShowModal(); },
                    [&](wxDialog& dialog)
                    { expectNothingCutOff(language + " new table", dialog); });
        inspect([] { wxg::ColorDialog(nullptr, "Colors", wxg::indexColor(5)).ShowModal(); },
                [&](wxDialog& dialog) { expectNothingCutOff(language + " colors", dialog); });
    }
}

// A user with a keyboard and a mouse who does anything, for a long time. Whatever that is: what was
// typed and left is in the table, and what is saved is the table. WALK_SEED names the walk,
// WALK_STEPS its length.

#include "support/table_maker.h"
#include "tests/keyboard/driven_program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <iterator>
#include <optional>
#include <random>

namespace
{

unsigned setting(const char* variable, unsigned otherwise)
{
    const char* value = std::getenv(variable);
    return value ? static_cast<unsigned>(std::stoul(value)) : otherwise;
}

const char* const formControls[] = {
    "ComboColor",     "CheckDither",    "CheckGrayscale", "SpinPhysPen",     "SpinVirtPen",
    "SpinScreening",  "ComboLineType",  "CheckAdaptive",  "ComboLineWeight", "ComboEndStyle",
    "ComboJoinStyle", "ComboFillStyle", "TextStyleDescr"};
const char* const generalControls[] = {"TextTableDescr", "CheckScale", "TextScale"};
const char* const lineweightControls[] = {"RadLwMm", "RadLwIn", "BtnLwEdit", "BtnLwSort"};

const char* const mnemonics[] = {"alt+l", "alt+d", "alt+i", "alt+c", "alt+h", "alt+g",
                                 "alt+p", "alt+v", "alt+r", "alt+t", "alt+j", "alt+w",
                                 "alt+e", "alt+n", "alt+f", "alt+m"};
const char* const plainKeys[] = {
    "Tab",       "Tab",     "shift+Tab",  "Up",        "Down",       "Left",       "Right",
    "Home",      "End",     "Prior",      "Next",      "shift+Up",   "shift+Down", "shift+End",
    "ctrl+a",    "ctrl+Up", "ctrl+space", "space",     "F2",         "Return",     "Escape",
    "BackSpace", "Delete",  "Insert",     "ctrl+Next", "ctrl+Prior", "ctrl+Tab",   "ctrl+shift+Tab",
    "alt+Down"};
const char* const texts[] = {"7",    "0",   "33",       "999", "1.5",  "1,5", "abc", "Color 12",
                             "Wall", "a:b", "thin red", "-1",  "0.25", " ",   "N"};
const char* const commandsThatLeave[] = {"Tab",       "shift+Tab", "Return",
                                         "ctrl+Next", "alt+g",     "alt+n"};

class Walk : public testing::Test
{
    const unsigned m_seed = setting("WALK_SEED", 1);
    std::mt19937 m_random{m_seed};

    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(m_random); }

    template <class Values>
    const auto& anyOf(const Values& values)
    {
        return *(std::begin(values) + below(static_cast<int>(std::size(values))));
    }

protected:
    void SetUp() override
    {
        support::Container named;
        named.kind = "TTB";
        const std::string text =
            support::mappedTableText({"Normal", "Wall", "Thin red", "Axis", "Hidden"});
        const bool isColors = m_seed % 2 == 0;
        m_file = (m_folder / (isColors ? "table.ctb" : "table.stb")).string();
        support::writeFile(m_file, isColors ? support::pack(support::colorTableText())
                                            : support::pack(text, named));
        restart();
    }

    void restart()
    {
        m_saved = support::readFile(m_file);
        m_mayHaveSaved = false;
        m_program.reset();
        m_program.emplace(WALK_HOST, std::vector<std::string>{m_file});
    }

    void step()
    {
        if (checkEnd())
            return;
        if (m_program->dialogs().size() > 1)
            return answer();
        switch (below(13))
        {
        case 0:
        case 1:
        case 2:
            return press(anyOf(plainKeys));
        case 3:
            return press(anyOf(mnemonics));
        case 4:
            return type();
        case 5:
        case 6:
            clickRow();
            return;
        case 7:
            return clickControl();
        case 8:
            return scroll();
        case 9:
        case 10:
            return typeNumberAndLeave();
        case 11:
            return renameAndLeave();
        default:
            return below(4) ? press("ctrl+Next") : save();
        }
    }

    // Without a dialog the program ends: with success after a save, otherwise after a cancel.
    bool checkEnd()
    {
        if (!m_program->dialogs().empty())
            return false;
        const int status = m_program->wait();
        EXPECT_TRUE(status == 0 || status == 1) << status;
        EXPECT_TRUE(m_mayHaveSaved || support::readFile(m_file) == m_saved) << "nobody has saved";
        check();
        restart();
        return true;
    }

    void check() { EXPECT_EQ(m_program->errors(), ""); }

    unsigned m_actions = 0;
    int m_checks = 0;
    int m_saves = 0;
    std::optional<DrivenProgram> m_program;

private:
    void press(const std::string& key)
    {
        note(key);
        // Return confirms from some controls.
        m_mayHaveSaved |= key == "Return" || key == "alt+s";
        m_program->key(key);
    }

    void note(const std::string& what)
    {
        ++m_actions;
        std::cout << what << '\n';
    }

    // A message box, a question, or the prompt for a name. What a file dialog is for is not walked.
    void answer()
    {
        const std::string dialog = m_program->dialogs().back();
        if (dialog.find("save changes") != std::string::npos)
        {
            const char* const answers[] = {"alt+y", "alt+n", "Escape"};
            const std::string key = anyOf(answers);
            m_mayHaveSaved |= key == "alt+y";
            return press(key);
        }
        if (dialog == "Add Plot Style")
            m_program->type("S" + std::to_string(below(30)));
        press(below(3) ? "Return" : "Escape");
    }

    void type()
    {
        const std::string text = anyOf(texts);
        note("type " + text);
        m_program->type(text);
    }

    std::string page() { return m_program->text("NoteBook"); }

    std::string list() { return page() == "Lineweights" ? "ListLineWeights" : "ListStyles"; }

    // @return whether there was such a row to click
    bool clickRow()
    {
        if (page() == "General")
            return false;
        const char* const modifiers[] = {"", "", "ctrl", "shift"};
        const std::string modifier = anyOf(modifiers);
        const int row = below(10);
        note("click row " + std::to_string(row) + " " + modifier);
        return m_program->tryClickRow(list(), row, modifier);
    }

    std::string anyControl()
    {
        const std::string current = page();
        return current == "General"       ? anyOf(generalControls)
               : current == "Lineweights" ? anyOf(lineweightControls)
                                          : anyOf(formControls);
    }

    void clickControl()
    {
        const std::string name = anyControl();
        if (!m_program->control(name).isShown)
            return;
        note("click " + name);
        m_program->click(name);
    }

    void scroll()
    {
        const std::string name = anyControl();
        if (!m_program->control(name).isShown)
            return;
        const int notches = below(2) ? 1 : -1;
        note("scroll " + name);
        m_program->wheel(name, notches);
    }

    void turnToFormView()
    {
        for (int i = 0; i < 3 && page() != "Form View"; ++i)
            m_program->key("ctrl+Next");
    }

    // Whether the dialog is free for what a user does in several steps.
    bool isFree() { return m_program->dialogs().size() == 1; }

    void typeNumberAndLeave()
    {
        turnToFormView();
        if (!isFree() || page() != "Form View" || !clickRow() || !isFree())
            return;
        const int field = below(3);
        const char* const fields[] = {"SpinPhysPen", "SpinVirtPen", "SpinScreening"};
        const int greatest[] = {32, 255, 100};
        if (!m_program->control(fields[field]).isEnabled)
            return;
        m_program->click(fields[field]);
        const std::vector<int> rows = m_program->selected("ListStyles");
        const auto part = static_cast<std::size_t>(1 + field);
        std::vector<int> expected;
        const int draw = below(6);
        const int number = draw == 0 ? 0 : 1 + below(120);
        const char* const noNumbers[] = {"abc", "3,7", "7z"};
        const std::string text = draw == 1 ? anyOf(noNumbers) : std::to_string(number);
        for (const int row : rows)
        {
            const bool isProtected = row == 0 && m_seed % 2 == 1;
            const bool isKept = isProtected || draw == 1;
            expected.push_back(isKept ? std::stoi(tell(row)[part])
                                      : std::min(number, greatest[field]));
        }
        note("type " + text + " into " + fields[field]);
        m_program->key("ctrl+a");
        m_program->type(text);
        if (below(2) || !clickRow())
            press(anyOf(commandsThatLeave));
        if (!isFree())
            return;
        for (std::size_t i = 0; i < rows.size(); ++i)
            // Automatic pens are held as -1 or as 0.
            EXPECT_EQ(std::max(std::stoi(tell(rows[i])[part]), 0), std::max(expected[i], 0))
                << fields[field] << " of style " << rows[i];
        ++m_checks;
    }

    void renameAndLeave()
    {
        turnToFormView();
        const int row = 1 + below(5);
        if (!isFree() || page() != "Form View" || !m_program->tryClickRow("ListStyles", row))
            return;
        m_program->key("F2");
        if (!m_program->edit("ListStyles"))
            return;
        const std::string name = "Name " + std::to_string(++m_names);
        note("rename " + std::to_string(row) + " to " + name);
        m_program->key("ctrl+a");
        m_program->type(name);
        press(anyOf(commandsThatLeave));
        if (!isFree())
            return;
        EXPECT_EQ(tell(row)[0], name);
        ++m_checks;
    }

    // The name, pens and screening of a style of the table in memory.
    std::vector<std::string> tell(int row)
    {
        std::vector<std::string> words = m_program->ask("style\t" + std::to_string(row));
        words.resize(4);
        return words;
    }

    void save()
    {
        press("alt+s");
        m_saves += checkEnd();
    }

    support::TempFolder m_folder;
    std::string m_file;
    std::string m_saved;
    bool m_mayHaveSaved = false;
    int m_names = 0;
};

} // namespace

TEST_F(Walk, LosesNothingThatWasEntered)
{
    const unsigned actions = setting("WALK_ACTIONS", 1000);
    for (unsigned i = 0; m_actions < actions && !HasFailure(); ++i)
    {
        SCOPED_TRACE("action " + std::to_string(m_actions));
        step();
        if (i % 50 == 0)
            check();
    }
    check();
    EXPECT_GT(m_saves, static_cast<int>(actions) / 200) << "a walk without saves shows little";
    EXPECT_GT(m_checks, static_cast<int>(actions) / 40) << "nor does one without entries";
}

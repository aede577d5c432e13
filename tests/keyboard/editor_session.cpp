// Opens the editor on tables, and reads what it saved.

#include "tests/keyboard/editor_session.h"

#include "support/table_maker.h"
#include "support/tables.h"

void EditorSession::TearDown()
{
    if (!m_program)
        return;
    EXPECT_EQ(m_program->errors(), expectedErrors);
    m_program.reset();
}

DrivenProgram& EditorSession::open(const std::string& name, const std::string& bytes)
{
    file = (folder / name).string();
    support::writeFile(file, bytes);
    return start({file});
}

DrivenProgram& EditorSession::start(const std::vector<std::string>& arguments)
{
    return m_program.emplace(PSTYLE_PROGRAM, arguments);
}

void EditorSession::openNamed(const std::vector<std::string>& names)
{
    std::vector<std::string> all{"Normal"};
    all.insert(all.end(), names.begin(), names.end());
    support::Container named;
    named.kind = "STB";
    open("table.stb", support::pack(support::namedTableText(all), named));
    turnToFormView();
}

void EditorSession::openColors(const std::function<void(OdPsPlotStyleTable&)>& change)
{
    const auto table = support::tableOf(support::pack(support::colorTableText()));
    if (change)
        change(*table);
    open("table.ctb", support::bytesOf(*table));
    turnToFormView();
}

void EditorSession::turnToFormView()
{
    editor().key("ctrl+Next");
    ASSERT_EQ(editor().text("NoteBook"), "Form View");
    editor().clickRow("ListStyles", 0);
    ASSERT_EQ(editor().focus(), "ListStyles");
}

void EditorSession::turnToLineweights()
{
    while (editor().text("NoteBook") != "Lineweights")
        editor().key("ctrl+Next");
}

void EditorSession::retype(std::string_view text)
{
    editor().key("ctrl+a");
    editor().type(text);
}

void EditorSession::startLineweight(int row, std::string_view text)
{
    editor().clickRow("ListLineWeights", 0);
    for (int i = 0; i < row; ++i)
        editor().key("Down");
    editor().key("F2");
    ASSERT_TRUE(editor().edit("ListLineWeights").has_value());
    retype(text);
    ASSERT_EQ(editor().edit("ListLineWeights"), std::string(text));
}

OdPsPlotStyleTablePtr EditorSession::saved()
{
    editor().key("alt+s");
    EXPECT_EQ(editor().wait(), 0) << editor().errors();
    return stored();
}

OdPsPlotStyleTablePtr EditorSession::stored() const
{
    return support::tableOf(support::readFile(file));
}

std::vector<std::string> EditorSession::savedNames()
{
    const auto table = saved();
    std::vector<std::string> names;
    for (int i = 0; i < table->styleCount(); ++i)
    {
        const std::wstring name = table->styleAt(i)->localizedName().c_str();
        names.emplace_back(name.begin(), name.end());
    }
    return names;
}

OdPsPlotStyleData EditorSession::savedData(int style)
{
    return dataOf(saved(), style);
}

OdPsPlotStyleData dataOf(const OdPsPlotStyleTablePtr& table, int style)
{
    return support::dataOf(*table, style);
}

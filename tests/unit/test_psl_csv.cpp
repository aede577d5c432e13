// The export of a table as comma-separated text.

#include "psl_csv.h"

#include "cmdapi/cma.h"
#include "odps/od_ps.h"
#include "support/kills.h"
#include "support/test_files.h"

#include <gtest/gtest.h>

#include <wx/filename.h>
#include <wx/init.h>

#include <clocale>
#include <csignal>
#include <filesystem>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>
#include <vector>

namespace
{

const char* const styleHeader =
    ",Name,LocalizedName,Description,Color,ColorPolicy,PhysPenNum,VirtPenNum,Screening,"
    "LinePatSize,LineType,Adaptive,LineWeight,FillStyle,EndStyle,JoinStyle";

std::vector<wxString> linesOf(const OdPsPlotStyleTablePtr& table)
{
    const wxArrayString lines = csvLines(*table, "monochrome.ctb");
    return {lines.begin(), lines.end()};
}

OdPsPlotStyleData everyFieldSet()
{
    OdPsPlotStyleData data;
    data.color.setColor(0xC2010AFF);
    data.colorPolicy = 5;
    data.physicalPenNumber = 7;
    data.virtualPenNumber = 200;
    data.screening = 40;
    data.linePatternSize = 0.25;
    data.linetype = 3;
    data.adaptiveLinetype = true;
    data.lineweight = 1.0;
    data.fillStyle = 66;
    data.endStyle = 2;
    data.joinStyle = 1;
    return data;
}

class Export : public testing::Test
{
protected:
    wxString path(const char* name) const { return wxString::FromUTF8((folder / name).string()); }

    /// Exports over texts of any kind, and sees that there is a reason for every failure.
    static CsvExport::Result exportResult(const OdPsPlotStyleTable& table, const wxString& name,
                                          const wxString& path)
    {
        const CsvExport done = exportCsv(table, name, path, Replaceable::Texts);
        EXPECT_EQ(done.reason.empty(), done.result == CsvExport::Done);
        return done.result;
    }

    const wxInitializer toolkit;
    const support::TempFolder folder;
    const OdPsPlotStyleTablePtr names = cma::createPlotStyleTable(false, L"");
    const OdPsPlotStyleTablePtr colours = cma::createPlotStyleTable(true, L"");
};

} // namespace

TEST_F(Export, OfANamedTableIsWrittenLineByLine)
{
    names->setDescription(L"Office, \"A1\" = größer");
    names->setScaleFactor(2.5);
    names->setApplyScaleFactor(true);
    const OdPsPlotStylePtr style = names->addNewStyle(L"Walls");
    style->setLocalizedName(L"Wände");
    style->setDescription(L"cut, thick");
    style->setData(everyFieldSet());

    std::vector<wxString> expected{
        "PLOTSTYLE_TABLE,,",
        ",FileName,monochrome.ctb",
        L",Description,Office, \"A1\" = größer",
        ",ScaleFactor,2.500000",
        ",ApplyFactor,1",
        ",AciTableAvailable,0",
        ",CustomLineWeightUnits,0",
        ",,",
        "STYLES,,",
        styleHeader,
        ",Normal,Normal,,C2FFFFFF,0,-1,-1,100,0,31,0,0,73,4,5",
        L",Walls,Wände,cut, thick,C2010AFF,5,7,200,40,0.25,3,1,1,66,2,1",
        ",,",
        "LINE_WEIGHTS,,",
    };
    for (int i = 0; i < 27; ++i)
        expected.push_back(wxString::Format(",%d,%.6f", i, names->lineweightAt(i)));
    EXPECT_EQ(linesOf(names), expected);
    EXPECT_EQ(expected.back(), ",26,2.110000");
}

TEST_F(Export, OfAColourDependentTableListsItsColours)
{
    const auto lines = linesOf(colours);
    EXPECT_EQ(lines.size(), 8u + 1 + 255 + 1 + 2 + 255 + 1 + 1 + 27);
    EXPECT_EQ(lines[5], ",AciTableAvailable,1");
    EXPECT_EQ(lines[7], ",,");
    EXPECT_EQ(lines[8], "ACI_TABLE,,");
    EXPECT_EQ(lines[9], ",0,Color_1");
    EXPECT_EQ(lines[263], ",254,Color_255");
    EXPECT_EQ(lines[264], ",,");
    EXPECT_EQ(lines[265], "STYLES,,");
    EXPECT_EQ(lines[266], styleHeader);
    EXPECT_EQ(lines[267], ",Color_1,Color_1,,C2FFFFFF,0,-1,-1,100,0,31,0,0,73,4,5");
}

TEST_F(Export, GivesMillimetresWhateverUnitIsShown)
{
    const auto inMillimetres = linesOf(names);
    names->setDisplayCustomLineweightUnits(true);
    auto inInches = linesOf(names);
    EXPECT_EQ(inInches[6], ",CustomLineWeightUnits,1");
    inInches[6] = inMillimetres[6];
    EXPECT_EQ(inInches, inMillimetres);
}

TEST_F(Export, GivesLineweightsByTheirPosition)
{
    const std::pair<double, const char*> cases[] = {{-1.0, ",0,"}, {0.0, ",0,"}, {1.0, ",1,"},
                                                    {2.4, ",2,"},  {2.6, ",3,"}, {27.0, ",27,"}};
    for (const auto& [stored, shown] : cases)
    {
        OdPsPlotStyleData data;
        data.lineweight = stored;
        names->styleAt(0)->setData(data);
        EXPECT_TRUE(linesOf(names)[10].EndsWith(wxString(shown) + "73,4,5")) << stored;
    }
}

TEST_F(Export, IsWrittenAsUtf8WithoutAMarkAndReplacesTheFile)
{
    names->setDescription(L"größer");
    support::writeFile(folder / "old.csv", std::string(10000, 'x'));
    for (const char* name : {"new.csv", "old.csv"})
    {
        EXPECT_EQ(CsvExport::Done, exportResult(*names, "a.stb", path(name)));
        const std::string bytes = support::readFile(folder / name);
        EXPECT_EQ(bytes.substr(0, 40), "PLOTSTYLE_TABLE,,\n,FileName,a.stb\n,Descr");
        EXPECT_NE(bytes.find(",Description,größer\n"), std::string::npos);
        EXPECT_EQ(bytes.back(), '\n');
        EXPECT_EQ(bytes.find('\r'), std::string::npos);
        EXPECT_EQ(CsvExport::Done, exportResult(*names, "a.stb", path(name)));
        EXPECT_EQ(support::readFile(folder / name), bytes) << "a second time";
    }
}

TEST_F(Export, WritesThroughASymbolicLink)
{
    support::writeFile(folder / "real.csv", "old");
    std::filesystem::create_symlink("real.csv", folder / "link.csv");
    EXPECT_EQ(CsvExport::Done, exportResult(*names, "a.stb", path("link.csv")));
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "link.csv"));
    EXPECT_EQ(support::readFile(folder / "real.csv").substr(0, 15), "PLOTSTYLE_TABLE");
}

TEST_F(Export, IsWrittenIntoAPipe)
{
    const std::filesystem::path pipe = folder / "pipe.csv";
    ASSERT_EQ(mkfifo(pipe.c_str(), S_IRUSR | S_IWUSR), 0);
    std::string read;
    std::thread reader([&] { read = support::readFile(pipe); });
    EXPECT_EQ(CsvExport::Done, exportResult(*names, "a.stb", path("pipe.csv")));
    reader.join();
    EXPECT_EQ(read.substr(0, 15), "PLOTSTYLE_TABLE");
    EXPECT_TRUE(std::filesystem::is_fifo(pipe));
}

TEST_F(Export, ReplacesNoFileThatIsNoText)
{
    const std::string picture = "\x89PNG\r\n\x1A\n";
    support::writeFile(folder / "a.csv", picture);
    EXPECT_EQ(CsvExport::NotOpened, exportResult(*names, "a.stb", path("a.csv")));
    EXPECT_EQ(support::readFile(folder / "a.csv"), picture);
}

TEST_F(Export, ReplacesNothingButExportsUnasked)
{
    const auto resultOver = [&](const std::string& bytes)
    {
        support::writeFile(folder / "a.csv", bytes);
        return exportCsv(*names, "a.stb", path("a.csv"), Replaceable::Exports).result;
    };
    EXPECT_EQ(resultOver("a,b\n"), CsvExport::NotOpened);
    EXPECT_EQ(resultOver("PLOTSTYLE_TABLE,"), CsvExport::NotOpened);
    EXPECT_EQ(resultOver(""), CsvExport::Done);
    EXPECT_EQ(resultOver("PLOTSTYLE_TABLE,,\nold"), CsvExport::Done);
}

TEST_F(Export, FailsWhereNoFileCanBe)
{
    EXPECT_EQ(CsvExport::NotOpened, exportResult(*names, "a.stb", path("missing/a.csv")));
    std::filesystem::create_directory(folder / "folder.csv");
    EXPECT_EQ(CsvExport::NotOpened, exportResult(*names, "a.stb", path("folder.csv")));
    EXPECT_TRUE(std::filesystem::is_empty(folder / "folder.csv"));
}

TEST_F(Export, RefusesToReplaceATable)
{
    const wxString table = path("a.stb");
    ASSERT_TRUE(cma::savePlotStyleTable(OdString(table.wc_str()), names));
    EXPECT_EQ(CsvExport::NotOpened, exportResult(*names, "a.stb", table));
    EXPECT_FALSE(cma::loadPlotStyleTable(OdString(table.wc_str())).isNull());
}

TEST_F(Export, LeavesTheOldFileWhereTheNewOneCannotBeWritten)
{
    const wxString old = path("old.csv");
    ASSERT_EQ(CsvExport::Done, exportResult(*names, "a.stb", old));
    const auto size = wxFileName::GetSize(old);
    // As on a full disk.
    rlimit whole{};
    getrlimit(RLIMIT_FSIZE, &whole);
    const rlimit small{100, whole.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small);
    const auto again = exportResult(*colours, "b.ctb", old);
    const auto fresh = exportResult(*colours, "b.ctb", path("new.csv"));
    setrlimit(RLIMIT_FSIZE, &whole);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(again, CsvExport::NotWritten);
    EXPECT_EQ(fresh, CsvExport::NotWritten);
    EXPECT_EQ(wxFileName::GetSize(old), size);
    EXPECT_FALSE(wxFileName::Exists(path("new.csv")));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1)
        << "nothing is left behind";
}

TEST_F(Export, IsWholeAtAnyMoment)
{
    const std::filesystem::path file = folder / "a.csv";
    const auto exportTable = [&](const OdPsPlotStyleTable& table)
    { return exportResult(table, "a.ctb", path("a.csv")) == CsvExport::Done; };
    ASSERT_TRUE(exportTable(*names));
    const std::string before = support::readFile(file);
    ASSERT_TRUE(exportTable(*colours));
    support::killWhileReplacing(file, before, support::readFile(file),
                                [&] { return exportTable(*colours); });
}

TEST_F(Export, WritesPointsInEveryLocale)
{
    names->setScaleFactor(2.5);
    const auto before = linesOf(names);
    ASSERT_NE(std::setlocale(LC_NUMERIC, "de_DE.UTF-8"), nullptr) << "it is named in LOCPATH";
    const auto lines = linesOf(names);
    std::setlocale(LC_NUMERIC, "C");
    EXPECT_EQ(lines, before);
}

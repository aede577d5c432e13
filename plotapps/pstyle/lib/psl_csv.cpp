// Writing a table as comma-separated text.

#include "psl_csv.h"

#include "psl_lineweight_list.h"
#include "psl_numbers.h"
#include "psl_path_text.h"

#include "files/files.h"
#include "odps/od_ps.h"

#include <wx/intl.h>
#include <wx/textfile.h>

#include <filesystem>
#include <new>

namespace
{

const char* const firstLine = "PLOTSTYLE_TABLE,,";
const char* const separator = ",,";

wxString styleLine(const OdPsPlotStyle& style)
{
    OdPsPlotStyleData data;
    style.getData(data);
    return wxString::Format(
        ",%ls,%ls,%ls,%.8X,%d,%d,%d,%d,%s,%d,%d,%d,%d,%d,%d", style.name().c_str(),
        style.localizedName().c_str(), style.description().c_str(), data.color.color(),
        int(data.colorPolicy), int(data.physicalPenNumber), int(data.virtualPenNumber),
        int(data.screening), generalText(data.linePatternSize), int(data.linetype),
        int(data.adaptiveLinetype), lineweightIndex(data.lineweight), int(data.fillStyle),
        int(data.endStyle), int(data.joinStyle));
}

void addSettings(wxArrayString& lines, const OdPsPlotStyleTable& table, const wxString& fileName)
{
    lines.Add(firstLine);
    lines.Add(wxString::Format(",FileName,%ls", fileName));
    lines.Add(wxString::Format(",Description,%ls", table.description().c_str()));
    lines.Add(wxString::Format(",ScaleFactor,%s", fixedText(table.scaleFactor(), 6)));
    lines.Add(wxString::Format(",ApplyFactor,%d", int(table.isApplyScaleFactor())));
    lines.Add(wxString::Format(",AciTableAvailable,%d", int(table.isColorDependent())));
    lines.Add(
        wxString::Format(",CustomLineWeightUnits,%d", int(table.isDisplayCustomLineweightUnits())));
    lines.Add(separator);
}

void addColors(wxArrayString& lines, const OdPsPlotStyleTable& table)
{
    lines.Add("ACI_TABLE,,");
    for (int s = 0; s < table.styleCount(); ++s)
        lines.Add(wxString::Format(",%d,%ls", s, table.styleAt(s)->name().c_str()));
    lines.Add(separator);
}

void addStyles(wxArrayString& lines, const OdPsPlotStyleTable& table)
{
    lines.Add("STYLES,,");
    lines.Add(",Name,LocalizedName,Description,Color,ColorPolicy,PhysPenNum,VirtPenNum,Screening,"
              "LinePatSize,LineType,Adaptive,LineWeight,FillStyle,EndStyle,JoinStyle");
    for (int s = 0; s < table.styleCount(); ++s)
        lines.Add(styleLine(*table.styleAt(s)));
    lines.Add(separator);
}

void addLineWeights(wxArrayString& lines, const OdPsPlotStyleTable& table)
{
    lines.Add("LINE_WEIGHTS,,");
    for (int i = 0; i < lineWeightRows; ++i)
        lines.Add(wxString::Format(",%d,%s", i, fixedText(table.lineweightAt(i), 6)));
}

// Why a file must not become an export; empty where it may. Nobody means to lose a table, or a
// picture, to one.
wxString refusal(const std::string& path, Replaceable replaceable)
{
    constexpr size_t enoughToTell = 65536;
    if (files::kindOf(path) != files::Kind::File)
        return wxString();
    const std::string beginning = files::beginningOf(path, enoughToTell);
    const auto beginsWith = [&beginning](const char* text)
    { return beginning.rfind(text, 0) == 0; };
    if (beginning.empty() || beginsWith(firstLine))
        return wxString();
    if (beginsWith("PIAFILEVERSION_"))
        return _("The file is a plot style table.");
    if (!files::looksLikeText(beginning))
        return _("The file is not a text file.");
    if (replaceable == Replaceable::Exports)
        return _("The file is not an earlier export.");
    return wxString();
}

} // namespace

wxArrayString csvLines(const OdPsPlotStyleTable& table, const wxString& fileName)
{
    wxArrayString lines;
    addSettings(lines, table, fileName);
    if (table.isColorDependent())
        addColors(lines, table);
    addStyles(lines, table);
    addLineWeights(lines, table);
    return lines;
}

CsvExport exportCsv(const OdPsPlotStyleTable& table, const wxString& fileName, const wxString& path,
                    Replaceable replaceable)
{
    using Result = CsvExport::Result;
    const std::string target = systemPath(path);
    const auto failed = [&target](Result result, const std::filesystem::filesystem_error& error) {
        return CsvExport{result, systemText(files::reasonOf(error, target))};
    };
    try
    {
        const wxString reason = refusal(target, replaceable);
        if (!reason.empty())
            return {Result::NotOpened, reason};
        std::string text;
        for (const wxString& line : csvLines(table, fileName))
            text += (line + wxTextFile::GetEOL()).utf8_string();
        files::replace(target, text);
        return {Result::Done, wxString()};
    }
    catch (const files::WriteError& error)
    {
        return failed(Result::NotWritten, error);
    }
    catch (const std::filesystem::filesystem_error& error)
    {
        return failed(Result::NotOpened, error);
    }
    catch (const std::bad_alloc&)
    {
        return {Result::NotWritten, _("out of memory")};
    }
}

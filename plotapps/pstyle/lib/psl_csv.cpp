// Writing a table as comma-separated text.

#include "psl_csv.h"

#include "psl_lineweights.h"
#include "psl_numbers.h"
#include "psl_replace_file.h"

#include "odps/od_ps.h"

#include <wx/file.h>
#include <wx/filename.h>
#include <wx/log.h>
#include <wx/textfile.h>

#include <filesystem>

namespace
{

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
    lines.Add("PLOTSTYLE_TABLE,,");
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

// The file that a symbolic link leads to: a write would put a plain file in the place of the link.
wxString linkTarget(const wxString& path)
{
    std::error_code noFile;
    const auto target = std::filesystem::canonical(path.utf8_string(), noFile);
    return noFile ? path : wxString::FromUTF8(target.string());
}

// Whether a file begins as a table does. Nobody means to lose one to an export.
bool isTable(const wxString& path)
{
    const std::string beginning = "PIAFILEVERSION_";
    std::string found(beginning.size(), '\0');
    wxFile file(path);
    return file.IsOpened() && file.Read(found.data(), found.size()) > 0 && found == beginning;
}

// A write makes a plain file of whatever bears the name, and needs the folder, too.
bool canBeReplaced(const wxString& path)
{
    return wxFileName::FileExists(path) && wxFileName::IsFileReadable(path) &&
           wxFileName::IsFileWritable(path) &&
           wxFileName::IsDirWritable(wxFileName(path).GetPath()) && !isTable(path);
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

CsvExport exportCsv(const OdPsPlotStyleTable& table, const wxString& fileName, const wxString& path)
{
    const wxLogNull noMessages; // the caller reports
    wxTextFile file;
    const wxString target = linkTarget(path);
    const bool exists = wxFileName::Exists(target);
    if (exists ? !canBeReplaced(target) || !file.Open(target) : !file.Create(target))
        return CsvExport::NotOpened;
    file.Close();
    wxString text;
    for (const wxString& line : csvLines(table, fileName))
        text += line + wxTextFile::GetEOL();
    const auto bytes = text.utf8_str();
    if (replaceFile(target, bytes.data(), bytes.length()))
        return CsvExport::Done;
    if (!exists)
        wxRemoveFile(target);
    return CsvExport::NotWritten;
}

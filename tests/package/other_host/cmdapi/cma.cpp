#include "cmdapi/cma.h"

#include <wx/intl.h>
#include <wx/log.h>
#include <wx/string.h>

#include <cstdio>
#include <fstream>
#include <iomanip>
#include <limits>
#include <stdexcept>

namespace
{

// The values of a table but for its lists.
struct Head
{
    int version = 1;
    bool isColorDependent = false;
    OdString description;
    double scale = 1;
    bool appliesScale = false;
    bool inches = false;
    int lineweights = 0;
    int styles = 0;
};

struct Style
{
    OdString name;
    OdString localizedName;
    OdString description;
    OdPsPlotStyleData data;
};

// These pass the values on in the order of the file, so that reader and writer agree.
template <typename Visitor>
void visit(Head& head, Visitor& visitor)
{
    visitor("plot_style_table", head.version);
    visitor("color_dependent", head.isColorDependent);
    visitor("description", head.description);
    visitor("scale", head.scale);
    visitor("apply_scale", head.appliesScale);
    visitor("inches", head.inches);
    visitor("lineweights", head.lineweights);
    visitor("styles", head.styles);
}

template <typename Visitor>
void visit(Style& style, Visitor& visitor)
{
    visitor("style", style.name);
    visitor("shown_as", style.localizedName);
    visitor("description", style.description);
    visitor("color", style.data.color);
    visitor("color_policy", style.data.colorPolicy);
    visitor("adaptive_linetype", style.data.adaptiveLinetype);
    visitor("screening", style.data.screening);
    visitor("physical_pen", style.data.physicalPenNumber);
    visitor("virtual_pen", style.data.virtualPenNumber);
    visitor("linetype", style.data.linetype);
    visitor("fill_style", style.data.fillStyle);
    visitor("end_style", style.data.endStyle);
    visitor("join_style", style.data.joinStyle);
    visitor("pattern_size", style.data.linePatternSize);
    visitor("lineweight", style.data.lineweight);
}

struct Writer
{
    template <typename Value>
    void operator()(const char* key, const Value& value)
    {
        file << key << " = " << value << '\n';
    }
    void operator()(const char* key, const OdString& text)
    {
        (*this)(key, std::quoted(wxString(text.c_str()).utf8_string()));
    }
    void operator()(const char* key, const OdCmEntityColor& color) { (*this)(key, color.color()); }

    std::ofstream file;
};

struct Reader
{
    template <typename Value>
    void operator()(const char* key, Value&& value)
    {
        std::string found;
        std::string sign;
        file >> found >> sign >> value;
        check(file && found == key && sign == "=", key);
    }
    void operator()(const char* key, OdString& text)
    {
        std::string coded;
        (*this)(key, std::quoted(coded));
        text = wxString::FromUTF8(coded).wc_str();
        check(text.isEmpty() == coded.empty(), key);
    }
    void operator()(const char* key, OdCmEntityColor& color)
    {
        std::uint32_t bits = 0;
        (*this)(key, bits);
        color.setColor(bits);
    }
    // The reason is for the user.
    static void check(bool isValid, const char* key)
    {
        if (!isValid)
            throw std::runtime_error(wxString::Format(_("no valid \"%s\""), key).utf8_string());
    }

    std::ifstream file;
};

void readStyle(Reader& reader, OdPsPlotStyleTable& table)
{
    Style read;
    visit(read, reader);
    Reader::check(table.findStyleByName(read.localizedName).isNull(), "shown_as");
    const OdPsPlotStylePtr style = table.addNewStyle(read.localizedName);
    style->setName(read.name);
    style->setDescription(read.description);
    style->setData(read.data);
}

OdPsPlotStyleTablePtr readTable(const wxString& path)
{
    Reader reader{std::ifstream(path.fn_str())};
    Head head;
    visit(head, reader);
    Reader::check(head.version == Head().version, "plot_style_table");
    const OdPsPlotStyleTablePtr table = new OdPsPlotStyleTable(head.isColorDependent);
    table->setDescription(head.description);
    table->setScaleFactor(head.scale);
    table->setApplyScaleFactor(head.appliesScale);
    table->setDisplayCustomLineweightUnits(head.inches);
    for (int i = 0; i < head.lineweights; ++i)
    {
        double mm = 0;
        reader("mm", mm);
        table->addLineweight(mm);
    }
    for (int i = 0; i < head.styles; ++i)
        readStyle(reader, *table);
    Reader::check((reader.file >> std::ws).eof(), "styles");
    return table;
}

bool writeTable(const wxString& path, const OdPsPlotStyleTable& table)
{
    Writer writer{std::ofstream(path.fn_str())};
    writer.file.precision(std::numeric_limits<double>::max_digits10);
    Head head;
    head.isColorDependent = table.isColorDependent();
    head.description = table.description();
    head.scale = table.scaleFactor();
    head.appliesScale = table.isApplyScaleFactor();
    head.inches = table.isDisplayCustomLineweightUnits();
    head.lineweights = table.lineweightCount();
    head.styles = table.styleCount();
    visit(head, writer);
    for (int i = 0; i < head.lineweights; ++i)
        writer("mm", table.lineweightAt(i));
    for (const auto& style : table.styleArray())
    {
        Style written{style->name(), style->localizedName(), style->description(), {}};
        style->getData(written.data);
        visit(written, writer);
    }
    writer.file.close();
    return writer.file.good();
}

} // namespace

OdPsPlotStyleTablePtr cma::loadPlotStyleTable(const OdString& path)
{
    try
    {
        return readTable(path.c_str());
    }
    catch (const std::runtime_error& error)
    {
        wxLogTrace("cmdapi", "%s", wxString::FromUTF8(error.what()));
        return nullptr;
    }
}

bool cma::savePlotStyleTable(const OdString& path, const OdPsPlotStyleTablePtr& table)
{
    // The old file stays until the new one is complete.
    const wxString name = path.c_str();
    const wxString temporary = name + ".new";
    if (writeTable(temporary, *table) && std::rename(temporary.fn_str(), name.fn_str()) == 0)
        return true;
    wxLogTrace("cmdapi", "%s", wxSysErrorMsgStr());
    std::remove(temporary.fn_str());
    return false;
}

OdPsPlotStyleTablePtr cma::createPlotStyleTable(bool isColorDependent, const OdString& description)
{
    const OdPsPlotStyleTablePtr table = new OdPsPlotStyleTable(isColorDependent);
    table->setDescription(description);
    for (int i = 0; i < 27; ++i)
        table->addLineweight(i / 20.0);
    for (int i = 1; isColorDependent && i < 256; ++i)
        table->addNewStyle(wxString::Format("Color_%d", i).wc_str());
    if (!isColorDependent)
        table->addNewStyle(L"Normal");
    return table;
}

// A table as comma-separated text. Knows no control.

#ifndef PSL_CSV_H
#define PSL_CSV_H

#include "psl_api.h"

#include <wx/arrstr.h>
#include <wx/string.h>

class OdPsPlotStyleTable;

/// The lines of a table's export: its settings, for a colour-dependent table its styles by number,
/// the properties of every style, and the lineweights. Texts are written as they stand, commas and
/// line breaks included.
/// @param fileName  the table file's name and extension
PSL_API wxArrayString csvLines(const OdPsPlotStyleTable& table, const wxString& fileName);

enum class CsvExport
{
    Done,
    /// The file cannot be created, or opened as a text, or is a table.
    NotOpened,
    /// The disk is full, for instance.
    NotWritten,
};

/// Writes the lines as UTF-8 into a text file, replacing what an existing file holds. Where that
/// fails, an existing file is as it was.
/// @param path  the export file's full path
PSL_API CsvExport exportCsv(const OdPsPlotStyleTable& table, const wxString& fileName,
                            const wxString& path);

#endif

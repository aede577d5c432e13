// A table as comma-separated text. Knows no control.

#ifndef PSL_CSV_H
#define PSL_CSV_H

#include "odps/od_ps.h"

#include <wx/arrstr.h>
#include <wx/string.h>

/// The lines of a table's export: its settings, for a colour-dependent table its styles by number,
/// the properties of every style, and the lineweights. Texts are written as they stand, commas and
/// line breaks included.
/// @param fileName  the table file's name and extension
wxArrayString csvLines(const OdPsPlotStyleTable& table, const wxString& fileName);

/// How an export ended.
struct CsvExport
{
    enum Result
    {
        Done,
        /// The file cannot be created or opened, or is none that may be replaced.
        NotOpened,
        /// The disk is full, for instance.
        NotWritten,
    };

    Result result;
    wxString reason; ///< for the user; empty when it is done
};

/// Which existing files an export may replace. Tables, and files that are no texts, are never
/// replaced.
enum class Replaceable
{
    Exports, ///< earlier exports and empty files: for where nobody has been asked
    Texts,
};

/// Writes the lines as UTF-8 into a file, replacing what it holds; a pipe or device is written to.
/// After a failure an existing file is as it was.
/// @param path  the export file's full path
CsvExport exportCsv(const OdPsPlotStyleTable& table, const wxString& fileName, const wxString& path,
                    Replaceable replaceable);

#endif

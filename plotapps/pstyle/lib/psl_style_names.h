// What a style may be called. Knows no control.

#ifndef PSL_STYLE_NAMES_H
#define PSL_STYLE_NAMES_H

#include "odps/od_ps.h"

#include <wx/string.h>

/// The text that a table file can hold of one that the user entered: it ends at a NUL, and every
/// line break (CR LF counts as one) becomes a blank.
wxString storableText(const wxString& entered);

/// Whether two names are one to the plotting system, which does not regard case.
bool isSameName(const OdString& one, const OdString& other);

/// Whether another style than `style` has this text as its name or as its localized name, without
/// regard to case. The two differ in older tables, where the name has `_` for blanks.
/// @param style  may be null, for a style that does not exist yet
bool isNameTaken(const OdPsPlotStyleTable& table, const wxString& name, const OdPsPlotStyle* style);

#endif

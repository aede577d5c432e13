// How the editor's sources find its controls.

#ifndef PSL_EDITOR_CONTROLS_H
#define PSL_EDITOR_CONTROLS_H

#include "psl_dlg_plot_style_editor.h"

#include <wx/xrc/xmlres.h>

template <class Control>
Control* DlgPlotStyleEditor::control(const char* name) const
{
    return wxStaticCast(FindWindow(wxXmlResource::GetXRCID(name)), Control);
}

#endif

// A combo box for colours: that of the object, the index colours, and one that is none of these.

#ifndef OTHER_HOST_COLOR_COMBO_H
#define OTHER_HOST_COLOR_COMBO_H

#include "odps/od_db_object_id.h"
#include "odps/od_ps.h"
#include "wxgui/image_combo.h"

#include <optional>

namespace wxg
{
class ColorCombo : public ImageCombo
{
public:
    /// What has no name is for hosts with drawings.
    ColorCombo(wxWindow* parent, wxWindowID id, const wxPoint& pos, const wxSize& size, bool,
               unsigned, OdDbObjectId, int, bool, long, const OdString& title);

    void setColor(const OdCmEntityColor& color);
    /// @return nothing for the colour of the object
    std::optional<OdCmEntityColor> color() const;

private:
    OdCmEntityColor otherColor;
};
} // namespace wxg

#endif

// The drop-down lists of the style properties.

#include "tests/keyboard/editor_session.h"
#include <iostream>

class Combos : public EditorSession
{
};

TEST_F(Combos, Explore)
{
    openColors();
    auto flags = [&]
    { std::cerr << editor().focus() << ": " << editor().ask("flags\tComboEndStyle")[0] << "\n"; };
    flags();
    editor().click("ComboEndStyle");
    flags();
    editor().key("Escape");
    flags();
    editor().key("Tab");
    flags();
    editor().key("shift+Tab");
    flags();
}

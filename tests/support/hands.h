// Hands: real keys and a real pointer, by the X server's test extension.

#ifndef TESTS_SUPPORT_HANDS_H
#define TESTS_SUPPORT_HANDS_H

#include <string_view>

struct _XDisplay;

/// A place on the screen, in pixels.
struct ScreenPoint
{
    int x = 0;
    int y = 0;
};

/// A rectangle on the screen, in pixels.
struct ScreenRect
{
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    ScreenPoint centre() const { return {x + width / 2, y + height / 2}; }
    /// Where to click at a control: in its text, if it has buttons at its end.
    ScreenPoint text() const { return {x + width / 4, y + height / 2}; }
    /// Where to click at a row of a list: in its text, behind its picture.
    ScreenPoint inRow() const { return {x + 40, y + height / 2}; }
};

/// Presses keys and moves the pointer of the display that DISPLAY names. Every call returns when
/// the server has taken the input; whoever it is meant for may not have seen it yet.
class Hands
{
public:
    Hands();
    ~Hands();
    Hands(const Hands&) = delete;
    Hands& operator=(const Hands&) = delete;

    /// Whether a window manager runs.
    bool isManaged() const;

    /// Presses and releases a key with modifiers: "Return", "ctrl+Tab", "alt+l", "shift+Down". Keys
    /// have the X server's names. @throw std::invalid_argument for a key that does not exist
    void key(std::string_view chord);
    /// Presses the keys of a chord and holds them down, or lets them go.
    void hold(std::string_view chord);
    void letGo(std::string_view chord);
    /// Types a text of ASCII characters.
    void type(std::string_view text);

    /// Sends a message with a number to a window, behind all input so far.
    void mark(unsigned long window, const char* message, long number);

    /// The share of a part of the screen, from 0 to 1, that is of a strong blue, as the theme draws
    /// what is selected.
    double blueShare(const ScreenRect& place);

    void moveTo(ScreenPoint point);
    /// Clicks with the left button, while the modifiers are held ("ctrl", "shift", or "").
    void click(ScreenPoint point, std::string_view modifier = "");
    void rightClick(ScreenPoint point);
    /// Presses the left button, and lets it go where the pointer is.
    void press(ScreenPoint point);
    void release();
    /// Turns the wheel by notches; negative is away from the user, which scrolls up.
    void wheel(ScreenPoint point, int notches);

private:
    void send(unsigned long symbol, bool down);
    void button(unsigned number);
    void deliver();

    _XDisplay* m_display;
};

#endif

// Keys and pointer by the X server's test extension.

#include "support/hands.h"

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

KeySym symbolOf(std::string_view name)
{
    if (name == "ctrl")
        return XK_Control_L;
    if (name == "shift")
        return XK_Shift_L;
    if (name == "alt")
        return XK_Alt_L;
    // Latin-1 characters are their own symbols.
    if (name.size() == 1)
        return static_cast<unsigned char>(name.front());
    const KeySym symbol = XStringToKeysym(std::string(name).c_str());
    if (symbol == NoSymbol)
        throw std::invalid_argument("no such key: " + std::string(name));
    return symbol;
}

std::vector<KeySym> symbolsOf(std::string_view chord)
{
    std::vector<KeySym> symbols;
    for (std::size_t plus; (plus = chord.find('+')) != std::string_view::npos && plus > 0;
         chord.remove_prefix(plus + 1))
        symbols.push_back(symbolOf(chord.substr(0, plus)));
    symbols.push_back(symbolOf(chord));
    return symbols;
}

} // namespace

Hands::Hands()
    : m_display(XOpenDisplay(nullptr))
{
    // The window that a mark is for may go with its program.
    XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
    if (!m_display)
        throw std::runtime_error("no display");
}

Hands::~Hands()
{
    XCloseDisplay(m_display);
}

// The server hands input on when it is done with what it is asked at once; so it is asked again.
void Hands::deliver()
{
    XSync(m_display, False);
    XSync(m_display, False);
}

void Hands::mark(unsigned long window, const char* message, long number)
{
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(m_display, message, False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = number;
    XSendEvent(m_display, window, False, NoEventMask, &event);
    XSync(m_display, False);
}

bool Hands::isManaged() const
{
    const Atom check = XInternAtom(m_display, "_NET_SUPPORTING_WM_CHECK", False);
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char* value = nullptr;
    XGetWindowProperty(m_display, DefaultRootWindow(m_display), check, 0, 1, False, AnyPropertyType,
                       &type, &format, &count, &left, &value);
    if (value)
        XFree(value);
    return count == 1;
}

void Hands::send(unsigned long symbol, bool down)
{
    const KeyCode code = XKeysymToKeycode(m_display, symbol);
    if (code == 0)
        throw std::invalid_argument("no key for symbol " + std::to_string(symbol));
    const bool isShifted = XkbKeycodeToKeysym(m_display, code, 0, 0) != symbol;
    const KeyCode shift = XKeysymToKeycode(m_display, XK_Shift_L);
    if (isShifted && down)
        XTestFakeKeyEvent(m_display, shift, True, CurrentTime);
    XTestFakeKeyEvent(m_display, code, down, CurrentTime);
    if (isShifted && !down)
        XTestFakeKeyEvent(m_display, shift, False, CurrentTime);
}

void Hands::key(std::string_view chord)
{
    hold(chord);
    letGo(chord);
}

void Hands::hold(std::string_view chord)
{
    for (const KeySym symbol : symbolsOf(chord))
        send(symbol, true);
    deliver();
}

void Hands::letGo(std::string_view chord)
{
    std::vector<KeySym> symbols = symbolsOf(chord);
    std::reverse(symbols.begin(), symbols.end());
    for (const KeySym symbol : symbols)
        send(symbol, false);
    deliver();
}

void Hands::type(std::string_view text)
{
    for (const char character : text)
    {
        const KeySym symbol = static_cast<unsigned char>(character);
        send(symbol, true);
        send(symbol, false);
    }
    deliver();
}

double Hands::blueShare(const ScreenRect& place)
{
    XImage* image = XGetImage(m_display, DefaultRootWindow(m_display), place.x, place.y,
                              static_cast<unsigned>(place.width),
                              static_cast<unsigned>(place.height), AllPlanes, ZPixmap);
    if (!image)
        throw std::runtime_error("no picture of the screen");
    int blue = 0;
    for (int y = 0; y < place.height; ++y)
        for (int x = 0; x < place.width; ++x)
        {
            const unsigned long pixel = XGetPixel(image, x, y);
            constexpr unsigned long difference = 100;
            blue += (pixel & 0xFF) > (pixel >> 16 & 0xFF) + difference;
        }
    XDestroyImage(image);
    return double(blue) / (place.width * place.height);
}

void Hands::moveTo(ScreenPoint point)
{
    XTestFakeMotionEvent(m_display, -1, point.x, point.y, CurrentTime);
    deliver();
}

void Hands::button(unsigned number)
{
    XTestFakeButtonEvent(m_display, number, True, CurrentTime);
    XTestFakeButtonEvent(m_display, number, False, CurrentTime);
}

void Hands::click(ScreenPoint point, std::string_view modifier)
{
    moveTo(point);
    if (!modifier.empty())
        send(symbolOf(modifier), true);
    button(Button1);
    if (!modifier.empty())
        send(symbolOf(modifier), false);
    deliver();
}

void Hands::rightClick(ScreenPoint point)
{
    moveTo(point);
    button(Button3);
    deliver();
}

void Hands::press(ScreenPoint point)
{
    moveTo(point);
    XTestFakeButtonEvent(m_display, Button1, True, CurrentTime);
    deliver();
}

void Hands::release()
{
    XTestFakeButtonEvent(m_display, Button1, False, CurrentTime);
    deliver();
}

void Hands::wheel(ScreenPoint point, int notches)
{
    moveTo(point);
    for (; notches > 0; --notches)
        button(Button5);
    for (; notches < 0; ++notches)
        button(Button4);
    deliver();
}

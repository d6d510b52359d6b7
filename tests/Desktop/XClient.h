#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

struct xcb_connection_t;

namespace kerlune {

// Another program on the X server that DISPLAY names: one with windows, the window manager or the user's fingers.
// What it is told to do has been done when it returns.
class XClient final {
public:
    // A symbol of each key that the tests press; keysymdef.h.
    enum Key : std::uint32_t {
        kB = 'b',
        kM = 'm',
        kV = 'v',
        kX = 'x',
        kScrollLock = 0xff14,
        kF5 = 0xffc2,
        kNumLock = 0xff7f,
        kShiftLeft = 0xffe1,
        kControlLeft = 0xffe3,
        kCapsLock = 0xffe5,
        kAltLeft = 0xffe9,
        kSuperLeft = 0xffeb,
    };

    XClient();
    ~XClient();
    XClient(const XClient &) = delete;
    XClient &operator=(const XClient &) = delete;

    // Windows. WM_CLASS is written as it is given; without, the window has none.
    std::uint32_t window(std::string_view windowClass = {}, std::uint32_t parent = 0) const;
    void destroy(std::uint32_t window) const;
    void focus(std::uint32_t window) const; // shows it too
    std::uint32_t focused() const;
    std::uint32_t root() const { return m_root; }
    void setText(std::uint32_t window, const std::string &property, std::string_view text,
                 const std::string &type = "STRING") const;
    void setWindows(std::uint32_t window, const std::string &property, std::vector<std::uint32_t> windows) const;
    void setAtRoot(const std::string &property, std::vector<std::uint32_t> windows) const;
    void removeAtRoot(const std::string &property) const;

    // The keyboard.
    std::uint8_t keyCode(std::uint32_t symbol) const;
    void press(std::uint32_t symbol) const;
    void release(std::uint32_t symbol) const;                 // a key pressed again has another time than its release
    void type(const std::vector<std::uint32_t> &chord) const; // pressed in order, released in reverse
    void setSymbols(std::uint8_t keyCode, const std::vector<std::uint32_t> &symbols) const;
    void setModifierKeys(int modifier, std::vector<std::uint32_t> symbols) const; // 0 Shift … 7 Mod5
    bool grab(std::uint8_t keyCode, std::uint16_t modifiers) const;               // whether nobody else has it
    void ungrab(std::uint8_t keyCode, std::uint16_t modifiers) const;

private:
    std::uint32_t atom(const std::string &name) const;
    void setProperty(std::uint32_t window, const std::string &property, const std::string &type, int format,
                     std::size_t length, const void *bytes) const;
    void finish() const;
    std::uint32_t time() const; // milliseconds of the server
    void setKey(std::uint32_t symbol, std::uint8_t event) const;

    xcb_connection_t *m_connection;
    std::uint32_t m_root = 0;
    std::uint32_t m_clock = 0; // a window whose changes tell the time
};

// Counts the key presses that the server delivers to its clients.
class KeyPressCount final {
public:
    KeyPressCount();
    ~KeyPressCount();
    KeyPressCount(const KeyPressCount &) = delete;
    KeyPressCount &operator=(const KeyPressCount &) = delete;

    int read(); // until now

private:
    xcb_connection_t *m_control;
    xcb_connection_t *m_data;
    unsigned m_request = 0;
    bool m_isRunning = false;
    int m_count = 0;
};

} // namespace kerlune

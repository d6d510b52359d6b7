#pragma once

#include "Events.h"
#include "Support/Handle.h"

#include <xcb/record.h>
#include <xcb/xcb.h>
#include <xcb/xcbext.h>
#include <xcb/xtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace kerlune {

template <typename T>
using Freed = Handle<T, std::free>;

inline xcb_connection_t *connectToServer()
{
    xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(connection) != 0)
        throw std::runtime_error("no X server");
    return connection;
}

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

    XClient()
        : m_connection(connectToServer())
        , m_root(xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root)
        , m_clock(window())
    {
        const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_change_window_attributes(m_connection, m_clock, XCB_CW_EVENT_MASK, &events);
    }
    ~XClient() { xcb_disconnect(m_connection); }
    XClient(const XClient &) = delete;
    XClient &operator=(const XClient &) = delete;

    // Windows. WM_CLASS is written as it is given; without, the window has none.
    std::uint32_t window(std::string_view windowClass = {}, std::uint32_t parent = 0) const
    {
        const std::uint32_t window = xcb_generate_id(m_connection);
        xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, window, parent == 0 ? m_root : parent, 0, 0, 9, 9, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        if (!windowClass.empty())
            setText(window, "WM_CLASS", windowClass);
        finish();
        return window;
    }
    void destroy(std::uint32_t window) const
    {
        xcb_destroy_window(m_connection, window);
        finish();
    }
    void focus(std::uint32_t window) const // shows it too
    {
        xcb_map_window(m_connection, window);
        xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_NONE, window, XCB_CURRENT_TIME);
        finish();
    }
    std::uint32_t focused() const
    {
        const Freed<xcb_get_input_focus_reply_t> reply(
            xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
        return reply ? reply->focus : 0;
    }
    std::uint32_t root() const { return m_root; }
    void setText(std::uint32_t window, const std::string &property, std::string_view text,
                 const std::string &type = "STRING") const
    {
        setProperty(window, property, type, 8, text.size(), text.data());
    }
    void setWindows(std::uint32_t window, const std::string &property, std::vector<std::uint32_t> windows) const
    {
        setProperty(window, property, "WINDOW", 32, windows.size(), windows.data());
    }
    void setAtRoot(const std::string &property, std::vector<std::uint32_t> windows) const
    {
        setWindows(m_root, property, std::move(windows));
    }
    void removeAtRoot(const std::string &property) const
    {
        xcb_delete_property(m_connection, m_root, atom(property));
        finish();
    }

    // The keyboard.
    std::uint8_t keyCode(std::uint32_t symbol) const
    {
        const xcb_setup_t *setup = xcb_get_setup(m_connection);
        const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
        const auto cookie = xcb_get_keyboard_mapping(m_connection, setup->min_keycode, count);
        const Freed<xcb_get_keyboard_mapping_reply_t> reply(
            xcb_get_keyboard_mapping_reply(m_connection, cookie, nullptr));
        const std::span symbols(xcb_get_keyboard_mapping_keysyms(reply.get()), reply->length);
        const auto found = std::find(symbols.begin(), symbols.end(), symbol);
        if (found == symbols.end())
            throw std::runtime_error("no such key");
        return static_cast<std::uint8_t>(setup->min_keycode + (found - symbols.begin()) / reply->keysyms_per_keycode);
    }
    void press(std::uint32_t symbol) const { setKey(symbol, XCB_KEY_PRESS); }
    // A key pressed again has another time than its release.
    void release(std::uint32_t symbol) const
    {
        setKey(symbol, XCB_KEY_RELEASE);
        const std::uint32_t released = time();
        while (time() == released) {
        }
    }
    // Pressed in order, released in reverse.
    void type(const std::vector<std::uint32_t> &chord) const
    {
        std::for_each(chord.begin(), chord.end(), [this](std::uint32_t symbol) { press(symbol); });
        std::for_each(chord.rbegin(), chord.rend(), [this](std::uint32_t symbol) { release(symbol); });
    }
    void setSymbols(std::uint8_t keyCode, const std::vector<std::uint32_t> &symbols) const
    {
        xcb_change_keyboard_mapping(m_connection, 1, keyCode, static_cast<std::uint8_t>(symbols.size()),
                                    symbols.data());
        finish();
    }
    void setModifierKeys(int modifier, std::vector<std::uint32_t> symbols) const // 0 Shift … 7 Mod5
    {
        constexpr std::size_t kModifiers = 8;
        const Freed<xcb_get_modifier_mapping_reply_t> now(
            xcb_get_modifier_mapping_reply(m_connection, xcb_get_modifier_mapping(m_connection), nullptr));
        const std::size_t width = now->keycodes_per_modifier;
        const std::span keys(xcb_get_modifier_mapping_keycodes(now.get()), kModifiers * width);
        std::vector<xcb_keycode_t> wanted(keys.begin(), keys.end());
        const auto row = wanted.begin() + static_cast<std::ptrdiff_t>(static_cast<std::size_t>(modifier) * width);
        std::fill(row, row + static_cast<std::ptrdiff_t>(width), xcb_keycode_t{0});
        std::transform(symbols.begin(), symbols.end(), row, [this](std::uint32_t symbol) { return keyCode(symbol); });
        const auto cookie = xcb_set_modifier_mapping(m_connection, static_cast<std::uint8_t>(width), wanted.data());
        const Freed<xcb_set_modifier_mapping_reply_t> reply(
            xcb_set_modifier_mapping_reply(m_connection, cookie, nullptr));
        if (!reply || reply->status != XCB_MAPPING_STATUS_SUCCESS)
            throw std::runtime_error("the server keeps its modifiers");
    }
    bool grab(std::uint8_t keyCode, std::uint16_t modifiers) const // whether nobody else has it
    {
        const auto cookie =
            xcb_grab_key_checked(m_connection, 0, m_root, modifiers, keyCode, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        return Freed<xcb_generic_error_t>(xcb_request_check(m_connection, cookie)) == nullptr;
    }
    void ungrab(std::uint8_t keyCode, std::uint16_t modifiers) const
    {
        xcb_ungrab_key(m_connection, keyCode, m_root, modifiers);
        finish();
    }

private:
    std::uint32_t atom(const std::string &name) const
    {
        const auto cookie = xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(name.size()), name.c_str());
        const Freed<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(m_connection, cookie, nullptr));
        return reply->atom;
    }
    void setProperty(std::uint32_t window, const std::string &property, const std::string &type, int format,
                     std::size_t length, const void *bytes) const
    {
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, atom(property), atom(type),
                            static_cast<std::uint8_t>(format), static_cast<std::uint32_t>(length), bytes);
        finish();
    }
    void finish() const
    {
        focused(); // any question: its answer comes after all that was asked before
    }
    std::uint32_t time() const // milliseconds of the server
    {
        setText(m_clock, "WM_NAME", "tick");
        while (const Freed<xcb_generic_event_t> event{xcb_wait_for_event(m_connection)}) {
            if ((event->response_type & 0x7f) == XCB_PROPERTY_NOTIFY)
                return reinterpret_cast<const xcb_property_notify_event_t *>(event.get())->time;
        }
        throw std::runtime_error("no X server");
    }
    void setKey(std::uint32_t symbol, std::uint8_t event) const
    {
        xcb_test_fake_input(m_connection, event, keyCode(symbol), XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0, 0, 0);
        finish();
    }

    xcb_connection_t *m_connection;
    std::uint32_t m_root = 0;
    std::uint32_t m_clock = 0; // a window whose changes tell the time
};

// Counts the key presses that the server delivers to its clients.
class KeyPressCount final {
public:
    KeyPressCount()
        : m_control(connectToServer())
        , m_data(connectToServer())
    {
        const std::uint32_t context = xcb_generate_id(m_control);
        xcb_record_range_t range{};
        range.delivered_events = {XCB_KEY_PRESS, XCB_KEY_PRESS};
        const xcb_record_client_spec_t clients = XCB_RECORD_CS_ALL_CLIENTS;
        const Freed<xcb_generic_error_t> error(xcb_request_check(
            m_control, xcb_record_create_context_checked(m_control, context, 0, 1, 1, &clients, &range)));
        if (error)
            throw std::runtime_error("the server does not record");
        m_request = xcb_record_enable_context(m_data, context).sequence;
        xcb_flush(m_data);
        if (!waitUntil([this] { return read() == 0 && m_isRunning; }))
            throw std::runtime_error("recording does not start");
    }
    ~KeyPressCount()
    {
        xcb_disconnect(m_control);
        xcb_disconnect(m_data);
    }
    KeyPressCount(const KeyPressCount &) = delete;
    KeyPressCount &operator=(const KeyPressCount &) = delete;

    int read() // until now
    {
        constexpr std::uint8_t kFromServer = 0; // Record protocol, category
        constexpr std::uint8_t kStartOfData = 4;
        constexpr std::size_t kEventSize = 32;
        void *taken = nullptr;
        xcb_generic_error_t *error = nullptr;
        while (xcb_poll_for_reply(m_data, m_request, &taken, &error) == 1 && taken != nullptr) {
            const Freed<xcb_record_enable_context_reply_t> reply(
                static_cast<xcb_record_enable_context_reply_t *>(taken));
            m_isRunning |= reply->category == kStartOfData;
            if (reply->category == kFromServer)
                m_count += xcb_record_enable_context_data_length(reply.get()) / static_cast<int>(kEventSize);
        }
        std::free(error);
        return m_count;
    }

private:
    xcb_connection_t *m_control;
    xcb_connection_t *m_data;
    unsigned m_request = 0;
    bool m_isRunning = false;
    int m_count = 0;
};

} // namespace kerlune

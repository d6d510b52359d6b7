#include "XClient.h"

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

namespace kerlune {

namespace {

template <typename T>
using Freed = Handle<T, std::free>;

xcb_connection_t *connectToServer()
{
    xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(connection) != 0)
        throw std::runtime_error("no X server");
    return connection;
}

} // namespace

XClient::XClient()
    : m_connection(connectToServer())
    , m_root(xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root)
    , m_clock(window())
{
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(m_connection, m_clock, XCB_CW_EVENT_MASK, &events);
}

XClient::~XClient()
{
    xcb_disconnect(m_connection);
}

std::uint32_t XClient::window(std::string_view windowClass, std::uint32_t parent) const
{
    const std::uint32_t window = xcb_generate_id(m_connection);
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, window, parent == 0 ? m_root : parent, 0, 0, 9, 9, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    if (!windowClass.empty())
        setText(window, "WM_CLASS", windowClass);
    finish();
    return window;
}

void XClient::destroy(std::uint32_t window) const
{
    xcb_destroy_window(m_connection, window);
    finish();
}

void XClient::focus(std::uint32_t window) const
{
    xcb_map_window(m_connection, window);
    xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_NONE, window, XCB_CURRENT_TIME);
    finish();
}

std::uint32_t XClient::focused() const
{
    const Freed<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    return reply ? reply->focus : 0;
}

void XClient::setText(std::uint32_t window, const std::string &property, std::string_view text,
                      const std::string &type) const
{
    setProperty(window, property, type, 8, text.size(), text.data());
}

void XClient::setWindows(std::uint32_t window, const std::string &property, std::vector<std::uint32_t> windows) const
{
    setProperty(window, property, "WINDOW", 32, windows.size(), windows.data());
}

void XClient::setAtRoot(const std::string &property, std::vector<std::uint32_t> windows) const
{
    setWindows(m_root, property, std::move(windows));
}

void XClient::removeAtRoot(const std::string &property) const
{
    xcb_delete_property(m_connection, m_root, atom(property));
    finish();
}

std::uint8_t XClient::keyCode(std::uint32_t symbol) const
{
    const xcb_setup_t *setup = xcb_get_setup(m_connection);
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const auto cookie = xcb_get_keyboard_mapping(m_connection, setup->min_keycode, count);
    const Freed<xcb_get_keyboard_mapping_reply_t> reply(xcb_get_keyboard_mapping_reply(m_connection, cookie, nullptr));
    const std::span symbols(xcb_get_keyboard_mapping_keysyms(reply.get()), reply->length);
    const auto found = std::find(symbols.begin(), symbols.end(), symbol);
    if (found == symbols.end())
        throw std::runtime_error("no such key");
    return static_cast<std::uint8_t>(setup->min_keycode + (found - symbols.begin()) / reply->keysyms_per_keycode);
}

void XClient::press(std::uint32_t symbol) const
{
    setKey(symbol, XCB_KEY_PRESS);
}

void XClient::release(std::uint32_t symbol) const
{
    setKey(symbol, XCB_KEY_RELEASE);
    const std::uint32_t released = time();
    while (time() == released) {
    }
}

void XClient::type(const std::vector<std::uint32_t> &chord) const
{
    std::for_each(chord.begin(), chord.end(), [this](std::uint32_t symbol) { press(symbol); });
    std::for_each(chord.rbegin(), chord.rend(), [this](std::uint32_t symbol) { release(symbol); });
}

void XClient::setSymbols(std::uint8_t keyCode, const std::vector<std::uint32_t> &symbols) const
{
    xcb_change_keyboard_mapping(m_connection, 1, keyCode, static_cast<std::uint8_t>(symbols.size()), symbols.data());
    finish();
}

void XClient::setModifierKeys(int modifier, std::vector<std::uint32_t> symbols) const
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
    const Freed<xcb_set_modifier_mapping_reply_t> reply(xcb_set_modifier_mapping_reply(m_connection, cookie, nullptr));
    if (!reply || reply->status != XCB_MAPPING_STATUS_SUCCESS)
        throw std::runtime_error("the server keeps its modifiers");
}

bool XClient::grab(std::uint8_t keyCode, std::uint16_t modifiers) const
{
    const auto cookie =
        xcb_grab_key_checked(m_connection, 0, m_root, modifiers, keyCode, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    return Freed<xcb_generic_error_t>(xcb_request_check(m_connection, cookie)) == nullptr;
}

void XClient::ungrab(std::uint8_t keyCode, std::uint16_t modifiers) const
{
    xcb_ungrab_key(m_connection, keyCode, m_root, modifiers);
    finish();
}

std::uint32_t XClient::atom(const std::string &name) const
{
    const auto cookie = xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(name.size()), name.c_str());
    const Freed<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(m_connection, cookie, nullptr));
    return reply->atom;
}

void XClient::setProperty(std::uint32_t window, const std::string &property, const std::string &type, int format,
                          std::size_t length, const void *bytes) const
{
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, atom(property), atom(type),
                        static_cast<std::uint8_t>(format), static_cast<std::uint32_t>(length), bytes);
    finish();
}

void XClient::finish() const
{
    focused(); // any question: its answer comes after all that was asked before
}

std::uint32_t XClient::time() const
{
    setText(m_clock, "WM_NAME", "tick");
    while (const Freed<xcb_generic_event_t> event{xcb_wait_for_event(m_connection)}) {
        if ((event->response_type & 0x7f) == XCB_PROPERTY_NOTIFY)
            return reinterpret_cast<const xcb_property_notify_event_t *>(event.get())->time;
    }
    throw std::runtime_error("no X server");
}

void XClient::setKey(std::uint32_t symbol, std::uint8_t event) const
{
    xcb_test_fake_input(m_connection, event, keyCode(symbol), XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0, 0, 0);
    finish();
}

KeyPressCount::KeyPressCount()
    : m_control(connectToServer())
    , m_data(connectToServer())
{
    const std::uint32_t context = xcb_generate_id(m_control);
    xcb_record_range_t range{};
    range.delivered_events = {XCB_KEY_PRESS, XCB_KEY_PRESS};
    const xcb_record_client_spec_t clients = XCB_RECORD_CS_ALL_CLIENTS;
    const Freed<xcb_generic_error_t> error(
        xcb_request_check(m_control, xcb_record_create_context_checked(m_control, context, 0, 1, 1, &clients, &range)));
    if (error)
        throw std::runtime_error("the server does not record");
    m_request = xcb_record_enable_context(m_data, context).sequence;
    xcb_flush(m_data);
    if (!waitUntil([this] { return read() == 0 && m_isRunning; }))
        throw std::runtime_error("recording does not start");
}

KeyPressCount::~KeyPressCount()
{
    xcb_disconnect(m_control);
    xcb_disconnect(m_data);
}

int KeyPressCount::read()
{
    constexpr std::uint8_t kFromServer = 0; // Record protocol, category
    constexpr std::uint8_t kStartOfData = 4;
    constexpr std::size_t kEventSize = 32;
    void *taken = nullptr;
    xcb_generic_error_t *error = nullptr;
    while (xcb_poll_for_reply(m_data, m_request, &taken, &error) == 1 && taken != nullptr) {
        const Freed<xcb_record_enable_context_reply_t> reply(static_cast<xcb_record_enable_context_reply_t *>(taken));
        m_isRunning |= reply->category == kStartOfData;
        if (reply->category == kFromServer)
            m_count += xcb_record_enable_context_data_length(reply.get()) / static_cast<int>(kEventSize);
    }
    std::free(error);
    return m_count;
}

} // namespace kerlune

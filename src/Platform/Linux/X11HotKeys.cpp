#include "Platform/Linux/X11HotKeys.h"

#include "Platform/Linux/MacKeys.h"
#include "Platform/Linux/X11Connection.h"
#include "Support/Handle.h"

#include <xcb/xcb.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace kerlune {

std::unique_ptr<X11HotKeys> X11HotKeys::create()
{
    auto connection = X11Connection::open();
    if (!connection)
        return nullptr;
    return std::unique_ptr<X11HotKeys>(new X11HotKeys(std::move(connection)));
}

X11HotKeys::X11HotKeys(std::unique_ptr<X11Connection> connection)
    : m_connection(std::move(connection))
{
    m_connection->setReader([this] { readEvents(); });
}

X11HotKeys::~X11HotKeys() = default; // the server frees what a connection has grabbed

void X11HotKeys::registerKey(std::uint32_t identifier, std::uint32_t keyCode, std::uint32_t modifiers, Pressed pressed,
                             Failed failed)
{
    unregisterKey(identifier);
    m_calls.add(identifier, std::move(pressed), std::move(failed));
    readKeyboard();
    const MacKey *known = macKey(keyCode);
    Key key{known != nullptr ? known->keySym : 0, modifiers, {}};
    if (known != nullptr)
        key.grabs = grabsFor(key);
    if (const auto failure = key.grabs.empty() ? Failure::Unavailable : take(key.grabs))
        m_calls.fail(identifier, *failure);
    else
        m_keys.emplace(identifier, std::move(key));
    m_connection->readSoon();
}

void X11HotKeys::unregisterKey(std::uint32_t identifier)
{
    m_calls.remove(identifier);
    const auto found = m_keys.find(identifier);
    if (found == m_keys.end())
        return;
    const Key key = std::move(found->second);
    m_keys.erase(found);
    release(key.grabs);
}

void X11HotKeys::readEvents()
{
    bool isKeyboardNew = false;
    while (const Handle<xcb_generic_event_t, std::free> event{xcb_poll_for_event(m_connection->get())}) {
        const auto *key = reinterpret_cast<const xcb_key_press_event_t *>(event.get());
        switch (event->response_type & 0x7f) {
        case XCB_KEY_PRESS:
            notePress({key->detail, static_cast<std::uint16_t>(key->state & 0xff)}, key->time);
            break;
        case XCB_KEY_RELEASE:
            m_releases[key->detail] = key->time;
            break;
        case XCB_MAPPING_NOTIFY:
            isKeyboardNew = true;
            break;
        default:
            break;
        }
    }
    if (isKeyboardNew) {
        readKeyboard();
        m_connection->readSoon();
    }
    if (m_connection->isLost())
        lose();
}

// The server repeats a key that is held down as releases and presses, each pair at one time.
void X11HotKeys::notePress(const Grab &pressed, std::uint32_t time)
{
    const auto release = m_releases.find(pressed.keyCode);
    if (release != m_releases.end() && release->second == time)
        return;
    for (const auto &[identifier, key] : m_keys) {
        if (std::find(key.grabs.begin(), key.grabs.end(), pressed) != key.grabs.end())
            m_calls.press(identifier);
    }
}

void X11HotKeys::readKeyboard()
{
    auto keyboard = X11Keyboard::read(m_connection->get());
    if (!keyboard)
        return;
    m_keyboard = *std::move(keyboard);
    std::vector<std::uint32_t> changed;
    for (const auto &[identifier, key] : m_keys) {
        if (grabsFor(key) != key.grabs)
            changed.push_back(identifier);
    }
    // All are released before one is grabbed again: they may exchange their places.
    for (const std::uint32_t identifier : changed)
        release(std::exchange(m_keys.at(identifier).grabs, {}));
    for (const std::uint32_t identifier : changed) {
        Key &key = m_keys.at(identifier);
        auto grabs = grabsFor(key);
        if (const auto failure = take(grabs)) {
            m_keys.erase(identifier);
            m_calls.fail(identifier, *failure);
        } else {
            key.grabs = std::move(grabs);
        }
    }
}

void X11HotKeys::lose()
{
    for (const auto &[identifier, key] : std::exchange(m_keys, {}))
        m_calls.fail(identifier, Failure::Unavailable);
}

std::vector<X11HotKeys::Grab> X11HotKeys::grabsFor(const Key &key) const
{
    const auto modifiers = m_keyboard.modifiers(key.modifiers);
    if (!modifiers)
        return {};
    const auto locks = static_cast<std::uint16_t>(m_keyboard.locks() & ~*modifiers);
    std::vector<Grab> grabs;
    for (const std::uint8_t keyCode : m_keyboard.keyCodes(key.keySym)) {
        std::uint16_t on = locks; // every subset of the locks, all of them first
        do {
            grabs.push_back({keyCode, static_cast<std::uint16_t>(*modifiers | on)});
            on = static_cast<std::uint16_t>((on - 1) & locks);
        } while (on != locks);
    }
    return grabs;
}

std::optional<HotKeys::Failure> X11HotKeys::take(const std::vector<Grab> &grabs) const
{
    std::vector<xcb_void_cookie_t> cookies;
    cookies.reserve(grabs.size());
    for (const Grab &grab : grabs)
        cookies.push_back(xcb_grab_key_checked(m_connection->get(), 0, m_connection->root(), grab.modifiers,
                                               grab.keyCode, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    std::optional<Failure> failure;
    for (const xcb_void_cookie_t cookie : cookies) {
        const Handle<xcb_generic_error_t, std::free> error(xcb_request_check(m_connection->get(), cookie));
        if (error)
            failure = error->error_code == XCB_ACCESS ? Failure::Taken : Failure::Unavailable;
    }
    if (m_connection->isLost())
        return Failure::Unavailable;
    if (failure)
        release(grabs);
    return failure;
}

void X11HotKeys::release(const std::vector<Grab> &grabs) const
{
    for (const Grab &grab : grabs) {
        const auto has = [&grab](const auto &key) {
            return std::find(key.second.grabs.begin(), key.second.grabs.end(), grab) != key.second.grabs.end();
        };
        if (std::none_of(m_keys.begin(), m_keys.end(), has))
            xcb_ungrab_key(m_connection->get(), grab.keyCode, m_connection->root(), grab.modifiers);
    }
    xcb_flush(m_connection->get());
}

} // namespace kerlune

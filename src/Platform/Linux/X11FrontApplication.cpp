#include "Platform/Linux/X11FrontApplication.h"

#include "Platform/Linux/X11Connection.h"
#include "Support/Handle.h"

#include <QString>
#include <QStringDecoder>
#include <xcb/xcb.h>

#include <algorithm>
#include <cstdlib>
#include <span>
#include <string_view>
#include <utility>

namespace kerlune {

// The windows of one server. One may vanish at any time; what is asked of it then has no answer.
class X11FrontApplication::Windows final {
public:
    explicit Windows(const X11Connection &connection)
        : m_connection(connection.get())
        , m_root(connection.root())
        , m_active(connection.atom("_NET_ACTIVE_WINDOW"))
        , m_stacked(connection.atom("_NET_CLIENT_LIST_STACKING"))
        , m_mapped(connection.atom("_NET_CLIENT_LIST"))
        , m_leader(connection.atom("WM_CLIENT_LEADER"))
        , m_state(connection.atom("WM_STATE"))
        , m_utf8(connection.atom("UTF8_STRING"))
    {}

    xcb_atom_t activeProperty() const { return m_active; } // of the root window
    xcb_window_t activeWindow() const { return firstWindow(property(m_root, m_active, kOneWindow)); }
    // As the window manager lists them: the topmost last.
    std::vector<xcb_window_t> all() const;
    // No names where neither the window nor one that it belongs to bears any.
    Program programOf(xcb_window_t window) const { return programOf(ask(window), window, kDeepest); }
    // Of many windows, waiting once.
    std::vector<Program> programsOf(std::span<const xcb_window_t> windows) const;
    void notice(xcb_window_t window, std::uint32_t events) const
    {
        xcb_change_window_attributes(m_connection, window, XCB_CW_EVENT_MASK, &events);
    }

private:
    using Reply = Handle<xcb_get_property_reply_t, std::free>;

    // Lengths of properties in units of 4 bytes.
    static constexpr std::uint32_t kOneWindow = 1;
    static constexpr std::uint32_t kLongestList = 1'000'000;
    static constexpr std::uint32_t kLongestNames = 256;
    static constexpr std::ptrdiff_t kMostWindows = 4'096;
    static constexpr std::size_t kMostChildren = 16; // a frame has few
    static constexpr int kDeepest = 3;               // windows that belong to windows

    xcb_get_property_cookie_t ask(xcb_window_t window) const
    {
        return xcb_get_property(m_connection, 0, window, XCB_ATOM_WM_CLASS, XCB_GET_PROPERTY_TYPE_ANY, 0,
                                kLongestNames);
    }
    Reply property(xcb_window_t window, xcb_atom_t name, std::uint32_t length) const
    {
        const auto cookie = xcb_get_property(m_connection, 0, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0, length);
        return Reply(xcb_get_property_reply(m_connection, cookie, nullptr));
    }
    static std::span<const xcb_window_t> windowsIn(const Reply &reply);
    static xcb_window_t firstWindow(const Reply &reply);
    Program programOf(xcb_get_property_cookie_t names, xcb_window_t window, int depth) const;
    Program programBehind(xcb_window_t window, int depth) const;
    Program namesIn(const Reply &reply) const;
    std::vector<xcb_window_t> framedWindows(xcb_window_t frame) const;

    xcb_connection_t *m_connection;
    xcb_window_t m_root;
    xcb_atom_t m_active;
    xcb_atom_t m_stacked;
    xcb_atom_t m_mapped;
    xcb_atom_t m_leader;
    xcb_atom_t m_state;
    xcb_atom_t m_utf8;
};

std::vector<xcb_window_t> X11FrontApplication::Windows::all() const
{
    for (const xcb_atom_t list : {m_stacked, m_mapped}) {
        const Reply reply = property(m_root, list, kLongestList);
        const auto windows = windowsIn(reply);
        if (!windows.empty())
            return {windows.end() - std::min(std::ssize(windows), kMostWindows), windows.end()};
    }
    return {};
}

std::vector<FrontApplication::Program>
X11FrontApplication::Windows::programsOf(std::span<const xcb_window_t> windows) const
{
    std::vector<xcb_get_property_cookie_t> names;
    names.reserve(windows.size());
    for (const xcb_window_t window : windows)
        names.push_back(ask(window));
    std::vector<Program> programs;
    programs.reserve(windows.size());
    for (std::size_t i = 0; i < windows.size(); ++i)
        programs.push_back(programOf(names[i], windows[i], kDeepest));
    return programs;
}

FrontApplication::Program X11FrontApplication::Windows::programOf(xcb_get_property_cookie_t names, xcb_window_t window,
                                                                  int depth) const
{
    const Reply reply(xcb_get_property_reply(m_connection, names, nullptr));
    if (!reply || window == m_root)
        return {};
    const Program own = namesIn(reply);
    return own != Program{} || depth == 0 ? own : programBehind(window, depth - 1);
}

// A dialog may leave its names to the window that it belongs to, and a frame has none.
FrontApplication::Program X11FrontApplication::Windows::programBehind(xcb_window_t window, int depth) const
{
    std::vector<xcb_window_t> others{firstWindow(property(window, XCB_ATOM_WM_TRANSIENT_FOR, kOneWindow)),
                                     firstWindow(property(window, m_leader, kOneWindow))};
    if (depth == kDeepest - 1) {
        const auto framed = framedWindows(window);
        others.insert(others.end(), framed.begin(), framed.end());
    }
    for (const xcb_window_t other : others) {
        if (other == XCB_WINDOW_NONE || other == window)
            continue;
        if (Program program = programOf(ask(other), other, depth); program != Program{})
            return program;
    }
    return {};
}

// ICCCM 4.1.3.1: a window manager marks what it manages with WM_STATE.
std::vector<xcb_window_t> X11FrontApplication::Windows::framedWindows(xcb_window_t frame) const
{
    const Handle<xcb_query_tree_reply_t, std::free> tree(
        xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, frame), nullptr));
    if (!tree)
        return {};
    std::vector<xcb_window_t> windows;
    const std::size_t count = std::min<std::size_t>(tree->children_len, kMostChildren);
    for (const xcb_window_t child : std::span(xcb_query_tree_children(tree.get()), count)) {
        const Reply state = property(child, m_state, kOneWindow);
        if (state && state->type != XCB_ATOM_NONE)
            windows.push_back(child);
    }
    return windows;
}

std::span<const xcb_window_t> X11FrontApplication::Windows::windowsIn(const Reply &reply)
{
    if (!reply || reply->type != XCB_ATOM_WINDOW || reply->format != 32)
        return {};
    return {static_cast<const xcb_window_t *>(xcb_get_property_value(reply.get())), reply->value_len};
}

xcb_window_t X11FrontApplication::Windows::firstWindow(const Reply &reply)
{
    const auto windows = windowsIn(reply);
    return windows.empty() ? xcb_window_t{XCB_WINDOW_NONE} : windows.front();
}

// ICCCM 4.1.2.5: two names, each ended by a zero, in Latin-1; some programs write UTF-8.
FrontApplication::Program X11FrontApplication::Windows::namesIn(const Reply &reply) const
{
    if ((reply->type != XCB_ATOM_STRING && reply->type != m_utf8) || reply->format != 8)
        return {};
    const std::string_view bytes(static_cast<const char *>(xcb_get_property_value(reply.get())), reply->value_len);
    const auto text = [](std::string_view name) {
        const QByteArrayView view(name.data(), static_cast<qsizetype>(name.size()));
        QStringDecoder decoder(QStringDecoder::Utf8);
        const QString utf8 = decoder(view);
        return (decoder.hasError() ? QString::fromLatin1(view) : utf8).toStdString();
    };
    const std::size_t end = std::min(bytes.find('\0'), bytes.size());
    const std::string_view rest = bytes.substr(std::min(end + 1, bytes.size()));
    return {text(bytes.substr(0, end)), text(rest.substr(0, rest.find('\0')))};
}

std::unique_ptr<X11FrontApplication> X11FrontApplication::create()
{
    auto connection = X11Connection::open();
    if (!connection)
        return nullptr;
    return std::unique_ptr<X11FrontApplication>(new X11FrontApplication(std::move(connection)));
}

X11FrontApplication::X11FrontApplication(std::unique_ptr<X11Connection> connection)
    : m_connection(std::move(connection))
    , m_windows(std::make_unique<Windows>(*m_connection))
{
    m_windows->notice(m_connection->root(), XCB_EVENT_MASK_PROPERTY_CHANGE);
    watchActiveWindow();
    m_told = current();
    m_connection->setReader([this] { readEvents(); });
}

X11FrontApplication::~X11FrontApplication() = default;

FrontApplication::Program X11FrontApplication::current() const
{
    const xcb_window_t window = m_windows->activeWindow();
    Program program = window == XCB_WINDOW_NONE ? Program{} : m_windows->programOf(window);
    m_connection->readSoon();
    return program;
}

std::vector<FrontApplication::Program> X11FrontApplication::programs() const
{
    auto all = m_windows->programsOf(m_windows->all());
    std::reverse(all.begin(), all.end());
    std::vector<Program> topmostFirst;
    for (const Program &program : all) {
        if (program != Program{} && std::find(topmostFirst.begin(), topmostFirst.end(), program) == topmostFirst.end())
            topmostFirst.push_back(program);
    }
    m_connection->readSoon();
    return topmostFirst;
}

void X11FrontApplication::observe(Changed changed)
{
    m_changed = std::move(changed);
}

void X11FrontApplication::readEvents()
{
    bool isNews = false;
    while (const Handle<xcb_generic_event_t, std::free> event{xcb_poll_for_event(m_connection->get())}) {
        if ((event->response_type & 0x7f) != XCB_PROPERTY_NOTIFY)
            continue; // such as an error: the window has gone
        const auto *notice = reinterpret_cast<const xcb_property_notify_event_t *>(event.get());
        isNews |= notice->window == m_connection->root() && notice->atom == m_windows->activeProperty();
        isNews |= notice->window == m_watched && notice->atom == XCB_ATOM_WM_CLASS;
    }
    if (!isNews && !m_connection->isLost())
        return;
    watchActiveWindow();
    const Program program = current();
    if (program == m_told)
        return;
    m_told = program;
    if (const Changed changed = m_changed)
        changed(program); // may end this object
}

void X11FrontApplication::watchActiveWindow()
{
    const xcb_window_t window = m_windows->activeWindow();
    if (window == m_watched)
        return;
    if (m_watched != XCB_WINDOW_NONE && m_watched != m_connection->root())
        m_windows->notice(m_watched, XCB_EVENT_MASK_NO_EVENT);
    m_watched = window;
    if (m_watched != XCB_WINDOW_NONE && m_watched != m_connection->root())
        m_windows->notice(m_watched, XCB_EVENT_MASK_PROPERTY_CHANGE);
}

} // namespace kerlune

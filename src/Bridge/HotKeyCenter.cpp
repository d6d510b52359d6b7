#include "Bridge/HotKeyCenter.h"

#include <QCoreApplication>
#include <QMetaObject>

#include <utility>

namespace kerlune {

namespace {

constexpr std::uint32_t kIdentifier = 1;

} // namespace

HotKeyCenter &HotKeyCenter::shared()
{
    static HotKeyCenter center;
    return center;
}

void HotKeyCenter::use(HotKeys *keys)
{
    unregister();
    m_keys = keys;
}

void HotKeyCenter::registerKey(std::uint32_t keyCode, std::uint32_t modifiers, std::function<void()> action,
                               Failed failed)
{
    unregister();
    m_action = std::move(action);
    if (m_keys == nullptr)
        return;
    m_isRegistered = true;
    m_keys->registerKey(
        kIdentifier, keyCode, modifiers, [this](std::uint32_t identifier) { pressed(identifier); }, std::move(failed));
}

void HotKeyCenter::unregister()
{
    if (m_isRegistered)
        m_keys->unregisterKey(kIdentifier);
    m_isRegistered = false;
    m_action = {};
}

// What is registered by the time the event loop comes to it is what runs.
void HotKeyCenter::pressed(std::uint32_t identifier)
{
    if (identifier != kIdentifier)
        return;
    const auto run = [this] {
        if (const auto action = m_action)
            action();
    };
    QMetaObject::invokeMethod(QCoreApplication::instance(), run, Qt::QueuedConnection);
}

} // namespace kerlune

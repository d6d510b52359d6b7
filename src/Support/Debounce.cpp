#include "Support/Debounce.h"

namespace kerlune {

Debounce::Debounce(std::chrono::milliseconds delay, const std::function<void()> &action)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(delay);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, action);
}

void Debounce::trigger()
{
    m_timer.start();
}

void Debounce::trigger(std::chrono::milliseconds delay)
{
    m_timer.start(delay);
}

void Debounce::cancel()
{
    m_timer.stop();
}

} // namespace kerlune

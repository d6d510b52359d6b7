#pragma once

#include "Platform/FrontApplication.h"

#include <algorithm>
#include <string>
#include <utility>

namespace kerlune {

// Programs that come to the front when a test says so. "" is a front without a program.
class MadeFrontApplication final : public FrontApplication {
public:
    void bring(const std::string &windowClass)
    {
        m_current = {windowClass, windowClass};
        std::erase(m_programs, m_current);
        if (!windowClass.empty())
            m_programs.insert(m_programs.begin(), m_current);
        if (m_changed)
            m_changed(m_current);
    }

    Program current() const override { return m_current; }
    std::vector<Program> programs() const override { return m_programs; }
    void observe(Changed changed) override { m_changed = std::move(changed); }

private:
    Program m_current;
    std::vector<Program> m_programs;
    Changed m_changed;
};

} // namespace kerlune

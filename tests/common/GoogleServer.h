#pragma once

#include "ChildProcess.h"
#include "TempFolder.h"
#include "TestFonts.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace kerlune {

// The stand-in for Google's services that google_server.py is, with a certificate authority of its own, which this
// process and its children trust while it lives.
class GoogleServer final {
public:
    GoogleServer()
    {
        makeCertificates();
        setPlan(nlohmann::json::object());
        writeFile(m_home / "log", "");
        start();
        setenv("SSL_CERT_FILE", authority().c_str(), 1);
        setenv("KERLUNE_GOOGLE_METADATA_URL", url("/metadata/fonts").c_str(), 1);
        setenv("KERLUNE_GOOGLE_CSS_URL", url("/css2").c_str(), 1);
    }
    ~GoogleServer()
    {
        for (const char *variable : {"SSL_CERT_FILE", "KERLUNE_GOOGLE_METADATA_URL", "KERLUNE_GOOGLE_CSS_URL"})
            unsetenv(variable);
    }

    // See google_server.py. Fonts are those of plain.ttf unless the plan says otherwise.
    void setPlan(nlohmann::json plan)
    {
        if (!plan.contains("fontFile"))
            plan["fontFile"] = testFont("plain.ttf");
        std::filesystem::path next = m_home / "next";
        writeFile(next, plan.dump());
        std::filesystem::rename(next, m_home / "plan");
    }

    std::string url(const std::string &path) const { return "https://127.0.0.1:" + m_ports[0] + path; }
    std::string otherUrl(const std::string &path) const { return "https://127.0.0.1:" + m_ports[1] + path; }
    std::filesystem::path authority() const { return m_home / "authority.pem"; }

    std::vector<std::string> requests() const { return lines(1); } // paths with their queries
    std::size_t requestsFor(const std::string &beginning) const
    {
        const auto all = requests();
        return static_cast<std::size_t>(std::count_if(
            all.begin(), all.end(), [&](const std::string &path) { return path.starts_with(beginning); }));
    }
    int mostConnections() const // open at once
    {
        int most = 0;
        for (const std::string &count : lines(0))
            most = std::max(most, std::stoi(count));
        return most;
    }

    void stop() { m_process->end(); }

private:
    void makeCertificates()
    {
        writeFile(m_home / "names", "subjectAltName=IP:127.0.0.1\n");
        const std::string script =
            "cd '" + m_home.path().string() +
            "' && exec 2>messages && "
            "openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -days 2 -subj /CN=Authority "
            "-keyout authority.key -out authority.pem && "
            "openssl req -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -subj /CN=Server -keyout server.key "
            "-out server.csr && "
            "openssl x509 -req -in server.csr -CA authority.pem -CAkey authority.key -CAcreateserial -days 2 "
            "-extfile names -out server.pem";
        if (std::system(script.c_str()) != 0)
            throw std::runtime_error(readFile(m_home / "messages"));
    }

    void start()
    {
        const auto text = [](const std::filesystem::path &path) { return QString::fromStdString(path); };
        m_process = std::make_unique<ChildProcess>(
            QStringLiteral("/usr/bin/python3"),
            QStringList{text(std::string(KERLUNE_TEST_FONTS) + "/../google_server.py"), text(m_home / "server.pem"),
                        text(m_home / "server.key"), text(m_home / "plan"), text(m_home / "log")});
        const std::string ports = m_process->address().toStdString();
        m_ports = {ports.substr(0, ports.find(' ')), ports.substr(ports.find(' ') + 1)};
    }

    std::vector<std::string> lines(std::size_t column) const
    {
        std::vector<std::string> values;
        std::istringstream log(readFile(m_home / "log"));
        for (std::string line; std::getline(log, line);) {
            const auto tab = line.find('\t');
            values.push_back(column == 0 ? line.substr(0, tab) : line.substr(tab + 1));
        }
        return values;
    }

    TempFolder m_home;
    std::unique_ptr<ChildProcess> m_process;
    std::array<std::string, 2> m_ports;
};

} // namespace kerlune

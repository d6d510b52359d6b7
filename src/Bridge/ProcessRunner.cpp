#include "Bridge/ProcessRunner.h"

#include "Bridge/ResumeOnce.h"
#include "Support/Localization.h"
#include "Support/Text.h"

#include <QCoroFuture>
#include <QFile>
#include <QProcess>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <memory>

namespace kerlune {

namespace {

constexpr std::size_t kLongestMessage = 300;                       // characters
constexpr std::size_t kLongestText = std::size_t{8} * 1024 * 1024; // bytes; of a longer output the end counts

bool isWithinCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; // UTF-8, every byte but the first
}

// Where the last `count` characters of UTF-8 begin.
std::size_t lastCharacters(std::string_view text, std::size_t count)
{
    std::size_t start = text.size();
    while (start > 0 && count > 0) {
        --start;
        count -= isWithinCharacter(text[start]) ? 0 : 1;
    }
    return start;
}

// What a child writes to one pipe.
class PipeText final {
public:
    void append(const QByteArray &bytes)
    {
        m_bytes.append(bytes.constData(), static_cast<std::size_t>(bytes.size()));
        if (m_bytes.size() <= 2 * kLongestText)
            return;
        std::size_t start = m_bytes.size() - kLongestText;
        while (start < m_bytes.size() && isWithinCharacter(m_bytes[start]))
            ++start;
        m_bytes.erase(0, start);
    }

    std::string text() const { return isValidUtf8(m_bytes) ? m_bytes : std::string(); }

private:
    std::string m_bytes;
};

bool isAnswer(std::string_view line)
{
    return line.starts_with("OK|") || line.starts_with("ERR|");
}

// The last line that is an answer, else the whole output.
std::string answerIn(std::string_view output)
{
    for (std::size_t end = output.size();;) {
        const std::size_t lineFeed = end == 0 ? std::string_view::npos : output.rfind('\n', end - 1);
        const std::size_t start = lineFeed == std::string_view::npos ? 0 : lineFeed + 1;
        const std::string_view line = output.substr(start, end - start);
        if (isAnswer(line))
            return std::string(line);
        if (start == 0)
            return std::string(output);
        end = lineFeed;
    }
}

ScriptOutcome outcomeOfChild(const std::string &output, const std::string &errors, int status)
{
    if (output.find("OK|") != std::string::npos || output.find("ERR|") != std::string::npos)
        return ScriptSuccess{answerIn(output)};
    const std::string message = trimmed(errors);
    if (message.empty())
        return ScriptFailure{status, localized("Le script Resolve n'a rien renvoyé.")};
    return ScriptFailure{status, message.substr(lastCharacters(message, kLongestMessage))};
}

// Of the arguments of a process a NUL would be the end.
QString processText(std::string text)
{
    for (std::size_t at = 0; (at = text.find('\0', at)) != std::string::npos;)
        text.replace(at, 1, "\uFFFD");
    return QString::fromStdString(text);
}

QProcessEnvironment overlaid(const ProcessRunner::Environment &environment)
{
    QProcessEnvironment whole = QProcessEnvironment::systemEnvironment();
    for (const auto &[name, value] : environment)
        whole.insert(processText(name), processText(value));
    return whole;
}

std::chrono::milliseconds durationOf(double seconds)
{
    constexpr double kLongest = 24 * 60 * 60;
    const double length = std::isnan(seconds) ? 0 : std::clamp(seconds, 0.0, kLongest);
    return std::chrono::milliseconds(static_cast<std::int64_t>(std::ceil(length * 1000)));
}

// One child, until it has ended: longer than its caller waits when its time is up.
class ChildProcess final : public QObject {
public:
    ChildProcess(std::chrono::milliseconds grace, QObject *parent)
        : QObject(parent)
        , m_grace(grace)
    {
        connect(&m_process, &QProcess::readyReadStandardOutput, this, &ChildProcess::readPipes);
        connect(&m_process, &QProcess::readyReadStandardError, this, &ChildProcess::readPipes);
        connect(&m_process, &QProcess::finished, this, &ChildProcess::finish);
        connect(&m_process, &QProcess::errorOccurred, this, &ChildProcess::fail);
        m_deadline.setSingleShot(true);
        m_deadline.setTimerType(Qt::PreciseTimer);
    }

    ~ChildProcess() override
    {
        m_process.disconnect(this);
        if (m_process.state() == QProcess::NotRunning)
            return;
        m_process.terminate();
        if (m_process.waitForFinished(static_cast<int>(m_grace.count())))
            return;
        m_process.kill();
        m_process.waitForFinished();
    }
    ChildProcess(const ChildProcess &) = delete;
    ChildProcess &operator=(const ChildProcess &) = delete;

    QFuture<ScriptOutcome> start(const std::filesystem::path &executable, const ProcessRunner::Arguments &arguments,
                                 const ProcessRunner::Environment &environment, double timeout)
    {
        m_process.setProgram(QFile::decodeName(executable.c_str()));
        QStringList texts;
        std::transform(arguments.begin(), arguments.end(), std::back_inserter(texts), processText);
        m_process.setArguments(texts);
        if (!environment.empty())
            m_process.setProcessEnvironment(overlaid(environment));
        m_process.setStandardInputFile(QProcess::nullDevice());
        connect(&m_deadline, &QTimer::timeout, this, [this, timeout] { endLateChild(timeout); });
        m_deadline.start(durationOf(timeout));
        QFuture<ScriptOutcome> outcome = m_caller.outcome();
        m_process.start();
        return outcome;
    }

private:
    void readPipes()
    {
        m_output.append(m_process.readAllStandardOutput());
        m_errors.append(m_process.readAllStandardError());
    }

    void finish(int status)
    {
        readPipes();
        m_deadline.stop();
        m_caller.resume(outcomeOfChild(m_output.text(), m_errors.text(), status));
        deleteLater();
    }

    void fail(QProcess::ProcessError error)
    {
        if (error != QProcess::FailedToStart) // after any other it finishes
            return;
        m_deadline.stop();
        m_caller.resume(ScriptFailure{ScriptFailure::kNotStarted,
                                      localized("Lancement impossible : ") + m_process.errorString().toStdString()});
        deleteLater();
    }

    void endLateChild(double timeout)
    {
        const std::string seconds = std::to_string(durationOf(timeout) / std::chrono::seconds(1));
        m_process.terminate();
        QTimer::singleShot(m_grace, &m_process, &QProcess::kill);
        m_caller.resume(
            ScriptFailure{ScriptFailure::kTimedOut, localized("Resolve n'a pas répondu en %1 s.", {seconds})});
    }

    std::chrono::milliseconds m_grace;
    ResumeOnce m_caller;
    PipeText m_output;
    PipeText m_errors;
    QTimer m_deadline;
    QProcess m_process;
};

} // namespace

ProcessRunner::ProcessRunner(std::chrono::milliseconds grace)
    : m_grace(grace)
{}

ProcessRunner::~ProcessRunner() = default;

QCoro::Task<ProcessRunner::Outcome> ProcessRunner::run(std::filesystem::path executable, Arguments arguments,
                                                       Environment environment, double timeout)
{
    auto *child = new ChildProcess(m_grace, &m_children); // goes when it has ended, with the runner at the latest
    const QFuture<Outcome> outcome = child->start(executable, arguments, environment, timeout);
    co_return co_await outcome;
}

} // namespace kerlune

#include "CLI/Arguments.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <utility>

namespace kerlune {

namespace {

constexpr char kSign = '\x01';

// Tells options, their values and operands apart.
class CommandLineReader final {
public:
    explicit CommandLineReader(const CLI::App &app)
        : m_command(&app)
    {}

    void read(const std::string &text)
    {
        if (!m_awaiting.empty())
            addValue(std::exchange(m_awaiting, {}), text);
        else if (m_areOptionsOver)
            addOperand(text);
        else if (text == "--")
            m_areOptionsOver = true;
        else if (text.starts_with('-') && text != "-")
            readOption(text);
        else if (!m_list.empty())
            addValue(m_list, text);
        else
            addOperand(text);
    }

    std::vector<std::string> finish()
    {
        if (!m_awaiting.empty())
            m_arguments.push_back(m_awaiting); // CLI11 tells what is missing
        return std::move(m_arguments);
    }

private:
    void readOption(const std::string &text)
    {
        const std::size_t nameEnd = text.find('=');
        const std::string name = text.substr(0, nameEnd);
        const CLI::Option *option = m_command->get_option_no_throw(name);
        m_list.clear();
        if (option == nullptr || option->get_items_expected_max() == 0) {
            m_arguments.push_back(text);
            return;
        }
        if (option->get_multi_option_policy() == CLI::MultiOptionPolicy::TakeAll)
            m_list = name;
        if (nameEnd == std::string::npos)
            m_awaiting = name;
        else
            addValue(name, text.substr(nameEnd + 1));
    }

    void addValue(const std::string &option, const std::string &value)
    {
        m_arguments.push_back(option + '=' + kSign + value);
    }

    void addOperand(const std::string &text)
    {
        const auto commands = m_command->get_subcommands([&](const CLI::App *app) { return app->get_name() == text; });
        if (commands.empty()) {
            m_arguments.push_back(kSign + text);
            return;
        }
        m_command = commands.front();
        m_arguments.push_back(text);
    }

    const CLI::App *m_command;
    std::string m_list;     // the option that takes the words that follow
    std::string m_awaiting; // the option whose value comes next, whatever it looks like
    bool m_areOptionsOver = false;
    std::vector<std::string> m_arguments;
};

} // namespace

std::vector<std::string> signedArguments(const CLI::App &app, int argc, const char *const *argv)
{
    CommandLineReader reader(app);
    for (int i = 1; i < argc; ++i)
        reader.read(argv[i]);
    std::vector<std::string> arguments = reader.finish();
    std::reverse(arguments.begin(), arguments.end()); // as CLI11 wants them
    return arguments;
}

std::string withoutSign(std::string argument)
{
    if (argument.starts_with(kSign))
        argument.erase(0, 1);
    return argument;
}

CLI::Option *addText(CLI::App &app, const std::string &name, std::string &text, const std::string &description)
{
    return app.add_option(
        name,
        [&text](const CLI::results_t &given) {
            text = withoutSign(given.front());
            return true;
        },
        description);
}

CLI::Option *addTexts(CLI::App &app, const std::string &name, std::vector<std::string> &texts,
                      const std::string &description)
{
    CLI::Option *option = app.add_option(
        name,
        [&texts](const CLI::results_t &given) {
            texts.clear();
            std::transform(given.begin(), given.end(), std::back_inserter(texts), withoutSign);
            return true;
        },
        description);
    option->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    if (!name.starts_with('-'))
        option->expected(CLI::detail::expected_max_vector_size);
    return option;
}

} // namespace kerlune

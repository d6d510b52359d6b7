#include "Support/Localization.h"

#include <QCoreApplication>
#include <QString>

#include <algorithm>
#include <array>

namespace kerlune {

namespace {

constexpr const char *kContext = "Kerlune";

std::string withPlacesFilled(std::string_view text, std::initializer_list<std::string_view> arguments)
{
    std::string filled;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isPlace = text[i] == '%' && i + 1 < text.size() && text[i + 1] >= '1' && text[i + 1] <= '9';
        const std::size_t index = isPlace ? static_cast<std::size_t>(text[i + 1] - '1') : 0;
        if (!isPlace || index >= arguments.size()) {
            filled += text[i];
            continue;
        }
        filled += arguments.begin()[index];
        ++i;
    }
    return filled;
}

} // namespace

std::string localized(const char *french)
{
    return QCoreApplication::translate(kContext, french).toStdString();
}

std::string localized(const char *french, std::initializer_list<std::string_view> arguments)
{
    return withPlacesFilled(localized(french), arguments);
}

std::string localizedCount(const char *singular, const char *plural, std::int64_t count)
{
    // Qt's numerus forms take an int; beyond its range the exact number does not change the form.
    const int formNumber = static_cast<int>(std::min<std::int64_t>(count, 1'000'000'000));
    std::string text = QCoreApplication::translate(kContext, plural, nullptr, formNumber).toStdString();
    if (text == plural && count < 2)
        text = singular;
    return withPlacesFilled(text, {groupedDigits(count)});
}

std::string groupedDigits(std::int64_t number)
{
    const std::string mark = localized(" "); // between groups of three digits: a narrow space that does not break
    std::string digits = std::to_string(number);
    if (number < 0)
        digits.erase(0, 1);
    for (std::size_t i = digits.size(); i > 3;) {
        i -= 3;
        digits.insert(i, mark);
    }
    return number < 0 ? "−" + digits : digits;
}

std::string decimalDigits(double number)
{
    std::string digits = QString::number(number, 'f', 1).toStdString();
    digits.replace(digits.find('.'), 1, localized(",")); // the decimal mark
    return digits;
}

std::string displaySize(std::uint64_t bytes)
{
    if (bytes < 1000)
        return localizedCount("%1\u00A0octet", "%1\u00A0octets", static_cast<std::int64_t>(bytes));
    const std::array<std::string, 4> units{localized("%1\u00A0Ko"), localized("%1\u00A0Mo"), localized("%1\u00A0Go"),
                                           localized("%1\u00A0To")};
    std::size_t unit = 0;
    double number = static_cast<double>(bytes) / 1000;
    for (; number >= 999.95 && unit + 1 < units.size(); ++unit) // 999,95 would be shown as 1000,0
        number /= 1000;
    return withPlacesFilled(units[unit], {decimalDigits(number)});
}

} // namespace kerlune

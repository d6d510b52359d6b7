#include "UI/InterfaceText.h"

#include "Support/Localization.h"

#include <algorithm>

namespace kerlune {

QString uiText(const char *french)
{
    return QString::fromStdString(localized(french));
}

QString uiText(const char *french, std::initializer_list<QString> arguments)
{
    const QString text = uiText(french);
    QString filled;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const int place = text[i] == u'%' && i + 1 < text.size() ? text[i + 1].digitValue() : -1;
        if (place < 1 || static_cast<std::size_t>(place) > arguments.size()) {
            filled += text[i];
            continue;
        }
        filled += *(arguments.begin() + place - 1); // never searched for places itself
        ++i;
    }
    return filled;
}

QString uiCount(const char *singular, const char *plural, std::int64_t count)
{
    return QString::fromStdString(localizedCount(singular, plural, count));
}

QString shown(std::string_view utf8)
{
    QString text = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
    const auto isBreak = [](QChar character) {
        return character.category() == QChar::Other_Control || character == QChar::LineSeparator ||
               character == QChar::ParagraphSeparator;
    };
    std::replace_if(text.begin(), text.end(), isBreak, QChar(u' '));
    return text;
}

QString shownAsMarkup(std::string_view utf8)
{
    return shown(utf8).toHtmlEscaped();
}

} // namespace kerlune

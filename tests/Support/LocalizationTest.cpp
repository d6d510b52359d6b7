#include "Support/Localization.h"

#include "Testing.h"

#include <QCoreApplication>
#include <QTranslator>

namespace kerlune {
namespace {

class EnglishTranslator final : public QTranslator {
public:
    QString translate(const char *context, const char *key, const char *, int n) const override
    {
        if (QString::fromUtf8(context) != QStringLiteral("Kerlune"))
            return {};
        if (QString::fromUtf8(key) == QStringLiteral("Serif et %1"))
            return QStringLiteral("%1 and serif");
        if (QString::fromUtf8(key) == QStringLiteral("%1 graisses"))
            return n == 1 ? QStringLiteral("%1 face") : QStringLiteral("%1 faces");
        return {};
    }
    bool isEmpty() const override { return false; }
};

TEST(Localization, ShowsFrenchUntilATranslationIsInstalled)
{
    EXPECT_EQ(localized("Serif et %1", {"%1"}), "Serif et %1");

    int argc = 0;
    const QCoreApplication application(argc, nullptr);
    EnglishTranslator english;
    QCoreApplication::installTranslator(&english);
    EXPECT_EQ(localized("Serif et %1", {"sans"}), "sans and serif");
    EXPECT_EQ(localized("Sans traduction"), "Sans traduction");
    EXPECT_EQ(localizedCount("%1 graisse", "%1 graisses", 0), "0 faces"); // English has no singular zero
    EXPECT_EQ(localizedCount("%1 graisse", "%1 graisses", 1), "1 face");
    QCoreApplication::removeTranslator(&english);
}

TEST(Localization, FillsPlacesWithoutLookingIntoArguments)
{
    EXPECT_EQ(localized("%2 puis %1, 100 % et %3", {"%2", "b"}), "b puis %2, 100 % et %3");
}

TEST(Localization, CountsAsFrenchDoes)
{
    EXPECT_EQ(localizedCount("%1 graisse", "%1 graisses", 0), "0 graisse");
    EXPECT_EQ(localizedCount("%1 graisse", "%1 graisses", 1), "1 graisse");
    EXPECT_EQ(localizedCount("%1 graisse", "%1 graisses", 2), "2 graisses");
    EXPECT_EQ(localizedCount("%1 graisse", "%1 graisses", 1'234'567), "1\u202F234\u202F567 graisses");
    EXPECT_EQ(groupedDigits(-1000), "−1\u202F000");
    EXPECT_EQ(groupedDigits(-100), "−100");
    EXPECT_EQ(decimalDigits(12.46), "12,5");
}

TEST(Localization, WritesSizesInUnitsOfAThousand)
{
    const std::pair<std::uint64_t, const char *> cases[]{{0, "0\u00A0octet"},           {999, "999\u00A0octets"},
                                                         {1'000, "1,0\u00A0Ko"},        {999'949, "999,9\u00A0Ko"},
                                                         {999'951, "1,0\u00A0Mo"},      {12'480'000, "12,5\u00A0Mo"},
                                                         {2'000'000'000, "2,0\u00A0Go"}};
    for (const auto &[bytes, text] : cases)
        EXPECT_EQ(displaySize(bytes), text);
}

} // namespace
} // namespace kerlune

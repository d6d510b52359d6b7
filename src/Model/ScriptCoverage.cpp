#include "Model/ScriptCoverage.h"

#include "Platform/FontFace.h"
#include "Support/Localization.h"

#include <algorithm>
#include <array>

namespace kerlune::ScriptCoverage {

namespace {

struct Row {
    const char *id;
    const char *label;
    std::u32string_view required;
    const char *group;
};

// The position of a row is its bit in every stored mask: rows may be appended, never moved. The later scripts stand
// behind the typographic sets for that reason, and "oldstyle" is the key of the ligatures.
// clang-format off
constexpr std::array<Row, 43> kRows{{
    {"latin", "Latin de base", U"ABCXYZabcxyz0123456789.,;:!?", "Latin"},
    {"french", "Français", U"àâäçéèêëîïôöùûüÿœÀÂÇÉÈÊËÎÏÔÖÙÛÜŸŒ«»", "Latin"},
    {"german", "Allemand", U"äöüßÄÖÜ„“", "Latin"},
    {"spanish", "Espagnol", U"áéíóúñüÁÉÍÓÚÑÜ¿¡", "Latin"},
    {"portuguese", "Portugais", U"ãõáàâéêíóôúçÃÕÁÀÂÉÊÍÓÔÚÇ", "Latin"},
    {"italian", "Italien", U"àèéìòùÀÈÉÌÒÙ", "Latin"},
    {"nordic", "Scandinave", U"åäöøæÅÄÖØÆ", "Latin"},
    {"polish", "Polonais", U"ąćęłńóśźżĄĆĘŁŃÓŚŹŻ", "Latin"},
    {"czech", "Tchèque", U"áčďéěíňóřšťúůýžÁČĎÉĚÍŇÓŘŠŤÚŮÝŽ", "Latin"},
    {"hungarian", "Hongrois", U"áéíóöőúüűÁÉÍÓÖŐÚÜŰ", "Latin"},
    {"romanian", "Roumain", U"ăâîșțĂÂÎȘȚ", "Latin"},
    {"turkish", "Turc", U"çğıİöşüÇĞÖŞÜ", "Latin"},
    {"vietnamese", "Vietnamien", U"ăâđêôơưĂÂĐÊÔƠƯảấầẩẫậắằẳẵặẻẽếềểễệỉịỏốồổỗộớờởỡợủứừửữựỷỹ", "Latin"},
    {"baltic", "Balte", U"āčēģīķļņšūžĀČĒĢĪĶĻŅŠŪŽ", "Latin"},
    {"cyrillic", "Cyrillique", U"АБВГДЕЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯабвгдежзийклмнопрстуфхцчшщъыьэюя", "Ecritures"},
    {"greek", "Grec", U"ΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟΠΡΣΤΥΦΧΨΩαβγδεζηθικλμνξοπρστυφχψω", "Ecritures"},
    {"arabic", "Arabe", U"ابتثجحخدذرزسشصضطظعغفقكلمنهوي", "Ecritures"},
    {"hebrew", "Hébreu", U"אבגדהוזחטיכלמנסעפצקרשת", "Ecritures"},
    {"devanagari", "Devanagari", U"अआइईउऊकखगघचछजझटठडढतथदधनपफबभमयरलवशषसह", "Ecritures"},
    {"thai", "Thaï", U"กขคงจฉชซญฐฑฒณดตถทธนบปผฝพฟภมยรลวศษสหฬอฮ", "Ecritures"},
    {"japanese", "Japonais (kana)", U"あいうえおかきくけこアイウエオカキクケコ", "Ecritures"},
    {"korean", "Coréen (hangul)", U"가나다라마바사아자차카타파하", "Ecritures"},
    {"chinese", "Chinois", U"的一是不了人我在有他这中大来上", "Ecritures"},
    {"punctuation", "Ponctuation fine", U"–—‘’“”…•·†‡", "Typographie"},
    {"currency", "Devises", U"$€£¥¢₽₹", "Typographie"},
    {"math", "Maths", U"±×÷≠≤≥∞∑√∂∫π", "Typographie"},
    {"arrows", "Flèches", U"←→↑↓↔⇐⇒", "Typographie"},
    {"fractions", "Fractions", U"½¼¾⅓⅔⅛", "Typographie"},
    {"oldstyle", "Ligatures", U"ﬁﬂ", "Typographie"},
    {"tamil", "Tamoul", U"அஆஇஈஉஊகஙசஞடணதநபமயரலவழளறன", "Ecritures"},
    {"bengali", "Bengali", U"অআইঈউঊকখগঘচছজঝটঠডঢতথদধনপফবভমযরলশষসহ", "Ecritures"},
    {"gujarati", "Gujarati", U"અઆઇઈઉઊકખગઘચછજઝટઠડઢતથદધનપફબભમયરલવશષસહ", "Ecritures"},
    {"telugu", "Télougou", U"అఆఇఈఉఊకఖగఘచఛజఝటఠడఢతథదధనపఫబభమయరలవశషసహ", "Ecritures"},
    {"kannada", "Kannada", U"ಅಆಇಈಉಊಕಖಗಘಚಛಜಝಟಠಡಢತಥದಧನಪಫಬಭಮಯರಲವಶಷಸಹ", "Ecritures"},
    {"malayalam", "Malayalam", U"അആഇഈഉഊകഖഗഘചഛജഝടഠഡഢതഥദധനപഫബഭമയരലവശഷസഹ", "Ecritures"},
    {"gurmukhi", "Gurmukhi", U"ਅਆਇਈਉਊਕਖਗਘਚਛਜਝਟਠਡਢਤਥਦਧਨਪਫਬਭਮਯਰਲਵਸਹ", "Ecritures"},
    {"sinhala", "Cingalais", U"අආඇඈඉඊකඛගඝචඡජඣටඨඩඪතථදධනපඵබභමයරලවසහ", "Ecritures"},
    {"armenian", "Arménien", U"ԱԲԳԴԵԶԷԸԹԺԻԼԽԾԿՀաբգդեզէըթժիլխծկհ", "Ecritures"},
    {"georgian", "Géorgien", U"აბგდევზთიკლმნოპჟრსტუფქღყშჩცძწჭხჯჰ", "Ecritures"},
    {"oriya", "Odia", U"ଅଆଇଈଉଊକଖଗଘଚଛଜଝଟଠଡଢତଥଦଧନପଫବଭମଯରଲଶଷସହ", "Ecritures"},
    {"myanmar", "Birman", U"ကခဂဃငစဆဇဈညဋဌဍဎဏတထဒဓနပဖဗဘမယရလဝသဟဠအ", "Ecritures"},
    {"lao", "Lao", U"ກຂຄງຈສຊຍດຕຖທນບປຜຝພຟມຢຣລວຫອຮ", "Ecritures"},
    {"khmer", "Khmer", U"កខគឃងចឆជឈញដឋឌឍណតថទធនបផពភមយរលវសហឡអ", "Ecritures"},
}};
// clang-format on

constexpr std::size_t kMaskBits = 64;

std::vector<Language> makeLanguages()
{
    std::vector<Language> languages;
    languages.reserve(kRows.size());
    for (const Row &row : kRows)
        languages.push_back({row.id, row.label, row.required, row.group});
    return languages;
}

} // namespace

std::string Language::label() const
{
    return localized(labelKey);
}

const std::vector<Language> &all()
{
    static const std::vector<Language> languages = makeLanguages();
    return languages;
}

std::uint64_t mask(const FontFace &face)
{
    return mask(face.characterMap());
}

std::uint64_t mask(const CharacterMap &characters)
{
    const std::vector<Language> &languages = all();
    std::uint64_t mask = 0;
    for (std::size_t i = 0; i < languages.size() && i < kMaskBits; ++i) {
        const std::u32string_view required = languages[i].required;
        if (std::all_of(required.begin(), required.end(), [&](char32_t c) { return characters.contains(c); }))
            mask |= std::uint64_t{1} << i;
    }
    return mask;
}

std::optional<std::uint64_t> bit(std::string_view id)
{
    const std::vector<Language> &languages = all();
    for (std::size_t i = 0; i < languages.size() && i < kMaskBits; ++i) {
        if (languages[i].id == id)
            return std::uint64_t{1} << i;
    }
    return std::nullopt;
}

std::vector<Language> languages(std::uint64_t mask)
{
    std::vector<Language> covered;
    for (std::size_t i = 0; i < all().size() && i < kMaskBits; ++i) {
        if ((mask >> i & 1) != 0)
            covered.push_back(all()[i]);
    }
    return covered;
}

std::vector<std::string> groups()
{
    std::vector<std::string> keys;
    for (const Language &language : all()) {
        if (std::find(keys.begin(), keys.end(), language.group) == keys.end())
            keys.emplace_back(language.group);
    }
    return keys;
}

std::string groupLabel(const std::string &group)
{
    if (group == "Latin")
        return localized("Latin");
    if (group == "Ecritures")
        return localized("Écritures");
    if (group == "Typographie")
        return localized("Typographie");
    return group;
}

} // namespace kerlune::ScriptCoverage

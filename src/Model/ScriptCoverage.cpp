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
    {"latin", marked("Latin de base"), U"ABCXYZabcxyz0123456789.,;:!?", marked("Latin")},
    {"french", marked("Français"), U"àâäçéèêëîïôöùûüÿœÀÂÇÉÈÊËÎÏÔÖÙÛÜŸŒ«»", marked("Latin")},
    {"german", marked("Allemand"), U"äöüßÄÖÜ„“", marked("Latin")},
    {"spanish", marked("Espagnol"), U"áéíóúñüÁÉÍÓÚÑÜ¿¡", marked("Latin")},
    {"portuguese", marked("Portugais"), U"ãõáàâéêíóôúçÃÕÁÀÂÉÊÍÓÔÚÇ", marked("Latin")},
    {"italian", marked("Italien"), U"àèéìòùÀÈÉÌÒÙ", marked("Latin")},
    {"nordic", marked("Scandinave"), U"åäöøæÅÄÖØÆ", marked("Latin")},
    {"polish", marked("Polonais"), U"ąćęłńóśźżĄĆĘŁŃÓŚŹŻ", marked("Latin")},
    {"czech", marked("Tchèque"), U"áčďéěíňóřšťúůýžÁČĎÉĚÍŇÓŘŠŤÚŮÝŽ", marked("Latin")},
    {"hungarian", marked("Hongrois"), U"áéíóöőúüűÁÉÍÓÖŐÚÜŰ", marked("Latin")},
    {"romanian", marked("Roumain"), U"ăâîșțĂÂÎȘȚ", marked("Latin")},
    {"turkish", marked("Turc"), U"çğıİöşüÇĞÖŞÜ", marked("Latin")},
    {"vietnamese", marked("Vietnamien"), U"ăâđêôơưĂÂĐÊÔƠƯảấầẩẫậắằẳẵặẻẽếềểễệỉịỏốồổỗộớờởỡợủứừửữựỷỹ", marked("Latin")},
    {"baltic", marked("Balte"), U"āčēģīķļņšūžĀČĒĢĪĶĻŅŠŪŽ", marked("Latin")},
    {"cyrillic", marked("Cyrillique"), U"АБВГДЕЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯабвгдежзийклмнопрстуфхцчшщъыьэюя", marked("Ecritures")},
    {"greek", marked("Grec"), U"ΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟΠΡΣΤΥΦΧΨΩαβγδεζηθικλμνξοπρστυφχψω", marked("Ecritures")},
    {"arabic", marked("Arabe"), U"ابتثجحخدذرزسشصضطظعغفقكلمنهوي", marked("Ecritures")},
    {"hebrew", marked("Hébreu"), U"אבגדהוזחטיכלמנסעפצקרשת", marked("Ecritures")},
    {"devanagari", marked("Devanagari"), U"अआइईउऊकखगघचछजझटठडढतथदधनपफबभमयरलवशषसह", marked("Ecritures")},
    {"thai", marked("Thaï"), U"กขคงจฉชซญฐฑฒณดตถทธนบปผฝพฟภมยรลวศษสหฬอฮ", marked("Ecritures")},
    {"japanese", marked("Japonais (kana)"), U"あいうえおかきくけこアイウエオカキクケコ", marked("Ecritures")},
    {"korean", marked("Coréen (hangul)"), U"가나다라마바사아자차카타파하", marked("Ecritures")},
    {"chinese", marked("Chinois"), U"的一是不了人我在有他这中大来上", marked("Ecritures")},
    {"punctuation", marked("Ponctuation fine"), U"–—‘’“”…•·†‡", marked("Typographie")},
    {"currency", marked("Devises"), U"$€£¥¢₽₹", marked("Typographie")},
    {"math", marked("Maths"), U"±×÷≠≤≥∞∑√∂∫π", marked("Typographie")},
    {"arrows", marked("Flèches"), U"←→↑↓↔⇐⇒", marked("Typographie")},
    {"fractions", marked("Fractions"), U"½¼¾⅓⅔⅛", marked("Typographie")},
    {"oldstyle", marked("Ligatures"), U"ﬁﬂ", marked("Typographie")},
    {"tamil", marked("Tamoul"), U"அஆஇஈஉஊகஙசஞடணதநபமயரலவழளறன", marked("Ecritures")},
    {"bengali", marked("Bengali"), U"অআইঈউঊকখগঘচছজঝটঠডঢতথদধনপফবভমযরলশষসহ", marked("Ecritures")},
    {"gujarati", marked("Gujarati"), U"અઆઇઈઉઊકખગઘચછજઝટઠડઢતથદધનપફબભમયરલવશષસહ", marked("Ecritures")},
    {"telugu", marked("Télougou"), U"అఆఇఈఉఊకఖగఘచఛజఝటఠడఢతథదధనపఫబభమయరలవశషసహ", marked("Ecritures")},
    {"kannada", marked("Kannada"), U"ಅಆಇಈಉಊಕಖಗಘಚಛಜಝಟಠಡಢತಥದಧನಪಫಬಭಮಯರಲವಶಷಸಹ", marked("Ecritures")},
    {"malayalam", marked("Malayalam"), U"അആഇഈഉഊകഖഗഘചഛജഝടഠഡഢതഥദധനപഫബഭമയരലവശഷസഹ", marked("Ecritures")},
    {"gurmukhi", marked("Gurmukhi"), U"ਅਆਇਈਉਊਕਖਗਘਚਛਜਝਟਠਡਢਤਥਦਧਨਪਫਬਭਮਯਰਲਵਸਹ", marked("Ecritures")},
    {"sinhala", marked("Cingalais"), U"අආඇඈඉඊකඛගඝචඡජඣටඨඩඪතථදධනපඵබභමයරලවසහ", marked("Ecritures")},
    {"armenian", marked("Arménien"), U"ԱԲԳԴԵԶԷԸԹԺԻԼԽԾԿՀաբգդեզէըթժիլխծկհ", marked("Ecritures")},
    {"georgian", marked("Géorgien"), U"აბგდევზთიკლმნოპჟრსტუფქღყშჩცძწჭხჯჰ", marked("Ecritures")},
    {"oriya", marked("Odia"), U"ଅଆଇଈଉଊକଖଗଘଚଛଜଝଟଠଡଢତଥଦଧନପଫବଭମଯରଲଶଷସହ", marked("Ecritures")},
    {"myanmar", marked("Birman"), U"ကခဂဃငစဆဇဈညဋဌဍဎဏတထဒဓနပဖဗဘမယရလဝသဟဠအ", marked("Ecritures")},
    {"lao", marked("Lao"), U"ກຂຄງຈສຊຍດຕຖທນບປຜຝພຟມຢຣລວຫອຮ", marked("Ecritures")},
    {"khmer", marked("Khmer"), U"កខគឃងចឆជឈញដឋឌឍណតថទធនបផពភមយរលវសហឡអ", marked("Ecritures")},
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

#include "Platform/FaceFeatures.h"
#include "Support/Localization.h"

#include <algorithm>
#include <array>
#include <utility>

namespace kerlune {

namespace {

using Name = std::pair<Tag, const char *>;

// OpenType, Registered Features, in the order of their tags; the numbered ones are below.
constexpr std::array<Name, 124> kNames{{
    {tag("aalt"), marked("Toutes les variantes")},
    {tag("abvf"), marked("Formes au-dessus de la base")},
    {tag("abvm"), marked("Marques au-dessus")},
    {tag("abvs"), marked("Substitutions au-dessus")},
    {tag("afrc"), marked("Fractions alternatives")},
    {tag("akhn"), marked("Akhanda")},
    {tag("apkn"), marked("Crénage de la chasse proportionnelle")},
    {tag("blwf"), marked("Formes sous la base")},
    {tag("blwm"), marked("Marques au-dessous")},
    {tag("blws"), marked("Substitutions au-dessous")},
    {tag("c2pc"), marked("Très petites capitales pour les capitales")},
    {tag("c2sc"), marked("Petites capitales pour les capitales")},
    {tag("calt"), marked("Variantes contextuelles")},
    {tag("case"), marked("Formes selon la casse")},
    {tag("ccmp"), marked("Composition et décomposition")},
    {tag("cfar"), marked("Formes conjointes après ra")},
    {tag("chws"), marked("Chasse demi-cadratin contextuelle")},
    {tag("cjct"), marked("Formes conjointes")},
    {tag("clig"), marked("Ligatures contextuelles")},
    {tag("cpct"), marked("Ponctuation CJC centrée")},
    {tag("cpsp"), marked("Approche des capitales")},
    {tag("cswh"), marked("Lettres ornées contextuelles")},
    {tag("curs"), marked("Attaches cursives")},
    {tag("dist"), marked("Distances")},
    {tag("dlig"), marked("Ligatures facultatives")},
    {tag("dnom"), marked("Dénominateurs")},
    {tag("dtls"), marked("Formes sans point")},
    {tag("expt"), marked("Formes d’expert")},
    {tag("falt"), marked("Dernier glyphe de la ligne")},
    {tag("fin2"), marked("Formes finales 2")},
    {tag("fin3"), marked("Formes finales 3")},
    {tag("fina"), marked("Formes finales")},
    {tag("flac"), marked("Accents aplatis sur capitales")},
    {tag("frac"), marked("Fractions")},
    {tag("fwid"), marked("Pleine chasse")},
    {tag("half"), marked("Demi-formes")},
    {tag("haln"), marked("Formes halant")},
    {tag("halt"), marked("Demi-chasse alternative")},
    {tag("hist"), marked("Formes historiques")},
    {tag("hkna"), marked("Kana horizontaux")},
    {tag("hlig"), marked("Ligatures historiques")},
    {tag("hngl"), marked("Hangûl")},
    {tag("hojo"), marked("Kanji Hojo")},
    {tag("hwid"), marked("Demi-chasse")},
    {tag("init"), marked("Formes initiales")},
    {tag("isol"), marked("Formes isolées")},
    {tag("ital"), marked("Italiques")},
    {tag("jalt"), marked("Variantes de justification")},
    {tag("jp04"), marked("Formes JIS2004")},
    {tag("jp78"), marked("Formes JIS78")},
    {tag("jp83"), marked("Formes JIS83")},
    {tag("jp90"), marked("Formes JIS90")},
    {tag("kern"), marked("Crénage")},
    {tag("lfbd"), marked("Limite gauche")},
    {tag("liga"), marked("Ligatures usuelles")},
    {tag("ljmo"), marked("Jamos initiaux")},
    {tag("lnum"), marked("Chiffres Didot")},
    {tag("locl"), marked("Formes locales")},
    {tag("ltra"), marked("Variantes de gauche à droite")},
    {tag("ltrm"), marked("Formes en miroir de gauche à droite")},
    {tag("mark"), marked("Placement des marques")},
    {tag("med2"), marked("Formes médianes 2")},
    {tag("medi"), marked("Formes médianes")},
    {tag("mgrk"), marked("Lettres grecques mathématiques")},
    {tag("mkmk"), marked("Marques sur marques")},
    {tag("mset"), marked("Placement des marques par substitution")},
    {tag("nalt"), marked("Annotations")},
    {tag("nlck"), marked("Kanji NLC")},
    {tag("nukt"), marked("Formes nukta")},
    {tag("numr"), marked("Numérateurs")},
    {tag("onum"), marked("Chiffres elzéviriens")},
    {tag("opbd"), marked("Limites optiques")},
    {tag("ordn"), marked("Ordinaux")},
    {tag("ornm"), marked("Ornements")},
    {tag("palt"), marked("Chasse proportionnelle alternative")},
    {tag("pcap"), marked("Très petites capitales")},
    {tag("pkna"), marked("Kana proportionnels")},
    {tag("pnum"), marked("Chiffres proportionnels")},
    {tag("pref"), marked("Formes avant la base")},
    {tag("pres"), marked("Substitutions avant la base")},
    {tag("pstf"), marked("Formes après la base")},
    {tag("psts"), marked("Substitutions après la base")},
    {tag("pwid"), marked("Chasse proportionnelle")},
    {tag("qwid"), marked("Quart de chasse")},
    {tag("rand"), marked("Variantes au hasard")},
    {tag("rclt"), marked("Variantes contextuelles requises")},
    {tag("rkrf"), marked("Formes rakar")},
    {tag("rlig"), marked("Ligatures requises")},
    {tag("rphf"), marked("Formes reph")},
    {tag("rtbd"), marked("Limite droite")},
    {tag("rtla"), marked("Variantes de droite à gauche")},
    {tag("rtlm"), marked("Formes en miroir de droite à gauche")},
    {tag("ruby"), marked("Formes pour annotations ruby")},
    {tag("rvrn"), marked("Variantes requises de la variation")},
    {tag("salt"), marked("Variantes stylistiques")},
    {tag("sinf"), marked("Inférieurs scientifiques")},
    {tag("size"), marked("Corps optique")},
    {tag("smcp"), marked("Petites capitales")},
    {tag("smpl"), marked("Formes simplifiées")},
    {tag("ssty"), marked("Style des exposants mathématiques")},
    {tag("stch"), marked("Étirement du glyphe")},
    {tag("subs"), marked("Indices")},
    {tag("sups"), marked("Exposants")},
    {tag("swsh"), marked("Lettres ornées")},
    {tag("titl"), marked("Titrage")},
    {tag("tjmo"), marked("Jamos finaux")},
    {tag("tnam"), marked("Formes traditionnelles des noms")},
    {tag("tnum"), marked("Chiffres tabulaires")},
    {tag("trad"), marked("Formes traditionnelles")},
    {tag("twid"), marked("Tiers de chasse")},
    {tag("unic"), marked("Unicase")},
    {tag("valt"), marked("Hauteurs de ligne verticales alternatives")},
    {tag("vapk"), marked("Crénage vertical de la chasse proportionnelle")},
    {tag("vatu"), marked("Variantes vattu")},
    {tag("vchw"), marked("Demi-cadratin vertical contextuel")},
    {tag("vert"), marked("Variantes verticales")},
    {tag("vhal"), marked("Demi-chasse verticale alternative")},
    {tag("vjmo"), marked("Jamos vocaliques")},
    {tag("vkna"), marked("Kana verticaux")},
    {tag("vkrn"), marked("Crénage vertical")},
    {tag("vpal"), marked("Chasse verticale proportionnelle")},
    {tag("vrt2"), marked("Variantes verticales et rotation")},
    {tag("vrtr"), marked("Variantes verticales à tourner")},
    {tag("zero"), marked("Zéro barré")},
}};

constexpr bool isInOrder()
{
    for (std::size_t i = 1; i < kNames.size(); ++i) {
        if (kNames.at(i).first <= kNames.at(i - 1).first)
            return false;
    }
    return true;
}
static_assert(isInOrder());

// What HarfBuzz applies to horizontal text of one script or another without being asked.
constexpr std::array kOnByDefault{
    tag("abvf"), tag("abvm"), tag("abvs"), tag("akhn"), tag("blwf"), tag("blwm"), tag("blws"), tag("calt"),
    tag("ccmp"), tag("cfar"), tag("cjct"), tag("clig"), tag("curs"), tag("dist"), tag("fin2"), tag("fin3"),
    tag("fina"), tag("half"), tag("haln"), tag("init"), tag("isol"), tag("kern"), tag("liga"), tag("ljmo"),
    tag("locl"), tag("ltra"), tag("ltrm"), tag("mark"), tag("med2"), tag("medi"), tag("mkmk"), tag("mset"),
    tag("nukt"), tag("pref"), tag("pres"), tag("pstf"), tag("psts"), tag("rclt"), tag("rkrf"), tag("rlig"),
    tag("rphf"), tag("rtla"), tag("rtlm"), tag("rvrn"), tag("stch"), tag("tjmo"), tag("vatu"), tag("vjmo")};
static_assert(std::is_sorted(kOnByDefault.begin(), kOnByDefault.end()));

// The number of a tag such as ss07 or cv42; 0 when it is none of these.
int numberOf(Tag feature, const char (&prefix)[3], int most)
{
    const auto byte = [feature](unsigned shift) { return static_cast<int>((feature >> shift) & 0xFF); };
    const auto isDigit = [](int character) { return character >= '0' && character <= '9'; };
    if (byte(24) != prefix[0] || byte(16) != prefix[1] || !isDigit(byte(8)) || !isDigit(byte(0)))
        return 0;
    const int number = (byte(8) - '0') * 10 + byte(0) - '0';
    return number <= most ? number : 0;
}

} // namespace

std::string featureLabel(Tag feature)
{
    if (const int set = numberOf(feature, "ss", 20); set > 0)
        return localized("Jeu stylistique %1", {std::to_string(set)});
    if (const int variant = numberOf(feature, "cv", 99); variant > 0)
        return localized("Variante de caractère %1", {std::to_string(variant)});
    const auto *const found = std::lower_bound(kNames.begin(), kNames.end(), feature,
                                               [](const Name &name, Tag wanted) { return name.first < wanted; });
    return found != kNames.end() && found->first == feature ? localized(found->second) : std::string();
}

bool isFeatureOnByDefault(Tag feature)
{
    return std::binary_search(kOnByDefault.begin(), kOnByDefault.end(), feature);
}

} // namespace kerlune

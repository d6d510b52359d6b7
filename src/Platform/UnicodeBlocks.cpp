#include "Platform/UnicodeBlocks.h"

#include "Support/Localization.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <array>
#include <utility>

namespace kerlune {

namespace {

using Name = std::pair<UBlockCode, const char *>;

// Those that fonts of our users' languages, of the large scripts and of symbols are made of.
constexpr std::array<Name, 162> kNames{{
    {UBLOCK_BASIC_LATIN, marked("Latin de base")},
    {UBLOCK_LATIN_1_SUPPLEMENT, marked("Supplément Latin-1")},
    {UBLOCK_LATIN_EXTENDED_A, marked("Latin étendu A")},
    {UBLOCK_LATIN_EXTENDED_B, marked("Latin étendu B")},
    {UBLOCK_IPA_EXTENSIONS, marked("Alphabet phonétique international")},
    {UBLOCK_SPACING_MODIFIER_LETTERS, marked("Lettres modificatives avec chasse")},
    {UBLOCK_COMBINING_DIACRITICAL_MARKS, marked("Diacritiques")},
    {UBLOCK_GREEK, marked("Grec et copte")},
    {UBLOCK_CYRILLIC, marked("Cyrillique")},
    {UBLOCK_ARMENIAN, marked("Arménien")},
    {UBLOCK_HEBREW, marked("Hébreu")},
    {UBLOCK_ARABIC, marked("Arabe")},
    {UBLOCK_SYRIAC, marked("Syriaque")},
    {UBLOCK_THAANA, marked("Thâna")},
    {UBLOCK_DEVANAGARI, marked("Dévanâgarî")},
    {UBLOCK_BENGALI, marked("Bengali")},
    {UBLOCK_GURMUKHI, marked("Gourmoukhî")},
    {UBLOCK_GUJARATI, marked("Goudjarati")},
    {UBLOCK_ORIYA, marked("Oriya")},
    {UBLOCK_TAMIL, marked("Tamoul")},
    {UBLOCK_TELUGU, marked("Télougou")},
    {UBLOCK_KANNADA, marked("Kannara")},
    {UBLOCK_MALAYALAM, marked("Malayalam")},
    {UBLOCK_SINHALA, marked("Singhalais")},
    {UBLOCK_THAI, marked("Thaï")},
    {UBLOCK_LAO, marked("Lao")},
    {UBLOCK_TIBETAN, marked("Tibétain")},
    {UBLOCK_MYANMAR, marked("Birman")},
    {UBLOCK_GEORGIAN, marked("Géorgien")},
    {UBLOCK_HANGUL_JAMO, marked("Jamos hangûl")},
    {UBLOCK_ETHIOPIC, marked("Éthiopien")},
    {UBLOCK_CHEROKEE, marked("Tchérokî")},
    {UBLOCK_UNIFIED_CANADIAN_ABORIGINAL_SYLLABICS, marked("Syllabaires autochtones canadiens")},
    {UBLOCK_OGHAM, marked("Ogam")},
    {UBLOCK_RUNIC, marked("Runes")},
    {UBLOCK_KHMER, marked("Khmer")},
    {UBLOCK_MONGOLIAN, marked("Mongol")},
    {UBLOCK_LATIN_EXTENDED_ADDITIONAL, marked("Latin étendu additionnel")},
    {UBLOCK_GREEK_EXTENDED, marked("Grec étendu")},
    {UBLOCK_GENERAL_PUNCTUATION, marked("Ponctuation générale")},
    {UBLOCK_SUPERSCRIPTS_AND_SUBSCRIPTS, marked("Exposants et indices")},
    {UBLOCK_CURRENCY_SYMBOLS, marked("Symboles monétaires")},
    {UBLOCK_COMBINING_MARKS_FOR_SYMBOLS, marked("Diacritiques pour symboles")},
    {UBLOCK_LETTERLIKE_SYMBOLS, marked("Symboles de type lettre")},
    {UBLOCK_NUMBER_FORMS, marked("Formes numérales")},
    {UBLOCK_ARROWS, marked("Flèches")},
    {UBLOCK_MATHEMATICAL_OPERATORS, marked("Opérateurs mathématiques")},
    {UBLOCK_MISCELLANEOUS_TECHNICAL, marked("Signes techniques divers")},
    {UBLOCK_CONTROL_PICTURES, marked("Pictogrammes de commande")},
    {UBLOCK_OPTICAL_CHARACTER_RECOGNITION, marked("Reconnaissance optique de caractères")},
    {UBLOCK_ENCLOSED_ALPHANUMERICS, marked("Alphanumériques cerclés")},
    {UBLOCK_BOX_DRAWING, marked("Filets")},
    {UBLOCK_BLOCK_ELEMENTS, marked("Pavés")},
    {UBLOCK_GEOMETRIC_SHAPES, marked("Formes géométriques")},
    {UBLOCK_MISCELLANEOUS_SYMBOLS, marked("Symboles divers")},
    {UBLOCK_DINGBATS, marked("Casseau")},
    {UBLOCK_BRAILLE_PATTERNS, marked("Combinaisons Braille")},
    {UBLOCK_CJK_RADICALS_SUPPLEMENT, marked("Formes supplémentaires des clés CJC")},
    {UBLOCK_KANGXI_RADICALS, marked("Clés chinoises Kangxi")},
    {UBLOCK_IDEOGRAPHIC_DESCRIPTION_CHARACTERS, marked("Description idéographique")},
    {UBLOCK_CJK_SYMBOLS_AND_PUNCTUATION, marked("Symboles et ponctuation CJC")},
    {UBLOCK_HIRAGANA, marked("Hiragana")},
    {UBLOCK_KATAKANA, marked("Katakana")},
    {UBLOCK_BOPOMOFO, marked("Bopomofo")},
    {UBLOCK_HANGUL_COMPATIBILITY_JAMO, marked("Jamos de compatibilité hangûl")},
    {UBLOCK_KANBUN, marked("Kanboun")},
    {UBLOCK_BOPOMOFO_EXTENDED, marked("Bopomofo étendu")},
    {UBLOCK_ENCLOSED_CJK_LETTERS_AND_MONTHS, marked("Lettres et mois CJC cerclés")},
    {UBLOCK_CJK_COMPATIBILITY, marked("Compatibilité CJC")},
    {UBLOCK_CJK_UNIFIED_IDEOGRAPHS_EXTENSION_A, marked("Supplément A aux idéogrammes CJC")},
    {UBLOCK_CJK_UNIFIED_IDEOGRAPHS, marked("Idéogrammes unifiés CJC")},
    {UBLOCK_YI_SYLLABLES, marked("Syllabaire yi")},
    {UBLOCK_YI_RADICALS, marked("Clés yi")},
    {UBLOCK_HANGUL_SYLLABLES, marked("Syllabes hangûl")},
    {UBLOCK_PRIVATE_USE_AREA, marked("Zone à usage privé")},
    {UBLOCK_CJK_COMPATIBILITY_IDEOGRAPHS, marked("Idéogrammes de compatibilité CJC")},
    {UBLOCK_ALPHABETIC_PRESENTATION_FORMS, marked("Formes de présentation alphabétiques")},
    {UBLOCK_ARABIC_PRESENTATION_FORMS_A, marked("Formes A de présentation arabes")},
    {UBLOCK_COMBINING_HALF_MARKS, marked("Demi-signes combinatoires")},
    {UBLOCK_CJK_COMPATIBILITY_FORMS, marked("Formes de compatibilité CJC")},
    {UBLOCK_SMALL_FORM_VARIANTS, marked("Petites variantes de forme")},
    {UBLOCK_ARABIC_PRESENTATION_FORMS_B, marked("Formes B de présentation arabes")},
    {UBLOCK_SPECIALS, marked("Caractères spéciaux")},
    {UBLOCK_HALFWIDTH_AND_FULLWIDTH_FORMS, marked("Formes demi-chasse et pleine chasse")},
    {UBLOCK_OLD_ITALIC, marked("Alphabet italique")},
    {UBLOCK_GOTHIC, marked("Gotique")},
    {UBLOCK_MUSICAL_SYMBOLS, marked("Symboles musicaux occidentaux")},
    {UBLOCK_MATHEMATICAL_ALPHANUMERIC_SYMBOLS, marked("Symboles mathématiques alphanumériques")},
    {UBLOCK_CJK_UNIFIED_IDEOGRAPHS_EXTENSION_B, marked("Supplément B aux idéogrammes CJC")},
    {UBLOCK_CJK_COMPATIBILITY_IDEOGRAPHS_SUPPLEMENT, marked("Supplément aux idéogrammes de compatibilité CJC")},
    {UBLOCK_TAGS, marked("Étiquettes")},
    {UBLOCK_CYRILLIC_SUPPLEMENT, marked("Supplément cyrillique")},
    {UBLOCK_MISCELLANEOUS_MATHEMATICAL_SYMBOLS_A, marked("Divers symboles mathématiques A")},
    {UBLOCK_SUPPLEMENTAL_ARROWS_A, marked("Supplément A de flèches")},
    {UBLOCK_SUPPLEMENTAL_ARROWS_B, marked("Supplément B de flèches")},
    {UBLOCK_MISCELLANEOUS_MATHEMATICAL_SYMBOLS_B, marked("Divers symboles mathématiques B")},
    {UBLOCK_SUPPLEMENTAL_MATHEMATICAL_OPERATORS, marked("Opérateurs mathématiques supplémentaires")},
    {UBLOCK_KATAKANA_PHONETIC_EXTENSIONS, marked("Extension phonétique katakana")},
    {UBLOCK_VARIATION_SELECTORS, marked("Sélecteurs de variante")},
    {UBLOCK_SUPPLEMENTARY_PRIVATE_USE_AREA_A, marked("Zone supplémentaire A à usage privé")},
    {UBLOCK_SUPPLEMENTARY_PRIVATE_USE_AREA_B, marked("Zone supplémentaire B à usage privé")},
    {UBLOCK_PHONETIC_EXTENSIONS, marked("Supplément phonétique")},
    {UBLOCK_PHONETIC_EXTENSIONS_SUPPLEMENT, marked("Extensions du supplément phonétique")},
    {UBLOCK_MISCELLANEOUS_SYMBOLS_AND_ARROWS, marked("Symboles divers et flèches")},
    {UBLOCK_YIJING_HEXAGRAM_SYMBOLS, marked("Hexagrammes du Yijing")},
    {UBLOCK_TAI_XUAN_JING_SYMBOLS, marked("Symboles du Tai Xuan Jing")},
    {UBLOCK_VARIATION_SELECTORS_SUPPLEMENT, marked("Supplément de sélecteurs de variante")},
    {UBLOCK_ANCIENT_GREEK_NUMBERS, marked("Nombres grecs anciens")},
    {UBLOCK_ARABIC_SUPPLEMENT, marked("Supplément arabe")},
    {UBLOCK_CJK_STROKES, marked("Traits CJC")},
    {UBLOCK_COMBINING_DIACRITICAL_MARKS_SUPPLEMENT, marked("Supplément de diacritiques")},
    {UBLOCK_COMBINING_DIACRITICAL_MARKS_EXTENDED, marked("Diacritiques étendus")},
    {UBLOCK_COPTIC, marked("Copte")},
    {UBLOCK_ETHIOPIC_EXTENDED, marked("Éthiopien étendu")},
    {UBLOCK_ETHIOPIC_SUPPLEMENT, marked("Supplément éthiopien")},
    {UBLOCK_GEORGIAN_SUPPLEMENT, marked("Supplément géorgien")},
    {UBLOCK_GEORGIAN_EXTENDED, marked("Géorgien étendu")},
    {UBLOCK_GLAGOLITIC, marked("Glagolitique")},
    {UBLOCK_MODIFIER_TONE_LETTERS, marked("Lettres modificatives de ton")},
    {UBLOCK_SUPPLEMENTAL_PUNCTUATION, marked("Ponctuation complémentaire")},
    {UBLOCK_TIFINAGH, marked("Tifinagh")},
    {UBLOCK_VERTICAL_FORMS, marked("Formes verticales")},
    {UBLOCK_NKO, marked("N’ko")},
    {UBLOCK_LATIN_EXTENDED_C, marked("Latin étendu C")},
    {UBLOCK_LATIN_EXTENDED_D, marked("Latin étendu D")},
    {UBLOCK_LATIN_EXTENDED_E, marked("Latin étendu E")},
    {UBLOCK_LATIN_EXTENDED_F, marked("Latin étendu F")},
    {UBLOCK_LATIN_EXTENDED_G, marked("Latin étendu G")},
    {UBLOCK_CYRILLIC_EXTENDED_A, marked("Cyrillique étendu A")},
    {UBLOCK_CYRILLIC_EXTENDED_B, marked("Cyrillique étendu B")},
    {UBLOCK_CYRILLIC_EXTENDED_C, marked("Cyrillique étendu C")},
    {UBLOCK_ANCIENT_SYMBOLS, marked("Symboles antiques")},
    {UBLOCK_MAHJONG_TILES, marked("Tuiles de mah-jong")},
    {UBLOCK_DOMINO_TILES, marked("Dominos")},
    {UBLOCK_PLAYING_CARDS, marked("Cartes à jouer")},
    {UBLOCK_VEDIC_EXTENSIONS, marked("Extensions védiques")},
    {UBLOCK_COMMON_INDIC_NUMBER_FORMS, marked("Formes numérales indiennes communes")},
    {UBLOCK_DEVANAGARI_EXTENDED, marked("Dévanâgarî étendu")},
    {UBLOCK_EGYPTIAN_HIEROGLYPHS, marked("Hiéroglyphes égyptiens")},
    {UBLOCK_ENCLOSED_ALPHANUMERIC_SUPPLEMENT, marked("Supplément d’alphanumériques cerclés")},
    {UBLOCK_ENCLOSED_IDEOGRAPHIC_SUPPLEMENT, marked("Supplément d’idéogrammes cerclés")},
    {UBLOCK_CJK_UNIFIED_IDEOGRAPHS_EXTENSION_C, marked("Supplément C aux idéogrammes CJC")},
    {UBLOCK_CJK_UNIFIED_IDEOGRAPHS_EXTENSION_D, marked("Supplément D aux idéogrammes CJC")},
    {UBLOCK_CJK_UNIFIED_IDEOGRAPHS_EXTENSION_E, marked("Supplément E aux idéogrammes CJC")},
    {UBLOCK_CJK_UNIFIED_IDEOGRAPHS_EXTENSION_F, marked("Supplément F aux idéogrammes CJC")},
    {UBLOCK_CJK_UNIFIED_IDEOGRAPHS_EXTENSION_G, marked("Supplément G aux idéogrammes CJC")},
    {UBLOCK_CJK_UNIFIED_IDEOGRAPHS_EXTENSION_H, marked("Supplément H aux idéogrammes CJC")},
    {UBLOCK_KANA_SUPPLEMENT, marked("Supplément de kanas")},
    {UBLOCK_MISCELLANEOUS_SYMBOLS_AND_PICTOGRAPHS, marked("Symboles et pictogrammes divers")},
    {UBLOCK_EMOTICONS, marked("Émoticônes")},
    {UBLOCK_TRANSPORT_AND_MAP_SYMBOLS, marked("Symboles de transport et de cartographie")},
    {UBLOCK_ALCHEMICAL_SYMBOLS, marked("Symboles alchimiques")},
    {UBLOCK_ARABIC_EXTENDED_A, marked("Arabe étendu A")},
    {UBLOCK_ARABIC_EXTENDED_B, marked("Arabe étendu B")},
    {UBLOCK_ARABIC_MATHEMATICAL_ALPHABETIC_SYMBOLS, marked("Symboles mathématiques arabes")},
    {UBLOCK_GEOMETRIC_SHAPES_EXTENDED, marked("Formes géométriques étendues")},
    {UBLOCK_ORNAMENTAL_DINGBATS, marked("Casseau ornemental")},
    {UBLOCK_SUPPLEMENTAL_ARROWS_C, marked("Supplément C de flèches")},
    {UBLOCK_SUPPLEMENTAL_SYMBOLS_AND_PICTOGRAPHS, marked("Symboles et pictogrammes supplémentaires")},
    {UBLOCK_SYMBOLS_AND_PICTOGRAPHS_EXTENDED_A, marked("Symboles et pictogrammes étendus A")},
    {UBLOCK_CHESS_SYMBOLS, marked("Symboles d’échecs")},
    {UBLOCK_SYMBOLS_FOR_LEGACY_COMPUTING, marked("Symboles d’informatique ancienne")},
}};

} // namespace

int unicodeBlock(char32_t character)
{
    return ublock_getCode(static_cast<UChar32>(character));
}

std::string blockLabel(int block)
{
    const auto *const known =
        std::find_if(kNames.begin(), kNames.end(), [block](const Name &name) { return name.first == block; });
    if (known != kNames.end())
        return localized(known->second);
    const char *const official =
        block == UBLOCK_NO_BLOCK ? nullptr : u_getPropertyValueName(UCHAR_BLOCK, block, U_LONG_PROPERTY_NAME);
    if (official == nullptr)
        return localized("Hors des blocs");
    std::string label(official);
    std::replace(label.begin(), label.end(), '_', ' ');
    return label;
}

} // namespace kerlune

#pragma once

#include "Model/FontRecord.h"

#include <array>
#include <cstddef>
#include <random>
#include <string>
#include <vector>

namespace kerlune {

// The records of a large library that there is not: names, makers, styles and scripts as varied as in a real one. Every
// family name and every PostScript name is there once. The same records in every run.
class MadeRecords final {
public:
    // At most 20,160 families.
    static std::vector<FontRecordPointer> make(std::size_t families, std::size_t facesOfAFamily)
    {
        MadeRecords made;
        std::vector<FontRecordPointer> records;
        for (std::size_t i = 0; i < families; ++i) {
            const FontRecord family = made.family(i * 7919 % kMostFamilies); // in no order, as files come
            for (std::size_t k = 0; k < facesOfAFamily; ++k)
                records.push_back(std::make_shared<const FontRecord>(made.face(family, k)));
        }
        return records;
    }

private:
    struct Style {
        const char *name;
        double weight;
        double width;
        bool isItalic;
    };

    static constexpr std::array kFirstWords{"Aldine",  "Arbor",   "Bastia", "Birch",  "Calder",  "Carmin",  "Corvus",
                                            "Delta",   "Dorne",   "Ember",  "Élan",   "Fable",   "Fjord",   "Garnet",
                                            "Glyphe",  "Halden",  "Héron",  "Indigo", "Jasper",  "Juniper", "Kanto",
                                            "Kestrel", "Lumière", "Larch",  "Merlin", "Mistral", "Nacre",   "Nordic",
                                            "Obélisk", "Orion",   "Palais", "Pivot",  "Quartz",  "Rivage",  "Saffron",
                                            "Sienna",  "Thérèse", "Tundra", "Umber",  "Vesper",  "Willow",  "Zénith"};
    static constexpr std::array kSecondWords{
        "Antique", "Atelier", "Book",    "Branch", "Caption", "Classic", "Condensed", "Craft",  "Display", "Edge",
        "Gothic",  "Grand",   "Grotesk", "Hand",   "Heading", "House",   "Humanist",  "Island", "Journal", "Letter",
        "Linear",  "Modern",  "Neue",    "News",   "Office",  "Old",     "Print",     "Poster", "Rounded", "Sketch",
        "Square",  "Stencil", "Studio",  "Street", "Text",    "Title",   "Tower",     "Type",   "Urban",   "Wide"};
    static constexpr std::array kLastWords{"",     " Sans", " Serif", " Slab", " Mono", " Script",
                                           " Pro", " Deco", " Soft",  " Caps", " UI",   " Two"};
    static constexpr std::array kFoundries{
        "Harbour Type Co.",  "Fonderie du Marais", "North Letters",   "Atelier Chêne",  "Paper & Lead",
        "Studio Vingt-Deux", "Open Glyph Project", "Lindqvist Type",  "Casa de Letras", "Fonderie Élysée",
        "Typetown Ltd",      "Quiet Press",        "Gutter & Margin", "Red Brick Type", "Hansen Bogtryk"};
    static constexpr std::array kGivenNames{"Anna",   "Bruno",  "Chloé", "Daniel", "Elena", "Franz", "Greta", "Hugo",
                                            "Ingrid", "Jérôme", "Karin", "Louis",  "Marta", "Nils",  "Olga",  "Paul"};
    static constexpr std::array kSurnames{"Abbot",    "Bernard", "Carvalho", "Dubois",  "Eriksen",
                                          "Fontaine", "Garcia",  "Hoffmann", "Ivanova", "Jansen",
                                          "Kowalski", "Lefèvre", "Moreau",   "Novák"};
    static constexpr std::array kStyles{Style{"Regular", 0, 0, false},   Style{"Italic", 0, 0, true},
                                        Style{"Bold", 0.6, 0, false},    Style{"Bold Italic", 0.6, 0, true},
                                        Style{"Light", -0.4, 0, false},  Style{"Light Italic", -0.4, 0, true},
                                        Style{"Black", 1, 0, false},     Style{"Condensed Bold", 0.6, -0.5, false},
                                        Style{"Medium", 0.23, 0, false}, Style{"Thin", -0.8, 0, false}};
    // From a few languages to nearly all.
    static constexpr std::array<std::uint64_t, 6> kScriptMasks{0x7, 0xFF, 0xFFFF, 0x1FFFFF, 0xFFFFFFF, 0x3FFFFFFFFFF};

    static constexpr std::size_t kMostFamilies = kFirstWords.size() * kSecondWords.size() * kLastWords.size();

    std::size_t below(std::size_t end) { return m_random() % end; }

    template <typename List>
    auto oneOf(const List &list)
    {
        return list[below(list.size())];
    }

    // What the faces of a family have in common.
    FontRecord family(std::size_t number)
    {
        FontRecord record;
        record.family = std::string(kFirstWords[number % kFirstWords.size()]) + ' ' +
                        kSecondWords[number / kFirstWords.size() % kSecondWords.size()] +
                        kLastWords[number / kFirstWords.size() / kSecondWords.size()];
        record.mtime = 1.5e9 + static_cast<double>(below(200'000'000));
        record.classification = oneOf(kAllFontClasses);
        record.isMonospace = record.classification == FontClass::mono;
        record.isVariable = below(10) == 0;
        record.isColor = below(50) == 0;
        record.xHeightRatio = 0.45 + 0.001 * static_cast<double>(below(100));
        record.capHeightRatio = 0.65 + 0.001 * static_cast<double>(below(100));
        record.glyphCount = static_cast<std::int64_t>(200 + below(3000));
        record.scriptMask = oneOf(kScriptMasks);
        record.version = "Version 1." + std::to_string(100 + below(900)) + "; ttfautohint (v1.8)";
        if (below(10) < 8)
            record.foundry = oneOf(kFoundries);
        if (below(10) < 7)
            record.designer = std::string(oneOf(kGivenNames)) + ' ' + oneOf(kSurnames);
        if (below(10) < 8)
            record.licenseURL = "https://scripts.example.org/OFL";
        record.copyrightNotice =
            "Copyright 2011 The " + record.family + " Project Authors (https://example.org/project)";
        record.fsType = oneOf(std::array<std::uint16_t, 4>{0, 0, 4, 8});
        return record;
    }

    FontRecord face(const FontRecord &family, std::size_t number)
    {
        const Style &style = kStyles[number % kStyles.size()];
        FontRecord record = family;
        record.style = style.name;
        record.weight = style.weight;
        record.width = style.width;
        record.isItalic = style.isItalic;
        record.slant = style.isItalic ? 0.3 : 0;
        record.fileSize = 20'000 + below(400'000);
        for (const char c :
             record.family + '-' + record.style + (number < kStyles.size() ? "" : std::to_string(number))) {
            if (c > ' ') // in a char, the bytes of letters with accents are below as well
                record.postScriptName += c;
        }
        record.filePath = "/usr/share/fonts/truetype/collection/" + record.postScriptName + ".ttf";
        return record;
    }

    std::mt19937 m_random{1};
};

} // namespace kerlune

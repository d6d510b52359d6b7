#include "Model/EmbeddingRights.h"

#include "Support/Localization.h"

namespace kerlune {

EmbeddingRights embeddingRightsFromFsType(std::uint16_t fsType)
{
    if ((fsType & 0x0002) != 0)
        return EmbeddingRights::restricted;
    if ((fsType & 0x0004) != 0)
        return EmbeddingRights::previewAndPrint;
    if ((fsType & 0x0008) != 0)
        return EmbeddingRights::editable;
    if ((fsType & 0x0001) != 0)
        return EmbeddingRights::unknown;
    return EmbeddingRights::installable;
}

std::string label(EmbeddingRights rights)
{
    switch (rights) {
    case EmbeddingRights::installable:
        return localized("Intégration libre");
    case EmbeddingRights::restricted:
        return localized("Intégration interdite");
    case EmbeddingRights::previewAndPrint:
        return localized("Aperçu et impression seulement");
    case EmbeddingRights::editable:
        return localized("Intégration modifiable");
    case EmbeddingRights::unknown:
        return localized("Inconnu");
    }
    return {};
}

} // namespace kerlune

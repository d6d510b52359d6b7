#include "UI/Window/ApplyNotice.h"

#include "UI/InterfaceText.h"

namespace kerlune {

Notice noticeOf(const ApplyResult &result)
{
    const auto *applied = std::get_if<ApplyOutcome::Applied>(&result);
    if (applied == nullptr)
        return {failureMessage(result), true};
    const QString count = uiCount("Police appliquée à %1 élément.", "Police appliquée à %1 éléments.", applied->count);
    const QString text = uiText("%1 : %2", {shown(displayName(applied->target)), count});
    if (!applied->note)
        return {text.toStdString()};
    return {uiText("%1 ; %2", {text.chopped(1), shown(*applied->note)}).toStdString()}; // in place of its full stop
}

} // namespace kerlune

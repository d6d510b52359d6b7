#pragma once

#include "Catalogs/GoogleFontFamily.h"
#include "Catalogs/GoogleSubsets.h"

#include <QBindable>
#include <QCoroTask>
#include <QObject>
#include <QProperty>

#include <cstdint>
#include <map>
#include <set>
#include <string>

namespace kerlune {

// Fonts to draw families of the Google catalogue with, without installing them. Who wants to draw a family asks for it;
// its font comes later.
//
// Thread: main.
// Errors: none. A family that cannot be had has no descriptor, and is not asked for again while this lives.
class GooglePreviewStore final : public QObject {
    Q_OBJECT

public:
    using Descriptors = std::map<std::string, FontRecordPointer>; // by the family's name in the catalogue

    // Clears the folder of an earlier design, GooglePreviews. The subsets must outlive this.
    GooglePreviewStore(GoogleSubsets &subsets, const Directories &directories);

    const Descriptors &descriptors() const { return m_descriptors; }
    FontRecordPointer descriptor(const std::string &family) const; // null when there is none, or not yet
    bool isPending(const std::string &family) const { return m_pending.contains(family); }
    bool hasFailed(const std::string &family) const { return m_failed.contains(family); }
    std::int64_t revision() const { return m_revision.value(); } // grows when a family has come, or failed
    QBindable<std::int64_t> bindableRevision() { return &m_revision; }

    // Those asked for last come first; to ask again for one that is on its way is to ask for it last.
    void request(const GoogleFontFamily &family);

Q_SIGNALS:
    void settled(const std::string &family); // it has a descriptor now, or has failed

private:
    QCoro::Task<> load(GoogleFontFamily family);

    GoogleSubsets &m_subsets;
    Descriptors m_descriptors;
    std::set<std::string> m_pending;
    std::set<std::string> m_failed;
    QProperty<std::int64_t> m_revision;
};

} // namespace kerlune

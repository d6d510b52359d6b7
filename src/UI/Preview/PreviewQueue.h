#pragma once

#include "UI/Preview/PreviewRequest.h"

#include <QObject>

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

namespace kerlune {

// Draws previews on worker threads, and keeps those last used within a limit of bytes.
//
// Each view says, whenever it scrolls or changes, which previews it wants, the nearest first; what it wanted before and
// wants no longer is not drawn. previewsReady() tells, gathered, that some have come; the view then paints again and
// takes them by find().
//
// Thread: main. Going waits for the few previews that are being drawn.
class PreviewQueue final : public QObject {
    Q_OBJECT

public:
    static constexpr std::size_t kDefaultByteLimit = std::size_t{96} << 20;

    using Draw = std::function<Preview(const PreviewRequest &request)>; // called on several threads at once

    explicit PreviewQueue(std::size_t byteLimit = kDefaultByteLimit, QObject *parent = nullptr);
    PreviewQueue(std::size_t byteLimit, Draw draw); // draws by this
    ~PreviewQueue() override;

    // Null while it is not there. It counts as used then.
    PreviewPointer find(const PreviewRequest &request);

    // In place of what this view wanted before; what is there already is passed over. The view is told apart by its
    // address, and wants nothing more when it is destroyed.
    void setWanted(const QObject *view, std::vector<PreviewRequest> nearestFirst);

    // Forgets what was drawn from files that are no longer as they were, or all of it.
    void clear();

    bool isIdle() const; // nothing is wanted that is not there
    std::size_t byteCount() const;

Q_SIGNALS:
    void previewsReady(); // for some views, gathered once for each turn of the event loop
    void idle();          // all that was wanted is there

private:
    void forget(const QObject *view);

    struct Implementation;
    std::unique_ptr<Implementation> m_implementation;
};

} // namespace kerlune

#pragma once

#include "Model/FontFamily.h"
#include "Platform/FaceOpening.h"
#include "UI/Workspace.h"

#include <QFutureWatcher>
#include <QWidget>
#include <QtConcurrentRun>

#include <optional>
#include <type_traits>

namespace kerlune {

// A panel of the inspector about one face. It fills itself when it is seen: a panel behind another one costs nothing.
//
// Thread: main.
class FacePanel : public QWidget {
    Q_OBJECT

public:
    explicit FacePanel(Workspace &workspace, QWidget *parent = nullptr);

    // The face is one of the family's. Null for both when there is none.
    void setFace(FontFamilyPointer family, FontRecordPointer face);

    virtual bool isSettled() const { return m_reads == 0; } // nothing is awaited that it will show

protected:
    // Whether the family is new as well. Called only while the panel is seen.
    enum class Change { Face, Family };
    virtual void showFace(Change change) = 0;
    virtual void retranslate() = 0; // all texts, those of the face as well

    Workspace &workspace() const { return m_workspace; }
    const FontFamilyPointer &family() const { return m_family; }
    const FontRecordPointer &face() const { return m_face; }

    // Reads from the face's file on another thread: take(std::optional) gets what `read` made of it, nothing when the
    // file cannot be read. Never called when the panel shows another face by then.
    template <typename Read, typename Take>
    void readFace(Read read, Take take);

    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void fill();

    Workspace &m_workspace;
    FontFamilyPointer m_family;
    FontRecordPointer m_face;
    std::optional<Change> m_pending;
    int m_reads = 0; // that have not answered yet
};

template <typename Read, typename Take>
void FacePanel::readFace(Read read, Take take)
{
    using Result = std::optional<std::invoke_result_t<Read, const std::shared_ptr<const FontFace> &>>;
    auto *const watcher = new QFutureWatcher<Result>(this);
    connect(watcher, &QFutureWatcherBase::finished, this, [this, watcher, take, asked = m_face] {
        watcher->deleteLater();
        --m_reads;
        if (asked == m_face)
            take(watcher->result());
    });
    ++m_reads;
    watcher->setFuture(QtConcurrent::run([record = m_face, read]() -> Result {
        const auto open = openFace(record->filePath, record->postScriptName);
        return open ? Result(read(*open)) : Result();
    }));
}

} // namespace kerlune

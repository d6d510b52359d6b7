#pragma once

#include "Model/FontRecord.h"
#include "Platform/TextShaping.h"

#include <QColor>
#include <QImage>
#include <QSize>
#include <QString>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace kerlune {

// A text to be drawn in a face.
struct PreviewRequest {
    enum class Lines {
        One,  // on one line; scaled down when it does not fit
        Many, // broken between words into as many lines as the height holds, scaled down only when that is not enough
    };
    enum class Sample {
        AsGiven,
        OfCoveredScript, // a sample of a script that the face covers, where it lacks most of the text's characters
    };

    FontRecordPointer face;
    std::string text;
    double emPixels = 0; // size of the em, in device pixels
    QSize size;          // of the image, in device pixels
    QColor color;
    Lines lines = Lines::One;
    Sample sample = Sample::OfCoveredScript;
    std::vector<FeatureValue> features = {};
    std::vector<AxisValue> coordinates = {}; // in place of the face's own

    bool operator==(const PreviewRequest &other) const; // faces by their file, PostScript name and time
};

std::size_t qHash(const PreviewRequest &request, std::size_t seed = 0) noexcept;

// What came of it. It never changes.
struct Preview {
    enum class Failure {
        None,
        Unreadable, // the file or the face cannot be read
        NoInk,      // it draws nothing
        TooCostly,  // it takes longer than a preview may
    };

    QImage image = {}; // transparent ground; null after a failure
    Failure failure = Failure::None;
    double emPixels = 0;       // as drawn: less than asked for where the text would not fit
    double baseline = 0;       // of the first line, in device pixels from the top
    bool isSubstitute = false; // another text was drawn, in a script that the face covers
    QString text = {};         // what was drawn
    int missingCharacters = 0; // of the text, that the face lacks

    bool isReduced(const PreviewRequest &request) const { return emPixels < request.emPixels * 0.995; }
};

using PreviewPointer = std::shared_ptr<const Preview>;

} // namespace kerlune

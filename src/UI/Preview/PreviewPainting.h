#pragma once

#include "UI/Preview/PreviewRequest.h"
#include "UI/Theme.h"

#include <QRect>

class QPainter;

namespace kerlune {

// How a preview stands on a widget: the same wherever one is shown.
//
// Thread: main.
namespace PreviewPainting {

// The image pixel by pixel, or the family's name in the interface font with a mark where the face cannot be drawn.
// `area` in logical pixels; the image has its size in device pixels.
void paint(QPainter &painter, const QRect &area, const PreviewRequest &request, const Preview &preview,
           const Theme &theme);

// Where the size that the text was reduced to is written, in the lower right corner; empty when it was not reduced.
QRect sizeMark(const QRect &area, const PreviewRequest &request, const Preview &preview, double devicePixelRatio);

// Whether that place is free of ink. paint() leaves the mark out where it is not.
bool isFree(const QRect &mark, const QRect &area, const Preview &preview, double devicePixelRatio);

QString sizeText(const Preview &preview, double devicePixelRatio); // "28 px"

// What is to be said about it, for a tool tip: why it could not be drawn, that it was reduced, that another text
// stands in for the one asked for. Empty when there is nothing to say.
QString remark(const PreviewRequest &request, const Preview &preview, double devicePixelRatio);

} // namespace PreviewPainting

} // namespace kerlune

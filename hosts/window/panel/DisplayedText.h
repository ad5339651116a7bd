// A text made ready to be drawn. Only what is drawn is changed: what is copied or read aloud is the
// text itself.
#pragma once

#include <QString>
#include <QStringList>

namespace wayfell {

/// A text that runs from right to left with marks (U+2066, U+2069) around each number, which keep
/// its sign before it: -8848 would read 8848-. Other texts as they are.
QString withNumbersIsolated(const QString& text);

/// A reference in two lines that are as alike in length as they can be, broken at a blank between
/// two of its parts; one line if it has only one part.
QStringList inTwoLines(const QString& reference);

}  // namespace wayfell

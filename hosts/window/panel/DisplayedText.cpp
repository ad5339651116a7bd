#include "hosts/window/panel/DisplayedText.h"

#include <QRegularExpression>
#include <algorithm>

namespace wayfell {

QString withNumbersIsolated(const QString& text) {
  if (!text.isRightToLeft()) return text;
  static const QRegularExpression number(QStringLiteral("([-+]?[0-9]+(?:[.,:][0-9]+)*)"));
  return QString(text).replace(number, QStringLiteral("\u2066\\1\u2069"));
}

QStringList inTwoLines(const QString& reference) {
  const QString text = reference.trimmed();
  const auto longest = [&](qsizetype blank) { return std::max(blank, text.size() - blank - 1); };
  qsizetype best = text.indexOf(u' ');
  if (best < 0) return {text};
  for (qsizetype blank = best; blank >= 0; blank = text.indexOf(u' ', blank + 1)) {
    if (longest(blank) < longest(best)) best = blank;
  }
  return {text.left(best), text.mid(best + 1)};
}

}  // namespace wayfell

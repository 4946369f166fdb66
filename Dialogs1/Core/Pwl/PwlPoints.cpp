#include "Core/Pwl/PwlPoints.h"

#include <algorithm>

namespace {

/// A coordinate of the first half as it stands where it is the mirror image of the second.
QString unmirrored(const QString& text) {
  QString plain = text.simplified();
  if (plain.startsWith(QLatin1String("{-")))
    plain.replace(0, 2, QStringLiteral("-{"));
  return plain;
}

/// Signs are not cancelled: "+1" becomes "-+1", which the simulator reads.
QString mirrored(const QString& text) {
  if (text.startsWith(QLatin1Char('{')))
    return QStringLiteral("{-") + text.mid(1);
  return QLatin1Char('-') + text;
}

bool isWholeZero(const QString& text) {
  bool isWhole = false;
  return text.toInt(&isWhole) == 0 && isWhole;
}

PwlPoints pointsBetween(QStringView separators, const QString& text, int* leftOut = nullptr) {
  PwlPoints points;
  QString x;
  for (int i = 0; i < text.size(); ++i) {
    if (separators.contains(text.at(i)))
      continue;
    const int start = i;
    while (i < text.size() && !separators.contains(text.at(i)))
      ++i;
    const QString token = text.mid(start, i - start);
    if (x.isNull()) {
      x = token;
    } else {
      points.append({x, token});
      x = QString();
    }
  }
  if (leftOut)
    *leftOut = x.isNull() ? 0 : 1;
  return points;
}

} // namespace

QString normalisedCell(const QString& text) {
  return text.simplified().remove(QLatin1Char(' '));
}

bool isValidCell(const QString& text, bool mayBeNegative) {
  const QString plain = text.simplified();
  if (plain.isEmpty())
    return false;
  const ushort first = plain.at(0).unicode();
  if (first == '{')
    return plain.endsWith(QLatin1Char('}'));
  return (first >= '0' && first <= '9') || first == '.' || first == '+' ||
         (first == '-' && mayBeNegative);
}

PwlPoints pointsInText(const QString& text, int* leftOut) {
  return pointsBetween(u" \t\n\r,()", text, leftOut);
}

PwlPoints pointsOfText(const QString& text) {
  return pointsBetween(u" ", text);
}

QString textOfPoints(const PwlPoints& points) {
  QStringList words;
  words.reserve(2 * points.size());
  for (const PwlPoint& point : points)
    words << point.x << point.y;
  return words.join(QLatin1Char(' '));
}

bool isSymmetric(const PwlPoints& points) {
  const int count = points.size();
  if (count < 2)
    return false;
  for (int i = 0; i < count / 2; ++i) {
    const PwlPoint& first = points.at(i);
    const PwlPoint& second = points.at(count - 1 - i);
    if (unmirrored(first.x) != QLatin1Char('-') + second.x.simplified() ||
        unmirrored(first.y) != QLatin1Char('-') + second.y.simplified())
      return false;
  }
  return true;
}

PwlPoints firstQuadrant(const PwlPoints& points) {
  int first = points.size() / 2;
  if (points.size() % 2 && isWholeZero(points.at(first).x) && isWholeZero(points.at(first).y))
    ++first;
  return points.mid(first);
}

PwlPoints withMirrorImage(const PwlPoints& firstQuadrant) {
  PwlPoints whole;
  whole.reserve(2 * firstQuadrant.size());
  std::for_each(firstQuadrant.rbegin(), firstQuadrant.rend(), [&whole](const PwlPoint& point) {
    whole.append({mirrored(point.x), mirrored(point.y)});
  });
  return whole + firstQuadrant;
}

#pragma once

#include <QPointF>
#include <QVector>

class GraphMap;
struct TraceOptions;

/// The points of a traced line that stand for it. Straight lines between their values, drawn into
/// the picture, stay within `options.thinning` pixels of it, and keep the area below it. Without a
/// map, values are taken to be pixels. The ends remain.
QVector<QPointF> chosenPoints(const QVector<QPointF>& line, const TraceOptions& options,
                              const GraphMap* map);

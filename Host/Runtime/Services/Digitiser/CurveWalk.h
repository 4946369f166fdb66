#pragma once

#include "Services/Digitiser/Stroke.h"

#include <QPointF>

/// Follows a stroke to one side, column by column. Where it meets another of its colour it goes on
/// in its own direction and width.
class CurveWalk {
public:
  /// `direction` is 1 to the right, -1 to the left; `gap` the pixels it may be hidden or broken.
  CurveWalk(const Stroke& stroke, int direction, int gap);

  /// `path` holds the columns so far, the last one first to go on from. False where it stopped
  /// because two ways are as likely.
  bool go(std::vector<Run>* path) const;
  /// A stroke's next columns from `start`, to where it ends or meets another.
  std::vector<Run> armFrom(const Run& start) const;
  /// Where a steep stroke ends. Its last columns, which the end cuts short, leave the path.
  std::optional<QPointF> tip(std::vector<Run>* path, std::size_t keep) const;

private:
  enum class Step { On, Gap, End, Unclear };
  struct Crossing;

  Step next(std::vector<Run>* path) const;
  bool jumpGap(std::vector<Run>* path, std::size_t* stretch, int* jumped) const;
  static void trimEnd(std::vector<Run>* path);
  std::vector<Run> runsBehind(const Run& from, int direction) const;
  std::vector<Run> joining(const Run& run, const Run& from) const;
  bool isNarrow(const Run& run, double usual) const;
  Crossing crossingBehind(const std::vector<Run>& path) const;
  bool isCrossing(const Crossing& crossing, bool isLong, const std::vector<Run>& path) const;
  bool leadsTo(const Crossing& crossing, const std::vector<Run>& path) const;
  Step cross(const Crossing& crossing, std::vector<Run>* path) const;
  bool goesAcross(const Run& run, const Run& from) const;
  std::optional<Run> beyondGap(const Run& from, double slope, int gap) const;

  const Stroke& m_stroke;
  int m_direction;
  int m_gap;
};

/// The rows that a stroke covers in most columns.
double usualInk(const std::vector<Run>& path);
/// Takes noise off the middles of a path, and what pieces of other lines have added.
void smooth(std::vector<Run>* path);

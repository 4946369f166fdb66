#pragma once

#include "Services/Digitiser/CurveArm.h"

#include <QPointF>

/// Follows a stroke to one side, column by column. Where it meets another of its colour it goes on
/// in its own direction and width.
class CurveWalk {
public:
  /// `direction` is 1 to the right, -1 to the left; `gap` the pixels it may be hidden or broken.
  CurveWalk(const Stroke& stroke, int direction, int gap);

  /// `path` holds the columns so far, the last one first to go on from. False where it stopped
  /// because two ways are as likely.
  bool go(Arm* path) const;
  /// A stroke's next columns from `start`, to where it ends or meets another.
  Arm armFrom(const Run& start) const;
  /// Where a steep stroke ends. Columns that its end cuts short, or that a line across has a part
  /// in, leave the path.
  std::optional<QPointF> tip(Arm* path, std::size_t keep) const;

private:
  enum class Step { On, Gap, End, Unclear };
  struct Crossing;
  struct Choice {
    Step step;
    std::size_t exit = 0;
  };

  Step next(Arm* path) const;
  bool jumpGap(Arm* path, std::size_t* stretch, int* jumped) const;
  static int trimEnd(Arm* path);
  QPointF endBehind(const Run& last, double slope, int farthest, int x) const;
  std::vector<Run> runsBehind(const Run& from, int direction) const;
  std::vector<Run> frontBehind(const std::vector<Run>& before) const;
  std::vector<Run> joining(const std::vector<Run>& front, const std::vector<Run>& before) const;
  std::vector<Arm> exitsFrom(const std::vector<Run>& front, const Arm& path) const;
  bool isNarrow(const Run& run, double usual) const;
  Crossing crossingBehind(const Arm& path) const;
  bool isCrossing(const Crossing& crossing, bool isLong, const Arm& path) const;
  static bool endsAcross(const Crossing& crossing, const Arm& path);
  bool leadsTo(const Crossing& crossing, const Arm& path) const;
  Choice choose(const Crossing& crossing, const Arm& in, std::size_t count) const;
  Step cross(const Crossing& crossing, Arm* path) const;
  bool goesAcross(const Run& run, const Run& from) const;
  std::optional<Run> beyondGap(const Run& from, double slope, int gap) const;

  const Stroke& m_stroke;
  int m_direction;
  int m_gap;
};

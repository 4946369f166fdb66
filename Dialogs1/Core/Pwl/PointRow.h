#pragma once

#include <QString>

/// A row of a point table: what stands in its two cells, and what that is. A blank row is a point
/// whose coordinates nobody has typed yet.
struct PointRow {
  enum class Kind {
    Point,
    Computed,  ///< a point that was worked out, and not typed
    Origin,    ///< [0,0] of a symmetric curve
    Comment,   ///< of a points file; the line stands in the first cell
    StartData, ///< the line of a points file that the dialog's controls write
  };

  Kind kind = Kind::Point;
  QString x;
  QString y;
  QString fault; ///< what the simulator has found; empty where there is nothing to be said

  const QString& text(int column) const { return column == 0 ? x : y; }
  bool isLine() const { return kind == Kind::Comment || kind == Kind::StartData; }
  bool isBlank() const { return x.isEmpty() && y.isEmpty(); }
  bool isFilled() const { return !x.isEmpty() && !y.isEmpty(); }
  /// A points file's table has a third column, in which only points that are not at fault have a
  /// cell; a start data line at fault has only its first.
  bool hasCell(int column) const;
  bool isSelectable(int column) const; ///< the origin and what the controls write are not
  bool isEditable(int column) const;   ///< those of the first two columns
};

inline bool operator==(const PointRow& a, const PointRow& b) {
  return a.kind == b.kind && a.x == b.x && a.y == b.y && a.fault == b.fault;
}

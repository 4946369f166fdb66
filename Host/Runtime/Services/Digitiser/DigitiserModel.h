#pragma once

#include "Services/Digitiser/CurveTracer.h"
#include "Services/Digitiser/GraphMap.h"

#include <QObject>
#include <QUndoStack>

#include <array>
#include <optional>

/// The marks of the axes: the first two belong to the x axis.
enum Mark { MarkX1, MarkX2, MarkY1, MarkY2, markCount };
enum GraphAxis { XAxis, YAxis, axisCount };

/// Everything that the user of the digitiser settles; what undo brings back.
struct DigitiserState {
  std::array<std::optional<QPointF>, markCount> places; ///< picture pixels
  std::array<QString, markCount> texts;                 ///< the values as typed
  std::array<AxisScale, axisCount> scales{};
  QVector<QPointF> points; ///< picture pixels, from left to right
  struct Traced {
    QVector<QPointF> line; ///< whose points are chosen by the axes
    TraceOptions options;
  };
  QVector<Traced> traces;
  /// Where the trace stopped on either side: which way it goes on is to be said.
  std::optional<QPointF> unclearLeft, unclearRight;

  bool operator==(const DigitiserState& other) const; ///< in what the user sees
  bool isEmpty() const;                               ///< whether nothing would be lost
};

/// The digitiser without its window: a picture, the state, and all that changes it. Every change
/// can be undone.
class DigitiserModel : public QObject {
  Q_OBJECT

public:
  explicit DigitiserModel(const QImage& picture, QObject* parent = nullptr);

  const QImage& picture() const { return m_picture; }
  const DigitiserState& state() const { return m_state; }
  const std::optional<GraphMap>& map() const { return m_map; } ///< when the axes are complete
  QUndoStack* undoStack() { return &m_stack; }

  struct Advice {
    QString text;            ///< what to do next, or what is wrong
    bool isFault = false;    ///< of what has been settled so far
    bool isQuestion = false; ///< that may be left open
  };
  Advice advice() const;
  bool isComplete() const { return m_values.size() >= 2; }
  /// What the digitiser gives: by ascending x. Empty before the axes are complete.
  const std::vector<QPointF>& values() const { return m_values; }
  static QString markName(int mark); ///< "X1"

  /// Changes of one gesture (a drag, nudges in a row, typing in one field) are undone at once.
  void beginGesture();
  void placeMark(int mark, const QPointF& at);
  void removeMark(int mark);
  void setMarkText(int mark, const QString& text);
  void setScale(GraphAxis axis, AxisScale scale);
  int addPoint(const QPointF& at); ///< its index
  int movePoint(int index, const QPointF& to);
  void removePoints(QVector<int> indices); ///< in any order
  void clearPoints();
  /// Traces the curve at `seed`; its points take the place of those in the columns that it covers.
  /// Beyond where an earlier one stopped and asked, it carries that on. False, and no change, where
  /// no curve is.
  bool trace(const QPoint& seed, const TraceOptions& options);
  /// Once more with other options, in place of the last trace, as long as nothing has followed it.
  void retrace(const TraceOptions& options);

signals:
  void changed();

private:
  class Change;
  void apply(const DigitiserState& state);
  void push(const QString& text, DigitiserState after);
  void chooseAgain(DigitiserState* after) const;
  static std::optional<GraphMap> mapOf(const DigitiserState& state);
  static std::optional<double> markValue(const DigitiserState& state, int mark);
  /// Of an axis with places and values.
  static AxisMarks axisMarks(const DigitiserState& state, GraphAxis axis);
  static std::optional<QString> axisFault(const DigitiserState& state, GraphAxis axis);
  QPointF inside(const QPointF& point) const;

  QImage m_picture;
  DigitiserState m_state;
  std::optional<GraphMap> m_map;
  std::vector<QPointF> m_values;
  QUndoStack m_stack;
  int m_gesture = 0;
  int m_typedMark = -1;    ///< of the present gesture
  QPoint m_traceSeed;      ///< of the last trace
  int m_traceGesture = -1; ///< that it was
};

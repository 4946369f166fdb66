#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

#include <string_view>

/// Many lines of UTF-8 text in one block: a million of them cost little more than their characters.
/// Copies share the block.
class LineStore {
public:
  void append(const char* line); ///< null counts as empty
  void append(const QString& line) { append(line.toUtf8().constData()); }
  void reserve(int lines) { m_ends.reserve(lines); }

  int size() const { return m_ends.size(); }
  bool isEmpty() const { return m_ends.isEmpty(); }
  /// As it came; holds until a line is appended.
  std::string_view at(int index) const;
  /// Whether they are the same lines, without comparing them.
  bool operator==(const LineStore& other) const {
    return m_text.constData() == other.m_text.constData() &&
           m_ends.constData() == other.m_ends.constData();
  }
  QByteArray joined() const; ///< with line breaks between the lines

private:
  QByteArray m_text;
  QVector<int> m_ends;
};

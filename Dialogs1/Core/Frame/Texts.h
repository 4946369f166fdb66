#pragma once

#include "HostSupport/YString.h"

#include <QStringList>

#include <vector>

class FuncArgsMinimal;
class FuncResultMinimal;
struct UserFunctionInterface;

/// A string vector of a script's call, read by place. A place that the script has not passed reads
/// as empty. A view: it holds as long as the call does.
class Texts {
public:
  Texts() = default;
  Texts(const char* const* texts, unsigned count) : m_texts(texts), m_count(texts ? count : 0) {}
  /// Argument `index` of a call; no texts where it is missing or of another kind.
  Texts(UserFunctionInterface* call, int index);
  Texts(const FuncArgsMinimal& args, int index);

  unsigned count() const { return m_count; }
  bool isEmpty() const { return m_count == 0; }
  bool has(unsigned place) const { return place < m_count; } ///< passed, be it as empty
  const char* raw(unsigned place) const;                     ///< byte for byte, never null

  QString text(unsigned place) const;
  QString text(unsigned place, const QString& forEmpty) const;
  int number(unsigned place, int forEmpty = 0) const; ///< the whole number that it begins with
  bool flag(unsigned place) const;                    ///< whether it is "true", in any letter case
  bool is(unsigned place, const char* word) const;    ///< compares without regard to case
  QStringList all() const;

private:
  const char* const* m_texts = nullptr;
  unsigned m_count = 0;
};

/// The word for a flag in a string vector: "true" or "false".
const char* flagWord(bool isSet);

/// A string vector on its way to a script, written by place. Places that nobody has set are empty.
class TextVector {
public:
  TextVector() = default;
  explicit TextVector(unsigned count) : m_texts(count) {} ///< so many empty texts

  unsigned count() const { return static_cast<unsigned>(m_texts.size()); }
  const YString& operator[](unsigned place) const { return m_texts[place]; }

  // The vector grows to hold the place.
  void set(unsigned place, YString text);
  void set(unsigned place, const char* text) { set(place, YString(text)); } ///< byte for byte
  void set(unsigned place, const QString& text);
  void setNumber(unsigned place, int number) { set(place, YString(number)); }
  void setFlag(unsigned place, bool isSet) { set(place, flagWord(isSet)); }
  template <class Text> void append(const Text& text) { set(count(), text); }
  void append(const QStringList& texts);

  /// Makes this the result of the call; nothing where the host has no memory to give.
  void makeResult(UserFunctionInterface* call) const;
  void makeResult(FuncResultMinimal* result) const; ///< the caller commits it

private:
  std::vector<YString> m_texts;
};

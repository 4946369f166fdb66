#pragma once

#include "Core/Frame/Texts.h"
#include "HostSupport/Options.h"

#include <cstdint>
#include <vector>

struct BrennixAnalysisData;

/// Where a value is kept: an element of a vector or a bit of a word by its number, a parameter or
/// an option by its name, which has to outlive the place.
struct Place {
  Place(int elementNumber) : number(elementNumber) {}
  Place(unsigned elementNumber) : number(static_cast<int>(elementNumber)) {}
  Place(const char* key) : name(key) {}

  int number = -1;
  const char* name = nullptr;
};

bool operator<(const Place& a, const Place& b); ///< names compare without regard to case

/// A value on its way between a field and its store. Each kind can be asked for as any other.
class FieldValue {
public:
  enum class Kind { Text, Number, Flag, Row };

  static FieldValue text(const QString& text) { return {Kind::Text, text, 0}; }
  static FieldValue number(double number);
  /// A number as its field shows it, which may be an expression.
  static FieldValue number(double number, const QString& shown) {
    return {Kind::Number, shown, number};
  }
  static FieldValue flag(bool isSet);
  static FieldValue row(int index);

  Kind kind = Kind::Text;

  const QString& asText() const { return m_text; }
  double asNumber() const; ///< of a text the number that it begins with, 0 where none stands
  bool asFlag() const;     ///< of a text whether it is "true"
  int asRow() const;
  bool isEmpty() const { return kind == Kind::Text && m_text.isEmpty(); }

private:
  FieldValue(Kind valueKind, const QString& text, double number)
      : kind(valueKind), m_text(text), m_number(number) {}

  QString m_text;
  double m_number = 0;
};

/// What a table of fields is loaded from and stored to.
class FieldStore {
public:
  virtual ~FieldStore() = default;
  /// The value at a place for a field of that kind; false, `*value` untouched, where the store has
  /// none for it: the field then stays as its form has it.
  virtual bool read(const Place& place, FieldValue::Kind kind, FieldValue* value) const = 0;
  virtual void write(const Place& place, const FieldValue& value) = 0;
};

/// Elements of a string vector, places counted from element `first`. What was not passed counts as
/// empty.
class Elements : public FieldStore {
public:
  /// To load from; there is nothing to store to.
  explicit Elements(const Texts& from, unsigned first = 0) : m_from(from), m_first(first) {}
  /// To store to; there is nothing to load from.
  explicit Elements(TextVector* to, unsigned first = 0) : m_to(to), m_first(first) {}

  bool read(const Place& place, FieldValue::Kind kind, FieldValue* value) const override;
  void write(const Place& place, const FieldValue& value) override;

private:
  unsigned elementOf(const Place& place) const {
    Q_ASSERT(place.number >= 0);
    return m_first + static_cast<unsigned>(place.number);
  }

  Texts m_from;
  TextVector* m_to = nullptr;
  unsigned m_first;
};

/// Numbers that a script has passed, to load from; a flag is any but 0. What was not passed leaves
/// its field as the form has it.
class Reals : public FieldStore {
public:
  Reals(const double* reals, unsigned count) : m_reals(reals), m_count(count) {}

  bool read(const Place& place, FieldValue::Kind kind, FieldValue* value) const override;
  void write(const Place& place, const FieldValue& value) override;

private:
  const double* m_reals;
  unsigned m_count;
};

/// Bits of a word, each a flag.
class Bits : public FieldStore {
public:
  explicit Bits(std::uint32_t word) : m_word(word) {}

  std::uint32_t word() const { return m_word; } ///< with what was stored; other bits as they were
  bool read(const Place& place, FieldValue::Kind kind, FieldValue* value) const override;
  void write(const Place& place, const FieldValue& value) override;

private:
  std::uint32_t m_word;
};

/// The parameters of a host-owned block, by name; of several of one name the last counts. Those
/// that are not set, and fields of another kind than the parameter's type, are passed over.
class Parameters : public FieldStore {
public:
  explicit Parameters(BrennixAnalysisData* block) : m_block(block) {}

  bool read(const Place& place, FieldValue::Kind kind, FieldValue* value) const override;
  void write(const Place& place, const FieldValue& value) override; ///< marks it as set

private:
  BrennixAnalysisData* m_block;
};

/// The host's options, by key.
class OptionKeys : public FieldStore {
public:
  bool read(const Place& place, FieldValue::Kind kind, FieldValue* value) const override;
  /// Remembers what differs from the option's value now.
  void write(const Place& place, const FieldValue& value) override;
  /// Writes what has changed, all or none. False where it could not be stored.
  bool commit();

private:
  std::vector<OptionSetting> m_changes;
};

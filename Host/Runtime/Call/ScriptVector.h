#pragma once

#include "UserFunction.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <vector>

/// One value on its way into a call: a vector of reals or of strings, or an opaque pointer.
struct ScriptVector {
  UserDataType type = UserReal;
  std::vector<double> reals;
  std::vector<QByteArray> strings; ///< UTF-8
  std::vector<double> references;  ///< x values of `reals`; empty where there are none
  int divisions = 1;               ///< separate curves that `reals` holds one behind the other
  void* opaque = nullptr;
  std::shared_ptr<void> owner; ///< keeps what `opaque` leads to, where a script could let go of it

  std::size_t count() const {
    return type == UserReal ? reals.size() : type == UserString ? strings.size() : 1;
  }
  static ScriptVector ofReals(std::vector<double> values) {
    ScriptVector vector;
    vector.reals = std::move(values);
    return vector;
  }
  static ScriptVector ofStrings(std::vector<QByteArray> texts) {
    ScriptVector vector;
    vector.type = UserString;
    vector.strings = std::move(texts);
    return vector;
  }
  static ScriptVector ofOpaque(void* pointer, std::shared_ptr<void> owner) {
    ScriptVector vector;
    vector.type = UserOpaque;
    vector.opaque = pointer;
    vector.owner = std::move(owner);
    return vector;
  }
};

/// What a call gave back.
struct CallResult {
  enum class Type { None, Real, String, Int, Bool };
  Type type = Type::None;
  std::vector<double> reals;
  std::vector<double> references;
  std::vector<QByteArray> strings;
  std::vector<std::int32_t> ints;
  std::vector<bool> bools;

  bool made() const { return type != Type::None; }
  std::size_t count() const;
  bool operator==(const CallResult& other) const;
};

/// The result of one call as an argument of another.
ScriptVector asArgument(const CallResult& result);

/// "real", "string", "int", "bool"; null where none was made.
QString resultTypeName(CallResult::Type type);

/// A call that was refused, or that a handler ended with an exception. `what()` is UTF-8.
class CallError : public std::runtime_error {
public:
  explicit CallError(const QString& message) : std::runtime_error(message.toStdString()) {}
};

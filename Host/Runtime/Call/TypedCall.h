#pragma once

#include "Call/CallMemory.h"
#include "HostSupport/Registration.h"

// The two closed interfaces of a typed call, as the host fills them.

/// The arguments of one call. An index beyond them gives null, 0 or an empty vector.
class TypedArguments final : public FuncArgsMinimal {
public:
  explicit TypedArguments(const std::vector<ScriptVector>& vectors)
      : m_operands(operandsOf(vectors)) {}

  int argCount() const override { return static_cast<int>(m_operands.size()); }
  UserDataType type(int index) const override {
    const Operand* operand = at(index);
    return operand ? operand->type : UserReal;
  }
  const char* const* strings(int index) const override {
    const Operand* operand = at(index, UserString);
    return operand ? operand->strings.data() : nullptr;
  }
  const char* string(int index) const override {
    const Operand* operand = at(index, UserString);
    return operand && operand->strings.count() > 0 ? operand->strings.data()[0] : nullptr;
  }
  const double* reals(int index) const override {
    const Operand* operand = at(index, UserReal);
    return operand ? operand->reals.data() : nullptr;
  }
  const double* references(int index) const override {
    const Operand* operand = at(index, UserReal);
    return operand && !operand->references.empty() ? operand->references.data() : nullptr;
  }
  void* opaque(int index) const override {
    const Operand* operand = at(index, UserOpaque);
    return operand ? operand->opaque : nullptr;
  }
  int count(int index) const override {
    const Operand* operand = at(index);
    if (!operand)
      return 0;
    switch (operand->type) {
    case UserReal:
      return static_cast<int>(operand->reals.size()) / operand->divisions;
    case UserString:
      return static_cast<int>(operand->strings.count());
    case UserOpaque:
      break;
    }
    return 1;
  }
  int divisions(int index) const override {
    const Operand* operand = at(index);
    return operand ? operand->divisions : 1;
  }

  void reserved8() const override {}
  void reserved9() const override {}
  void reserved10() const override {}
  void reserved11() const override {}
  void reserved12() const override {}
  void reserved13() const override {}
  void reserved14() const override {}
  void reserved15() const override {}
  void reserved16() const override {}

private:
  const Operand* at(int index) const {
    return index >= 0 && index < argCount() ? m_operands[static_cast<std::size_t>(index)].get()
                                            : nullptr;
  }
  const Operand* at(int index, UserDataType type) const {
    const Operand* operand = at(index);
    return operand && operand->type == type ? operand : nullptr;
  }

  Operands m_operands;
};

/// The result of one call; it counts only when the handler has committed it.
class TypedResult final : public FuncResultMinimal {
public:
  double* makeReals(int count) override { return make<double>(CallResult::Type::Real, count); }
  char** makeStrings(int count) override { return make<char*>(CallResult::Type::String, count); }
  std::int32_t* makeInts(int count) override {
    return make<std::int32_t>(CallResult::Type::Int, count);
  }
  bool* makeBools(int count) override { return make<bool>(CallResult::Type::Bool, count); }
  void commit() override { m_committed = true; }
  CallResult result() const { return m_committed ? m_store.result() : CallResult(); }

  void reserved4() override {}
  void reserved6() override {}
  void reserved7() override {}
  void reserved8() override {}
  void reserved9() override {}
  void reserved10() override {}
  void reserved11() override {}
  void reserved12() override {}
  void reserved13() override {}
  void reserved14() override {}
  void reserved15() override {}
  void reserved16() override {}
  void reserved17() override {}
  void reserved18() override {}

private:
  template <class T> T* make(CallResult::Type type, int count) {
    return m_store.make<T>(type, count);
  }

  ResultStore m_store;
  bool m_committed = false;
};

#pragma once

#include "HostSupport/KelvarinException.h"
#include "HostSupport/Registration.h"

#include <type_traits>

/// A cross-module entry: its signature, its name, and where it is declared.
template <class Signature> struct DynEntry;
template <class Result, class... Args> struct DynEntry<Result(Args...)> {
  using Function = Result (*)(Args...);
  const char* name;
  const char* file;
  int line;
};

/// What a slot holds until its entry is provided.
template <const auto& entry, class Result, class... Args> Result unresolvedDynFunc(Args...) {
  throw DynFuncException(entry.name);
}

/// A source file's slot for a cross-module entry, called as the function itself. Constant
/// initialisation fills it with a stub that raises `DynFuncException`, so that no order of
/// initialisers can find it empty.
template <const auto& entry, class Function = typename std::decay_t<decltype(entry)>::Function>
class DynSlot;
template <const auto& entry, class Result, class... Args>
class DynSlot<entry, Result (*)(Args...)> {
public:
  using Function = Result (*)(Args...);
  Result operator()(Args... args) const { return m_function(static_cast<Args>(args)...); }
  /// Whether the slot holds anything at all; the host may have emptied it.
  explicit operator bool() const { return m_function != nullptr; }
  void** address() { return reinterpret_cast<void**>(&m_function); }

private:
  Function m_function = &unresolvedDynFunc<entry, Result, Args...>;
};

/// Declares the private slot `slot` of this file for `entry`, and asks the host to fill it.
#define KV_DYN_CALL(slot, entry)                                                                   \
  static DynSlot<entry> slot;                                                                      \
  static const RegisterDynFuncCall slot##Registration(slot.address(), (entry).name, true,          \
                                                      (entry).file, (entry).line)

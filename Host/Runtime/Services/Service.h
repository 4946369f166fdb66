#pragma once

#include "Call/Provider.h"
#include "DynFunc.h"

/// One thing that modules ask of a host. Whoever provides it, the host or a script in its place, is
/// a `Provider`; a service says how a module's question comes to it, and what it has to answer.
struct Service {
  enum class Kind {
    Entry,        ///< a cross-module entry
    SteeredEntry, ///< an entry that no provider can serve: scripts steer the host's own
    Function,     ///< a host function, called through the argument block
    Operation,    ///< an operation of the support library that a host stands behind
  };
  /// What its provider gives. A list, a curve and a code may be left out.
  enum class Answer { Nothing, Number, Integer, Code, Text, List, Curve, Any };

  const char* name;
  Kind kind;
  Answer answer = Answer::Any;
  Provider own = {};         ///< the host's; empty where a script alone can serve it
  void* entry = nullptr;     ///< the entry's C function, which asks the provider
  const char* file = "";     ///< where the entry is declared
  int line = 0;              ///< of that file
  const char* steering = ""; ///< the script object that steers a `SteeredEntry`

  bool isEntry() const { return kind == Kind::Entry || kind == Kind::SteeredEntry; }

  static Service ofFunction(const char* name, Provider own) {
    return {name, Kind::Function, Answer::Any, std::move(own)};
  }
  static Service ofOperation(const char* name, Answer answer, Provider own) {
    return {name, Kind::Operation, answer, std::move(own)};
  }
  template <class Signature> static Service ofEntry(const DynEntry<Signature>& declared,
                                                    typename DynEntry<Signature>::Function entry,
                                                    Answer answer, Provider own = {}) {
    return {declared.name, Kind::Entry,  answer, std::move(own), reinterpret_cast<void*>(entry),
            declared.file, declared.line};
  }
  template <class Signature>
  static Service ofSteeredEntry(const DynEntry<Signature>& declared,
                                typename DynEntry<Signature>::Function entry,
                                const char* steering) {
    Service service = ofEntry(declared, entry, Answer::Nothing);
    service.kind = Kind::SteeredEntry;
    service.steering = steering;
    return service;
  }
};

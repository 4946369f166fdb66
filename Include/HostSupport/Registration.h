#pragma once

#include "HostSupport/Containers.h"
#include "HostSupport/Export.h"
#include "HostSupport/OptionValue.h"
#include "HostSupport/YString.h"
#include "UserFunction.h"

#include <cstdint>
#include <initializer_list>

// Registration objects: static objects of a module whose constructors run while it loads and do
// nothing but enter the object in the host's registry.

/// Takes the messages of a command or typed function.
class MessageHandler {
public:
  virtual ~MessageHandler() = default;
  virtual void message(const char* text) = 0;
};

class ScpParseContext; ///< the host's; passed through
class FunctionRunTime; ///< the host's; passed through

enum FUNC_ERROR : std::int32_t { FUNC_OK = 0 };
enum COMERROR : std::int32_t { COM_OK = 0 };

/// The arguments of a typed function. The order of the operations is the contract; those named
/// `reserved` are the host's own.
class FuncArgsMinimal {
public:
  virtual int argCount() const = 0;
  virtual UserDataType type(int index) const = 0;
  virtual const char* const* strings(int index) const = 0; ///< null if it is not a string
  virtual const char* string(int index) const = 0;         ///< first element, or null
  virtual const double* reals(int index) const = 0;        ///< null if it is not real
  virtual const double* references(int index) const = 0;   ///< x values, or null
  virtual void* opaque(int index) const = 0;               ///< null if it is not opaque
  virtual void reserved8() const = 0;
  virtual void reserved9() const = 0;
  virtual void reserved10() const = 0;
  virtual void reserved11() const = 0;
  virtual void reserved12() const = 0;
  virtual void reserved13() const = 0;
  virtual void reserved14() const = 0;
  virtual void reserved15() const = 0;
  virtual void reserved16() const = 0;
  virtual int count(int index) const = 0; ///< elements; of each division where there are several
  virtual int divisions(int index) const = 0; ///< separate curves of a multi-step vector, 1 or more

protected:
  ~FuncArgsMinimal() = default;
};

/// The result of a typed function; one `make` call, then `commit` as the last one. The arrays are
/// the host's; a string slot is filled with a copy on the C heap. The order is the contract.
class FuncResultMinimal {
public:
  virtual double* makeReals(int count) = 0;
  virtual char** makeStrings(int count) = 0;
  virtual std::int32_t* makeInts(int count) = 0;
  virtual void reserved4() = 0;
  virtual bool* makeBools(int count) = 0;
  virtual void reserved6() = 0;
  virtual void reserved7() = 0;
  virtual void reserved8() = 0;
  virtual void reserved9() = 0;
  virtual void reserved10() = 0;
  virtual void reserved11() = 0;
  virtual void reserved12() = 0;
  virtual void reserved13() = 0;
  virtual void reserved14() = 0;
  virtual void reserved15() = 0;
  virtual void reserved16() = 0;
  virtual void reserved17() = 0;
  virtual void reserved18() = 0;
  virtual void commit() = 0;

protected:
  ~FuncResultMinimal() = default;
};

using argType = ArgType;
using PythonReturnType = ResultType;
using MultiDef = std::uint32_t;

/// A short list, built on the stack from literals.
template <class T> class ArgTypeList {
public:
  ArgTypeList(std::initializer_list<T> items) {
    for (T item : items)
      if (m_count < maxUserArguments)
        m_items[m_count++] = item;
  }
  int count() const { return m_count; }
  T operator[](int index) const { return m_items[index]; }

private:
  int m_count = 0;
  T m_items[maxUserArguments] = {};
};

struct FunctionOption {
  std::int32_t flags = 0;
};

using TypedHandler = FUNC_ERROR (*)(const FuncArgsMinimal& args, FuncResultMinimal* result,
                                    YRef<MessageHandler> messages, const ScpParseContext& context,
                                    const FunctionRunTime& runTime);
using CommandHandler = COMERROR (*)(int argc, char** argv, YRef<MessageHandler> messages,
                                    const ScpParseContext& context);

/// Registers a typed script function for as long as the object stands.
class HOSTSUPPORT_EXPORT FuncConstruct {
public:
  FuncConstruct(const char* name, ArgTypeList<argType> types, ArgTypeList<MultiDef> multi,
                int minArgs, int maxArgs, TypedHandler handler, const char* description,
                PythonReturnType result, const FunctionOption& option);
  ~FuncConstruct();
  FuncConstruct(const FuncConstruct&) = delete;
  FuncConstruct& operator=(const FuncConstruct&) = delete;
};

/// Registers a script command; it is registered to the end of the process.
class HOSTSUPPORT_EXPORT ComConstruct {
public:
  ComConstruct(const char* name, CommandHandler handler, int flags, const char* description);
};

/// Asks the host to fill `slot` with the entry `name` as soon as some module provides it, now or
/// later. While nobody does, the slot holds what it held before.
class HOSTSUPPORT_EXPORT RegisterDynFuncCall {
public:
  RegisterDynFuncCall(void** slot, const char* name, bool required, const char* file, int line);
  ~RegisterDynFuncCall();
  RegisterDynFuncCall(const RegisterDynFuncCall&) = delete;
  RegisterDynFuncCall& operator=(const RegisterDynFuncCall&) = delete;

private:
  void** m_slot;
};

/// Provides `entry` under `name` to all modules for as long as the object stands.
class HOSTSUPPORT_EXPORT RegisterDynFuncDef {
public:
  RegisterDynFuncDef(const char* name, void* entry, const char* file, int line);
  ~RegisterDynFuncDef();
  RegisterDynFuncDef(const RegisterDynFuncDef&) = delete;
  RegisterDynFuncDef& operator=(const RegisterDynFuncDef&) = delete;
};

enum class OptionCacheStatus : std::int32_t { Cached = 0, Uncached = 1 };

/// Declares an option key. Where it is declared several times, the latest default counts.
class HOSTSUPPORT_EXPORT MakeOption {
public:
  /// A text without a default.
  MakeOption(const char* file, int line, const YString& name, bool, OptionCacheStatus, bool);
  /// A value of the kind of `defaultValue`; what is stored is read as that kind.
  MakeOption(const char* file, int line, const YString& name, const OptionValue& defaultValue);
};

/// Declares a colour option at run time; `value` is its default, "#rrggbb".
HOSTSUPPORT_EXPORT void sp_MakeColourOption(const char* file, int line, const YString& key,
                                            const char* value);

/// Registers a function for a named event of the host, such as "PostPluginLoad".
class HOSTSUPPORT_EXPORT AutoFunc {
public:
  AutoFunc(const char* event, void (*function)(void*), const char* description);
  ~AutoFunc();
  AutoFunc(const AutoFunc&) = delete;
  AutoFunc& operator=(const AutoFunc&) = delete;
};

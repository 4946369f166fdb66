#include "Call/HostCall.h"

#include "Call/HostFunctions.h"
#include "Call/TypedCall.h"
#include "HostSupport/System.h"

#include <optional>

class ScpParseContext {};
class FunctionRunTime {};

namespace {

/// Each level holds a dialog and its event loop on the stack.
constexpr int deepestNesting = 64;
constexpr int mostOperands = 64;

QString fromUtf8(const char* text) {
  return QString::fromUtf8(text);
}

// ---- legacy calls -------------------------------------------------------------------------------

/// The block of one call, with what the host keeps for it. Calls nest, so the blocks form a stack.
struct CallBlock : UserFunctionInterface {
  explicit CallBlock(const std::vector<ScriptVector>& vectors);
  CallBlock(const CallBlock&) = delete;
  CallBlock& operator=(const CallBlock&) = delete;
  ~CallBlock() { innermost = outer; }

  /// The block behind what a module passes; null where the host has not made it.
  static CallBlock* of(UserFunctionInterface* call) {
    CallBlock* block = innermost;
    while (block && block != call)
      block = block->outer;
    return block;
  }

  static CallBlock* innermost;
  CallBlock* outer = innermost;
  Operands operands;
  Operands functionResults;
  ResultStore store;
};

CallBlock* CallBlock::innermost = nullptr;

char** makeStringResult(UserFunctionInterface* call, int count) {
  CallBlock* block = CallBlock::of(call);
  return block ? block->store.make<char*>(CallResult::Type::String, count) : nullptr;
}

double* makeRealResult(UserFunctionInterface* call, int count, const char* /*physicalType*/) {
  CallBlock* block = CallBlock::of(call);
  return block ? block->store.make<double>(CallResult::Type::Real, count) : nullptr;
}

ScriptVector vectorOf(const UserArgument& argument) {
  ScriptVector vector;
  vector.type = argument.type;
  if (argument.count > static_cast<std::uint32_t>(longestVector))
    throw CallError(QStringLiteral("a vector of %1 elements is too long").arg(argument.count));
  const std::size_t count = argument.data ? argument.count : 0;
  switch (argument.type) {
  case UserReal: {
    const double* data = static_cast<const double*>(argument.data);
    vector.reals.assign(data, data + count);
    if (const double* x = static_cast<const double*>(argument.reference))
      vector.references.assign(x, x + count);
    return vector;
  }
  case UserString: {
    char** data = static_cast<char**>(argument.data);
    for (std::size_t i = 0; i < count; ++i)
      vector.strings.emplace_back(data[i]);
    return vector;
  }
  case UserOpaque:
    vector.opaque = argument.data ? *static_cast<void**>(argument.data) : nullptr;
    return vector;
  }
  throw CallError(QStringLiteral("a vector has the unknown type %1").arg(argument.type));
}

/// What stands in a result descriptor lives as long as the call.
void answer(CallBlock* block, ScriptVector vector, UserArgument* result) {
  if (!result)
    return;
  block->functionResults.push_back(std::make_unique<Operand>(std::move(vector)));
  block->functionResults.back()->describe(result);
}

void runHostFunction(CallBlock* block, const char* name, const UserArgument* arguments, int count,
                     UserArgument* result) {
  const Provider function = hostFunction(fromUtf8(name));
  if (!function)
    throw CallError(QStringLiteral("the host has no such function"));
  if (count < 0 || count > mostOperands || (count > 0 && !arguments))
    throw CallError(QStringLiteral("called with %1 arguments").arg(count));
  std::vector<ScriptVector> vectors;
  for (int i = 0; i < count; ++i)
    vectors.push_back(vectorOf(arguments[i]));
  answer(block, asArgument(function(vectors)), result);
}

/// No exception may leave it: the module behind it may come from another compiler.
int callFunction(UserFunctionInterface* call, const char* name, UserArgument* arguments, int count,
                 UserArgument* result, void* /*extra*/) {
  CallBlock* block = CallBlock::of(call);
  if (hostCallbackFails() || !block || !name)
    return 1;
  try {
    runHostFunction(block, name, arguments, count, result);
    return 0;
  } catch (...) {
    const QByteArray reason = describeException().toUtf8();
    if (result)
      answer(block, ScriptVector::ofStrings({reason}), result);
    else
      sp_ReportMessage((name + (": " + reason)).constData());
  }
  return 1;
}

CallBlock::CallBlock(const std::vector<ScriptVector>& vectors)
    : UserFunctionInterface{}, operands(operandsOf(vectors)) {
  for (std::size_t i = 0; i < operands.size(); ++i)
    operands[i]->describe(&args[i]);
  argCount = static_cast<std::int32_t>(operands.size());
  UserFunctionInterface::makeStringResult = ::makeStringResult;
  UserFunctionInterface::makeRealResult = ::makeRealResult;
  UserFunctionInterface::hostString = makeHostString;
  UserFunctionInterface::callFunction = ::callFunction;
  innermost = this;
}

/// What typed functions and commands report goes where all messages of the host go.
class ReportingMessages final : public MessageHandler {
public:
  explicit ReportingMessages(const QString& name) : m_name(name) {}
  void message(const char* text) override {
    sp_ReportMessage(QStringLiteral("%1: %2").arg(m_name, fromUtf8(text)).toUtf8().constData());
  }

private:
  QString m_name;
};

const ScpParseContext parseContext{};
const FunctionRunTime functionRunTime{};

// ---- around every handler -----------------------------------------------------------------------

class Nesting {
public:
  explicit Nesting(const QString& name) {
    if (depth >= deepestNesting)
      throw CallError(
          QStringLiteral("%1: calls are nested more than %2 deep").arg(name).arg(deepestNesting));
    ++depth;
    innermost = this;
  }
  Nesting(const Nesting&) = delete;
  Nesting& operator=(const Nesting&) = delete;
  ~Nesting() {
    innermost = m_outer;
    if (--depth == 0)
      freeIssuedStrings();
  }

  static Nesting* innermost;
  static int depth;
  std::optional<QString> raised; ///< message of what is to be raised when the handler has ended

private:
  Nesting* m_outer = innermost;
};

Nesting* Nesting::innermost = nullptr;
int Nesting::depth = 0;

/// Runs a handler: what it returns must be 0, and what it raises becomes a `CallError`.
template <class Handler> void runGuarded(const QString& name, Handler handler) {
  int status = 0;
  const std::optional<QString>& raised = Nesting::innermost->raised;
  try {
    status = handler();
  } catch (const CallError&) {
    if (!raised) // else that was first
      throw;
  } catch (...) {
    if (!raised)
      throw CallError(describeException());
  }
  if (raised)
    throw CallError(*raised);
  if (status != 0)
    throw CallError(QStringLiteral("%1: the handler returned %2").arg(name).arg(status));
}

/// Refuses what the records cannot hold.
void checkCapacity(const QString& name, const std::vector<ScriptVector>& arguments) {
  if (arguments.size() > static_cast<std::size_t>(maxUserArguments))
    throw CallError(QStringLiteral("%1: a call holds at most %2 arguments, %3 were given")
                        .arg(name)
                        .arg(maxUserArguments)
                        .arg(arguments.size()));
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const ScriptVector& vector = arguments[i];
    const QString which = QStringLiteral("%1: argument %2").arg(name).arg(i + 1);
    if (vector.count() > static_cast<std::size_t>(longestVector))
      throw CallError(QStringLiteral("%1 has more than %2 elements").arg(which).arg(longestVector));
    if (!vector.references.empty() && vector.references.size() != vector.reals.size())
      throw CallError(QStringLiteral("%1 has %2 values of y but %3 of x")
                          .arg(which)
                          .arg(vector.reals.size())
                          .arg(vector.references.size()));
    if (vector.divisions < 1 ||
        vector.reals.size() % static_cast<std::size_t>(vector.divisions) != 0)
      throw CallError(QStringLiteral("%1: %2 values do not make %3 equal divisions")
                          .arg(which)
                          .arg(vector.reals.size())
                          .arg(vector.divisions));
  }
}

QString plural(int count) {
  return count == 1 ? QStringLiteral("1 argument") : QStringLiteral("%1 arguments").arg(count);
}

QString expectedName(ArgType type) {
  return type == StringArg ? QStringLiteral("a string vector") : QStringLiteral("a real vector");
}

QString givenName(UserDataType type) {
  return type == UserString ? QStringLiteral("a string vector")
         : type == UserReal ? QStringLiteral("a real vector")
                            : QStringLiteral("an opaque value");
}

} // namespace

bool raiseWhenHandlerEnds(const QString& message) {
  if (!Nesting::innermost)
    return false;
  if (!Nesting::innermost->raised)
    Nesting::innermost->raised = message;
  return true;
}

bool isExceptionPending() {
  return Nesting::innermost && Nesting::innermost->raised;
}

int callDepth() {
  return Nesting::depth;
}

QString wrongArgumentCount(int least, int most, std::size_t count) {
  if (count >= static_cast<std::size_t>(least) && count <= static_cast<std::size_t>(most))
    return QString();
  const QString takes =
      least == most ? plural(most) : QStringLiteral("%1 to %2").arg(least).arg(plural(most));
  const QString given = count == 0   ? QStringLiteral("none was given")
                        : count == 1 ? QStringLiteral("1 was given")
                                     : QStringLiteral("%1 were given").arg(count);
  return QStringLiteral("takes %1, %2.").arg(takes, given);
}

void checkArgumentCount(const FunctionInfo& function, std::size_t count) {
  const QString wrong = wrongArgumentCount(function.minArgs, function.maxArgs, count);
  if (!wrong.isEmpty())
    throw CallError(QStringLiteral("%1: %2").arg(function.name, wrong));
}

void checkArguments(const FunctionInfo& function, const std::vector<ScriptVector>& arguments) {
  checkArgumentCount(function, arguments.size());
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const ArgType expected = function.argTypes.value(static_cast<int>(i), AnyArg);
    const UserDataType given = arguments[i].type;
    if (expected == AnyArg || given == (expected == StringArg ? UserString : UserReal))
      continue;
    throw CallError(QStringLiteral("%1: argument %2 must be %3, %4 was given.")
                        .arg(function.name)
                        .arg(i + 1)
                        .arg(expectedName(expected), givenName(given)));
  }
}

CallResult callHandler(FunctionInfo function, const std::vector<ScriptVector>& arguments) {
  checkCapacity(function.name, arguments);
  const Nesting nesting(function.name);
  CallResult result;
  if (function.kind == FunctionInfo::Kind::Legacy && function.legacyHandler) {
    CallBlock block(arguments);
    runGuarded(function.name, [&] { return function.legacyHandler(&block); });
    runGuarded(function.name, [&] {
      result = block.store.result();
      return 0;
    });
  } else if (function.kind == FunctionInfo::Kind::Typed && function.typedHandler) {
    const TypedArguments typedArguments(arguments);
    TypedResult typedResult;
    YRef<MessageHandler> messages(new ReportingMessages(function.name));
    runGuarded(function.name, [&] {
      return function.typedHandler(typedArguments, &typedResult, messages, parseContext,
                                   functionRunTime);
    });
    runGuarded(function.name, [&] {
      result = typedResult.result();
      return 0;
    });
  } else {
    throw CallError(QStringLiteral("%1 is not a function").arg(function.name));
  }
  return result;
}

void callCommand(FunctionInfo command, const QStringList& words) {
  std::vector<QByteArray> texts;
  for (const QString& word : words)
    texts.push_back(word.toUtf8());
  HandlerStrings packed(texts);
  std::vector<char*> argv(packed.data(), packed.data() + packed.count());
  argv.push_back(nullptr); // as C programs expect it
  const Nesting nesting(command.name);
  YRef<MessageHandler> messages(new ReportingMessages(command.name));
  runGuarded(command.name, [&] {
    return command.commandHandler(static_cast<int>(texts.size()), argv.data(), messages,
                                  parseContext);
  });
}

void callEntry(const QString& name, const std::function<void()>& call) {
  const auto kept = loadedModules(); // nobody knows whose code an entry is
  const Nesting nesting(name);
  runGuarded(name, [&] {
    call();
    return 0;
  });
}

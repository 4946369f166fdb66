#include "GuardedCall.h"

#include <algorithm>
#include <cstring>
#include <memory>

namespace {

constexpr std::size_t guardSize = 64; // keeps what is between aligned
constexpr unsigned char guardByte = 0xa5;

/// A stand-in for memory of the host: guard bytes, what the handler fills, guard bytes.
class GuardedMemory {
public:
  GuardedMemory(void* memory, std::size_t size)
      : m_hosts(memory), m_size(size), m_bytes(new unsigned char[size + 2 * guardSize]) {
    std::memset(m_bytes.get(), guardByte, size + 2 * guardSize);
    std::memcpy(filled(), memory, size);
  }
  unsigned char* filled() const { return m_bytes.get() + guardSize; }
  void copyToHost() const { std::memcpy(m_hosts, filled(), m_size); }
  bool isWhole() const {
    const auto isGuard = [](unsigned char byte) { return byte == guardByte; };
    return std::all_of(m_bytes.get(), filled(), isGuard) &&
           std::all_of(filled() + m_size, filled() + m_size + guardSize, isGuard);
  }

private:
  void* m_hosts;
  std::size_t m_size;
  std::unique_ptr<unsigned char[]> m_bytes;
};

/// The guarded call that runs: handlers are plain functions, and find it here.
struct GuardedCall {
  const FunctionInfo* function = nullptr;
  double* (*makeReals)(UserFunctionInterface*, int, const char*) = nullptr;
  char** (*makeStrings)(UserFunctionInterface*, int) = nullptr;
  std::vector<GuardedMemory> results;

  /// Null for null: the host gives none for an absurd count.
  template <class T> T* guard(T* memory, int count) {
    if (!memory)
      return nullptr;
    results.emplace_back(memory, static_cast<std::size_t>(count) * sizeof(T));
    return reinterpret_cast<T*>(results.back().filled());
  }
  void copyToHost() const {
    for (const GuardedMemory& memory : results)
      memory.copyToHost();
  }
  bool isWhole() const {
    return std::all_of(results.begin(), results.end(),
                       [](const GuardedMemory& memory) { return memory.isWhole(); });
  }
};

GuardedCall* running = nullptr;

double* makeReals(UserFunctionInterface* call, int count, const char* physicalType) {
  return running->guard(running->makeReals(call, count, physicalType), count);
}

char** makeStrings(UserFunctionInterface* call, int count) {
  return running->guard(running->makeStrings(call, count), count);
}

int legacyHandler(UserFunctionInterface* call) {
  running->makeReals = std::exchange(call->makeRealResult, makeReals);
  running->makeStrings = std::exchange(call->makeStringResult, makeStrings);
  const int status = running->function->legacyHandler(call);
  running->copyToHost();
  return status;
}

class GuardedResult final : public FuncResultMinimal {
public:
  explicit GuardedResult(FuncResultMinimal* hosts) : m_hosts(hosts) {}
  double* makeReals(int count) override { return running->guard(m_hosts->makeReals(count), count); }
  char** makeStrings(int count) override {
    return running->guard(m_hosts->makeStrings(count), count);
  }
  std::int32_t* makeInts(int count) override {
    return running->guard(m_hosts->makeInts(count), count);
  }
  bool* makeBools(int count) override { return running->guard(m_hosts->makeBools(count), count); }
  void commit() override {
    running->copyToHost();
    m_hosts->commit();
  }
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
  FuncResultMinimal* m_hosts;
};

FUNC_ERROR typedHandler(const FuncArgsMinimal& args, FuncResultMinimal* result,
                        YRef<MessageHandler> messages, const ScpParseContext& context,
                        const FunctionRunTime& runTime) {
  GuardedResult guarded(result);
  return running->function->typedHandler(args, &guarded, messages, context, runTime);
}

} // namespace

bool keepsToItsResult(const FunctionInfo& function, const std::vector<ScriptVector>& arguments) {
  GuardedCall call;
  call.function = &function;
  FunctionInfo guarded = function;
  guarded.legacyHandler = legacyHandler;
  guarded.typedHandler = typedHandler;
  GuardedCall* const outer = std::exchange(running, &call);
  try {
    callHandler(guarded, arguments);
  } catch (const CallError&) {
  }
  running = outer;
  return call.isWhole();
}

#pragma once

#include "Call/ScriptVector.h"

#include <cstdlib>
#include <memory>
#include <vector>

// The memory of one call: what handlers read, and what they fill.

constexpr int longestVector = 100'000'000;

/// Counts one host callback; true where a test wants it to fail.
bool hostCallbackFails();
/// Failure injection for tests: the n-th host callback (string, real vector, string vector,
/// function call) from now on gives null; all after it, too, when `andAllAfter`. 0 switches it off.
/// Returns the callbacks since the last call.
int failHostCallback(int n, bool andAllAfter = false);

/// The host's copy of a text for a result slot; null where there is no memory. Copies that stand in
/// no slot live until `freeIssuedStrings`: until the outermost call ends any call may place them.
char* makeHostString(const char* text);
void freeIssuedStrings();

/// The vectors that one call has asked for. The last one is its result; all live until the call
/// ends, since a handler may copy from one into the next.
class ResultStore {
public:
  ResultStore() = default;
  ResultStore(const ResultStore&) = delete;
  ResultStore& operator=(const ResultStore&) = delete;
  ~ResultStore();

  /// Zeroed memory for `count` elements; null for a negative or absurd count.
  template <class T> T* make(CallResult::Type type, int count) {
    if (hostCallbackFails() || count < 0 || count > longestVector)
      return nullptr;
    const std::size_t size = static_cast<std::size_t>(count);
    void* memory = std::calloc(std::max<std::size_t>(size, 1), sizeof(T));
    if (!memory)
      return nullptr;
    try {
      m_made.push_back({type, size, memory});
    } catch (const std::bad_alloc&) {
      std::free(memory);
      return nullptr;
    }
    return static_cast<T*>(memory);
  }

  /// The last vector; none where none was made. Null texts are empty.
  CallResult result() const;

private:
  struct Made {
    CallResult::Type type;
    std::size_t count;
    void* memory;
  };

  static char** slotsOf(const Made& made) { return static_cast<char**>(made.memory); }

  std::vector<Made> m_made;
};

/// Texts as handlers take them: terminated copies that nobody else shares, each with memory of its
/// own, so that the sanitizers see a handler that reads or writes past its end.
class HandlerStrings {
public:
  explicit HandlerStrings(const std::vector<QByteArray>& texts);
  char** data() { return m_pointers.data(); }
  const char* const* data() const { return m_pointers.data(); }
  std::size_t count() const { return m_pointers.size(); }

private:
  std::vector<std::unique_ptr<char[]>> m_texts;
  std::vector<char*> m_pointers;
};

/// A value in the form in which it crosses the boundary.
struct Operand {
  explicit Operand(const ScriptVector& vector)
      : type(vector.type), reals(vector.reals), references(vector.references),
        strings(vector.strings), divisions(vector.divisions), opaque(vector.opaque) {}
  Operand(const Operand&) = delete;
  Operand& operator=(const Operand&) = delete;

  /// Points the descriptor at this value, which has to outlive it.
  void describe(UserArgument* argument);

  UserDataType type;
  std::vector<double> reals;
  std::vector<double> references;
  HandlerStrings strings;
  int divisions;
  void* opaque;
};

using Operands = std::vector<std::unique_ptr<Operand>>;

Operands operandsOf(const std::vector<ScriptVector>& vectors);

#include "Call/CallMemory.h"

#include <cstring>
#include <unordered_set>
#include <utility>

namespace {

struct Injection {
  int calls = 0;
  int failAt = 0;
  bool andAllAfter = false;

  bool fails() {
    ++calls;
    return failAt > 0 && (calls == failAt || (andAllAfter && calls > failAt));
  }
};
Injection injection;

std::unordered_set<char*>& issuedStrings() {
  static std::unordered_set<char*> strings;
  return strings;
}

template <class T, class Vector>
void copyElements(const void* memory, std::size_t count, Vector* out) {
  const T* data = static_cast<const T*>(memory);
  out->assign(data, data + count);
}

} // namespace

bool hostCallbackFails() {
  return injection.fails();
}

int failHostCallback(int n, bool andAllAfter) {
  return std::exchange(injection, Injection{0, n, andAllAfter}).calls;
}

char* makeHostString(const char* text) {
  if (hostCallbackFails())
    return nullptr;
  if (!text)
    text = "";
  const std::size_t size = std::strlen(text) + 1;
  char* copy = static_cast<char*>(std::malloc(size));
  if (!copy)
    return nullptr;
  std::memcpy(copy, text, size);
  try {
    issuedStrings().insert(copy);
  } catch (const std::bad_alloc&) {
    std::free(copy);
    return nullptr;
  }
  return copy;
}

void freeIssuedStrings() {
  for (char* text : issuedStrings())
    std::free(text);
  issuedStrings().clear();
}

ResultStore::~ResultStore() {
  // One text may stand in several slots, of one vector or of two.
  std::unordered_set<char*> texts;
  for (const Made& made : m_made) {
    if (made.type == CallResult::Type::String)
      texts.insert(slotsOf(made), slotsOf(made) + made.count);
    std::free(made.memory);
  }
  for (char* text : texts) {
    issuedStrings().erase(text);
    std::free(text);
  }
}

CallResult ResultStore::result() const {
  CallResult result;
  if (m_made.empty())
    return result;
  const Made& last = m_made.back();
  result.type = last.type;
  switch (last.type) {
  case CallResult::Type::None:
    break;
  case CallResult::Type::Real:
    copyElements<double>(last.memory, last.count, &result.reals);
    break;
  case CallResult::Type::Int:
    copyElements<std::int32_t>(last.memory, last.count, &result.ints);
    break;
  case CallResult::Type::Bool: // as bytes: a handler may have left one that is neither 0 nor 1
    copyElements<unsigned char>(last.memory, last.count, &result.bools);
    break;
  case CallResult::Type::String:
    result.strings.reserve(last.count);
    for (char** slot = slotsOf(last); slot != slotsOf(last) + last.count; ++slot)
      result.strings.emplace_back(*slot); // a null slot gives an empty text
    break;
  }
  return result;
}

HandlerStrings::HandlerStrings(const std::vector<QByteArray>& texts) {
  m_texts.reserve(texts.size());
  m_pointers.reserve(texts.size());
  for (const QByteArray& text : texts) {
    const std::size_t size = static_cast<std::size_t>(text.size()) + 1;
    m_texts.emplace_back(new char[size]);
    std::memcpy(m_texts.back().get(), text.constData(), size);
    m_pointers.push_back(m_texts.back().get());
  }
}

void Operand::describe(UserArgument* argument) {
  argument->type = type;
  switch (type) {
  case UserReal:
    argument->data = reals.data();
    argument->reference = references.empty() ? nullptr : references.data();
    argument->count = static_cast<std::uint32_t>(reals.size());
    break;
  case UserString:
    argument->data = strings.data();
    argument->count = static_cast<std::uint32_t>(strings.count());
    break;
  case UserOpaque:
    argument->data = &opaque;
    argument->count = 1;
    break;
  }
}

Operands operandsOf(const std::vector<ScriptVector>& vectors) {
  Operands operands;
  for (const ScriptVector& vector : vectors)
    operands.push_back(std::make_unique<Operand>(vector));
  return operands;
}

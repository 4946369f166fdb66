#include "ServedEntries.h"

#include "../modules/EchoEntries.h"

namespace {

template <const auto& entry> auto functionOf(void* address) {
  return reinterpret_cast<typename std::decay_t<decltype(entry)>::Function>(address);
}

void countTexts(void* entry, unsigned random) {
  YArray<YString> texts;
  for (unsigned i = 0; i < random % 8; ++i)
    texts.append(i % 2 ? YString("text") : YString());
  functionOf<echo_CountTexts>(entry)(random % 8 == 7 ? nullptr : &texts);
}

/// A row for each entry, in the order of their names.
constexpr ServedEntry entries[] = {
    {echo_CountTexts.name, false, countTexts},
};

} // namespace

const ServedEntry* servedEntry(const std::string& name) {
  for (const ServedEntry& entry : entries)
    if (name == entry.name)
      return &entry;
  return nullptr;
}

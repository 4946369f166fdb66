#pragma once

#include <string>

/// How tests call an entry that a module serves to others. `random` makes the record: 0 a sound
/// one, any other what its contract lets a caller hand in, damaged or missing as far as that goes.
struct ServedEntry {
  const char* name;
  bool opensDialog; ///< with a sound record, one that it waits for
  void (*call)(void* entry, unsigned random);
};

/// Null for an entry that is not in the table: it needs a row there.
const ServedEntry* servedEntry(const std::string& name);

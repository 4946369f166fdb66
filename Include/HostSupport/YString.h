#pragma once

#include "HostSupport/Export.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

class TempString;

/// The host's text: UTF-8, value semantics, implicitly shared, one pointer in size, never null.
///
/// The bytes are kept as given: text that is not UTF-8 is carried, not repaired. Copies share one
/// buffer until one of them is changed; the count is atomic, so copies may live in other threads.
class HOSTSUPPORT_EXPORT YString {
public:
  /// One byte of a text: read, it is 0 outside the text; written, it detaches the text and raises
  /// `KelvarinException` outside it.
  class Character {
  public:
    Character(YString* text, std::ptrdiff_t index) noexcept : m_text(text), m_index(index) {}
    Character(const Character&) = default;
    operator char() const noexcept { return std::as_const(*m_text)[m_index]; }
    Character& operator=(char c) {
      m_text->put(m_index, c);
      return *this;
    }
    Character& operator=(const Character& other) { return *this = char{other}; }

  private:
    YString* m_text;
    std::ptrdiff_t m_index;
  };

  YString() noexcept;
  YString(const char* text); ///< null counts as empty
  YString(const char* text, std::size_t length);
  explicit YString(const std::string& text);
  // Each type of the language, since which of them has 64 bits depends on the platform.
  YString(int value);
  YString(unsigned value);
  YString(long value);
  YString(unsigned long value);
  YString(long long value);
  YString(unsigned long long value);
  YString(double value); ///< shortest text that reads back to the same value, no suffix
  YString(TempString&& text);
  YString(const YString& other) noexcept;
  YString(YString&& other) noexcept;
  ~YString();
  YString& operator=(const YString& other) noexcept;
  YString& operator=(YString&& other) noexcept;
  YString& operator=(const char* text);

  operator const char*() const noexcept { return c_str(); }
  const char* c_str() const noexcept;  ///< never null, terminated
  std::size_t length() const noexcept; ///< bytes
  bool isEmpty() const noexcept { return length() == 0; }

  /// A temporary that grows in place, so that a chain of `concat` builds one buffer.
  TempString concat(const char* text) const;

  /// Cuts the next token off the front and returns it: leading delimiters are skipped, the token
  /// ends at the next delimiter, and both leave this text. Empty when nothing is left.
  YString strtok(const char* delimiters);

  /// Makes this the only owner of its buffer; returns the writable bytes.
  char* detach();
  /// A copy on the C heap; the caller calls `free`.
  char* copy() const;

  YString& tolower(); ///< in place, ASCII letters only; returns itself
  YString& substituteAll(const char* from,
                         const char* to);         ///< in place; an empty `from` does nothing
  YString& stripLeading(const char* characters);  ///< in place
  YString& stripTrailing(const char* characters); ///< in place
  /// As `strcmp` on paths: case counts only where the file system's does; both separators are
  /// equal.
  int comparePath(const YString& other) const;

  /// The same number for the same bytes on every platform and in every run: stored geometry
  /// depends on it.
  std::uint32_t hashValue() const noexcept;

  char operator[](std::ptrdiff_t index) const noexcept; ///< 0 outside the text
  Character operator[](std::ptrdiff_t index) noexcept { return {this, index}; }

  friend HOSTSUPPORT_EXPORT bool operator==(const YString& a, const YString& b) noexcept;
  friend HOSTSUPPORT_EXPORT bool operator==(const YString& a, const char* b) noexcept;
  friend bool operator==(const char* a, const YString& b) noexcept { return b == a; }
  friend bool operator!=(const YString& a, const YString& b) noexcept { return !(a == b); }
  friend bool operator!=(const YString& a, const char* b) noexcept { return !(a == b); }
  friend bool operator!=(const char* a, const YString& b) noexcept { return !(b == a); }

  // By their bytes. All of them, since else the addresses of two texts would be compared.
  friend bool operator<(const YString& a, const YString& b) noexcept { return a.compare(b) < 0; }
  friend bool operator<(const YString& a, const char* b) noexcept { return a.compare(b) < 0; }
  friend bool operator<(const char* a, const YString& b) noexcept { return b.compare(a) > 0; }
  friend bool operator>(const YString& a, const YString& b) noexcept { return a.compare(b) > 0; }
  friend bool operator>(const YString& a, const char* b) noexcept { return a.compare(b) > 0; }
  friend bool operator>(const char* a, const YString& b) noexcept { return b.compare(a) < 0; }
  friend bool operator<=(const YString& a, const YString& b) noexcept { return a.compare(b) <= 0; }
  friend bool operator<=(const YString& a, const char* b) noexcept { return a.compare(b) <= 0; }
  friend bool operator<=(const char* a, const YString& b) noexcept { return b.compare(a) >= 0; }
  friend bool operator>=(const YString& a, const YString& b) noexcept { return a.compare(b) >= 0; }
  friend bool operator>=(const YString& a, const char* b) noexcept { return a.compare(b) >= 0; }
  friend bool operator>=(const char* a, const YString& b) noexcept { return b.compare(a) <= 0; }

private:
  void put(std::ptrdiff_t index, char c);
  int compare(const YString& other) const noexcept;
  int compare(const char* other) const noexcept; ///< null counts as empty
  struct Data;
  friend class TempString;
  explicit YString(Data* data) noexcept : d(data) {}
  Data* d;
};

static_assert(sizeof(YString) == sizeof(void*));

/// The growing buffer behind a chain of `YString::concat`.
class HOSTSUPPORT_EXPORT TempString {
public:
  explicit TempString(std::string text) : m_text(std::move(text)) {}
  TempString&& concat(const char* text) &&; ///< null counts as empty
  const char* c_str() const noexcept { return m_text.c_str(); }

private:
  friend class YString;
  std::string m_text;
};

/// Compares without regard to the case of ASCII letters, null counting as empty; as `strcmp`.
HOSTSUPPORT_EXPORT int sp_CompareNoCase(const char* a, const char* b) noexcept;

/// The hash of `YString::hashValue` for a plain text; null counts as empty.
HOSTSUPPORT_EXPORT std::uint32_t sp_HashValue(const char* text) noexcept;

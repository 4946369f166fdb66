#include "HostSupport/YString.h"

#include "HostSupport/KelvarinException.h"

#include "AsciiText.h"
#include "NumberText.h"

#include <charconv>
#include <cstdlib>
#include <cstring>
#include <new>

/// Header of a buffer; the bytes and their terminator follow it.
struct YString::Data {
  std::atomic<int> references;
  std::size_t length;

  char* bytes() { return reinterpret_cast<char*>(this + 1); }
  bool isEmpty() const { return length == 0; }

  /// The one empty text. It is never counted, so that threads do not fight over its count, and
  /// constant-initialised, so that no initialiser can be too early for it.
  static Data* empty() {
    struct Empty {
      Data data{{1}, 0};
      char terminator = '\0';
    };
    static Empty shared;
    return &shared.data;
  }

  static Data* allocate(std::size_t length) {
    if (length == 0)
      return empty();
    void* memory = std::malloc(sizeof(Data) + length + 1);
    if (!memory)
      throw std::bad_alloc();
    Data* data = new (memory) Data{{1}, length};
    data->bytes()[length] = '\0';
    return data;
  }

  static Data* make(const char* text, std::size_t length) {
    Data* data = allocate(length);
    if (length > 0)
      std::memcpy(data->bytes(), text, length);
    return data;
  }

  static Data* retain(Data* data) noexcept {
    if (!data->isEmpty())
      data->references.fetch_add(1, std::memory_order_relaxed);
    return data;
  }

  static void release(Data* data) noexcept {
    if (!data->isEmpty() && data->references.fetch_sub(1, std::memory_order_acq_rel) == 1) {
      data->~Data();
      std::free(data);
    }
  }
};

YString::YString() noexcept : d(Data::empty()) {}

YString::YString(const char* text) : d(Data::make(text, text ? std::strlen(text) : 0)) {}

YString::YString(const char* text, std::size_t length) : d(Data::make(text, text ? length : 0)) {}

YString::YString(const std::string& text) : d(Data::make(text.data(), text.size())) {}

namespace {

template <class Integer> std::string digitsOf(Integer value) {
  char digits[24];
  return std::string(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
}

} // namespace

YString::YString(int value) : YString(digitsOf(value)) {}

YString::YString(unsigned value) : YString(digitsOf(value)) {}

YString::YString(long value) : YString(digitsOf(value)) {}

YString::YString(unsigned long value) : YString(digitsOf(value)) {}

YString::YString(long long value) : YString(digitsOf(value)) {}

YString::YString(unsigned long long value) : YString(digitsOf(value)) {}

YString::YString(double value) {
  char text[numberTextCapacity];
  d = Data::make(text,
                 static_cast<std::size_t>(writePlain(value, shortestDigits, shortestDigits, text)));
}

YString::YString(TempString&& text) : YString(text.m_text) {}

YString::YString(const YString& other) noexcept : d(Data::retain(other.d)) {}

YString::YString(YString&& other) noexcept : d(std::exchange(other.d, Data::empty())) {}

YString::~YString() {
  Data::release(d);
}

YString& YString::operator=(const YString& other) noexcept {
  Data* previous = std::exchange(d, Data::retain(other.d));
  Data::release(previous);
  return *this;
}

YString& YString::operator=(YString&& other) noexcept {
  std::swap(d, other.d);
  return *this;
}

YString& YString::operator=(const char* text) {
  return *this = YString(text);
}

const char* YString::c_str() const noexcept {
  return d->bytes();
}

std::size_t YString::length() const noexcept {
  return d->length;
}

TempString YString::concat(const char* text) const {
  return TempString(std::string(c_str(), length())).concat(text);
}

YString YString::strtok(const char* delimiters) {
  const ByteSet isDelimiter(delimiters);
  const char* start = c_str();
  const char* const end = start + length();
  while (start != end && isDelimiter[*start])
    ++start;
  const char* stop = start;
  while (stop != end && !isDelimiter[*stop])
    ++stop;
  YString token(start, static_cast<std::size_t>(stop - start));
  if (stop != end)
    ++stop;
  *this = YString(stop, static_cast<std::size_t>(end - stop));
  return token;
}

char* YString::detach() {
  if (!d->isEmpty() && d->references.load(std::memory_order_acquire) != 1)
    *this = YString(c_str(), length());
  return d->bytes();
}

char* YString::copy() const {
  char* text = static_cast<char*>(std::malloc(length() + 1));
  if (text)
    std::memcpy(text, c_str(), length() + 1);
  return text;
}

YString& YString::tolower() {
  char* text = detach();
  for (std::size_t i = 0, count = length(); i < count; ++i)
    text[i] = asciiLower(text[i]);
  return *this;
}

YString& YString::substituteAll(const char* from, const char* to) {
  const std::string_view text(c_str(), length());
  const std::string_view old(from ? from : "");
  std::size_t found = old.empty() ? std::string_view::npos : text.find(old);
  if (found == std::string_view::npos)
    return *this;
  std::string result;
  std::size_t start = 0;
  for (; found != std::string_view::npos; found = text.find(old, start)) {
    result.append(text, start, found - start);
    result.append(to ? to : "");
    start = found + old.size();
  }
  result.append(text, start);
  return *this = YString(result);
}

YString& YString::stripLeading(const char* characters) {
  const ByteSet isStripped(characters);
  const char* text = c_str();
  std::size_t start = 0;
  while (start < length() && isStripped[text[start]])
    ++start;
  if (start > 0)
    *this = YString(text + start, length() - start);
  return *this;
}

YString& YString::stripTrailing(const char* characters) {
  const ByteSet isStripped(characters);
  const char* text = c_str();
  std::size_t end = length();
  while (end > 0 && isStripped[text[end - 1]])
    --end;
  if (end < length())
    *this = YString(text, end);
  return *this;
}

// FNV-1a of 32 bits: names of stored geometry hold these numbers, so it never changes.
static std::uint32_t fnv1a(const char* bytes, std::size_t length) noexcept {
  std::uint32_t hash = 2166136261u;
  for (std::size_t i = 0; i < length; ++i)
    hash = (hash ^ static_cast<unsigned char>(bytes[i])) * 16777619u;
  return hash;
}

std::uint32_t YString::hashValue() const noexcept {
  return fnv1a(c_str(), length());
}

std::uint32_t sp_HashValue(const char* text) noexcept {
  return text ? fnv1a(text, std::strlen(text)) : fnv1a("", 0);
}

char YString::operator[](std::ptrdiff_t index) const noexcept {
  return index >= 0 && static_cast<std::size_t>(index) < length() ? c_str()[index] : '\0';
}

void YString::put(std::ptrdiff_t index, char c) {
  if (index < 0 || static_cast<std::size_t>(index) >= length())
    throw KelvarinException("YString index outside the text");
  detach()[index] = c;
}

bool operator==(const YString& a, const YString& b) noexcept {
  return a.d == b.d ||
         (a.length() == b.length() && std::memcmp(a.c_str(), b.c_str(), a.length()) == 0);
}

bool operator==(const YString& a, const char* b) noexcept {
  return std::string_view(a.c_str(), a.length()) == (b ? b : "");
}

int YString::compare(const YString& other) const noexcept {
  return std::string_view(c_str(), length()).compare({other.c_str(), other.length()});
}

int YString::compare(const char* other) const noexcept {
  return std::string_view(c_str(), length()).compare(other ? other : "");
}

TempString&& TempString::concat(const char* text) && {
  if (text)
    m_text += text;
  return std::move(*this);
}

int sp_CompareNoCase(const char* a, const char* b) noexcept {
  a = a ? a : "";
  b = b ? b : "";
  while (*a && asciiLower(*a) == asciiLower(*b)) {
    ++a;
    ++b;
  }
  return static_cast<unsigned char>(asciiLower(*a)) - static_cast<unsigned char>(asciiLower(*b));
}

#pragma once

#include <string_view>

// Characters as the simulator's texts have them: ASCII, whatever the locale says.

constexpr char asciiLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
constexpr bool isAsciiDigit(char c) {
  return c >= '0' && c <= '9';
}
constexpr bool isAsciiLetter(char c) {
  return asciiLower(c) >= 'a' && asciiLower(c) <= 'z';
}
constexpr bool isBlank(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}
constexpr bool isPathSeparator(char c) {
  return c == '/' || c == '\\';
}

/// The bytes of a text, asked for in constant time however many there are.
class ByteSet {
public:
  explicit ByteSet(const char* bytes) {
    for (; bytes && *bytes; ++bytes)
      m_has[static_cast<unsigned char>(*bytes)] = true;
  }
  bool operator[](char c) const { return m_has[static_cast<unsigned char>(c)]; }

private:
  bool m_has[256] = {};
};

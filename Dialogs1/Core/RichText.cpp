#include "RichText.h"

#include "HostSupport/YString.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace {

constexpr int deepestTables = 8;
constexpr int deepestElements = 1000;

bool isLetterOrDigit(char letter) {
  return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
         (letter >= '0' && letter <= '9');
}

/// Elements that have no end, or whose end may be left out.
bool endsByItself(const std::string& element) {
  static constexpr const char* names[] = {"area", "base",  "body", "br",    "col",  "dd",    "dt",
                                          "head", "hr",    "html", "img",   "link", "li",    "meta",
                                          "p",    "tbody", "td",   "tfoot", "th",   "thead", "tr"};
  return std::any_of(std::begin(names), std::end(names), [&element](const char* name) {
    return sp_CompareNoCase(name, element.c_str()) == 0;
  });
}

} // namespace

bool nestsTooDeep(const char* text) {
  int tables = 0;
  int elements = 0;
  for (const char* tag = text ? std::strchr(text, '<') : nullptr; tag;
       tag = std::strchr(tag, '<')) {
    const bool isEnd = *++tag == '/';
    const char* const name = tag + (isEnd ? 1 : 0);
    tag = name;
    while (isLetterOrDigit(*tag))
      ++tag;
    const std::string element(name, tag);
    if (element.empty() || endsByItself(element))
      continue;
    int& depth = sp_CompareNoCase("table", element.c_str()) == 0 ? tables : elements;
    depth = std::max(0, depth + (isEnd ? -1 : 1));
    if (tables > deepestTables || elements > deepestElements)
      return true;
  }
  return false;
}

std::size_t longestWord(const char* text) {
  static constexpr char blanks[] = " \t\n\r";
  std::size_t longest = 0;
  for (const char* word = text ? text : ""; *word; word += std::strspn(word, blanks)) {
    const std::size_t length = std::strcspn(word, blanks);
    longest = std::max(longest, length);
    word += length;
  }
  return longest;
}

#include "Core/Pieces/ObjectNames.h"

// As many geometries as a class may leave behind in the settings.
static constexpr std::uint32_t distinctNames = 1001;

YString hashedObjectName(const char* className, const YString& text) {
  const int number = static_cast<int>(text.hashValue() % distinctNames);
  return YString(className).concat("_").concat(YString(number));
}

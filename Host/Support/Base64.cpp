#include "HostSupport/System.h"

#include "AsciiText.h"

#include <QByteArray>

#include <limits>

namespace {

class Base64Coder final : public YBase64Converter {
public:
  YString encode(const void* data, std::size_t size) const override {
    // The coded text is a third longer, and is counted in an int.
    if (!data || size > std::numeric_limits<int>::max() / 2)
      return YString();
    const QByteArray text =
        QByteArray::fromRawData(static_cast<const char*>(data), static_cast<int>(size)).toBase64();
    return YString(text.constData(), static_cast<std::size_t>(text.size()));
  }

  bool decode(const char* text, std::string* out) const override {
    out->clear();
    if (!text)
      return false;
    std::string compact;
    for (; *text; ++text)
      if (!isBlank(*text))
        compact += *text;
    if (compact.size() % 4 != 0 || compact.size() > std::numeric_limits<int>::max() / 2)
      return false;
    const auto result = QByteArray::fromBase64Encoding(
        QByteArray::fromRawData(compact.data(), static_cast<int>(compact.size())),
        QByteArray::Base64Encoding | QByteArray::AbortOnBase64DecodingErrors);
    if (!result)
      return false;
    out->assign(result.decoded.constData(), static_cast<std::size_t>(result.decoded.size()));
    return true;
  }
};

} // namespace

YBase64Converter* kv_CreateYBase64ConverterCore() {
  return new Base64Coder;
}

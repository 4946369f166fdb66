#include "Core/Digital/DigitalConstant.h"

#include <gmp.h>
#include <gtest/gtest.h>

#include <chrono>
#include <random>

namespace {

constexpr DigitBase allBases[] = {DigitBase::Decimal, DigitBase::Binary, DigitBase::Hexadecimal,
                                  DigitBase::SignedDecimal};

int radixOf(DigitBase base) {
  return base == DigitBase::Binary ? 2 : base == DigitBase::Hexadecimal ? 16 : 10;
}

/// A number of an independent library.
class Number {
public:
  Number() { mpz_init(m_value); }
  Number(const Number& other) { mpz_init_set(m_value, other.m_value); }
  Number& operator=(const Number&) = delete;
  ~Number() { mpz_clear(m_value); }

  static Number ofWidth(std::size_t bits, std::mt19937& random) {
    Number number;
    for (std::size_t i = 0; i < bits; ++i)
      if (i == bits - 1 || random() % 2)
        mpz_setbit(number.m_value, i);
    return number;
  }
  static Number powerOfTwo(std::size_t exponent, int offset) {
    Number number;
    mpz_setbit(number.m_value, exponent);
    if (offset < 0)
      mpz_sub_ui(number.m_value, number.m_value, 1);
    else
      mpz_add_ui(number.m_value, number.m_value, static_cast<unsigned long>(offset));
    return number;
  }
  Number negated() const {
    Number number;
    mpz_neg(number.m_value, m_value);
    return number;
  }

  std::string text(DigitBase base) const {
    // A negative radix gives upper-case digits.
    const int radix = radixOf(base) == 16 ? -16 : radixOf(base);
    std::string text(mpz_sizeinbase(m_value, radixOf(base)) + 2, '\0');
    mpz_get_str(text.data(), radix, m_value);
    return text.c_str();
  }
  bool bit(std::size_t index) const { return mpz_tstbit(m_value, index); } // two's complement
  int sign() const { return mpz_sgn(m_value); }
  std::size_t width() const { return sign() == 0 ? 1 : mpz_sizeinbase(m_value, 2); }
  std::size_t signedWidth() const {
    // The sign bit, and those bits below that differ from it: at least one.
    std::size_t highest = width();
    while (highest > 1 && bit(highest - 1) == (sign() < 0))
      --highest;
    return sign() == 0 ? 1 : highest + 1;
  }

private:
  mpz_t m_value;
};

std::vector<Number> manyNumbers(std::size_t widest, std::mt19937& random) {
  std::vector<Number> numbers{Number()};
  for (const std::size_t exponent : {0U, 1U, 2U, 3U, 29U, 31U, 32U, 63U, 64U, 127U, 255U, 256U})
    for (const int offset : {-1, 0, 1})
      numbers.push_back(Number::powerOfTwo(exponent, offset));
  for (int i = 0; i < 300; ++i)
    numbers.push_back(Number::ofWidth(1 + random() % widest, random));
  return numbers;
}

std::mt19937 seeded() {
  const unsigned seed = std::random_device{}();
  ::testing::Test::RecordProperty("seed", static_cast<int>(seed));
  std::printf("seed %u\n", seed);
  return std::mt19937(seed);
}

std::string converted(const std::string& digits, DigitBase from, DigitBase to) {
  return convertDigits(digits, from, to).value_or("too wide");
}

std::string pattern(const std::vector<bool>& bits) {
  std::string text;
  for (const bool bit : bits)
    text.insert(text.begin(), bit ? '1' : '0');
  return text;
}

std::string expectedPattern(const Number& number, std::size_t count) {
  std::string text;
  for (std::size_t i = count; i-- > 0;)
    text += number.bit(i) ? '1' : '0';
  return text;
}

/// Seconds, to tell a slope that is linear from one that is not.
template <class Work> double timeOf(Work work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

} // namespace

TEST(DigitalConstant, EveryWidthConvertsWithoutLoss) {
  std::mt19937 random = seeded();
  for (const Number& number : manyNumbers(700, random))
    for (const DigitBase from : allBases)
      for (const DigitBase to : allBases) {
        // A pattern that has been signed reads as positive from then on.
        const std::string zeros(random() % 3, '0');
        ASSERT_EQ(converted(zeros + number.text(from), from, to),
                  (to == DigitBase::Binary && from == DigitBase::SignedDecimal && number.sign() > 0
                       ? "0"
                       : "") +
                      number.text(to));
      }
}

TEST(DigitalConstant, WidthAndBitsAreThoseOfTwosComplement) {
  std::mt19937 random = seeded();
  for (const Number& positive : manyNumbers(700, random)) {
    for (const DigitBase base : {DigitBase::Decimal, DigitBase::Binary, DigitBase::Hexadecimal})
      ASSERT_EQ(bitsNeeded(positive.text(base), base), positive.width()) << positive.text(base);
    for (const Number& number : {positive, positive.negated()}) {
      const std::string text = number.text(DigitBase::SignedDecimal);
      ASSERT_EQ(bitsNeeded(text, DigitBase::SignedDecimal), number.signedWidth()) << text;
      for (const std::size_t count :
           {std::size_t{0}, std::size_t{1}, number.signedWidth(), std::size_t{random() % 800}})
        ASSERT_EQ(pattern(lowestBits(text, DigitBase::SignedDecimal, count)),
                  expectedPattern(number, count))
            << text << ", " << count;
    }
    const std::size_t count = random() % 800;
    for (const DigitBase base : {DigitBase::Decimal, DigitBase::Binary, DigitBase::Hexadecimal})
      ASSERT_EQ(pattern(lowestBits(positive.text(base), base, count)),
                expectedPattern(positive, count));
  }
}

TEST(DigitalConstant, SignBits) {
  const struct {
    const char* digits;
    const char* bits;
    const char* asHexadecimal;
  } cases[] = {
      {"0", "0", "0"},     {"-0", "0", "0"},    {"1", "01", "1"},      {"-1", "11", "3"},
      {"5", "0101", "5"},  {"-2", "10", "2"},   {"-3", "101", "5"},    {"-4", "100", "4"},
      {"-5", "1011", "B"}, {"-8", "1000", "8"}, {"-007", "1001", "9"}, {"8", "01000", "8"},
      {"-", "0", "0"},     {"", "0", "0"},      {"--5", "0", "0"},     {"+5", "0", "0"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(converted(c.digits, DigitBase::SignedDecimal, DigitBase::Binary), c.bits) << c.digits;
    EXPECT_EQ(converted(c.digits, DigitBase::SignedDecimal, DigitBase::Hexadecimal),
              c.asHexadecimal)
        << c.digits;
    EXPECT_EQ(bitsNeeded(c.digits, DigitBase::SignedDecimal), std::string(c.bits).size());
  }
  EXPECT_EQ(converted("1000", DigitBase::Binary, DigitBase::SignedDecimal), "8");
}

TEST(DigitalConstant, WhatIsNoNumberIsZero) {
  const struct {
    std::string text;
    DigitBase base;
  } cases[] = {
      {"12x4", DigitBase::Decimal},
      {"1 2", DigitBase::Decimal},
      {"-5", DigitBase::Decimal},
      {"1.5", DigitBase::Decimal},
      {"A", DigitBase::Decimal},
      {"102", DigitBase::Binary},
      {"FG", DigitBase::Hexadecimal},
      {"0x1F", DigitBase::Hexadecimal},
      {"@`", DigitBase::Hexadecimal},
      {"1\xff", DigitBase::Decimal},
      {std::string("1\0001", 3), DigitBase::Binary},
      {"\xc2\xb2", DigitBase::Decimal},
      {"-1-", DigitBase::SignedDecimal},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(converted(c.text, c.base, DigitBase::Hexadecimal), "0") << c.text;
    EXPECT_EQ(bitsNeeded(c.text, c.base), 1U) << c.text;
    EXPECT_EQ(pattern(lowestBits(c.text, c.base, 4)), "0000") << c.text;
  }
  EXPECT_EQ(converted("aBcDef", DigitBase::Hexadecimal, DigitBase::Decimal), "11259375");
}

TEST(DigitalConstant, NamesAndZeros) {
  EXPECT_EQ(digitBases.read("signed Decimal"), DigitBase::SignedDecimal);
  EXPECT_EQ(digitBases.read("HEXADECIMAL"), DigitBase::Hexadecimal);
  for (const char* name : {"OCTAL", "", "DECIMAL ", "SIGNED"})
    EXPECT_EQ(digitBases.read(name), std::nullopt) << name;
  EXPECT_EQ(digitBases.read(nullptr), std::nullopt);

  const char* const zeros[][2] = {{"", ""},       {"0", "0"},  {"000", "0"},
                                  {"0010", "10"}, {"0x", "x"}, {"-05", "-05"}};
  for (const auto& c : zeros)
    EXPECT_EQ(withoutLeadingZeros(c[0]), c[1]);
}

TEST(DigitalConstant, TheWidestIsConvertedAndNoMore) {
  std::mt19937 random = seeded();
  const Number widest = Number::powerOfTwo(widestConstant, -1);
  const Number tooWide = Number::powerOfTwo(widestConstant, 0);
  for (const DigitBase base : {DigitBase::Decimal, DigitBase::Binary, DigitBase::Hexadecimal}) {
    EXPECT_EQ(bitsNeeded(widest.text(base), base), widestConstant);
    EXPECT_EQ(converted(widest.text(base), base, DigitBase::Decimal),
              widest.text(DigitBase::Decimal));
    EXPECT_LE(bitsNeeded(tooWide.text(base), base), widestConstant + 1);
  }
  // Just below and far beyond, what is said to be needed is never more than is needed.
  for (const std::size_t width : {65535, 65537, 70000, 200000}) {
    for (const Number& number :
         {Number::ofWidth(width, random), Number::powerOfTwo(width - 1, 0)}) {
      for (const DigitBase base : {DigitBase::Decimal, DigitBase::Hexadecimal}) {
        const std::size_t needed = bitsNeeded(number.text(base), base);
        EXPECT_LE(needed, width);
        EXPECT_GE(needed + 1, width);
      }
      const Number negative = number.negated();
      EXPECT_LE(bitsNeeded(negative.text(DigitBase::SignedDecimal), DigitBase::SignedDecimal),
                negative.signedWidth());
      EXPECT_EQ(pattern(lowestBits(negative.text(DigitBase::SignedDecimal),
                                   DigitBase::SignedDecimal, 300)),
                expectedPattern(negative, 300));
    }
  }
}

TEST(DigitalConstant, AMillionDigitsTakeNoTime) {
  for (const DigitBase from : allBases) {
    const std::string digits(1000000, '1');
    std::vector<bool> bits;
    const double seconds = timeOf([&] {
      for (const DigitBase to : allBases)
        EXPECT_EQ(convertDigits(digits, from, to), std::nullopt);
      EXPECT_GE(bitsNeeded(digits, from), 1000000U);
      bits = lowestBits(digits, from, 256);
    });
    EXPECT_LT(seconds, 5); // by squares it would be minutes
    EXPECT_TRUE(bits[0]);
  }
  EXPECT_EQ(converted(std::string(1000000, '0') + "12", DigitBase::Decimal, DigitBase::Binary),
            "1100");
}

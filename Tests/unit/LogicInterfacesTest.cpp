#include "Core/Digital/LogicInterfaces.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using Lines = std::vector<const char*>;

QStringList words(const char* text) {
  return QString::fromUtf8(text).split(QLatin1Char('|'));
}

LogicInterfaces read(const Lines& lines, int input = -1, int output = -1) {
  return LogicInterfaces(Texts(lines.data(), static_cast<unsigned>(lines.size())), input, output);
}

QStringList namesOf(const LogicInterfaces& interfaces) {
  QStringList names;
  for (const auto& technology : interfaces.technologies())
    names.append(technology.name);
  return names;
}

const Lines families{
    "TTL;Standard input;;adc_bridge;",           // 0
    "CMOS5;Standard output;;dac_bridge;5;1m;1m", // 1
    "ttl;Schmitt input;;adc_schmitt;4.75",       // 2
    "TTL;Standard output;;dac_bridge;;;",        // 3
    "TTL;Standard input;;adc_bridge;",           // 4
    "TTL;Open collector;;dac_open;;;",           // 5
    "TTL;Standard output;;dac_bridge;4500m;1m",  // 6
};

} // namespace

TEST(LogicInterfaces, SortsLinesByTechnologyAndSide) {
  const LogicInterfaces interfaces = read(families);
  EXPECT_EQ(namesOf(interfaces), words("TTL|CMOS5"));
  const auto ttl = interfaces.technology(0);
  EXPECT_EQ(ttl.inputs, (QVector<int>{0, 2, 4}));
  EXPECT_EQ(ttl.outputs, (QVector<int>{3, 5, 6}));
  EXPECT_EQ(ttl.supply, 4.5); // the last line that gives one
  EXPECT_EQ(interfaces.technology(1).supply, 5);
  EXPECT_TRUE(interfaces.technology(1).inputs.isEmpty());
  EXPECT_EQ(interfaces.description(2).toStdString(), "Schmitt input");
  EXPECT_EQ(interfaces.technologyOf(2), 0);
  for (int none : {-1, 7, std::numeric_limits<int>::max()}) {
    EXPECT_EQ(interfaces.technologyOf(none), -1);
    EXPECT_EQ(interfaces.technology(none).defaultInput, -1);
    EXPECT_EQ(interfaces.technology(none).supply, 5);
    EXPECT_EQ(interfaces.description(none), QString());
  }
}

TEST(LogicInterfaces, DefaultIsTheLineAskedForElseTheFirstStandardOne) {
  const struct {
    int input;
    int output;
    int defaultInput;
    int defaultOutput;
  } cases[] = {
      {-1, -1, 0, 3}, {2, 5, 2, 5}, {4, 6, 4, 6}, {3, 0, 0, 3}, // lines of the other side
      {7, 1, 0, 3}, // no line at all, and one of another technology
  };
  for (const auto& c : cases) {
    const auto ttl = read(families, c.input, c.output).technology(0);
    EXPECT_EQ(ttl.defaultInput, c.defaultInput) << c.input;
    EXPECT_EQ(ttl.defaultOutput, c.defaultOutput) << c.output;
  }
  const auto shouted = read({"A;;;adc_bridge", "A;STANDARD input;;adc_bridge", "A;;;",
                             "A;standard Output;;dac_bridge", "A;Standard output 2;;dac_bridge"});
  EXPECT_EQ(shouted.technology(0).defaultInput, 1);
  EXPECT_EQ(shouted.technology(0).defaultOutput, 3);
  EXPECT_EQ(read({"A;Standard inputs;;adc_bridge", "A;;;"}).technology(0).defaultInput, -1);
}

TEST(LogicInterfaces, TellsWhoseOutputResistanceTheUserGives) {
  const struct {
    const char* line;
    bool isResistive;
  } cases[] = {
      {"A;;;dac_bridge", true},       {"A;;;dac_bridge;5", true},    {"A;;;dac_bridge;5;;", true},
      {"A;;;dac_bridge;;;;x", true},  {"A;;;dac_bridge;5;;;", true}, {"A;;;dac_bridge;5;;1", false},
      {"A;;;dac_bridge;5;1;", false}, {"A;;;dac_bridge;5;1", false}, {"A;;;DAC_BRIDGE", false},
      {"A;;;adc_bridge", false},      {"dac_bridge", false},         {"", false},
  };
  for (const auto& c : cases)
    EXPECT_EQ(!read({c.line}).resistiveTechnologies().isEmpty(), c.isResistive) << c.line;
  EXPECT_EQ(read({"B;;;dac_bridge", "A;;;dac_bridge", "b;;;dac_bridge"}).resistiveTechnologies(),
            words("B|A"));
}

TEST(LogicInterfaces, WritesNamesInBold) {
  const struct {
    QStringList names;
    const char* text;
  } cases[] = {
      {{}, ""},
      {words("A"), "<b>A</b>"},
      {words("A|B"), "<b>A</b> and  <b>B</b>"},
      {words("A|B<5V>|C"), "<b>A</b>, <b>B&lt;5V&gt;</b> and  <b>C</b>"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(boldList(c.names).toStdString(), c.text);
}

TEST(LogicInterfaces, ReadsAScriptsNumbers) {
  const int most = std::numeric_limits<int>::max();
  const struct {
    std::vector<double> numbers;
    AnalogInterface read;
  } cases[] = {
      {{}, {-1, -1, 5, 5e-12, 100}},
      {{1, 2}, {-1, -1, 5, 5e-12, 100}},
      {{1, 2, 3.3}, {1, 2, 3.3, 5e-12, 100}},
      {{1, 2, 3.3, 1e-12}, {1, 2, 3.3, 1e-12, 100}},
      {{3.9, 0, 3.3, 1e-12, 50, 7}, {3, 0, 3.3, 1e-12, 50}},
      {{-0.5, -1, 0}, {-1, -1, 0, 5e-12, 100}},
      {{std::nan(""), HUGE_VAL, 0}, {-1, most, 0, 5e-12, 100}},
  };
  for (const auto& c : cases) {
    const auto read = analogInterface(c.numbers.data(), static_cast<unsigned>(c.numbers.size()));
    EXPECT_EQ(read.input, c.read.input) << c.numbers.size();
    EXPECT_EQ(read.output, c.read.output) << c.numbers.size();
    EXPECT_EQ(read.supply, c.read.supply) << c.numbers.size();
    EXPECT_EQ(read.capacitance, c.read.capacitance) << c.numbers.size();
    EXPECT_EQ(read.resistance, c.read.resistance) << c.numbers.size();
  }
}

TEST(LogicInterfaces, TakesWhateverAScriptHandsIn) {
  const LogicInterfaces odd = read({nullptr, "\xff\xfe;\xff;;adc_bridge;nonsense", ";;;;;;;;;;"});
  EXPECT_EQ(odd.technologies().size(), 2U); // the empty name, and one that is no valid text
  EXPECT_EQ(odd.technology(1).supply, 0);

  // As many technologies as lines: each is found among all in the same time.
  std::vector<std::string> texts;
  for (int i = 0; i < 100000; ++i)
    texts.push_back("T" + std::to_string(i) + ";Standard output;;dac_bridge;3.3");
  Lines lines;
  for (const std::string& text : texts)
    lines.push_back(text.c_str());
  const LogicInterfaces many = read(lines, 99999, 99999);
  EXPECT_EQ(many.technologies().size(), lines.size());
  EXPECT_LT(boldList(many.resistiveTechnologies()).size(), 2000);
  EXPECT_EQ(many.technologyOf(99999), 99999);
  EXPECT_EQ(many.technology(99999).defaultOutput, 99999);
}

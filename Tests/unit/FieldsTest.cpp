#include "BrennixAnalysisData.h"
#include "Core/Frame/Words.h"
#include "FieldsCheck.h"
#include "HostWidgets/RadioGroup.h"
#include "HostWidgets/Spinner.h"
#include "SettingsFixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QVBoxLayout>

#include <cstring>

namespace {

/// A sheet with a field of every kind.
struct Sheet : QWidget {
  enum Element { Name, Note, IsShown, Group, Depth, Style, Row, Mode, Button, Radios, Count };

  QLineEdit* name = new QLineEdit(this);
  QPlainTextEdit* note = new QPlainTextEdit(this);
  QCheckBox* shown = new QCheckBox(this);
  QGroupBox* group = new QGroupBox(this);
  Spinner* depth = new Spinner(this);
  QComboBox* style = new QComboBox(this);
  QComboBox* row = new QComboBox(this);
  QRadioButton* perf = new QRadioButton(this);
  QRadioButton* histo = new QRadioButton(this);
  QGroupBox* buttons = new QGroupBox(this);
  RadioGroup* radios = new RadioGroup(this);
  Fields fields;

  Sheet() {
    group->setCheckable(true);
    style->addItems({QStringLiteral("Stepped"), QStringLiteral("Smooth")});
    row->addItems({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
    auto* radioLayout = new QVBoxLayout(radios);
    for (int i = 0; i < 3; ++i) {
      new QRadioButton(buttons);
      radioLayout->addWidget(new QRadioButton(radios));
    }
    fields = {{name, Name},
              {note, Note},
              {shown, IsShown},
              {group, Group},
              {depth, Depth},
              {style, Style},
              Field::row(row, Row),
              {{{perf, "perf"}, {histo, "histo"}}, Mode},
              Field::buttonOf(buttons, Button),
              {radios, Radios}};
  }

  /// What the sheet gives after it was loaded from these elements.
  std::vector<std::string> through(const std::vector<const char*>& texts) {
    fields.load(Elements(Texts(texts.data(), static_cast<unsigned>(texts.size()))));
    TextVector result;
    Elements elements(&result);
    fields.store(&elements);
    std::vector<std::string> out;
    for (unsigned i = 0; i < result.count(); ++i)
      out.emplace_back(result[i].c_str());
    return out;
  }
};

using Vector = std::vector<std::string>;

TEST(Fields, EveryKindComesBackThroughElements) {
  Sheet sheet;
  checkElements(sheet.fields,
                {"R1", "two\nlines", "true", "false", "4.7k", "Smooth", "2", "histo", "1", "2"});
  checkElements(sheet.fields,
                {"ünï;\"", "", "false", "true", "{2*Rload}", "Stepped", "0", "perf", "2", "0"});
}

TEST(Fields, WhatIsMissingOrEmptyLeavesTheFormAsItIs) {
  Sheet sheet;
  const Vector before =
      sheet.through({"x", "y", "true", "true", "5", "Smooth", "1", "perf", "1", "1"});
  Vector expected = before;
  expected[Sheet::Name] = expected[Sheet::Note] = "";
  expected[Sheet::IsShown] = expected[Sheet::Group] = "false";
  EXPECT_EQ(sheet.through({}), expected);
  EXPECT_EQ(sheet.through({"", "", "", "", "", "", "", "", "", ""}), expected);
}

TEST(Fields, WordsAndRowsThatAreNoneLeaveTheFormAsItIs) {
  Sheet sheet;
  const Vector before =
      sheet.through({"", "", "TRUE", "yes", "5", "smooth?", "1", "PERF", "1", "1"});
  EXPECT_EQ(before[Sheet::IsShown], "true") << "flags are read in any case";
  EXPECT_EQ(before[Sheet::Group], "false");
  EXPECT_EQ(before[Sheet::Mode], "perf");
  EXPECT_EQ(sheet.through({"", "", "true", "", "5", "?", "9", "other", "7", "-3"}), before);
}

TEST(Fields, AnEmptyTextMayStandForAnother) {
  QCheckBox box;
  Field field(&box, 0);
  field.forEmpty("true");
  field.load(Elements(Texts()));
  EXPECT_TRUE(box.isChecked());
  const char* off[] = {"false"};
  field.load(Elements(Texts(off, 1)));
  EXPECT_FALSE(box.isChecked());
}

TEST(Fields, ElementsCountFromTheirFirst) {
  QCheckBox box;
  const Field field(&box, 1);
  const char* texts[] = {"true", "false", "false", "true"};
  field.load(Elements(Texts(texts, 4), 2));
  EXPECT_TRUE(box.isChecked());
  TextVector result;
  Elements elements(&result, 2);
  field.store(&elements);
  ASSERT_EQ(result.count(), 4U);
  EXPECT_STREQ(result[3], "true");
  EXPECT_STREQ(result[0], "");
}

TEST(Fields, BitsLeaveTheOthersAlone) {
  QCheckBox low, high;
  const Fields fields = {{&low, 0}, {&high, 31}};
  Bits bits(0x8000fff0U);
  fields.load(bits);
  EXPECT_FALSE(low.isChecked());
  EXPECT_TRUE(high.isChecked());
  low.setChecked(true);
  high.setChecked(false);
  fields.store(&bits);
  EXPECT_EQ(bits.word(), 0x0000fff1U);
}

/// A block of parameters with guards round it.
struct Block {
  AnalysisParameter parameters[8] = {};
  BrennixAnalysisData data = {};

  Block() {
    std::memset(&data.reserved0, 0x5a, sizeof data.reserved0);
    data.parameters = parameters;
    data.action = BrennixAction(77);
  }
  AnalysisParameter& add(const char* name, AnalysisParameterType type, bool isSet = true) {
    AnalysisParameter& added = parameters[data.parameterCount++];
    added.name = name;
    added.type = type;
    added.isSet = isSet;
    return added;
  }
};

TEST(Fields, ParametersGoByNameAndType) {
  Sheet sheet;
  Block block;
  block.add("tstop", AnalysisReal, false).value.real = 9;
  AnalysisParameter& stop = block.add("TSTOP", AnalysisReal);
  AnalysisParameter& gate = block.add("GATE", AnalysisText);
  AnalysisParameter& forced = block.add("FORCED", AnalysisSwitch);
  AnalysisParameter& sweep = block.add("SWEEP", AnalysisIndex);
  AnalysisParameter& wrong = block.add("NOTE", AnalysisReal);
  AnalysisParameter& unset = block.add("GROUP", AnalysisFlag, false);
  AnalysisParameter& strange = block.add("NAME2", AnalysisParameterType(-1));
  stop.value.real = 1e-3;
  gate.text = "{G}";
  forced.value.byte = 1;
  sweep.value.integer = 2;
  sheet.group->setChecked(true);
  sheet.note->setPlainText(QStringLiteral("kept"));
  const Fields fields = {{sheet.depth, "TStop"},  {sheet.name, "GATE"},
                         {sheet.shown, "FORCED"}, Field::buttonOf(sheet.buttons, "SWEEP"),
                         {sheet.note, "NOTE"},    {sheet.group, "GROUP"},
                         {sheet.style, "NAME2"},  {sheet.row, "NOBODY"}};
  Parameters parameters(&block.data);
  fields.load(parameters);
  EXPECT_EQ(sheet.depth->value(), 1e-3);
  EXPECT_EQ(sheet.name->text(), QStringLiteral("{G}"));
  EXPECT_TRUE(sheet.shown->isChecked());
  EXPECT_TRUE(sheet.group->isChecked()) << "a parameter that is not set is not shown";
  EXPECT_EQ(sheet.note->toPlainText(), QStringLiteral("kept"));

  sheet.depth->setValue(2e-3);
  sheet.shown->setChecked(false);
  fields.store(&parameters);
  EXPECT_EQ(stop.value.real, 2e-3);
  EXPECT_EQ(block.parameters[0].value.real, 9) << "of several of one name the last counts";
  EXPECT_EQ(forced.value.byte, 0);
  EXPECT_EQ(sweep.value.integer, 2);
  EXPECT_EQ(unset.value.byte, 1);
  EXPECT_EQ(unset.isSet, 1) << "what is stored is meant to reach the simulator";
  EXPECT_EQ(wrong.value.real, 0);
  EXPECT_EQ(strange.isSet, 1);
  EXPECT_STREQ(strange.text, "");
  EXPECT_EQ(block.data.action, BrennixAction(77));
  for (std::uint8_t byte : block.data.reserved0)
    EXPECT_EQ(byte, 0x5a);
}

class OptionFields : public SettingsFixture {};

TEST_F(OptionFields, AreWrittenOnceTheyAreCommitted) {
  sp_WriteOption("Undo", "12");
  sp_WriteOption("Echo", true);
  Sheet sheet;
  const Fields fields = {{sheet.depth, "Undo"}, {sheet.shown, "Echo"}, {sheet.name, "Fresh"}};
  OptionKeys options;
  fields.load(options);
  EXPECT_EQ(sheet.depth->value(), 12);
  EXPECT_TRUE(sheet.shown->isChecked());
  sheet.depth->setValue(40);
  sheet.name->setText(QStringLiteral("new"));
  fields.store(&options);
  EXPECT_STREQ(sp_GetStringOption("Undo"), "12") << "nothing is written before the user accepts";
  ASSERT_TRUE(options.commit());
  EXPECT_EQ(sp_GetIntOption("Undo"), 40);
  EXPECT_STREQ(sp_GetStringOption("Fresh"), "new");
  EXPECT_TRUE(sp_GetBoolOption("Echo"));
}

TEST_F(OptionFields, OnlyWhatDiffersIsWritten) {
  sp_WriteOption("Depth", "1k");
  Sheet sheet;
  const Fields fields = {{sheet.depth, "Depth"},
                         {{{sheet.perf, "perf"}, {sheet.histo, "histo"}}, "Mode"},
                         {static_cast<QLineEdit*>(nullptr), "Absent"}};
  sp_WriteOption("Mode", "of another version");
  OptionKeys options;
  fields.load(options);
  EXPECT_EQ(sheet.depth->value(), 1000);
  fields.store(&options);
  ASSERT_TRUE(options.commit());
  EXPECT_STREQ(sp_GetStringOption("Depth"), "1k") << "the same number in other words";
  EXPECT_STREQ(sp_GetStringOption("Mode"), "of another version") << "no button knows it";

  sheet.depth->setText(QStringLiteral("{2*n}"));
  fields.store(&options);
  sheet.depth->setText(QStringLiteral("1000"));
  fields.store(&options);
  ASSERT_TRUE(options.commit());
  EXPECT_STREQ(sp_GetStringOption("Depth"), "1k") << "changed and changed back";
  sheet.depth->setText(QStringLiteral("{2*n}"));
  fields.store(&options);
  ASSERT_TRUE(options.commit());
  EXPECT_STREQ(sp_GetStringOption("Depth"), "{2*n}");
}

enum class Mode { Multi, Perf };
constexpr Words<Mode> modes = {{"multi", Mode::Multi}, {"perf", Mode::Perf}, {"fast", Mode::Perf}};

TEST(Words, AreReadInAnyCaseAndWrittenAsTheTableHasThem) {
  EXPECT_EQ(modes.read("PERF"), Mode::Perf);
  EXPECT_EQ(modes.read("Fast"), Mode::Perf);
  EXPECT_EQ(modes.read("per"), std::nullopt);
  EXPECT_EQ(modes.read(nullptr, Mode::Perf), Mode::Perf);
  EXPECT_STREQ(modes.word(Mode::Perf), "perf");
}

TEST(Texts, AVectorTakesTextsOfItsOwn) {
  TextVector texts(1);
  texts.set(0, "of some length, so that it is on the heap");
  texts.set(1000, texts[0]);
  EXPECT_STREQ(texts[1000], texts[0]);
}

TEST(Texts, MissingAndDamagedTextsAreEmpty) {
  const char* raw[] = {"12 V", nullptr, "", "True", "\xff\xfe"};
  const Texts texts(raw, 5);
  EXPECT_EQ(texts.number(0), 12);
  EXPECT_STREQ(texts.raw(1), "");
  EXPECT_EQ(texts.number(2, -1), -1);
  EXPECT_EQ(texts.text(2, QStringLiteral("standard")), QStringLiteral("standard"));
  EXPECT_TRUE(texts.has(2));
  EXPECT_FALSE(texts.has(5));
  EXPECT_TRUE(texts.flag(3));
  EXPECT_STREQ(texts.raw(4), "\xff\xfe") << "what is no valid text is carried byte for byte";
  EXPECT_EQ(texts.all().size(), 5);
  EXPECT_EQ(Texts(nullptr, 7).count(), 0U);
  EXPECT_TRUE(Texts(nullptr, 0).text(3).isEmpty());
}

} // namespace

#include "HostWidgets/ParameterView.h"

#include "HostSupportQt/Binding.h"

#include <QAccessible>
#include <QDialog>
#include <QHeaderView>

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

// How the view binds; what a user does in it stands in dialogs/UserParametersDialog.js.

namespace {

std::vector<std::string> made; // what the host was asked to keep, in order

char* keep(const char* text) {
  made.emplace_back(text);
  return const_cast<char*>("kept");
}

/// A call with names in argument 1 and values in argument 0, and room for a result.
struct Call {
  UserFunctionInterface block{};
  std::vector<const char*> names, values;
  std::vector<char*> texts;

  Call(std::vector<const char*> givenNames, std::vector<const char*> givenValues)
      : names(std::move(givenNames)), values(std::move(givenValues)) {
    block.argCount = 2;
    block.args[0] = {0, values.data(), nullptr, std::uint32_t(values.size()), UserString, {}};
    block.args[1] = {0, names.data(), nullptr, std::uint32_t(names.size()), UserString, {}};
    block.hostString = keep;
  }

  /// What the view stores into a result of `count` elements; fails where it writes elsewhere.
  std::vector<std::string> read(ParameterView* view, std::uint32_t count) {
    static char sentinel[] = "untouched";
    texts.assign(count + 4, sentinel);
    made.clear();
    UserReturnData result{texts.data(), UserString, count};
    EXPECT_TRUE(view->readWidget(&result, &block));
    for (std::size_t i = 0; i < texts.size(); ++i)
      EXPECT_EQ(texts[i] == sentinel, i >= made.size()) << i;
    return made;
  }
};

struct BoundView : ParameterView {
  BoundView() {
    argIndex = 0;
    nameArgIndex = 1;
  }
};

using Texts = std::vector<std::string>;

TEST(ParameterView, ARowForEachName) {
  const std::vector<const char*> abc{"a", "b", "c"};
  const std::tuple<std::vector<const char*>, std::vector<const char*>, Texts> cases[] = {
      {abc, {"1", "2", "3"}, {"1", "2", "3"}},
      {abc, {"1"}, {"1", "", ""}},
      {abc, {}, {"", "", ""}},
      {abc, {"1", "2", "3", "4"}, {"1", "2", "3"}},
      {{}, {"1"}, {}},
      {{nullptr, "b"}, {"1", nullptr}, {"1", ""}},
  };
  BoundView view; // loaded again and again, as by a dialog that is opened twice
  for (const auto& [names, values, expected] : cases) {
    Call call(names, values);
    EXPECT_TRUE(view.initialiseWidget(&call.block));
    EXPECT_EQ(view.vectorSize(), int(expected.size()));
    EXPECT_EQ(call.read(&view, std::uint32_t(expected.size())), expected);
    EXPECT_EQ(call.read(&view, 1), Texts(expected.begin(), expected.begin() + !expected.empty()))
        << "never beyond the result";
    EXPECT_EQ(call.read(&view, 9), expected) << "never beyond the rows";
  }
}

TEST(ParameterView, BytesThatAreNoTextComeBackUntouched) {
  const std::vector<const char*> odd{"\xff\xfe",     "a\xc3",       "\xef\xbb\xbfmarked",
                                     "\xed\xa0\x80", "\xc3\xa9\n;", "4.70k"};
  Call call(odd, odd);
  BoundView view;
  view.initialiseWidget(&call.block);
  const Texts all(odd.begin(), odd.end());
  EXPECT_EQ(call.read(&view, 6), all);
  view.topLevelItem(0)->setText(1, QStringLiteral("typed"));
  view.topLevelItem(1)->setText(1, QString());
  EXPECT_EQ(call.read(&view, 6), (Texts{"typed", "", all[2], all[3], all[4], all[5]}));
}

TEST(ParameterView, AReaderChangesValuesAndNoNames) {
  Call call({"a"}, {"1"});
  BoundView view;
  view.initialiseWidget(&call.block);
  QAccessibleTableInterface* table = QAccessible::queryAccessibleInterface(&view)->tableInterface();
  for (int column : {0, 1})
    table->cellAt(0, column)->setText(QAccessible::Value, QStringLiteral("read"));
  EXPECT_EQ(view.topLevelItem(0)->text(0), QStringLiteral("a"));
  EXPECT_EQ(view.topLevelItem(0)->text(1), QStringLiteral("read"));
}

TEST(ParameterView, WhatIsNotThereLeavesItAlone) {
  Call good({"a"}, {"1"});
  BoundView view;
  ASSERT_TRUE(view.initialiseWidget(&good.block));
  EXPECT_FALSE(view.initialiseWidget(nullptr));
  for (const int number : {-1, 2, 31, 32, 1000}) {
    view.nameArgIndex = number;
    EXPECT_FALSE(view.initialiseWidget(&good.block)) << number;
    view.nameArgIndex = 1;
  }
  Call real({"a"}, {"1"});
  real.block.args[1].type = UserReal;
  EXPECT_FALSE(view.initialiseWidget(&real.block)) << "numbers are no names";
  EXPECT_EQ(good.read(&view, 1), Texts{"1"});
  real.block.args[1].type = UserString;
  real.block.args[0].type = UserReal;
  EXPECT_TRUE(view.initialiseWidget(&real.block)) << "nor are they texts";
  EXPECT_EQ(good.read(&view, 1), Texts{""});

  double number = 7;
  UserReturnData reals{&number, UserReal, 1};
  EXPECT_FALSE(view.readWidget(&reals, &good.block));
  EXPECT_EQ(number, 7) << "no text is written over numbers";
  UserReturnData nowhere{nullptr, UserString, 1};
  EXPECT_FALSE(view.readWidget(&nowhere, &good.block));
  EXPECT_FALSE(view.readWidget(nullptr, &good.block));
}

std::vector<char*> bound; // the result of the bound dialog

TEST(ParameterView, BindsFromItsElementOn) {
  Call call({"a", "b"}, {"1", "2"});
  call.block.makeStringResult = [](UserFunctionInterface*, int count) {
    bound.assign(std::size_t(count), nullptr);
    return bound.data();
  };
  call.block.hostString = [](const char* text) { return strdup(text); };
  QDialog dialog;
  auto* view = new ParameterView(&dialog);
  for (const auto& [name, value] : {std::pair{"argIndex", 0}, {"nameArgIndex", 1}})
    EXPECT_TRUE(view->setProperty(name, value)) << name;
  view->outElementIndex = 2;
  di_InitialiseDialog(&dialog, &call.block);
  UserReturnData result{};
  di_ReadDialog(&call.block, &result, &dialog, UserString, true);
  Texts texts;
  for (char* text : bound) {
    texts.emplace_back(text ? text : "null");
    free(text);
  }
  EXPECT_EQ(texts, (Texts{"", "", "1", "2"}));
}

TEST(ParameterView, OneRowIsOneLineHigh) {
  Call call({"one\ntwo\nthree", "b"}, {"1\n2\n3", "2"});
  BoundView view;
  view.initialiseWidget(&call.block);
  view.show();
  const auto height = [&](int row) { return view.visualItemRect(view.topLevelItem(row)).height(); };
  const int tall = height(0);
  Call plain({"a", "b"}, {"1", "2"});
  view.initialiseWidget(&plain.block);
  EXPECT_EQ(tall, height(0));

  const std::string longName(100000, 'W');
  Call wide({longName.c_str()}, {"1"});
  view.initialiseWidget(&wide.block);
  view.resize(view.sizeHint());
  EXPECT_LE(view.header()->sectionPosition(1), view.width() / 2) << "values stay in sight";
}

} // namespace

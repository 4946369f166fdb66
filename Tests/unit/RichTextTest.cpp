#include "HostSupportQt/RichText.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QUrl>

namespace {

std::string repeated(const char* text, int times) {
  return QByteArray(text).repeated(times).toStdString();
}

/// A picture of w × h points, as it stands in a text.
std::string pictureInText(int w, int h) {
  QImage image(w, h, QImage::Format_Mono);
  image.fill(0);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  image.save(&buffer, "PNG");
  return "<img src=\"data:image/png;base64," + bytes.toBase64().toStdString() + "\">";
}

} // namespace

TEST(RichText, WhatWouldNotBeLaidOutInTimeIsNamed) {
  const struct {
    std::string text;
    const char* fault;
  } cases[] = {
      {"", ""},
      {"<", ""},
      {"a < b </ c <> d <td", ""},
      {repeated("<table><tr><td>", 8), ""},
      {repeated("<table><tr><td>", 9), "deep"},
      {repeated("<TABLE border=1>", 9), "deep"},
      {repeated("<table><tr><td>x</td></tr></table>", 5000), ""},
      {repeated("</table>", 100) + repeated("<table>", 9), "deep"},
      {repeated("<tablet>", 900), ""},
      {repeated("<div>", 1001), "deep"},
      {repeated("<b><i>", 501), "deep"},
      {repeated("<b>x</b>", 100000), ""},
      {repeated("<p>x<br>", 100000), ""},
      {"<ol>" + repeated("<li>x", 5001), "5000 items"},
      {repeated("<table align=left><tr><td>x</table>", 1001), "1000 places"},
      {repeated("<html><body>", 600), "deep"},
      {repeated("<b></i>", 1001), "deep"},
      {repeated("< table>< tr>< td>", 9), "deep"},
      {repeated("<t&#97;ble><\"tr\">", 9), "deep"},
      {repeated("<table><!-- </table> -->", 9), "deep"},
      {repeated("<table title='</table>'>", 9), "deep"},
      {"<table><tr><td title='colspan=1' c&#x6f;lspan=20000><tr><td>", "20000 cells"},
      {"<style>" + repeated("b { color: red }", 1001) + "</style>" + repeated("<b>x</b>", 1000),
       "rules"},
      {"<b>x</b>< table cellpadding=1000000000><tr><td>x", "too large"},
      {"<span style='font-size:30000px'>x</span>", "too large"},
      {"<img src=':/x' width=200000 height=1>", "too large"},
      {"<table width=5000><tr><td>x</table>", "too large"},
      {repeated("<table><tr><td>x</td></tr></table>", 5001), "5000 tables"},
      {"<table>" + repeated("<tr><th>x<td>y", 30000), "20000 cells"},
      {"<table><tr><td colspan=20000>x" + repeated("<tr><td>x", 10), "20000 cells"},
      {"<table><tr><td ROWSPAN = '&#50;0000'><td><td>x", "20000 cells"},
      {"<table>" + repeated("<tr><td rowspan=300>x", 300), "20000 cells"},
      {"<table>" + repeated("<tr><td rowspan=2>x<td>y<tr><td>z", 3000), ""},
      {repeated("<img src=':/x'>", 1001), "1000 pictures"},
      {"<table cellpadding=1000000000><tr><td>x", "too large"},
      {"<style>td { padding: 99999px }</style><table><tr><td>x", "too large"},
      {"<table style='margin:2001px'><tr><td>x", "too large"},
      {"<table width=999 cellpadding=999 border=1 style='color:#123456'><tr><td>x", ""},
  };
  for (const auto& c : cases) {
    const std::string fault = layoutFault(QString::fromStdString(c.text)).toStdString();
    EXPECT_EQ(fault.empty(), !*c.fault) << c.text.substr(0, 60) << fault;
    EXPECT_NE(fault.find(c.fault), std::string::npos) << c.text.substr(0, 60) << fault;
  }
}

TEST(RichText, MarkdownThatWouldNotBeLaidOutInTimeIsNamed) {
  const struct {
    std::string text;
    const char* fault;
  } cases[] = {
      {"# Title\n\n- a\n- b\n\n| a | b |\n|---|---|\n| 1 | 2 |\n\n> quoted > text\n***\n", ""},
      {repeated("| a | b |\n", 10000), "20000 cells"},
      {repeated("![x](y) ", 1001), "1000 pictures"},
      {repeated("  - x\n", 5001), "5000 items"},
      {repeated(">", 50) + " x", "deep"},
      {repeated("- ", 50) + "x", "deep"},
      {"text <table cellpadding=1000000000><tr><td>x</table>", "too large"},
  };
  for (const auto& c : cases) {
    const std::string fault = markdownFault(QString::fromStdString(c.text)).toStdString();
    EXPECT_EQ(fault.empty(), !*c.fault) << c.text.substr(0, 60) << fault;
    EXPECT_NE(fault.find(c.fault), std::string::npos) << c.text.substr(0, 60) << fault;
  }
}

TEST(RichText, ALabelKeepsWhatIsInTheTextAndAsksForNoFile) {
  const std::string inText = pictureInText(9, 9);
  const struct {
    std::string text;
    std::string shown; ///< empty: unchanged
  } cases[] = {
      {"a < b\n<img src=/x>", {}},
      {"<b>bold</b> <a href='/x'>link</a>", {}},
      {"<img src=':/icons/x.svg'><img src=\"qrc:/x\"><img>", {}},
      {inText, {}},
      {pictureInText(1001, 1001), "-"},
      {"<b>R</b>1<img src='/dev/zero'>", "-"},
      {"<img src=&#47;x>", "-"},
      {"<table background=/x><tr><td>R</table>", "R"},
      {"<td background='//server1/x'>R", "R"},
      {"<p style=\"background-image: u\\72l('/x')\">R</p>", "-"},
      {"<link rel=stylesheet type='text/css' href=/x><b>R</b>", "-"},
      {"<style>@import url(/x);</style><b>R</b>", "-"},
      {repeated("<table><tr><td>", 9), "&lt;table"},
      {"<table>" + repeated("<tr><td>x", 1001), "&lt;table"},
      {"<b style='font-size:61px'>x</b>", "&lt;b"},
  };
  const auto shownFor = [](const std::string& text) {
    return harmlessText(QString::fromStdString(text)).toStdString();
  };
  for (const auto& c : cases) {
    const std::string shown = shownFor(c.text);
    EXPECT_EQ(shown == c.text, c.shown.empty()) << c.text << shown;
    EXPECT_TRUE(c.shown.size() < 2 || shown.find(c.shown) != std::string::npos) << shown;
    for (const char* left : {"/x", "zero", "server1"})
      EXPECT_TRUE(c.shown.empty() || shown.find(left) == std::string::npos) << shown;
  }
  const std::string mixed = shownFor(inText + "<b>R</b><img src=/x>");
  EXPECT_NE(mixed.find("data:image/png"), std::string::npos);
  EXPECT_NE(mixed.find("font-weight:600"), std::string::npos);
}

TEST(RichText, APictureIsNeverNull) {
  const QString text = QString::fromStdString(pictureInText(20, 30));
  const QByteArray bytes = dataOf(QUrl(text.section(QLatin1Char('"'), 1, 1)));
  EXPECT_EQ(pictureOf(bytes, 600).size(), QSize(20, 30));
  for (const QImage& stood : {pictureOf(bytes, 599), pictureOf("x", 600), pictureOf("", 600)})
    EXPECT_EQ(stood.size(), QSize(16, 16));
}

TEST(RichText, LongestWord) {
  const struct {
    const char* text;
    int length;
  } cases[] = {{"", 0}, {" \n", 0}, {"a bcd\nef", 3}, {" ab", 2}, {"abc\tde ", 3}};
  for (const auto& c : cases)
    EXPECT_EQ(longestWord(QString::fromLatin1(c.text)), c.length) << c.text;
}

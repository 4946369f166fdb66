#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QSet>

// What dialoghost lists must be what a program sees that knows the records' layout only.

namespace {

QByteArray run(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.start(program, arguments);
  EXPECT_TRUE(process.waitForFinished(60000));
  EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
  return process.readAllStandardOutput();
}

QSet<QString> listedByHost() {
  QSet<QString> lines;
  const QJsonArray functions =
      QJsonDocument::fromJson(
          run(QStringLiteral(KV_DIALOGHOST), {QStringLiteral("list"), QStringLiteral("--json")}))
          .array();
  for (const QJsonValue& value : functions) {
    const QJsonObject function = value.toObject();
    if (function.value(QStringLiteral("kind")).toString() != QLatin1String("legacy"))
      continue;
    QStringList types;
    for (const QJsonValue& type : function.value(QStringLiteral("argTypes")).toArray())
      types.append(QString::number(type.toInt()));
    lines.insert(QStringLiteral("%1 %2 %3 %4 %5")
                     .arg(function.value(QStringLiteral("name")).toString())
                     .arg(function.value(QStringLiteral("minArgs")).toInt())
                     .arg(function.value(QStringLiteral("maxArgs")).toInt())
                     .arg(types.join(QLatin1Char(',')))
                     .arg(function.value(QStringLiteral("resultType")).toInt()));
  }
  return lines;
}

} // namespace

TEST(ForeignReader, SeesWhatTheHostLists) {
  QSet<QString> read;
  for (const QByteArray& line :
       run(QStringLiteral(KV_RECORD_READER), {QStringLiteral(KV_MODULE_FILE)}).split('\n'))
    if (!line.isEmpty())
      read.insert(QString::fromUtf8(line));
  EXPECT_FALSE(read.isEmpty());
  EXPECT_EQ(read, listedByHost());
}

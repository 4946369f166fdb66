#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QSet>

// What dialoghost lists, and what stands in a shared record, must be what a program sees that knows
// the records' layout only.

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

TEST(ForeignReader, SeesWhatRecordsHold) {
  EXPECT_EQ(run(QStringLiteral(KV_RECORD_READER),
                {QStringLiteral("--examples"), QStringLiteral(KV_RECORD_MAKER)})
                .toStdString(),
            "TSTOP type 0 set 1 0.0025\n"
            "N_PT type 1 set 0 -7\n"
            "ALL type 2 set 0 1\n"
            "TRIG_GATE type 4 set 0 {GATE}\n"
            "SWEEP_TYPE type 5 set 0 1\n"
            "action 2; selected 0 1 0; defined 1 0 1\n"
            "U1.out 2 1 1\n"
            "R1#p 3 3 0\n"
            "graphs 3 points 5000000000 1 x -1 0.5 divisions 6 chars \"&\n"
            "mode 2 filter *.sym start /home flag 1 filters [all (*)] [libraries (*.slb)]\n"
            "chosen [a.slb]\n"
            "1/(s+1): 1 2 of 2, 3 of 1, status -1 spare 0\n"
            "written: 0.125 300 1, 0 1 2 3; 11 12 0\n");
}

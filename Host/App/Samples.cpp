#include "Samples.h"

#include "Paths.h"

#include <QDir>
#include <QFile>

static QString sampleFile(const QString& name) {
  return samplesDir() + QLatin1Char('/') + name + QStringLiteral(".js");
}

static void readHeader(Sample* sample) {
  const QString familyKey = QStringLiteral("Family:");
  const QString typedKey = QStringLiteral("Types:");
  QStringList purpose;
  const QStringList lines = sample->text.split(QLatin1Char('\n'));
  for (const QString& line : lines) {
    QString words = line.trimmed();
    if (!words.startsWith(QLatin1String("//")))
      break;
    words = words.mid(2).trimmed();
    if (words.startsWith(familyKey))
      sample->family = words.mid(familyKey.size()).trimmed();
    else if (words.startsWith(typedKey))
      sample->typed = words.mid(typedKey.size()).trimmed();
    else if (words == QLatin1String("Opens: no dialog"))
      sample->opensDialog = false;
    else if (!words.isEmpty())
      purpose << words;
  }
  sample->purpose = purpose.join(QLatin1Char(' '));
}

QString samplesDir() {
  return hostDataDir(QStringLiteral("samples")) + QStringLiteral("/calls");
}

std::optional<Sample> readSample(const QString& name) {
  QFile file(sampleFile(name));
  if (!file.open(QIODevice::ReadOnly))
    return std::nullopt;
  Sample sample;
  sample.name = name;
  sample.file = file.fileName();
  sample.text = QString::fromUtf8(file.readAll());
  readHeader(&sample);
  return sample;
}

QVector<Sample> readSamples() {
  QVector<Sample> samples;
  const auto files =
      QDir(samplesDir()).entryInfoList({QStringLiteral("*.js")}, QDir::Files, QDir::Name);
  for (const QFileInfo& file : files)
    if (const auto sample = readSample(file.completeBaseName()))
      samples.append(*sample);
  return samples;
}

#include "Output.h"

#include <cstdio>

static void writeLine(std::FILE* stream, const QString& line) {
  QByteArray bytes = line.toUtf8();
  bytes.append('\n');
  std::fwrite(bytes.constData(), 1, std::size_t(bytes.size()), stream);
  std::fflush(stream);
}

void printLine(const QString& line) {
  writeLine(stdout, line);
}

void printError(const QString& line) {
  writeLine(stderr, line);
}

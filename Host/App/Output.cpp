#include "Output.h"

#include <QCoreApplication>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>

static bool isLost = false;

static bool writeLine(std::FILE* stream, const QString& line) {
  QByteArray bytes = line.toUtf8();
  bytes.append('\n');
  const auto size = std::size_t(bytes.size());
  return std::fwrite(bytes.constData(), 1, size, stream) == size && std::fflush(stream) == 0;
}

static void noteLost(int error) {
  if (!isLost && error != EPIPE)
    printError(QCoreApplication::translate("Output", "dialoghost: the output cannot be written: %1")
                   .arg(QString::fromLocal8Bit(std::strerror(error))));
  isLost = true;
}

bool printLine(const QString& line) {
  const bool isWritten = !isLost && writeLine(stdout, line);
  if (!isWritten)
    noteLost(errno);
  return isWritten;
}

void printError(const QString& line) {
  writeLine(stderr, line);
}

void keepBrokenPipes() {
#ifdef SIGPIPE
  std::signal(SIGPIPE, SIG_IGN);
#endif
}

int exitStatus(int status) {
  return status == 0 && isLost ? 1 : status;
}

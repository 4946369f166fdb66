// brennixcheck: stands in for the simulator where a syntax check of file-defined sources is asked
// for. Ends with 0 when the run was made, whatever it found, and with 2 when it could not be.

#include "CheckRun.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const QString problem = runCheck(QCoreApplication::arguments().mid(1));
  if (problem.isEmpty())
    return 0;
  std::fprintf(stderr, "brennixcheck: %s\n", problem.toUtf8().constData());
  return 2;
}

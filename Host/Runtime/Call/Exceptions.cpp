#include "Call/Exceptions.h"

#include "HostSupport/KelvarinException.h"

#include <new>
#include <stdexcept>

QString describeException() {
  try {
    throw;
  } catch (const KelvarinException& error) {
    return QString::fromUtf8(error.message());
  } catch (const std::bad_alloc&) {
    return QStringLiteral("not enough memory");
  } catch (const std::exception& error) {
    return QString::fromUtf8(error.what());
  } catch (...) {
    return QStringLiteral("an unknown exception");
  }
}

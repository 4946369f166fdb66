#include "Call/HostFunctions.h"

#include <QHash>

namespace {

QHash<QString, Provider>& functions() {
  static QHash<QString, Provider> all;
  return all;
}

} // namespace

void setHostFunction(const QString& name, Provider provider) {
  if (provider)
    functions().insert(name, std::move(provider));
  else
    functions().remove(name);
}

Provider hostFunction(const QString& name) {
  return functions().value(name);
}

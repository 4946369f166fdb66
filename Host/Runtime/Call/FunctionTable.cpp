#include "Call/FunctionTable.h"

#include "Call/Exceptions.h"
#include "HostSupport/Registry.h"
#include "HostSupport/System.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QJsonObject>

#include <algorithm>
#include <cstring>
#include <set>

namespace {

constexpr int longestList = 4096;
constexpr qint64 largestModule = 1 << 30;

/// What a module file has registered. Constructors run once per load, so a second table that loads
/// a file that is in memory already learns here what belongs to it.
struct Registrations {
  std::set<const FuncConstruct*> functions;
  std::set<std::string> commands;
};

Registrations& registrationsOf(const QString& file) {
  static QHash<QString, Registrations> all;
  return all[QFileInfo(file).canonicalFilePath()];
}

std::set<const FuncConstruct*> registeredOwners() {
  std::set<const FuncConstruct*> owners;
  for (const TypedFunctionRecord& record : sp_RegisteredFunctions())
    owners.insert(record.owner);
  return owners;
}

std::set<std::pair<std::string, CommandHandler>> registeredCommands() {
  std::set<std::pair<std::string, CommandHandler>> commands;
  for (const CommandRecord& record : sp_RegisteredCommands())
    commands.emplace(record.name, record.handler);
  return commands;
}

/// A name out of a module, fit for a message whatever its bytes are.
QString printable(const char* bytes, std::size_t length) {
  QString text;
  for (std::size_t i = 0; i < length; ++i) {
    const unsigned char byte = static_cast<unsigned char>(bytes[i]);
    text += byte >= 0x20 && byte < 0x7f ? QLatin1Char(bytes[i]) : QLatin1Char('?');
  }
  return QLatin1Char('"') + text + QLatin1Char('"');
}

bool isIdentifier(const char* bytes, std::size_t length) {
  const auto isLetter = [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
  };
  if (length == 0 || !isLetter(bytes[0]))
    return false;
  return std::all_of(bytes, bytes + length,
                     [&](char c) { return isLetter(c) || (c >= '0' && c <= '9'); });
}

QString checkedName(const char* bytes, std::size_t length) {
  if (length == 0)
    throw ModuleError(QStringLiteral("a function has an empty name"));
  if (!isIdentifier(bytes, length))
    throw ModuleError(
        QStringLiteral("the function name %1 is not an identifier").arg(printable(bytes, length)));
  return QString::fromLatin1(bytes, static_cast<int>(length));
}

ArgType checkedType(std::uint32_t code, const QString& function, int index) {
  if (code != StringArg && code != AnyArg && code != RealArg)
    throw ModuleError(QStringLiteral("%1: argument %2 is declared with the unknown type code %3")
                          .arg(function)
                          .arg(index + 1)
                          .arg(code));
  return static_cast<ArgType>(code);
}

void checkCounts(const FunctionInfo& info) {
  if (info.maxArgs > maxUserArguments)
    throw ModuleError(QStringLiteral("%1: declares up to %2 arguments, more than %3")
                          .arg(info.name)
                          .arg(info.maxArgs)
                          .arg(maxUserArguments));
  if (info.minArgs < 0 || info.minArgs > info.maxArgs)
    throw ModuleError(QStringLiteral("%1: declares at least %2 arguments but at most %3")
                          .arg(info.name)
                          .arg(info.minArgs)
                          .arg(info.maxArgs));
}

QString nullHandler(const QString& name) {
  return QStringLiteral("%1: the handler is null").arg(name);
}

FunctionInfo legacyFunction(const UserFunctionDecl& record) {
  const void* end = std::memchr(record.name, 0, sizeof(record.name));
  if (!end)
    throw ModuleError(QStringLiteral("the function name %1… does not end within its %2 bytes")
                          .arg(printable(record.name, sizeof(record.name)))
                          .arg(sizeof(record.name)));
  FunctionInfo info;
  info.name = checkedName(record.name, std::strlen(record.name));
  info.minArgs = record.minArgs;
  info.maxArgs = record.maxArgs;
  info.resultType = static_cast<ResultType>(record.resultType);
  info.legacyHandler = record.handler;
  checkCounts(info);
  if (!record.handler)
    throw ModuleError(nullHandler(info.name));
  for (int i = 0; i < info.maxArgs; ++i)
    info.argTypes.append(checkedType(record.argTypes[i], info.name, i));
  return info;
}

FunctionInfo typedFunction(const TypedFunctionRecord& record) {
  FunctionInfo info;
  info.kind = FunctionInfo::Kind::Typed;
  info.name = checkedName(record.name.data(), record.name.size());
  info.minArgs = record.minArgs;
  info.maxArgs = record.maxArgs;
  info.resultType = record.result;
  info.typedHandler = record.handler;
  checkCounts(info);
  if (!record.handler)
    throw ModuleError(nullHandler(info.name));
  for (ArgType type : record.types)
    info.argTypes.append(checkedType(type, info.name, info.argTypes.size()));
  if (info.argTypes.size() < info.maxArgs)
    throw ModuleError(QStringLiteral("%1: declares the types of %2 arguments but takes up to %3")
                          .arg(info.name)
                          .arg(info.argTypes.size())
                          .arg(info.maxArgs));
  return info;
}

FunctionInfo commandInfo(const CommandRecord& record) {
  FunctionInfo info;
  info.kind = FunctionInfo::Kind::Command;
  info.name = checkedName(record.name.data(), record.name.size());
  info.commandHandler = record.handler;
  if (!record.handler)
    throw ModuleError(nullHandler(info.name));
  return info;
}

const UserFunctionDecl* listHead(QLibrary& library) {
  const auto entry = reinterpret_cast<UserFunctionEntry>(library.resolve(userFunctionEntryName));
  if (!entry)
    throw ModuleError(
        QStringLiteral("it has no symbol %1").arg(QLatin1String(userFunctionEntryName)));
  void* first = nullptr;
  std::uint8_t flags = 0;
  std::uint32_t reported[3] = {0, 0, 0};
  entry(&first, &flags, reported);

  const struct {
    const char* what;
    std::uint32_t expected;
  } facts[] = {{"the argument block's size", userFunctionInterfaceSize},
               {"the function record's size", userFunctionDeclSize},
               {"the interface version", userFunctionInterfaceVersion}};
  for (int i = 0; i < 3; ++i)
    if (reported[i] != facts[i].expected)
      throw ModuleError(QStringLiteral("%1 is %2, expected %3")
                            .arg(QLatin1String(facts[i].what))
                            .arg(reported[i])
                            .arg(facts[i].expected));
  if (!first)
    throw ModuleError(QStringLiteral("its list of functions is empty"));
  return static_cast<const UserFunctionDecl*>(first);
}

void readList(const UserFunctionDecl* head, QVector<FunctionInfo>* functions) {
  std::set<const UserFunctionDecl*> seen;
  for (const UserFunctionDecl* record = head; record; record = record->next) {
    if (!seen.insert(record).second)
      throw ModuleError(
          QStringLiteral("its list of functions has a loop after %1 records").arg(seen.size()));
    if (seen.size() > longestList)
      throw ModuleError(
          QStringLiteral("its list of functions has more than %1 records").arg(longestList));
    functions->append(legacyFunction(*record));
  }
}

void readRegistrations(const Registrations& own, QVector<FunctionInfo>* functions) {
  for (const TypedFunctionRecord& record : sp_RegisteredFunctions())
    if (own.functions.count(record.owner))
      functions->append(typedFunction(record));
  std::set<std::string> done;
  std::vector<CommandRecord> commands = sp_RegisteredCommands();
  // From the back: a module that was loaded anew has registered its commands anew.
  for (auto record = commands.rbegin(); record != commands.rend(); ++record)
    if (own.commands.count(record->name) && done.insert(record->name).second)
      functions->append(commandInfo(*record));
}

/// Modules ask to be told when they are loaded. A fault of what they do then is theirs alone.
void tellLoaded() {
  constexpr const char* event = "PostPluginLoad";
  try {
    sp_RunAutoFuncs(event, nullptr);
  } catch (...) {
    sp_ReportMessage(QStringLiteral("%1: %2")
                         .arg(QLatin1String(event), describeException())
                         .toUtf8()
                         .constData());
  }
}

QVector<FunctionInfo> readModule(QLibrary& library, const Registrations& own) {
  QVector<FunctionInfo> functions;
  readList(listHead(library), &functions);
  readRegistrations(own, &functions);
  std::sort(functions.begin(), functions.end(),
            [](const FunctionInfo& a, const FunctionInfo& b) { return a.name < b.name; });
  const auto twin = std::adjacent_find(
      functions.cbegin(), functions.cend(),
      [](const FunctionInfo& a, const FunctionInfo& b) { return a.name == b.name; });
  if (twin != functions.cend())
    throw ModuleError(QStringLiteral("%1 is declared twice").arg(twin->name));
  return functions;
}

std::vector<std::weak_ptr<QLibrary>>& everLoaded() {
  static std::vector<std::weak_ptr<QLibrary>> all;
  return all;
}

/// Ends this use of the library. What it had registered is its own no more, once it is gone.
void release(QLibrary* library) {
  const QString path = library->fileName();
  library->unload();
  delete library;
  const auto left = registeredOwners();
  Registrations& own = registrationsOf(path);
  for (auto owner = own.functions.begin(); owner != own.functions.end();)
    owner = left.count(*owner) ? std::next(owner) : own.functions.erase(owner);
}

} // namespace

std::vector<std::shared_ptr<QLibrary>> loadedModules() {
  std::vector<std::shared_ptr<QLibrary>> present;
  for (const std::weak_ptr<QLibrary>& each : everLoaded())
    if (std::shared_ptr<QLibrary> library = each.lock())
      present.push_back(std::move(library));
  everLoaded().assign(present.begin(), present.end());
  return present;
}

QString kindName(FunctionInfo::Kind kind) {
  switch (kind) {
  case FunctionInfo::Kind::Legacy:
    return QStringLiteral("legacy");
  case FunctionInfo::Kind::Typed:
    return QStringLiteral("typed");
  case FunctionInfo::Kind::Command:
    break;
  }
  return QStringLiteral("command");
}

FunctionTable::~FunctionTable() {
  if (m_library)
    QLibrary(m_library->fileName()).load(); // once more than it is unloaded
}

void FunctionTable::loadModule(const QString& file) {
  const auto fault = [&](const QString& what) {
    return ModuleError(QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(file), what));
  };
  const QFileInfo info(file);
  if (!info.exists())
    throw fault(QStringLiteral("there is no such file"));
  if (info.isDir())
    throw fault(QStringLiteral("it is a folder"));
  if (!info.isFile()) // a pipe is waited for without end
    throw fault(QStringLiteral("it is not a plain file"));
  if (info.size() > largestModule)
    throw fault(QStringLiteral("it has %1 MB; a module has at most %2")
                    .arg(info.size() >> 20)
                    .arg(largestModule >> 20));
  const QString path = info.absoluteFilePath();

  const auto ownersBefore = registeredOwners();
  const auto commandsBefore = registeredCommands();
  const std::shared_ptr<QLibrary> library(new QLibrary(path), release);
  const bool wasInMemory = library->isLoaded();
  library->setLoadHints(QLibrary::ResolveAllSymbolsHint);
  if (!library->load())
    throw fault(library->errorString().simplified());

  Registrations& own = registrationsOf(path);
  for (const FuncConstruct* owner : registeredOwners())
    if (!ownersBefore.count(owner))
      own.functions.insert(owner);
  for (const auto& command : registeredCommands())
    if (!commandsBefore.count(command))
      own.commands.insert(command.first);

  QVector<FunctionInfo> functions;
  try {
    functions = readModule(*library, own);
  } catch (const ModuleError& error) {
    throw fault(QString::fromUtf8(error.what()));
  }
  for (FunctionInfo& function : functions)
    function.module = library;
  m_functions = functions;
  m_library = library;
  everLoaded().push_back(library);
  if (!wasInMemory)
    tellLoaded();
}

void FunctionTable::unloadModule() {
  m_functions.clear();
  m_library.reset();
}

const FunctionInfo* FunctionTable::find(const QString& name) const {
  const auto found = std::lower_bound(
      m_functions.cbegin(), m_functions.cend(), name,
      [](const FunctionInfo& info, const QString& key) { return info.name < key; });
  return found != m_functions.cend() && found->name == name ? &*found : nullptr;
}

QJsonArray FunctionTable::toJson() const {
  QJsonArray array;
  for (const FunctionInfo& info : m_functions) {
    QJsonArray types;
    for (ArgType type : info.argTypes)
      types.append(static_cast<int>(type));
    array.append(QJsonObject{{QStringLiteral("name"), info.name},
                             {QStringLiteral("kind"), kindName(info.kind)},
                             {QStringLiteral("minArgs"), info.minArgs},
                             {QStringLiteral("maxArgs"), info.maxArgs},
                             {QStringLiteral("argTypes"), types},
                             {QStringLiteral("resultType"), static_cast<int>(info.resultType)}});
  }
  return array;
}

QString defaultModuleFile() {
  const QDir program(QCoreApplication::applicationDirPath());
  // Where libraries are installed, where the build leaves them, and beside the program.
  for (const char* folder : {KV_LIBRARIES_FROM_PROGRAM, "../lib", "."})
    for (const QFileInfo& file :
         QDir(program.absoluteFilePath(QLatin1String(folder)))
             .entryInfoList({QStringLiteral("libDialogs1.*"), QStringLiteral("Dialogs1.*")},
                            QDir::Files))
      if (QLibrary::isLibrary(file.fileName()))
        return QDir::cleanPath(file.absoluteFilePath());
  return QDir::cleanPath(
      program.absoluteFilePath(QStringLiteral(KV_LIBRARIES_FROM_PROGRAM "/Dialogs1")));
}

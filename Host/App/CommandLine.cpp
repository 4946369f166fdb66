#include "CommandLine.h"

#include "HostSupportQt/Text.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>

#include <cmath>
#include <iterator>

namespace {

struct Texts {
  Q_DECLARE_TR_FUNCTIONS(CommandLine)
};

struct SubCommand {
  const char* name;
  CommandLine::Command command;
  const char* synopsis; ///< what stands behind the name
  const char* purpose;
};

constexpr SubCommand subCommands[] = {
    {"run", CommandLine::Command::Run, "[--timeout S] [--memory MB] FILE.js [ARG…]",
     QT_TRANSLATE_NOOP("CommandLine", "Runs a script; words after FILE.js belong to the script.")},
    {"eval", CommandLine::Command::Eval, "[--timeout S] [--memory MB] 'TEXT'",
     QT_TRANSLATE_NOOP("CommandLine", "Runs one line of script and prints its value as JSON.")},
    {"list", CommandLine::Command::List, "[--json]",
     QT_TRANSLATE_NOOP("CommandLine", "Lists the functions and commands of the module.")},
    {"tour", CommandLine::Command::Tour, "[--out DIR] [--dark] [--scale N] [NAME…]",
     QT_TRANSLATE_NOOP("CommandLine",
                       "Opens every sample, takes its picture and accepts it; writes index.html.")},
};

const SubCommand* findSubCommand(const QString& name) {
  for (const SubCommand& candidate : subCommands)
    if (name == QLatin1String(candidate.name))
      return &candidate;
  return nullptr;
}

CommandLineAnswer usageError(const QString& message) {
  return {2, Texts::tr("dialoghost: %1\nSee \"dialoghost --help\".").arg(message)};
}

QString commandNames() {
  QStringList names;
  for (const SubCommand& each : subCommands)
    names << QLatin1String(each.name);
  return names.join(QStringLiteral(", "));
}

QString overview() {
  QString text = Texts::tr("The development host of the dialog module. Without a command it opens "
                           "the workbench.\n\nCommands:");
  for (const SubCommand& each : subCommands)
    text += QStringLiteral("\n  %1 %2\n      %3")
                .arg(QLatin1String(each.name), QString::fromUtf8(each.synopsis),
                     Texts::tr(each.purpose));
  return text;
}

/// The options that stand before or behind the command's name.
void addCommonOptions(QCommandLineParser* parser) {
  parser->addOptions({
      {QStringLiteral("module"), Texts::tr("Loads another module file."), QStringLiteral("FILE")},
      {QStringLiteral("settings"),
       Texts::tr("Keeps options and settings in DIR instead of the usual place."),
       QStringLiteral("DIR")},
      {QStringLiteral("fresh"),
       Texts::tr("Starts without any options and settings, and keeps none.")},
      {{QStringLiteral("h"), QStringLiteral("help")}, Texts::tr("Shows this help.")},
      {{QStringLiteral("v"), QStringLiteral("version")}, Texts::tr("Shows the version.")},
  });
}

void addOptionsOf(CommandLine::Command command, QCommandLineParser* parser) {
  switch (command) {
  case CommandLine::Command::Workbench: {
    QCommandLineOption screenshot(QStringLiteral("screenshot"), QString(), QStringLiteral("FILE"));
    screenshot.setFlags(QCommandLineOption::HiddenFromHelp);
    QCommandLineOption dark(QStringLiteral("dark"));
    dark.setFlags(QCommandLineOption::HiddenFromHelp);
    parser->addOptions({screenshot, dark});
    break;
  }
  case CommandLine::Command::Run:
  case CommandLine::Command::Eval:
    parser->addOptions(
        {{QStringLiteral("timeout"),
          Texts::tr("Ends a script in which nothing has moved for S seconds; 0: never. "
                    "Default: 60, or never where a user sits at a display."),
          QStringLiteral("S")},
         {QStringLiteral("memory"),
          Texts::tr("Ends a script that takes more than so many megabytes, with status 3; 0: "
                    "never. Default: 4000, or half of the machine's memory where that is less."),
          QStringLiteral("MB")}});
    break;
  case CommandLine::Command::List:
    parser->addOption({QStringLiteral("json"), Texts::tr("Prints JSON instead of a table.")});
    break;
  case CommandLine::Command::Tour:
    parser->addOptions(
        {{QStringLiteral("out"), Texts::tr("Folder of the pictures."), QStringLiteral("DIR")},
         {QStringLiteral("dark"), Texts::tr("Takes pictures in the dark palette as well.")},
         {QStringLiteral("scale"), Texts::tr("Pixels per unit of length, 1 to 4."),
          QStringLiteral("N")}});
    break;
  }
}

QString absolutePath(const QString& path) {
  return path.isEmpty() ? path : QFileInfo(path).absoluteFilePath();
}

/// An empty value of an option that names a file or folder is a slip of a shell variable.
std::optional<QString> emptyOption(const QCommandLineParser& parser) {
  for (const char* name : {"module", "settings", "out", "screenshot"}) {
    const QString option = QLatin1String(name);
    if (parser.optionNames().contains(option) && parser.value(option).isEmpty())
      return option;
  }
  return std::nullopt;
}

std::optional<double> readNumber(const QString& text, double least, double most) {
  double value = 0;
  if (!sp_IsEngNumber(text, &value) || !(value >= least && value <= most))
    return std::nullopt;
  return value;
}

std::optional<CommandLineAnswer> takeOptions(const QCommandLineParser& parser, CommandLine* line) {
  const QStringList given = parser.optionNames();
  const auto isGiven = [&given](const char* name) { return given.contains(QLatin1String(name)); };
  const auto value = [&parser](const char* name) { return parser.value(QLatin1String(name)); };
  if (const auto option = emptyOption(parser))
    return usageError(Texts::tr("Option --%1 wants a value that is not empty.").arg(*option));
  if (isGiven("module"))
    line->moduleFile = absolutePath(value("module"));
  if (isGiven("settings"))
    line->settingsDir = absolutePath(value("settings"));
  if (isGiven("screenshot"))
    line->screenshot = absolutePath(value("screenshot"));
  if (isGiven("out"))
    line->outDir = absolutePath(value("out"));
  line->fresh |= isGiven("fresh");
  if (line->fresh && !line->settingsDir.isEmpty())
    return usageError(Texts::tr("Options --fresh and --settings do not go together."));
  line->json = isGiven("json");
  line->dark |= isGiven("dark");
  if (isGiven("timeout")) {
    const auto seconds = readNumber(value("timeout"), 0, 1e6);
    if (!seconds)
      return usageError(
          Texts::tr("\"%1\" is not a number of seconds for --timeout.").arg(value("timeout")));
    line->timeout = int(std::ceil(*seconds));
  }
  if (isGiven("memory")) {
    const auto megabytes = readNumber(value("memory"), 0, 1e6);
    if (!megabytes)
      return usageError(
          Texts::tr("\"%1\" is not a number of megabytes for --memory.").arg(value("memory")));
    line->memory = int(std::ceil(*megabytes));
  }
  if (isGiven("scale")) {
    const auto scale = readNumber(value("scale"), 1, 4);
    if (!scale || *scale != std::floor(*scale))
      return usageError(Texts::tr("\"%1\" is not a scale; a whole number from 1 to 4 is wanted.")
                            .arg(value("scale")));
    line->scale = int(*scale);
  }
  return std::nullopt;
}

std::optional<CommandLineAnswer> takeWords(const SubCommand& sub, const QStringList& words,
                                           CommandLine* line) {
  line->words = words;
  switch (sub.command) {
  case CommandLine::Command::Run:
    if (words.isEmpty())
      return usageError(Texts::tr("\"run\" wants the file of a script."));
    line->script = line->words.takeFirst();
    break;
  case CommandLine::Command::Eval:
    if (words.size() != 1)
      return usageError(
          Texts::tr("\"eval\" wants one text, in quotes; %n were given.", nullptr, words.size()));
    line->script = line->words.takeFirst();
    break;
  case CommandLine::Command::List:
    if (!words.isEmpty())
      return usageError(Texts::tr("\"list\" takes no word \"%1\".").arg(words.first()));
    break;
  default:
    break;
  }
  return std::nullopt;
}

/// Help, version and faults that every command has.
std::optional<CommandLineAnswer> commonAnswer(QCommandLineParser* parser, const QStringList& words,
                                              const QString& usage) {
  if (!parser->parse(words))
    return usageError(parser->errorText());
  if (parser->isSet(QStringLiteral("help")))
    return CommandLineAnswer{
        0, parser->helpText().trimmed().replace(QStringLiteral("[options]"), usage)};
  if (parser->isSet(QStringLiteral("version")))
    return CommandLineAnswer{0, QStringLiteral("dialoghost " KV_VERSION)};
  return std::nullopt;
}

} // namespace

std::variant<CommandLine, CommandLineAnswer> readCommandLine(const QStringList& words) {
  CommandLine line;
  QCommandLineParser common;
  common.setApplicationDescription(overview());
  common.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
  addCommonOptions(&common);
  addOptionsOf(CommandLine::Command::Workbench, &common);
  common.addPositionalArgument(QStringLiteral("command"),
                               Texts::tr("One of: %1.").arg(commandNames()),
                               QStringLiteral("[COMMAND …]"));
  if (const auto answer = commonAnswer(&common, words, QStringLiteral("[options]")))
    return *answer;
  if (const auto answer = takeOptions(common, &line))
    return *answer;
  QStringList rest = common.positionalArguments();
  if (rest.isEmpty())
    return line;

  const SubCommand* sub = findSubCommand(rest.first());
  if (!sub)
    return usageError(
        Texts::tr("There is no command \"%1\"; there are: %2.").arg(rest.first(), commandNames()));
  if (!line.screenshot.isEmpty())
    return usageError(Texts::tr("Option --screenshot goes with the workbench alone."));
  line.command = sub->command;

  QCommandLineParser own;
  own.setApplicationDescription(Texts::tr(sub->purpose));
  // What stands behind a script belongs to the script.
  if (sub->command == CommandLine::Command::Run || sub->command == CommandLine::Command::Eval)
    own.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
  addCommonOptions(&own);
  addOptionsOf(sub->command, &own);
  const QString usage =
      QLatin1String(sub->name) + QStringLiteral(" [options] ") + QString::fromUtf8(sub->synopsis);
  rest.first() = words.first();
  if (const auto answer = commonAnswer(&own, rest, usage))
    return *answer;
  if (const auto answer = takeOptions(own, &line))
    return *answer;
  if (const auto answer = takeWords(*sub, own.positionalArguments(), &line))
    return *answer;
  return line;
}

#include "Core/Pwl/SyntaxMessages.h"

#include <QRegularExpression>

static constexpr int mostMessages = 20;

SyntaxMessages::SyntaxMessages(const QString& fileText) {
  static const QRegularExpression start(
      QStringLiteral("<+\\s+Error Message ID:\\s+(\\d+)\\s+>+\\n+"));
  static const QRegularExpression lineNumber(QStringLiteral(",\\sline\\s(\\d+):\\n"));
  static const QRegularExpression fileName(QStringLiteral("temp_points.txt\\n"));
  static const QRegularExpression end(QStringLiteral("\\*+"));

  QRegularExpressionMatch next = start.match(fileText);
  while (next.hasMatch() && m_messages.size() < mostMessages) {
    SyntaxMessage message;
    message.id = next.captured(1);
    int position = next.capturedEnd();
    const QRegularExpressionMatch line = lineNumber.match(fileText, position);
    message.lineNumber = line.captured(1);
    const QRegularExpressionMatch name =
        line.hasMatch() ? line : fileName.match(fileText, position);
    if (name.hasMatch())
      position = name.capturedEnd();
    const QRegularExpressionMatch last = end.match(fileText, position);
    const int length = last.hasMatch() ? last.capturedStart() - position : -1;
    message.text = fileText.mid(position, length).trimmed();
    m_messages.append(message);
    m_lines.append(message.lineNumber.toInt());
    next = start.match(fileText, position);
  }
}

const SyntaxMessage* SyntaxMessages::atLine(int line) const {
  const int index = m_lines.indexOf(line);
  return index < 0 ? nullptr : &m_messages.at(index);
}

QString toolTipOf(const SyntaxMessage& message) {
  bool isNumber = false;
  if (message.lineNumber.toInt(&isNumber) < 0 || !isNumber)
    return message.text;
  return QStringLiteral("Line number %1:\n\n%2").arg(message.lineNumber, message.text);
}

QString syntaxCheckDeck(const QString& deviceName, const QString& pointsPath) {
  return QStringLiteral("*** fdpwl_test_syntax_deck.deck\n"
                        ".TRAN 1 0\n"
                        ".OPTIONS FDPWL_SRC_CHECK_ONLY_1ST_LEVEL_DATA_FILE\n") +
         deviceName + QStringLiteral(" 1 0 FDPWL file=\"") + pointsPath +
         QStringLiteral("\"\n.END\n\n");
}

QString syntaxCheckCommand(const QString& deckPath) {
  return QStringLiteral("RunBRENNIX /hidestatusbox /additionalargs SYNTAX_CHK_ONLY,,BATCH_MODE,, "
                        "\"") +
         deckPath + QLatin1Char('"');
}

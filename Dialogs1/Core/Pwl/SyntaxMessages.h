#pragma once

#include <QFileInfo>
#include <QString>
#include <QVector>

/// A fault that the simulator has found in a points file.
struct SyntaxMessage {
  QString id = QStringLiteral("0");         ///< number of the message
  QString lineNumber = QStringLiteral("0"); ///< line of the points file; empty where none is named
  QString text;
  QFileInfo file;
};

/// The faults that one check has found, 20 at most.
class SyntaxMessages {
public:
  SyntaxMessages() = default;
  /// Reads the simulator's message file. Each search runs forward without regard to the next
  /// message, so that one without a line number may get that of a later one.
  explicit SyntaxMessages(const QString& fileText);

  const QVector<SyntaxMessage>& all() const { return m_messages; }
  /// The first message about a line, counted from 1; null where there is none.
  const SyntaxMessage* atLine(int line) const;

private:
  QVector<SyntaxMessage> m_messages;
  QVector<int> m_lines;
};

/// What a cell at fault says: the message, and the line that it is about.
QString toolTipOf(const SyntaxMessage& message);

/// The deck that has the simulator look at one source's points and do nothing else.
QString syntaxCheckDeck(const QString& deviceName, const QString& pointsPath);
/// The host's command for it.
QString syntaxCheckCommand(const QString& deckPath);

constexpr const char* syntaxPointsFile = "temp_points.txt";
constexpr const char* syntaxDeckFile = "fdpwl_test_syntax_deck.deck";
constexpr const char* syntaxLockFile = "fdpwl_test_syntax.lock";
constexpr const char* syntaxMessageFile = "fdpwl_test_syntax_deck.deck.err";

#include "Drive/Chooser.h"

#include "Drive/DriveError.h"
#include "Drive/InputPlayer.h"
#include "Drive/ItemInput.h"
#include "Drive/WidgetFinder.h"
#include "Drive/WidgetValues.h"

#include <QApplication>
#include <QCheckBox>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFontDialog>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QRegularExpression>

#include <algorithm>

namespace {

void pickColour(QColorDialog* dialog, const QString& colour) {
  static const QRegularExpression pattern(QStringLiteral("^#[0-9A-Fa-f]{6}$"));
  if (!pattern.match(colour).hasMatch())
    throw DriveError(QStringLiteral("\"%1\" is not a colour of the form #rrggbb").arg(colour));
  // of its edits, the one that shows the colour by name
  const auto edits = dialog->findChildren<QLineEdit*>();
  for (QLineEdit* edit : edits)
    if (pattern.match(edit->text()).hasMatch()) {
      InputPlayer::replaceText(edit, colour);
      break;
    }
  if (dialog->currentColor().name() != colour.toLower())
    throw DriveError(QStringLiteral("the colour chooser does not take \"%1\"").arg(colour));
}

/// Clicks the row of a list that satisfies the condition.
template <typename Condition>
void pickRow(QListView* list, const QString& what, Condition isWanted) {
  ItemInput cells(list);
  const QStringList texts = cells.items();
  for (int row = 0; row < texts.size(); ++row)
    if (isWanted(texts.at(row))) {
      cells.click(row, 0);
      return;
    }
  throw DriveError(QStringLiteral("the font chooser has no %1; %2").arg(what, shortList(texts)));
}

void pickFont(QFontDialog* dialog, const QVariantMap& font) {
  enum List { Family, Style, Size, ListCount };
  enum Effect { StrikeOut, Underline, EffectCount };
  // nameless parts, in the order of their creation
  const auto lists = dialog->findChildren<QListView*>();
  const auto edits = dialog->findChildren<QLineEdit*>();
  const auto effects = dialog->findChildren<QCheckBox*>();
  if (lists.size() < ListCount || edits.size() < ListCount || effects.size() < EffectCount)
    throw DriveError(QStringLiteral("the font chooser has not the parts that are known of it"));

  const QVariant family = font.value(QStringLiteral("family"));
  if (family.isValid())
    pickRow(lists.at(Family), QStringLiteral("family \"%1\"").arg(family.toString()),
            [&](const QString& text) {
              return text.compare(family.toString(), Qt::CaseInsensitive) == 0;
            });
  const QVariant bold = font.value(QStringLiteral("bold"));
  const QVariant italic = font.value(QStringLiteral("italic"));
  if (bold.isValid() || italic.isValid()) {
    const QFont present = dialog->currentFont();
    const bool isBold = bold.isValid() ? bold.toBool() : present.bold();
    const bool isItalic = italic.isValid() ? italic.toBool() : present.italic();
    const QFontDatabase fonts;
    pickRow(lists.at(Style),
            QStringLiteral("style of \"%1\" with bold %2, italic %3")
                .arg(present.family())
                .arg(isBold)
                .arg(isItalic),
            [&](const QString& style) {
              return fonts.bold(present.family(), style) == isBold &&
                     fonts.italic(present.family(), style) == isItalic;
            });
  }
  if (const QVariant size = font.value(QStringLiteral("pointSize")); size.isValid())
    InputPlayer::replaceText(edits.at(Size), typedText(size));
  if (const QVariant on = font.value(QStringLiteral("strikeOut")); on.isValid())
    setWidget(effects.at(StrikeOut), on.toBool());
  if (const QVariant on = font.value(QStringLiteral("underline")); on.isValid())
    setWidget(effects.at(Underline), on.toBool());
}

void pickFiles(QFileDialog* dialog, const QVariant& value) {
  auto* edit = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
  if (!edit || !edit->isVisible())
    throw DriveError(QStringLiteral("the file chooser is not Qt's own"));
  const QStringList paths =
      value.type() == QVariant::List ? value.toStringList() : QStringList{value.toString()};
  // Several are typed in quotes, as the chooser itself writes them. All comes in at once, as from a
  // clipboard: letter by letter, the chooser would mark each folder on the way, and open the last.
  InputPlayer::replaceText(edit, QString());
  QInputMethodEvent input;
  input.setCommitString(paths.size() == 1 ? paths.first()
                                          : QLatin1Char('"') + paths.join(QLatin1String("\" \"")) +
                                                QLatin1Char('"'));
  QApplication::sendEvent(edit, &input);
  // What is there is known once its folder has been read, in a thread of Qt's. The proposals come
  // then or later, and would take the click that is meant for a button.
  const auto* buttons = dialog->findChild<QDialogButtonBox*>();
  const auto* open = buttons ? buttons->button(QDialogButtonBox::Open) : nullptr;
  const bool isThere = std::all_of(paths.cbegin(), paths.cend(),
                                   [](const QString& path) { return QFileInfo::exists(path); });
  if (open && isThere)
    InputPlayer::waitFor([open] { return open->isEnabled(); });
  edit->setCompleter(nullptr);
  InputPlayer::closePopups();
}

} // namespace

void pickInChooser(QWidget* dialog, const QVariant& value) {
  if (auto* colours = qobject_cast<QColorDialog*>(dialog))
    pickColour(colours, value.toString());
  else if (auto* fonts = qobject_cast<QFontDialog*>(dialog))
    pickFont(fonts, value.toMap());
  else if (auto* files = qobject_cast<QFileDialog*>(dialog))
    pickFiles(files, value);
  else
    throw DriveError(
        QStringLiteral("\"%1\" is not a file, colour or font chooser").arg(dialog->windowTitle()));
}

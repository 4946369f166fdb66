#pragma once

#include <QString>

// The pages that help windows show.

QString helpDir();                         ///< of the pages on functions
QString helpPage(const QString& function); ///< its file; empty where there is none
QString scriptingGuide();                  ///< its file
/// A page that lists all others, as Markdown.
QString helpContents();

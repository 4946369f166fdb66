#include "Tour/TourPage.h"

#include <QCoreApplication>
#include <QFile>
#include <QImageReader>
#include <QUrl>

namespace {

struct Texts {
  Q_DECLARE_TR_FUNCTIONS(TourPage)
};

const QString styleSheet = QStringLiteral(R"(
:root { color-scheme: light dark; --back: #f0f1f3; --card: #ffffff; --ink: #1d1f23;
  --soft: #5d626b; --line: #d4d7dc; --fault: #b31b1b; }
@media (prefers-color-scheme: dark) { :root { --back: #1f2125; --card: #2b2d31; --ink: #e3e5e8;
  --soft: #a4a9b2; --line: #43474e; --fault: #ff8a80; } }
body { margin: 0 auto; max-width: 75rem; padding: 1.5rem; background: var(--back);
  color: var(--ink); font: 1rem/1.5 system-ui, sans-serif; }
h1 { font-size: 1.5rem; margin: 0 0 1rem; }
h2 { font-size: 1.15rem; margin: 0; }
nav { display: flex; flex-wrap: wrap; gap: .25rem 1rem; margin-bottom: 1.5rem; }
a { color: inherit; }
.all { display: grid; gap: 1rem; grid-template-columns: repeat(auto-fill, minmax(21rem, 1fr)); }
article { background: var(--card); border: 1px solid var(--line); border-radius: .5rem;
  padding: 1rem; min-width: 0; }
article p { color: var(--soft); margin: .25rem 0 .75rem; }
article p.fault { color: var(--fault); white-space: pre-wrap; }
.pictures { display: flex; flex-wrap: wrap; gap: .75rem; }
img { max-width: 100%; max-height: 16rem; object-fit: contain; border: 1px solid var(--line);
  border-radius: .25rem; }
code, pre { font: .85rem/1.45 ui-monospace, monospace; }
pre { overflow-x: auto; background: var(--back); border-radius: .25rem; padding: .75rem; }
.result { display: block; margin: .75rem 0; overflow-wrap: anywhere; }
summary { cursor: pointer; color: var(--soft); }
)");

class Folder {
public:
  explicit Folder(const QString& path) : m_path(path) {}

  bool has(const QString& file) const { return QFile::exists(m_path + QLatin1Char('/') + file); }
  QSize size(const QString& file) const {
    return QImageReader(m_path + QLatin1Char('/') + file).size();
  }

  /// The pictures of one palette in all scales, as an attribute `srcset`; the first one also as
  /// `first`, its size in units of length as `units`.
  QString sourceSet(const QString& name, bool dark, QString* first, QSize* units) const {
    QStringList sources;
    for (int scale = 1; scale <= 4; ++scale) {
      const QString file = pictureFile(name, dark, scale);
      if (!has(file))
        continue;
      const QString url = QString::fromLatin1(QUrl::toPercentEncoding(file));
      if (sources.isEmpty()) {
        *first = url;
        *units = size(file) / scale;
      }
      sources << QStringLiteral("%1 %2x").arg(url).arg(scale);
    }
    return sources.join(QStringLiteral(", "));
  }

private:
  QString m_path;
};

QString pictureHtml(const QString& name, const Folder& folder) {
  QString first;
  QString firstDark;
  QSize units;
  const QString dark = folder.sourceSet(name, true, &firstDark, &units);
  QString light = folder.sourceSet(name, false, &first, &units);
  if (light.isEmpty()) {
    light = dark;
    first = firstDark;
  }
  if (light.isEmpty())
    return QString();
  QString html = QStringLiteral("<a href=\"%1\"><picture>").arg(first);
  if (!dark.isEmpty())
    html +=
        QStringLiteral("<source media=\"(prefers-color-scheme: dark)\" srcset=\"%1\">").arg(dark);
  return html +
         QStringLiteral("<img src=\"%1\" srcset=\"%2\" width=\"%3\" height=\"%4\" alt=\"%5\" "
                        "loading=\"lazy\"></picture></a>\n")
             .arg(first, light)
             .arg(units.width())
             .arg(units.height())
             .arg(Texts::tr("Picture of %1").arg(name.toHtmlEscaped()));
}

QString entryHtml(const TourEntry& entry, const Folder& folder) {
  const Sample& sample = entry.sample;
  QString html =
      QStringLiteral("<article id=\"%1\"><h2>%1</h2>\n<p>%2</p>\n<div class=\"pictures\">")
          .arg(sample.name.toHtmlEscaped(), sample.purpose.toHtmlEscaped());
  for (const QString& picture : entry.pictures)
    html += pictureHtml(picture, folder);
  html += QStringLiteral("</div>\n");
  for (const QString& fault : entry.faults)
    html += QStringLiteral("<p class=\"fault\">%1</p>\n").arg(fault.toHtmlEscaped());
  if (entry.faults.isEmpty())
    html +=
        QStringLiteral("<code class=\"result\">→ %1</code>\n").arg(entry.result.toHtmlEscaped());
  return html + QStringLiteral("<details><summary>%1</summary><pre>%2</pre></details></article>\n")
                    .arg(Texts::tr("Script"), sample.text.toHtmlEscaped());
}

} // namespace

QString pictureFile(const QString& baseName, bool dark, int scale) {
  QString name = baseName;
  if (dark)
    name += QStringLiteral("-dark");
  if (scale != 1)
    name += QStringLiteral("@%1x").arg(scale);
  return name + QStringLiteral(".png");
}

QString tourPage(const QVector<TourEntry>& entries, const QString& folder) {
  const Folder pictures(folder);
  QString links;
  QString articles;
  for (const TourEntry& entry : entries) {
    links += QStringLiteral("<a href=\"#%1\">%1</a>\n").arg(entry.sample.name.toHtmlEscaped());
    articles += entryHtml(entry, pictures);
  }
  const QString title = Texts::tr("Tour of the dialogs");
  return QStringLiteral("<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\">\n"
                        "<meta name=\"viewport\" content=\"width=device-width\">\n"
                        "<title>%1</title>\n<style>%2</style></head>\n<body><h1>%1</h1>\n<nav>\n")
             .arg(title, styleSheet) +
         links + QStringLiteral("</nav>\n<main class=\"all\">\n") + articles +
         QStringLiteral("</main></body></html>\n");
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/windowprobe.h"

#include "app/eventlog.h"
#include "documents/page.h"
#include "documents/pagestack.h"
#include "documents/pageview.h"
#include "support/logtext.h"
#include "widgets/qtcolorpicker.h"

#include <QFile>
#include <QImage>
#include <QStatusBar>
#include <QTest>
#include <QToolButton>
#include <QWidgetAction>

namespace {

QStringList readLines(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromLocal8Bit(file.readAll()).split(QLatin1Char('\n'));
}

/// The first line of a file that was opened in mid-run has no line before it that could have written its prefix.
QString textOfLine(const QString &line)
{
    const QString text = withoutLogPrefix(line);
    return text.isNull() ? line : text;
}

} // namespace

QString TestFiles::write(const QString &name, const QByteArray &content) const
{
    QDir(m_folder.path()).mkpath(QFileInfo(path(name)).path());
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(path(name)));
    return path(name);
}

QString TestFiles::writePicture(const QString &name, const QSize &size) const
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    if (!image.save(path(name)))
        qFatal("cannot write %s", qPrintable(path(name)));
    return path(name);
}

QString TestFiles::path(const QString &name) const
{
    return m_folder.filePath(name);
}

QString TestFiles::folder() const
{
    return m_folder.path();
}

LogProbe::LogProbe()
{
    openLogFiles(m_folder.filePath(QStringLiteral("log.dat")).toStdString(), recordPath().toStdString());
    // The very first line of a process has no line before it that could have written its prefix.
    (logInfo << "start").eol(0);
    mark();
}

QStringList LogProbe::info() const
{
    QStringList lines;
    for (const QString &line : readLines(m_folder.filePath(QStringLiteral("log.dat"))))
        lines.append(textOfLine(line));
    return lines;
}

QString LogProbe::recordPath() const
{
    return m_folder.filePath(QStringLiteral("dumped.dat"));
}

bool LogProbe::hasRecord() const
{
    return QFileInfo(recordPath()).size() > 0;
}

void LogProbe::mark()
{
    (logTrace << "mark " << static_cast<double>(++m_marks)).eol(0);
}

QStringList LogProbe::recordedSinceMark() const
{
    const QString marker = QStringLiteral("mark %1").arg(m_marks);
    QStringList lines;
    for (const QString &line : readLines(recordPath())) {
        if (line.startsWith(QLatin1String("---- RB END ----"))) // what a longer record left may follow
            break;
        const QString text = textOfLine(line);
        if (text == marker)
            lines.clear();
        else
            lines.append(text);
    }
    return lines;
}

QStringList LogProbe::traceSinceMark()
{
    dumpRingBuffer(false);
    const QStringList lines = recordedSinceMark();
    mark();
    return lines;
}

WindowProbe::WindowProbe(const QStringList &files)
    : m_files(files), m_window(std::make_unique<Scrivara>(m_files, nullptr))
{
}

WindowProbe::~WindowProbe() = default;

QAction *WindowProbe::action(const char *name) const
{
    auto *found = m_window->findChild<QAction *>(QString::fromLatin1(name));
    if (found == nullptr)
        qFatal("no action %s", name);
    return found;
}

QMenu *WindowProbe::menu(const char *name) const
{
    auto *found = m_window->findChild<QMenu *>(QString::fromLatin1(name));
    if (found == nullptr)
        qFatal("no menu %s", name);
    return found;
}

QToolBar *WindowProbe::bar(const char *name) const
{
    auto *found = m_window->findChild<QToolBar *>(QString::fromLatin1(name));
    if (found == nullptr)
        qFatal("no tool bar %s", name);
    return found;
}

QComboBox *WindowProbe::zoomBox() const
{
    return bar("ScvViewToolBar")->findChild<QComboBox *>();
}

QToolButton *WindowProbe::lockButton() const
{
    return m_window->statusBar()->findChildren<QToolButton *>(QString(), Qt::FindDirectChildrenOnly).at(0);
}

QToolButton *WindowProbe::syntaxButton() const
{
    return m_window->statusBar()->findChildren<QToolButton *>(QString(), Qt::FindDirectChildrenOnly).at(1);
}

QToolButton *WindowProbe::openButton() const
{
    QToolBar *bar = this->bar("ScvFileToolBar");
    return qobject_cast<QToolButton *>(bar->widgetForAction(bar->actions().at(1)));
}

QtColorPicker *WindowProbe::linePicker() const
{
    return bar("ScvNormToolsToolBar")->findChildren<QtColorPicker *>().at(0);
}

QtColorPicker *WindowProbe::fillPicker() const
{
    return bar("ScvNormToolsToolBar")->findChildren<QtColorPicker *>().at(1);
}

PageStack *WindowProbe::stack() const
{
    return m_window->pageStack();
}

PageView *WindowProbe::view() const
{
    return stack() == nullptr ? nullptr : qobject_cast<PageView *>(stack()->currentWidget());
}

Page *WindowProbe::page() const
{
    return m_window->currentPage();
}

QList<QAction *> WindowProbe::recentActions() const
{
    QList<QAction *> visible;
    for (QAction *entry : menu("recentFilesMenu")->actions()) {
        if (entry->isVisible())
            visible.append(entry);
    }
    return visible;
}

void WindowProbe::forgetChanges() const
{
    for (int i = 0; stack() != nullptr && i < stack()->count(); ++i) {
        if (Page *page = stack()->pageAt(i))
            page->setModified(false);
    }
}

void WindowProbe::destroy()
{
    m_window.reset();
}

QStringList actionNames(const QWidget *widget)
{
    const auto *bar = qobject_cast<const QToolBar *>(widget);
    QStringList names;
    for (QAction *action : widget->actions()) {
        const QWidget *inner =
            bar != nullptr && qobject_cast<QWidgetAction *>(action) != nullptr ? bar->widgetForAction(action) : nullptr;
        if (action->isSeparator())
            names.append(QStringLiteral("|"));
        else if (inner != nullptr)
            names.append(QString::fromLatin1(inner->metaObject()->className()));
        else if (action->menu() != nullptr)
            names.append(action->menu()->objectName());
        else
            names.append(action->objectName());
    }
    return names;
}

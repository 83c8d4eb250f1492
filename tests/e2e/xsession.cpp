// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/xsession.h"

#include <QDeadlineTimer>
#include <QHash>
#include <QRect>
#include <QTemporaryDir>
#include <QThread>

#include <utility>

XSession::XSession(QSize size)
{
    // The server writes the number of the display it found free to file descriptor 1.
    m_server.start(QStringLiteral("Xvfb"),
                   {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"), QStringLiteral("0"),
                    QStringLiteral("%1x%2x24").arg(size.width()).arg(size.height()), QStringLiteral("-nolisten"),
                    QStringLiteral("tcp")});
    if (!m_server.waitForStarted() || !m_server.waitForReadyRead(20000))
        qFatal("the virtual X server did not start");
    m_display = QStringLiteral(":") + QString::fromLatin1(m_server.readLine().trimmed());
    m_manager.setProcessEnvironment(environment());
    m_manager.start(QStringLiteral("openbox"), {});
    if (!m_manager.waitForStarted())
        qFatal("the window manager did not start");
    const QDeadlineTimer limit(10000);
    while (!tool(QStringLiteral("wmctrl"), {QStringLiteral("-m")}).contains(QLatin1String("Openbox"))) {
        if (limit.hasExpired())
            qFatal("the window manager did not come up");
        QThread::msleep(50);
    }
}

XSession::~XSession()
{
    for (QProcess *process : {&m_manager, &m_server}) {
        process->terminate();
        if (!process->waitForFinished(5000))
            process->kill();
    }
}

QProcessEnvironment XSession::environment() const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), m_display);
    environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
    environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
    return environment;
}

QImage XSession::grab() const
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("screen.png"));
    tool(QStringLiteral("scrot"), {QStringLiteral("--silent"), path});
    return QImage(path);
}

QString XSession::tool(const QString &program, const QStringList &arguments) const
{
    QProcess process;
    process.setProcessEnvironment(environment());
    process.start(program, arguments);
    if (!process.waitForStarted())
        qFatal("%s is not installed", qPrintable(program));
    if (!process.waitForFinished(20000) || process.exitCode() != 0)
        return {};
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

void XSession::key(const QString &chord) const
{
    tool(QStringLiteral("xdotool"), {QStringLiteral("key"), QStringLiteral("--clearmodifiers"), chord});
}

void XSession::type(const QString &text) const
{
    tool(QStringLiteral("xdotool"), {QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("20"), text});
}

void XSession::click(const QString &window, QPoint position, int button) const
{
    tool(QStringLiteral("xdotool"),
         {QStringLiteral("mousemove"), QStringLiteral("--window"), window, QString::number(position.x()),
          QString::number(position.y()), QStringLiteral("click"), QString::number(button)});
}

void XSession::click(QPoint position, int button) const
{
    tool(QStringLiteral("xdotool"), {QStringLiteral("mousemove"), QString::number(position.x()),
                                     QString::number(position.y()), QStringLiteral("click"), QString::number(button)});
}

void XSession::hold(const QList<QPoint> &path) const
{
    QStringList arguments;
    for (qsizetype i = 0; i < path.size(); ++i) {
        arguments << QStringLiteral("mousemove") << QString::number(path.at(i).x()) << QString::number(path.at(i).y());
        if (i == 0)
            arguments << QStringLiteral("mousedown") << QStringLiteral("1");
        arguments << QStringLiteral("sleep") << QStringLiteral("0.03");
    }
    tool(QStringLiteral("xdotool"), arguments);
}

void XSession::letGo() const
{
    tool(QStringLiteral("xdotool"), {QStringLiteral("mouseup"), QStringLiteral("1")});
}

void XSession::drag(const QList<QPoint> &path) const
{
    hold(path);
    letGo();
}

void XSession::keyWhileHeld(const QString &chord) const
{
    tool(QStringLiteral("xdotool"), {QStringLiteral("key"), chord});
}

QStringList XSession::windows(const QString &pattern) const
{
    return tool(QStringLiteral("xdotool"),
                {QStringLiteral("search"), QStringLiteral("--onlyvisible"), QStringLiteral("--name"), pattern})
        .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

QString XSession::waitForWindow(const QString &pattern, WindowState state, int milliseconds) const
{
    const QDeadlineTimer limit(milliseconds);
    do {
        const QStringList found = windows(pattern);
        const QString active = tool(QStringLiteral("xdotool"), {QStringLiteral("getactivewindow")});
        if (state == Active ? found.contains(active) : !found.isEmpty())
            return state == Active ? active : found.first();
        QThread::msleep(50);
    } while (!limit.hasExpired());
    return {};
}

void XSession::waitUntilQuiet() const
{
    const QDeadlineTimer limit(20000);
    QImage before;
    QImage now = grab();
    do {
        QThread::msleep(60);
        before = std::exchange(now, grab());
    } while (before != now && !limit.hasExpired());
}

QRect XSession::geometry(const QString &window) const
{
    QHash<QString, int> values;
    // The position that comes with the size counts the frame twice.
    const QString text = tool(QStringLiteral("xdotool"),
                              {QStringLiteral("getwindowgeometry"), QStringLiteral("--shell"), window,
                               QStringLiteral("mousemove"), QStringLiteral("--window"), window, QStringLiteral("0"),
                               QStringLiteral("0"), QStringLiteral("getmouselocation"), QStringLiteral("--shell")});
    for (const QString &line : text.split(QLatin1Char('\n')))
        values.insert(line.section(QLatin1Char('='), 0, 0), line.section(QLatin1Char('='), 1).toInt());
    return QRect(values.value(QStringLiteral("X")), values.value(QStringLiteral("Y")),
                 values.value(QStringLiteral("WIDTH")), values.value(QStringLiteral("HEIGHT")));
}

QString XSession::title(const QString &window) const
{
    return tool(QStringLiteral("xdotool"), {QStringLiteral("getwindowname"), window});
}

void XSession::close(const QString &window) const
{
    tool(QStringLiteral("wmctrl"), {QStringLiteral("-i"), QStringLiteral("-c"), window});
}

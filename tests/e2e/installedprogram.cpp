// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/installedprogram.h"

InstalledProgram::InstalledProgram(const XSession &session)
    : ProgramCopy(QStringLiteral(KESTRIN_RELEASE_BIN), session.environment()), m_session(session)
{
}

QString InstalledProgram::start(const QStringList &arguments)
{
    launch(arguments);
    return waitForMainWindow(!arguments.isEmpty());
}

QString InstalledProgram::waitForMainWindow(bool withDocument)
{
    // With a document the title goes on behind the name; floating bars have the bare name too.
    m_window = m_session.waitForWindow(withDocument ? QStringLiteral("^Kestrin 7 \\[") : QStringLiteral("^Kestrin 7$"),
                                       XSession::Visible);
    return m_window;
}

QString InstalledProgram::window() const
{
    return m_window;
}

void InstalledProgram::startTyping() const
{
    m_session.waitUntilQuiet();
    m_session.key(QStringLiteral("alt+t"));
    // The text lies right under the tool bars and beside its line numbers; clicks outside of it would leave it alone.
    m_session.click(window(), QPoint(74, 75));
    m_session.key(QStringLiteral("ctrl+Home"));
}

void InstalledProgram::refreshMenus() const
{
    m_session.click(window(), QPoint(20, 9));
    m_session.key(QStringLiteral("Escape"));
}

bool InstalledProgram::closeRegularly()
{
    m_session.close(m_window);
    return waitForExit() && exitStatus() == QProcess::NormalExit && exitCode() == 0;
}

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

void InstalledProgram::choose(int menu, int fromEnd, int subEntry) const
{
    const auto press = [this](const char *key, int times) {
        for (int i = 0; i < times; ++i)
            m_session.key(QString::fromLatin1(key));
    };
    m_session.waitUntilQuiet();
    m_session.click(window(), {20, 10});
    m_session.waitUntilQuiet();
    // The other way round to the last ones: the menu of settings opens one of its own on the way.
    press(menu <= 3 ? "Right" : "Left", menu <= 3 ? menu : 7 - menu);
    press("Up", fromEnd);
    if (subEntry > 0)
        press("Right", 1);
    press("Down", subEntry - 1);
    press("Return", 1);
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

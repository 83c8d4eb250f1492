// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/installedprogram.h"
#include "support/testmain.h"

#include <QElapsedTimer>
#include <QTest>

#include <csignal>

namespace {

/// Another program that owns the clipboard until the end of the test.
class ClipboardOwner
{
public:
    ClipboardOwner(const XSession &session, const QString &text)
    {
        m_process.setProcessEnvironment(session.environment());
        m_process.start(QCoreApplication::applicationDirPath() + QStringLiteral("/clipboardowner"), {text});
        if (!m_process.waitForReadyRead(20000))
            qFatal("the clipboard has no owner");
    }
    ~ClipboardOwner()
    {
        signal(SIGCONT);
        m_process.kill();
        m_process.waitForFinished();
    }
    void signal(int number) const { ::kill(static_cast<pid_t>(m_process.processId()), number); }

private:
    QProcess m_process;
};

} // namespace

/// Text that comes from other programs.
class TestOtherPrograms : public QObject
{
    Q_OBJECT

private slots:
    void pastesTheirText();
    void waitsOnceForOneThatHangs();

private:
    XSession m_session;
};

void TestOtherPrograms::pastesTheirText()
{
    InstalledProgram program(m_session);
    const QString path = program.writeDocument(QStringLiteral("a.txt"), "one\n");
    QVERIFY(!program.start({path}).isEmpty());
    program.startTyping();
    const ClipboardOwner other(m_session, QStringLiteral("z\u0307\u00f3\u0142w, from elsewhere: "));
    m_session.key(QStringLiteral("ctrl+v"));
    m_session.key(QStringLiteral("ctrl+s"));
    QTRY_COMPARE(InstalledProgram::read(path), QByteArray("z\u0307\u00f3\u0142w, from elsewhere: one"));
    QVERIFY(program.closeRegularly());
}

void TestOtherPrograms::waitsOnceForOneThatHangs()
{
    // What Qt waits for an answer, and something for a busy machine. A single paste asks for several forms of a text:
    // if each were waited for, half a minute would go by.
    constexpr int longest = 5000 + 4000; // milliseconds
    InstalledProgram program(m_session);
    const QString path = program.writeDocument(QStringLiteral("a.txt"), "one\n");
    QVERIFY(!program.start({path}).isEmpty());
    program.startTyping();
    const ClipboardOwner other(m_session, QStringLiteral("never seen "));
    other.signal(SIGSTOP);
    QElapsedTimer timer;
    timer.start();
    m_session.key(QStringLiteral("ctrl+v"));
    m_session.type(QStringLiteral("typed "));
    m_session.key(QStringLiteral("ctrl+v"));
    m_session.key(QStringLiteral("ctrl+s"));
    QTRY_COMPARE_WITH_TIMEOUT(InstalledProgram::read(path), QByteArray("typed one"), 60000);
    QVERIFY2(timer.elapsed() < longest, qPrintable(QString::number(timer.elapsed())));
    QVERIFY(program.closeRegularly());
}

REGISTER_TEST(TestOtherPrograms)
#include "tst_otherprograms.moc"

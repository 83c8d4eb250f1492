// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/installedprogram.h"
#include "support/testmain.h"

#include <QTest>

/// Typing, saving and closing in the real window.
class TestEditing : public QObject
{
    Q_OBJECT

private slots:
    void typedTextIsOnDisk();
    void newFileIsSavedUnderAName();
    void closingAsksAboutAModifiedDocument();
    void leavesMinimalViewByKeys();

private:
    XSession m_session;
};

void TestEditing::typedTextIsOnDisk()
{
    InstalledProgram program(m_session);
    const QString path = program.writeDocument(QStringLiteral("notes.txt"), "second line\nthird line\n");
    QVERIFY(!program.start({path}).isEmpty());
    program.startTyping();
    m_session.type(QStringLiteral("first line"));
    m_session.key(QStringLiteral("Return"));
    m_session.key(QStringLiteral("ctrl+s"));
    QTRY_COMPARE(InstalledProgram::read(path), QByteArray("first line\nsecond line\nthird line"));
    QVERIFY(program.closeRegularly());
    QCOMPARE(InstalledProgram::read(path), QByteArray("first line\nsecond line\nthird line"));
}

void TestEditing::newFileIsSavedUnderAName()
{
    InstalledProgram program(m_session);
    QVERIFY(!program.start().isEmpty());
    m_session.key(QStringLiteral("ctrl+n"));
    QTRY_COMPARE(m_session.title(program.window()), QStringLiteral("Kestrin 7 [noname]"));
    m_session.type(QStringLiteral("hello"));
    m_session.key(QStringLiteral("ctrl+s"));
    QVERIFY(!m_session.waitForWindow(QStringLiteral("^Save As File$")).isEmpty());
    const QString path = program.document(QStringLiteral("fresh.txt"));
    m_session.key(QStringLiteral("ctrl+a"));
    m_session.type(path);
    m_session.key(QStringLiteral("Return"));
    QTRY_COMPARE(InstalledProgram::read(path), "hello" + QByteArray(60, ' '));
    QTRY_VERIFY(m_session.title(program.window()).contains(path));
    QVERIFY(program.closeRegularly());
}

void TestEditing::closingAsksAboutAModifiedDocument()
{
    InstalledProgram program(m_session);
    const QString path = program.writeDocument(QStringLiteral("kept.txt"), "as it was\nand stays\nfor long\n");
    QVERIFY(!program.start({path}).isEmpty());
    program.startTyping();
    m_session.type(QStringLiteral("x"));

    m_session.close(program.window());
    QString question = m_session.waitForWindow(QStringLiteral("^Kestrin 7$"));
    QVERIFY(!question.isEmpty());
    m_session.key(QStringLiteral("Escape"));
    QTRY_VERIFY(m_session.windows(QStringLiteral("^Kestrin 7$")).isEmpty());
    QVERIFY2(program.isRunning(), "Cancel keeps the program");

    m_session.close(program.window());
    question = m_session.waitForWindow(QStringLiteral("^Kestrin 7$"));
    QVERIFY(!question.isEmpty());
    m_session.key(QStringLiteral("Return"));
    QVERIFY(program.waitForExit());
    QCOMPARE(InstalledProgram::read(path), QByteArray("xas it was\nand stays\nfor long"));
}

/// With all bars hidden no shortcut works but F10, which goes on to full screen and from there back to all bars.
void TestEditing::leavesMinimalViewByKeys()
{
    InstalledProgram program(m_session);
    const QString path = program.writeDocument(QStringLiteral("a.txt"), "a\n");
    QVERIFY(!program.start({path}).isEmpty());
    m_session.waitUntilQuiet();
    // The menu "View"; its entry "Minimal" is the third from below.
    m_session.click(program.window(), QPoint(200, 9));
    m_session.waitUntilQuiet();
    for (const char *key : {"Up", "Up", "Up", "Return"})
        m_session.key(QString::fromLatin1(key));
    const QString bar = m_session.waitForWindow(QStringLiteral("^Kestrin 7$"), XSession::Visible);
    QVERIFY2(!bar.isEmpty(), "the floating bar of the minimal view");
    m_session.waitUntilQuiet();
    m_session.key(QStringLiteral("ctrl+n"));

    m_session.key(QStringLiteral("F10"));
    QTRY_COMPARE(m_session.geometry(program.window()), m_session.grab().rect());
    // What was pressed before has been seen by now, and has made no document.
    QCOMPARE(m_session.title(program.window()), "Kestrin 7 [" + path + ']');
    m_session.key(QStringLiteral("F10"));
    QTRY_VERIFY(m_session.geometry(program.window()) != m_session.grab().rect());
    m_session.waitUntilQuiet();
    m_session.key(QStringLiteral("ctrl+n"));
    QTRY_COMPARE(m_session.title(program.window()), QStringLiteral("Kestrin 7 [noname]"));

    // The chord that nobody took went to the first page, which counts it as a change.
    m_session.key(QStringLiteral("ctrl+w"));
    QTRY_VERIFY(m_session.title(program.window()).startsWith("Kestrin 7 [" + path + ']'));
    m_session.close(program.window());
    QVERIFY(!m_session.waitForWindow(QStringLiteral("^Kestrin 7$")).isEmpty());
    m_session.key(QStringLiteral("Return"));
    QVERIFY(program.waitForExit());
    QCOMPARE(program.exitCode(), 0);
}

REGISTER_TEST(TestEditing)
#include "tst_editing.moc"

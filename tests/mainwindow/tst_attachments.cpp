// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/page.h"
#include "mainwindow/windowprobe.h"
#include "support/standins.h"
#include "support/testmain.h"

#include <QCloseEvent>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTest>
#include <QTextCursor>
#include <QTextDocument>

namespace {

QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// A window with a document that was changed since it was read, and a stand-in for the mail client.
struct MailStage
{
    explicit MailStage(const QString &name = QStringLiteral("letter.txt"))
        : document(files.write(name, "alpha\nbeta\n")), window({document}), client(programs.addRecorder("client"))
    {
        QSettings().setValue(QStringLiteral("General/EmailClient"), client);
        QSettings().setValue(QStringLiteral("General/AttachFileByDefault"), true);
        QTextCursor(window.page()->textDocument()).insertText(QStringLiteral("new "));
        window.page()->setModified(true);
    }
    ~MailStage() { window.forgetChanges(); }
    Q_DISABLE_COPY_MOVE(MailStage)

    /// The attachment of the mail that is sent now.
    QString attachment() const
    {
        window->sendEmail();
        [&] { QTRY_VERIFY(!StandIns::recorded(client).isEmpty()); }();
        return StandIns::recorded(client).value(2);
    }

    TestFiles files;
    QString document;
    WindowProbe window;
    StandIns programs;
    QString client;
};

QString temporaryFile(const QString &name)
{
    return Scrivara::folderPath(QStringLiteral("temporary")) + name;
}

} // namespace

/// What goes with a mail about a document that has unsaved changes, and what becomes of it.
class TestAttachments : public QObject
{
    Q_OBJECT

private slots:
    void init() { QSettings().clear(); }
    void annotatedFile_data();
    void annotatedFile();
    void fileOnDiskIsNotSavedFirst_data();
    void fileOnDiskIsNotSavedFirst();
    void dotFileIsCleanedUp();
};

void TestAttachments::annotatedFile_data()
{
    QTest::addColumn<QString>("format");
    QTest::newRow("OXN") << "OXN";
    QTest::newRow("small") << "oxn";
    QTest::newRow("not set") << QString();
}

void TestAttachments::annotatedFile()
{
    QFETCH(const QString, format);
    const MailStage stage;
    if (!format.isNull())
        QSettings().setValue(QStringLiteral("General/AttachmentFormat"), format);
    const QString attachment = stage.attachment();
    QCOMPARE(attachment, temporaryFile("letter.oxn"));
    const QByteArray contents = contentsOf(attachment);
    QVERIFY(contents.contains("Zettelwerk-xml") && contents.contains("new alpha"));
    QVERIFY(!(QFile::permissions(attachment) & (QFile::ReadGroup | QFile::ReadOther)));
    // The copy leaves the document alone.
    QCOMPARE(stage.window.page()->fileName(), stage.document);
    QVERIFY(stage.window.page()->isModified());
    QCOMPARE(contentsOf(stage.document), QByteArray("alpha\nbeta\n"));
}

void TestAttachments::fileOnDiskIsNotSavedFirst_data()
{
    QTest::addColumn<QString>("format");
    QTest::newRow("TXT") << "TXT";
    QTest::newRow("Original") << "Original";
}

void TestAttachments::fileOnDiskIsNotSavedFirst()
{
    QFETCH(const QString, format);
    const MailStage stage;
    QSettings().setValue(QStringLiteral("General/AttachmentFormat"), format);
    QCOMPARE(stage.attachment(), stage.document);
    QCOMPARE(contentsOf(stage.document), QByteArray("alpha\nbeta\n"));
    QVERIFY(stage.window.page()->isModified());
}

/// Its copy has no name but the suffix, and so is hidden.
void TestAttachments::dotFileIsCleanedUp()
{
    const MailStage stage(QStringLiteral(".env"));
    QCOMPARE(stage.attachment(), temporaryFile(".oxn"));
    QVERIFY(QFile::exists(temporaryFile(".oxn")));
    stage.window.forgetChanges();
    QVERIFY(stage.window->close());
    QCOMPARE(QDir(temporaryFile({})).entryList(QDir::Files | QDir::Hidden), QStringList());
}

REGISTER_TEST(TestAttachments)
#include "tst_attachments.moc"

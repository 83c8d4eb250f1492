// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/annotation.h"
#include "annotations/penline.h"
#include "annotations/rectangleann.h"
#include "documents/page.h"
#include "documents/pagestack.h"
#include "mainwindow/windowprobe.h"
#include "support/dialogs.h"
#include "support/files.h"
#include "support/testmain.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QGraphicsItem>
#include <QSettings>
#include <QTest>
#include <QUndoStack>

namespace {

const QByteArray annotatedText = "<!DOCTYPE Zettelwerk_2008>\n<Zettelwerk-xml zettel_werk_type=\"v12042008\" "
                                 "font_family=\"Courier\" font_size=\"10\" file_type=\"cpp\">\n"
                                 "<text_contents><![CDATA[one\ntwo]]></text_contents>\n"
                                 "<pen_line w=\"3\" pos_x=\"20\" pos_y=\"30\"><p x=\"0\" y=\"0\"/><p x=\"9\" y=\"9\"/>"
                                 "</pen_line>\n<rectangle width=\"40\" height=\"20\"/>\n</Zettelwerk-xml>\n";

QString titleFor(const QString &path)
{
    return QStringLiteral("Kestrin 7 [%1]").arg(path);
}

/// Lets the next window have @p path among its recent files.
void offer(const QString &path)
{
    QSettings().setValue(QStringLiteral("General/RecentFileList"), QStringList{path});
}

int markCount(const Page *page)
{
    int count = 0;
    for (QGraphicsItem *item : page->items())
        count += dynamic_cast<Annotation *>(item) ? 1 : 0;
    return count;
}

} // namespace

/// Annotated files as the user meets them: through the window's commands and their boxes.
class TestAnnotatedFiles : public QObject
{
    Q_OBJECT

private slots:
    void init() { QSettings().clear(); }
    void open();
    void openedByDialog();
    void openedAndSavedAgain();
    void markedTextBecomesAnAnnotatedFile();
    void declined();
    void cancelled();
    void savedUnderAnAnnotatedName();
    void broken_data();
    void broken();
    void missingPictureKeepsItsLink();
    void cannotBeWritten();
};

void TestAnnotatedFiles::open()
{
    const TestFiles files;
    const QString path = files.write(QStringLiteral("a.oxn"), annotatedText);
    const WindowProbe window({path});
    QCOMPARE(window.stack()->count(), 1);
    QCOMPARE(window.stack()->tabText(0), QStringLiteral("a.oxn"));
    QCOMPARE(window->windowTitle(), titleFor(path));
    QCOMPARE(window.page()->fileName(), path);
    QCOMPARE(window.page()->fileType(), QStringLiteral("cpp"));
    QCOMPARE(window.page()->plainText(), QStringLiteral("one\ntwo"));
    QCOMPARE(markCount(window.page()), 2);
    QVERIFY(!window.page()->isModified());
    QVERIFY(!window.action("actionUndo")->isEnabled());
}

void TestAnnotatedFiles::openedByDialog()
{
    const TestFiles files;
    const QString path = files.write(QStringLiteral("a.oxn"), annotatedText);
    const WindowProbe window;
    DialogAnswers answers;
    answers.chooseFile(path);
    window->openFile();
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(window.stack()->count(), 1);
    QCOMPARE(window.stack()->tabText(0), QStringLiteral("a.oxn"));
    QCOMPARE(window->windowTitle(), titleFor(path));
    QCOMPARE(window.page()->plainText(), QStringLiteral("one\ntwo"));
    QCOMPARE(markCount(window.page()), 2);
    QVERIFY(!window.page()->isModified());
    QVERIFY(!window.action("actionUndo")->isEnabled());
}

void TestAnnotatedFiles::openedAndSavedAgain()
{
    const TestFiles files;
    const QString path = files.write(QStringLiteral("a.oxn"), annotatedText);
    const WindowProbe window({path});
    window.page()->addAnnotation(new PenLine);
    QVERIFY(window.page()->isModified());
    DialogAnswers answers;
    window->saveFile();
    QCOMPARE(answers.seen().size(), 0);
    QVERIFY(!window.page()->isModified());
    QCOMPARE(window->windowTitle(), titleFor(path));
    const QByteArray once = bytesIn(path);
    QCOMPARE(once.count("<pen_line "), 2);
    QCOMPARE(once.count("<rectangle "), 1);
    window->saveFile();
    QCOMPARE(bytesIn(path), once);
    const WindowProbe other({path});
    QCOMPARE(markCount(other.page()), 3);
    other->saveFile();
    QCOMPARE(bytesIn(path), once);
}

void TestAnnotatedFiles::markedTextBecomesAnAnnotatedFile()
{
    const TestFiles files;
    const QString text = files.write(QStringLiteral("a.cpp"), "one\ntwo\n");
    const QString target = QDir::toNativeSeparators(files.path(QStringLiteral("a.oxn")));
    const WindowProbe window({text});
    window.page()->addAnnotation(new RectangleAnn);
    DialogAnswers answers;
    answers.click(QMessageBox::Yes);
    window->saveFile();
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(bytesIn(text), QByteArray("one\ntwo\n"));
    QVERIFY(bytesIn(target).contains("<text_contents><![CDATA[one\ntwo]]></text_contents>"));
    QVERIFY(bytesIn(target).contains(" file_type=\"cpp\""));
    QCOMPARE(window.page()->fileName(), target);
    QCOMPARE(window->windowTitle(), titleFor(target));
    QCOMPARE(window.stack()->tabText(0), QStringLiteral("a.oxn"));
    QVERIFY(!window.page()->isModified());
    const WindowProbe other({target});
    QCOMPARE(markCount(other.page()), 1);
    QCOMPARE(other.page()->plainText(), QStringLiteral("one\ntwo"));
}

void TestAnnotatedFiles::declined()
{
    const TestFiles files;
    const QString text = files.write(QStringLiteral("a.cpp"), "one");
    const WindowProbe window({text});
    window.page()->addAnnotation(new RectangleAnn);
    DialogAnswers answers;
    answers.click(QMessageBox::No);
    window->saveFile();
    QVERIFY(!QFile::exists(files.path(QStringLiteral("a.oxn"))));
    QVERIFY(!window.page()->isModified());
    QCOMPARE(window.page()->fileName(), text);
}

void TestAnnotatedFiles::cancelled()
{
    const TestFiles files;
    const QString text = files.write(QStringLiteral("a.cpp"), "one");
    const WindowProbe window({text});
    window.page()->addAnnotation(new RectangleAnn);
    DialogAnswers answers;
    answers.click(QMessageBox::Cancel);
    window->saveFile();
    QVERIFY(!QFile::exists(files.path(QStringLiteral("a.oxn"))));
    QVERIFY(window.page()->isModified());
    window.forgetChanges();
}

void TestAnnotatedFiles::savedUnderAnAnnotatedName()
{
    const TestFiles files;
    const QString target = files.path(QStringLiteral("new.OXN"));
    const WindowProbe window({files.writePicture(QStringLiteral("p.png"))});
    window.page()->addAnnotation(new RectangleAnn);
    DialogAnswers answers;
    answers.chooseFile(target);
    window->saveAsFile();
    QCOMPARE(answers.seen().size(), 1);
    QVERIFY(bytesIn(target).contains("<img_contents img_file_link=\"" + files.path(QStringLiteral("p.png")).toUtf8()));
    QCOMPARE(window->windowTitle(), titleFor(target));
    QVERIFY(!window.page()->isModified());
    const WindowProbe other({target});
    QCOMPARE(other.page()->documentKind(), Page::ImageDocument);
    QCOMPARE(other.page()->sceneRect(), window.page()->sceneRect());
    QCOMPARE(markCount(other.page()), 1);
}

void TestAnnotatedFiles::broken_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("title");
    QTest::newRow("truncated") << annotatedText.left(annotatedText.size() / 2) << "Kestrin 7 Parse Error";
    QTest::newRow("picture without a link")
        << QByteArray("<a zettel_werk_type='x'><pen_line/><img_contents/></a>") << "Kestrin 7 I/O Error";
}

void TestAnnotatedFiles::broken()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, title);
    const TestFiles files;
    const QString path = files.write(QStringLiteral("a.oxn"), bytes);
    offer(path);
    const WindowProbe window;
    DialogAnswers answers;
    answers.accept();
    window.recentActions().first()->trigger();
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(answers.seen().first().title, title);
    QCOMPARE(window->currentPage(), nullptr);
    QCOMPARE(window->windowTitle(), QStringLiteral("Kestrin 7"));
    QCOMPARE(bytesIn(path), bytes);
}

void TestAnnotatedFiles::missingPictureKeepsItsLink()
{
    const TestFiles files;
    const QString picture = files.writePicture(QStringLiteral("p.png"));
    const QString path = files.path(QStringLiteral("a.oxn"));
    {
        const WindowProbe window({picture});
        window.page()->addAnnotation(new RectangleAnn);
        QVERIFY(window.page()->saveDocument(path, false));
    }
    QVERIFY(QFile::rename(picture, picture + ".away"));
    {
        offer(path);
        const WindowProbe window;
        DialogAnswers answers;
        answers.accept();
        window.recentActions().first()->trigger();
        QCOMPARE(answers.seen().size(), 1);
        QCOMPARE(answers.seen().first().title, QStringLiteral("I/O Error"));
        QCOMPARE(window.stack()->count(), 1);
        QCOMPARE(markCount(window.page()), 1);
        window->saveFile();
        QCOMPARE(answers.seen().size(), 1);
    }
    QVERIFY(QFile::rename(picture + ".away", picture));
    const WindowProbe window({path});
    QCOMPARE(window.page()->documentKind(), Page::ImageDocument);
    QCOMPARE(markCount(window.page()), 1);
}

void TestAnnotatedFiles::cannotBeWritten()
{
    const TestFiles files;
    const QString path = files.write(QStringLiteral("deep/a.oxn"), annotatedText);
    const WindowProbe window({path});
    window.page()->addAnnotation(new RectangleAnn);
    QVERIFY(QDir(files.path(QStringLiteral("deep"))).removeRecursively());
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    answers.click(QMessageBox::Ok);
    window->saveFile();
    QCOMPARE(answers.texts(), (QStringList{"Can't save file " + path + ".\nError code: ", "Can't save file " + path}));
    QVERIFY(window.page()->isModified());
    window.forgetChanges();
}

REGISTER_TEST(TestAnnotatedFiles)
#include "tst_annotatedfiles.moc"

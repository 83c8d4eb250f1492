// SPDX-License-Identifier: GPL-3.0-or-later
// Whole saves as the user sees them: what ends up on disk, what is asked, what is told when it fails.
#include "annotations/penline.h"
#include "documents/page.h"
#include "documents/pagestack.h"
#include "documents/pageview.h"
#include "documents/testmark.h"
#include "support/dialogs.h"
#include "support/fakehost.h"
#include "support/files.h"
#include "support/fulldisk.h"
#include "support/plainuser.h"
#include "support/testmain.h"

#include <QDir>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>
#include <QTextCursor>
#include <QTextDocument>

#include <sys/stat.h>

#include <memory>

namespace {

void permit(const QString &path, mode_t mode)
{
    QCOMPARE(chmod(QFile::encodeName(path).constData(), mode), 0);
}

} // namespace

class TestSaving : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void annotatedPictureKeepsItsMarksInside();
    void hiddenMarksAreNotPaintedIntoAPicture();
    void undoneMarkIsNotInThePicture();
    void undoneMarkIsNotInTheFile();
    void nameIsShownInEveryQuestion_data();
    void nameIsShownInEveryQuestion();
    void namelessMarkedDocumentGoesToSaveAs_data();
    void namelessMarkedDocumentGoesToSaveAs();
    void becameReadOnlyWhileOpen_data();
    void becameReadOnlyWhileOpen();
    void fullDisk_data();
    void fullDisk();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    QStringList names() const
    {
        return QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }
    void loadPicture();
    void addFileRows();
    void openAndChange(const QString &name);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<FakeHost> m_host;
    std::unique_ptr<Page> m_page;
};

void TestSaving::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_host = std::make_unique<FakeHost>();
    m_page = std::make_unique<Page>(m_host.get());
    m_page->activateUndoStack();
}

void TestSaving::cleanup()
{
    m_page.reset();
    m_host.reset();
    QCOMPARE(TestMark::living, 0);
}

/// A yellow picture of 50 x 40 pixels under the name p.png.
void TestSaving::loadPicture()
{
    QImage picture(50, 40, QImage::Format_RGB32);
    picture.fill(Qt::yellow);
    QVERIFY(picture.save(path("p.png")));
    QVERIFY(m_page->loadFile(path("p.png")));
}

void TestSaving::annotatedPictureKeepsItsMarksInside()
{
    loadPicture();
    m_page->addAnnotation(new TestMark({10, 10}));
    DialogAnswers answers;
    answers.click(QMessageBox::No);
    QVERIFY(m_page->saveDocument(QString(), false));
    QCOMPARE(answers.seen().size(), 1);
    QVERIFY(!m_page->isModified());
    // No annotated file: the marks are not kept as marks, but a picture shows what the scene shows.
    QCOMPARE(names(), QStringList{"p.png"});
    const QImage saved(path("p.png"));
    QCOMPARE(saved.size(), QSize(50, 40));
    QCOMPARE(saved.pixelColor(20, 20), QColor(Qt::red));
    QCOMPARE(saved.pixelColor(40, 20), QColor(Qt::yellow));
    // On the page the mark is still one.
    QVERIFY(m_page->hasAnnotations());
    m_host->group->undo();
    QVERIFY(!m_page->hasAnnotations());
}

void TestSaving::hiddenMarksAreNotPaintedIntoAPicture()
{
    loadPicture();
    m_page->addAnnotation(new TestMark({10, 10}));
    m_page->setAnnotationsHidden(true);
    DialogAnswers answers;
    answers.click(QMessageBox::No);
    QVERIFY(m_page->saveDocument(QString(), false));
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(QImage(path("p.png")).pixelColor(20, 20), QColor(Qt::yellow));
}

void TestSaving::undoneMarkIsNotInThePicture()
{
    loadPicture();
    m_page->addAnnotation(new TestMark({0, 0}));
    m_page->addAnnotation(new TestMark({25, 15}));
    m_host->group->undo();
    QVERIFY(m_page->saveDocument(path("q.png"), false));
    QImage saved(path("q.png"));
    QCOMPARE(saved.pixelColor(10, 10), QColor(Qt::red));
    QCOMPARE(saved.pixelColor(35, 25), QColor(Qt::yellow));
    m_host->group->redo();
    QVERIFY(m_page->saveDocument(path("q.png"), false));
    saved = QImage(path("q.png"));
    QCOMPARE(saved.pixelColor(35, 25), QColor(Qt::red));
}

void TestSaving::undoneMarkIsNotInTheFile()
{
    m_page->newDocument();
    for (const double x : {11.0, 22.0, 33.0}) {
        auto *stroke = new PenLine;
        stroke->setPos(x, 5);
        m_page->addAnnotation(stroke);
    }
    m_host->group->undo();
    QVERIFY(m_page->saveDocument(path("a.oxn"), false));
    QByteArray saved = bytesIn(path("a.oxn"));
    QVERIFY(saved.contains("pos_x=\"22\""));
    QVERIFY(!saved.contains("pos_x=\"33\""));
    m_host->group->redo();
    QVERIFY(m_page->saveDocument(path("a.oxn"), false));
    saved = bytesIn(path("a.oxn"));
    QVERIFY(saved.contains("pos_x=\"33\""));
    QCOMPARE(saved.count("<pen_line"), 3);
}

void TestSaving::nameIsShownInEveryQuestion_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("double quotes") << "a\"b\".txt";
    QTest::newRow("single quotes") << "a'b`.txt";
    QTest::newRow("line feed") << "a\nb.txt";
    QTest::newRow("placeholders") << "%1 %2 %L1 %n.txt";
    QTest::newRow("markup") << "<b>a<i>&amp;.txt";
    QTest::newRow("blanks") << " a  b .txt";
    QTest::newRow("beyond ASCII") << QStringLiteral("\u017c\u00f3\u0142w \u65e5.txt");
}

void TestSaving::nameIsShownInEveryQuestion()
{
    QFETCH(const QString, name);
    DialogAnswers answers;
    const QString shown = path(name);
    store(shown, "old\n");
    PageStack stack(m_host.get());
    auto *page = new Page(m_host.get());
    stack.addTab(new PageView(page, nullptr), name);
    QVERIFY(page->loadFile(shown));
    page->addAnnotation(new TestMark);

    answers.click(QMessageBox::Save);
    answers.click(QMessageBox::Cancel);
    QVERIFY(stack.maybeCloseTab(0));
    QCOMPARE(answers.texts(), (QStringList{QStringLiteral("Document [") + shown +
                                               QStringLiteral("] has been modified.\nDo you want to save changes?"),
                                           QStringLiteral("Document [") + shown +
                                               QStringLiteral("] contains annotations.\nDo you want to save it as an "
                                                              "'Annotated' OXN file?")}));
    answers.click(QMessageBox::No);
    QTextCursor(page->textDocument()).insertText(QStringLiteral("new "));
    QVERIFY(page->saveDocument(QString(), false));
    QCOMPARE(bytesIn(shown), QByteArray("new old"));
    QCOMPARE(names(), QStringList{name});
    QCOMPARE(m_host->window.windowTitle(), QStringLiteral("Kestrin 7 [") + shown + QLatin1Char(']'));
}

void TestSaving::namelessMarkedDocumentGoesToSaveAs_data()
{
    QTest::addColumn<bool>("cancelled");
    QTest::newRow("saved") << false;
    QTest::newRow("cancelled") << true;
}

void TestSaving::namelessMarkedDocumentGoesToSaveAs()
{
    QFETCH(const bool, cancelled);
    PageStack stack(m_host.get());
    auto *page = new Page(m_host.get());
    page->newDocument();
    stack.addTab(new PageView(page, nullptr), page->fileName());
    page->addAnnotation(new TestMark);

    DialogAnswers answers;
    if (cancelled)
        answers.reject();
    else
        answers.chooseFile(path("n.txt"));
    QCOMPARE(stack.saveCurrent(), !cancelled);
    // The one dialog, and no question whether the marks should be kept: the chosen suffix tells.
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(answers.seen().first().title, QStringLiteral("Save As File"));
    QCOMPARE(page->isModified(), cancelled);
    QCOMPARE(names(), cancelled ? QStringList() : QStringList{"n.txt"});
    if (!cancelled)
        QCOMPARE(bytesIn(path("n.txt")), QByteArray(60, ' '));
}

void TestSaving::addFileRows()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("text") << "a.txt";
    QTest::newRow("picture") << "p.png";
    QTest::newRow("annotated") << "a.oxn";
}

/// Opens a text or a picture under this name and changes it.
void TestSaving::openAndChange(const QString &name)
{
    if (name.endsWith(QLatin1String(".png"))) {
        loadPicture();
        m_page->addRect(10, 10, 20, 20, Qt::NoPen, Qt::blue);
    } else if (name.endsWith(QLatin1String(".oxn"))) {
        m_page->newDocument();
        QVERIFY(m_page->saveDocument(path(name), false));
        m_page->addAnnotation(new PenLine);
    } else {
        store(path(name), QByteArray("old\n").repeated(1000));
        QVERIFY(m_page->loadFile(path(name)));
        QTextCursor(m_page->textDocument()).insertText(QStringLiteral("new "));
    }
    m_page->setModified(true);
}

void TestSaving::becameReadOnlyWhileOpen_data()
{
    addFileRows();
}

void TestSaving::becameReadOnlyWhileOpen()
{
    QFETCH(const QString, name);
    openAndChange(name);
    const QByteArray old = bytesIn(path(name));
    permit(m_folder->path(), 0777);
    permit(path(name), 0444);
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    if (name != QLatin1String("p.png"))
        answers.click(QMessageBox::Ok);
    {
        const PlainUser user;
        QVERIFY(!m_page->saveDocument(QString(), false));
        QCOMPARE(answers.left(), 0);
        QCOMPARE(answers.texts().last(), QStringLiteral("Can't save file %1").arg(path(name)));
        QVERIFY(m_page->isModified());
        QCOMPARE(m_page->fileName(), path(name));
        // The work is not lost: it can go elsewhere, and back once the file may be written again.
        QVERIFY(m_page->saveDocument(path("copy.") + QFileInfo(name).suffix(), true));
    }
    QCOMPARE(bytesIn(path(name)), old);
    permit(path(name), 0644);
    QVERIFY(m_page->saveDocument(QString(), false));
    QVERIFY(bytesIn(path(name)) != old);
    QCOMPARE(bytesIn(path(name)), bytesIn(path("copy.") + QFileInfo(name).suffix()));
    QVERIFY(!m_page->isModified());
    QCOMPARE(names().size(), 2);
}

void TestSaving::fullDisk_data()
{
    addFileRows();
}

void TestSaving::fullDisk()
{
    QFETCH(const QString, name);
    openAndChange(name);
    const QByteArray old = bytesIn(path(name));
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    if (name != QLatin1String("p.png"))
        answers.click(QMessageBox::Ok);
    {
        const FullDisk disk(20);
        QVERIFY(!m_page->saveDocument(QString(), false));
    }
    QCOMPARE(answers.left(), 0);
    if (name == QLatin1String("a.txt"))
        QCOMPARE(answers.texts().first(), QStringLiteral("Cannot save file %1.\nError code: ").arg(path(name)));
    QCOMPARE(answers.texts().last(), QStringLiteral("Can't save file %1").arg(path(name)));
    QVERIFY(m_page->isModified());
    QCOMPARE(bytesIn(path(name)), old);
    QCOMPARE(names(), QStringList{name});
    // With room again the same save goes through.
    QVERIFY(m_page->saveDocument(QString(), false));
    QVERIFY(!m_page->isModified());
    QVERIFY(bytesIn(path(name)) != old);
}

REGISTER_TEST(TestSaving)
#include "tst_saving.moc"

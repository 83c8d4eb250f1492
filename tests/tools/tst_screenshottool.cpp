// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/rectangleann.h"
#include "app/folders.h"
#include "support/dialogs.h"
#include "support/files.h"
#include "support/pdfprobe.h"
#include "support/standins.h"
#include "support/testmain.h"
#include "tools/faketoolhost.h"
#include "tools/gesturestage.h"
#include "tools/screenshottool.h"
#include "tools/snapshot.h"
#include "widgets/dontdialog.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QGraphicsSceneMouseEvent>
#include <QImageWriter>
#include <QLabel>
#include <QPainter>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>

#include <memory>

namespace {

const QPointF corner(100, 100);
constexpr QRgb markRed = qRgb(255, 0, 0);
const QString temporaryFolder = QStringLiteral("temporary");

/// Where the picture goes.
enum Target { Clipboard, File, Mail, Nowhere };

/// A page with a red mark at (120, 120), 40 by 30, and the tool on it, which is always left after one picture.
struct SnapshotStage
{
    explicit SnapshotStage(Target target = Clipboard, int zoom = 100) : stage(zoom), tool(&host)
    {
        QSettings settings;
        settings.setValue(QStringLiteral("ScreenshotTool/SaveViewToClipboard"), target == Clipboard);
        settings.setValue(QStringLiteral("ScreenshotTool/SaveViewToFile"), target == File);
        settings.setValue(QStringLiteral("ScreenshotTool/SendViewViaEmail"), target == Mail);
        settings.setValue(QStringLiteral("ScreenshotTool/InfoViewInClipboard"), false);
        tool.updateSettings();
        auto *mark = new RectangleAnn;
        mark->setRect(0, 0, 40, 30);
        mark->setPos(120, 120);
        mark->setPen(Qt::NoPen);
        mark->setBrush(Qt::red);
        stage.page.putOnScene(mark);
        stage.use(&tool);
        QApplication::clipboard()->setText(QStringLiteral("old"));
    }
    void drag(const QSizeF &size) { stage.drag(corner, {corner + QPointF(size.width(), size.height())}); }
    /// Null as long as the clipboard has what it had at the beginning.
    static QImage clipboard()
    {
        const QClipboard *board = QApplication::clipboard();
        return board->text() == QLatin1String("old") ? QImage() : board->image();
    }
    /// Whether the page shows the dragged rectangle.
    bool overlayIsShown()
    {
        return stage.picture({99, 99, 3, 3}).pixel(1, 1) != stage.picture({5, 5, 3, 3}).pixel(1, 1);
    }

    GestureStage stage;
    FakeToolHost host;
    ScreenShotTool tool;
};

} // namespace

class TestScreenShotTool : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void areaToClipboard_data() { addZooms(); }
    void areaToClipboard();
    void pictureHasNoOverlay();
    void outsideOfTheView();
    void sizes_data();
    void sizes();
    void clickTakesNothing();
    void tooSmallAreaStays();
    void information();
    void rememberedInformation();
    void onlyTheFirstTarget_data();
    void onlyTheFirstTarget();
    void nowhereStillLeavesTheTool();
    void usedAgainAndAgain();
    void statusBar();
    void overlayIsPaintedWhileDragging();
    void overlayHasAHairline();
    void releaseWithoutAPress();
    void abandonedDrag();
    void withoutAHost();

    void fileByName_data();
    void fileByName();
    void fileDialog();
    void cancelledDialogStillLeavesTheTool();
    void postScriptFile();
    void missingConverter();
    void unwritableFile();

    void mailFormats_data();
    void mailFormats();
    void mailedPdf();
    void unwritableAttachmentIsNotMailed();

    void hugeArea_data();
    void hugeArea();
    void tallArea();
    void fractionsAreCut();
};

void TestScreenShotTool::init()
{
    QSettings().clear();
    QVERIFY(QDir().mkpath(dataFolder(temporaryFolder)));
}

void TestScreenShotTool::cleanup()
{
    QDir folder(dataFolder(temporaryFolder));
    for (const QString &entry : folder.entryList({"Annotated.*"}))
        folder.remove(entry);
}

void TestScreenShotTool::areaToClipboard()
{
    QFETCH(int, zoom);
    SnapshotStage snap(Clipboard, zoom);
    const QImage expected = snap.stage.picture({102, 102, 76, 56});
    snap.drag({80, 60});
    const QImage picture = SnapshotStage::clipboard();
    QCOMPARE(picture.size(), QSize(76, 56));
    QCOMPARE(picture.devicePixelRatio(), 1.0);
    QCOMPARE(countPixels(picture, markRed), 40 * 30);
    QCOMPARE(differingShare(picture, expected), 0.0);
    QCOMPARE(snap.host.restored, 1);
    QVERIFY(snap.host.mailed.isEmpty());
}

void TestScreenShotTool::pictureHasNoOverlay()
{
    SnapshotStage snap;
    snap.drag({80, 60});
    const QImage picture = SnapshotStage::clipboard();
    // Nothing but mark and paper; the overlay would tint both.
    QCOMPARE(countPixels(picture, markRed) + countPixels(picture, qRgb(255, 255, 255)),
             picture.width() * picture.height());
    QVERIFY(!snap.overlayIsShown());
}

void TestScreenShotTool::outsideOfTheView()
{
    SnapshotStage snap;
    snap.stage.view.resize(150, 140);
    snap.stage.press(corner);
    QGraphicsSceneMouseEvent far(QEvent::GraphicsSceneMouseMove);
    far.setScenePos(corner + QPointF(300, 200));
    snap.tool.mouseMoved(&far, &snap.stage.page);
    snap.tool.mouseReleased(&far, nullptr);
    QCOMPARE(SnapshotStage::clipboard().size(), QSize(296, 196));
    QCOMPARE(countPixels(SnapshotStage::clipboard(), markRed), 40 * 30);
}

void TestScreenShotTool::sizes_data()
{
    QTest::addColumn<QSizeF>("dragged");
    QTest::addColumn<QSize>("picture"); // empty: none
    QTest::addColumn<bool>("leaves");
    QTest::newRow("6 by 6") << QSizeF(6, 6) << QSize() << false;
    QTest::newRow("7 by 6") << QSizeF(7, 6) << QSize(3, 2) << true;
    QTest::newRow("6 by 7") << QSizeF(6, 7) << QSize(2, 3) << true;
    QTest::newRow("100 by 5") << QSizeF(100, 5) << QSize(96, 1) << true;
    QTest::newRow("100 by 4") << QSizeF(100, 4) << QSize() << true;
    QTest::newRow("100 by 3") << QSizeF(100, 3) << QSize() << true;
    QTest::newRow("3 by 100") << QSizeF(3, 100) << QSize() << true;
    QTest::newRow("100 by 0") << QSizeF(100, 0) << QSize() << true;
    QTest::newRow("backwards") << QSizeF(-50, -40) << QSize(46, 36) << true;
    QTest::newRow("up and right") << QSizeF(50, -40) << QSize(46, 36) << true;
}

void TestScreenShotTool::sizes()
{
    QFETCH(QSizeF, dragged);
    QFETCH(QSize, picture);
    QFETCH(bool, leaves);
    SnapshotStage snap;
    snap.drag(dragged);
    const QImage taken = SnapshotStage::clipboard();
    QCOMPARE(taken.isNull(), picture.isEmpty());
    if (!taken.isNull())
        QCOMPARE(taken.size(), picture);
    QCOMPARE(snap.host.restored, leaves ? 1 : 0);
    QCOMPARE(snap.overlayIsShown(), !leaves);
}

void TestScreenShotTool::clickTakesNothing()
{
    SnapshotStage snap;
    snap.drag({50, 50});
    QApplication::clipboard()->setText(QStringLiteral("old"));
    // After a picture the dragged area is forgotten.
    snap.stage.click(corner);
    QVERIFY(SnapshotStage::clipboard().isNull());
    QCOMPARE(snap.host.restored, 1);
}

void TestScreenShotTool::tooSmallAreaStays()
{
    SnapshotStage snap;
    snap.drag({5, 5});
    QVERIFY(snap.overlayIsShown());
    // Also for a later click, which starts from the old area.
    snap.stage.click({300, 300});
    QVERIFY(snap.overlayIsShown());
    QCOMPARE(snap.host.restored, 0);
    snap.drag({50, 50});
    QCOMPARE(SnapshotStage::clipboard().size(), QSize(46, 46));
    QVERIFY(!snap.overlayIsShown());
}

void TestScreenShotTool::information()
{
    SnapshotStage snap;
    QSettings().remove(QStringLiteral("ScreenshotTool/InfoViewInClipboard"));
    DialogAnswers answers;
    QString text;
    QImage atThatTime;
    answers.handle([&](QDialog *dialog) {
        if (auto *edit = dialog->findChild<QTextEdit *>(QStringLiteral("mainTextEdit")))
            text = edit->toPlainText();
        atThatTime = SnapshotStage::clipboard();
        dialog->reject();
    });
    snap.drag({80, 60});
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(answers.seen().constFirst().title, QStringLiteral("Information"));
    QCOMPARE(answers.seen().constFirst().parent, &snap.host.window);
    QCOMPARE(text, QStringLiteral("Selected area has been copied to the clipboard!"));
    QCOMPARE(atThatTime.size(), QSize(76, 56));
}

void TestScreenShotTool::rememberedInformation()
{
    SnapshotStage snap;
    DialogAnswers answers;
    snap.drag({80, 60});
    QVERIFY(answers.seen().isEmpty());
    QCOMPARE(SnapshotStage::clipboard().size(), QSize(76, 56));
}

void TestScreenShotTool::onlyTheFirstTarget_data()
{
    QTest::addColumn<QString>("on"); // c: clipboard, f: file, m: mail
    QTest::addColumn<int>("used");
    QTest::newRow("all") << "cfm" << int(Clipboard);
    QTest::newRow("clipboard and file") << "cf" << int(Clipboard);
    QTest::newRow("file and mail") << "fm" << int(File);
    QTest::newRow("mail") << "m" << int(Mail);
    QTest::newRow("none") << "" << int(Nowhere);
}

void TestScreenShotTool::onlyTheFirstTarget()
{
    QFETCH(QString, on);
    QFETCH(int, used);
    SnapshotStage snap;
    QSettings settings;
    settings.setValue(QStringLiteral("ScreenshotTool/SaveViewToClipboard"), on.contains('c'));
    settings.setValue(QStringLiteral("ScreenshotTool/SaveViewToFile"), on.contains('f'));
    settings.setValue(QStringLiteral("ScreenshotTool/SendViewViaEmail"), on.contains('m'));
    snap.tool.updateSettings();
    DialogAnswers answers;
    if (used == File)
        answers.reject();
    snap.drag({80, 60});
    QCOMPARE(!SnapshotStage::clipboard().isNull(), used == Clipboard);
    QCOMPARE(answers.seen().size(), used == File ? 1 : 0);
    QCOMPARE(snap.host.mailed.size(), used == Mail ? 1 : 0);
    QCOMPARE(snap.host.restored, 1);
}

void TestScreenShotTool::nowhereStillLeavesTheTool()
{
    SnapshotStage snap(Nowhere);
    snap.drag({80, 60});
    QCOMPARE(snap.host.restored, 1);
    QVERIFY(!snap.overlayIsShown());
}

void TestScreenShotTool::usedAgainAndAgain()
{
    SnapshotStage snap;
    QSettings().setValue(QStringLiteral("ScreenshotTool/UseOnce"), false);
    snap.tool.updateSettings();
    for (const int side : {30, 60}) {
        snap.drag(QSizeF(side, side));
        QCOMPARE(SnapshotStage::clipboard().size(), QSize(side - 4, side - 4));
        QVERIFY(!snap.overlayIsShown());
    }
    QCOMPARE(snap.host.restored, 0);
}

void TestScreenShotTool::statusBar()
{
    SnapshotStage snap;
    snap.stage.move({50, 50});
    QCOMPARE(snap.host.label->text(), QString());
    snap.stage.press(corner);
    snap.stage.move(corner + QPointF(80, 60));
    QCOMPARE(snap.host.label->text(), QStringLiteral("(w: 80, h: 60)"));
    snap.stage.move(corner + QPointF(-20, 10));
    QCOMPARE(snap.host.label->text(), QStringLiteral("(w: 20, h: 10)"));
    snap.stage.release(corner + QPointF(-20, 10));
    QCOMPARE(snap.host.label->text(), QString());
}

void TestScreenShotTool::overlayIsPaintedWhileDragging()
{
    SnapshotStage snap;
    snap.stage.press(corner);
    snap.stage.move(corner + QPointF(15, 15));
    // A quarter of the overlay's blue over white paper.
    QImage expected(1, 1, QImage::Format_ARGB32_Premultiplied);
    expected.fill(Qt::white);
    QPainter(&expected).fillRect(0, 0, 1, 1, QColor(110, 110, 250, 50));
    QCOMPARE(snap.stage.picture({108, 108, 1, 1}).pixel(0, 0), expected.pixel(0, 0));
    QVERIFY(snap.overlayIsShown());
    snap.stage.release(corner + QPointF(15, 15));
}

/// One pixel wide at any zoom, in the stated colours.
void TestScreenShotTool::overlayHasAHairline()
{
    SnapshotStage snap;
    snap.stage.press(corner);
    snap.stage.move(corner + QPointF(80, 60));
    const auto blank = [](const QSize &size) {
        QImage image(size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        return image;
    };
    QImage colors = blank({3, 1});
    QPainter mixer(&colors);
    mixer.fillRect(0, 0, 2, 1, QColor(110, 110, 250, 50));
    mixer.fillRect(1, 0, 2, 1, QColor(140, 140, 250, 160));
    mixer.end();
    for (const int zoom : {1, 3}) {
        QImage picture = blank({800, 600});
        QPainter painter(&picture);
        painter.scale(zoom, zoom);
        snap.tool.paintOverlay(&painter);
        painter.end();
        const QImage row = picture.copy(0, int(corner.y() + 30) * zoom, picture.width(), 1);
        QCOMPARE(countPixels(row, colors.pixel(0, 0)), 80 * zoom - 1);
        QCOMPARE(countPixels(row, colors.pixel(1, 0)), 1);
        QCOMPARE(countPixels(row, colors.pixel(2, 0)), 1);
    }
}

void TestScreenShotTool::releaseWithoutAPress()
{
    SnapshotStage snap;
    snap.stage.release(corner);
    snap.drag({80, 60});
    QApplication::clipboard()->setText(QStringLiteral("old"));
    snap.stage.release({200, 200}, Qt::RightButton);
    QVERIFY(SnapshotStage::clipboard().isNull());
    QCOMPARE(snap.host.restored, 1);
}

void TestScreenShotTool::abandonedDrag()
{
    SnapshotStage snap;
    QSignalSpy changes(&snap.stage.page, &QGraphicsScene::changed);
    snap.stage.press(corner);
    snap.stage.move(corner + QPointF(80, 60));
    QTRY_VERIFY(!changes.isEmpty());
    changes.clear();
    snap.tool.abandonGesture();
    QVERIFY(!snap.overlayIsShown());
    // Nobody but the tool has the page painted anew.
    QTRY_VERIFY(!changes.isEmpty());
    QCOMPARE(changes.constFirst().constFirst().value<QList<QRectF>>(), QList<QRectF>{snap.stage.page.sceneRect()});
    QCOMPARE(snap.host.label->text(), QString());
    snap.stage.release(corner + QPointF(80, 60));
    QVERIFY(SnapshotStage::clipboard().isNull());
    QCOMPARE(snap.host.restored, 0);
    // A change of tools between two gestures leaves an area that was too small where it is.
    snap.drag({5, 5});
    snap.tool.abandonGesture();
    QVERIFY(snap.overlayIsShown());
}

void TestScreenShotTool::withoutAHost()
{
    QSettings().setValue(QStringLiteral("ScreenshotTool/InfoViewInClipboard"), false);
    GestureStage stage;
    ScreenShotTool tool(nullptr);
    stage.use(&tool);
    QApplication::clipboard()->clear();
    stage.drag(corner, {{150, 140}});
    QCOMPARE(QApplication::clipboard()->image().size(), QSize(46, 36));
}

void TestScreenShotTool::fileByName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("start"); // of the file; empty: no file
    QTest::newRow("png") << "a.png" << QByteArray("\x89PNG");
    QTest::newRow("capital JPG") << "a.JPG" << QByteArray("\xff\xd8\xff");
    QTest::newRow("pdf") << "a.pdf" << QByteArray("%PDF-");
    QTest::newRow("capital PDF") << "a.PDF" << QByteArray("%PDF-");
    QTest::newRow("unknown suffix") << "a.xyz" << QByteArray();
    QTest::newRow("no suffix") << "a" << QByteArray();
    QTest::newRow("odd name") << "a b,c;d'e.png" << QByteArray("\x89PNG");
}

void TestScreenShotTool::fileByName()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, start);
    const QTemporaryDir folder;
    SnapshotStage snap(File);
    DialogAnswers answers;
    answers.chooseFile(folder.filePath(name));
    snap.drag({80, 60});
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(snap.host.restored, 1);
    if (start.isEmpty()) {
        QVERIFY(QDir(folder.path()).isEmpty());
        return;
    }
    QVERIFY(bytesIn(folder.filePath(name)).startsWith(start));
    if (start != "%PDF-")
        QCOMPARE(QImage(folder.filePath(name)).size(), QSize(76, 56));
}

void TestScreenShotTool::fileDialog()
{
    const QTemporaryDir folder;
    SnapshotStage snap(File);
    snap.host.openDir = folder.path();
    DialogAnswers answers;
    answers.reject();
    snap.drag({80, 60});
    const SeenDialog dialog = answers.seen().constFirst();
    QCOMPARE(dialog.title, QStringLiteral("Save As File"));
    QCOMPARE(dialog.parent, &snap.host.window);
    QCOMPARE(dialog.directory, folder.path());
    QStringList patterns;
    for (const QByteArray &format : QImageWriter::supportedImageFormats())
        patterns.append("*." + QString::fromLatin1(format));
    QVERIFY(patterns.contains(QStringLiteral("*.png")));
    QCOMPARE(dialog.nameFilters.mid(0, 3), (QStringList{"Image Files (" + patterns.join(' ') + ')',
                                                        "Portable Document Format (*.pdf)", "Postscript (*.ps)"}));
}

void TestScreenShotTool::cancelledDialogStillLeavesTheTool()
{
    SnapshotStage snap(File);
    DialogAnswers answers;
    answers.reject();
    snap.drag({80, 60});
    QCOMPARE(snap.host.restored, 1);
    QVERIFY(!snap.overlayIsShown());
}

void TestScreenShotTool::postScriptFile()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.PS"));
    SnapshotStage snap(File);
    DialogAnswers answers;
    answers.chooseFile(path);
    snap.drag({80, 60});
    QVERIFY(bytesIn(path).startsWith("%!PS"));
    const QImage sheet = postScriptPicture(path, 1, 96);
    QVERIFY(qAbs(countPixels(sheet, markRed) - 40 * 30) < 100);
    // At the top left corner of the sheet.
    QCOMPARE(sheet.pixel(18 + 20, 18 + 15), markRed);
}

void TestScreenShotTool::missingConverter()
{
    const QTemporaryDir folder;
    SnapshotStage snap(File);
    const StandIns nothing;
    DialogAnswers answers;
    answers.chooseFile(folder.filePath(QStringLiteral("a.ps")));
    answers.click(QMessageBox::Ok);
    snap.drag({80, 60});
    QCOMPARE(answers.texts().size(), 1);
    QVERIFY(answers.texts().constFirst().contains(QStringLiteral("was not found")));
    QVERIFY(QDir(folder.path()).isEmpty());
    QCOMPARE(snap.host.restored, 1);
}

void TestScreenShotTool::unwritableFile()
{
    const QTemporaryDir folder;
    GestureStage stage;
    const Snapshot snapshot(&stage.page, {0, 0, 50, 50});
    for (const char *name : {"none/a.png", "none/a.pdf", "none/a.ps"})
        QVERIFY(!snapshot.saveAs(folder.filePath(QString::fromLatin1(name)), nullptr));
    QVERIFY(QDir(folder.path()).isEmpty());
}

void TestScreenShotTool::mailFormats_data()
{
    QTest::addColumn<QString>("format"); // null: not set
    QTest::addColumn<QString>("file");
    QTest::newRow("not set") << QString() << "Annotated.png";
    QTest::newRow("PNG") << "PNG"
                         << "Annotated.png";
    QTest::newRow("PDF") << "PDF"
                         << "Annotated.pdf";
    QTest::newRow("small pdf") << "pdf"
                               << "Annotated.pdf";
    QTest::newRow("OXN") << "OXN"
                         << "Annotated.png";
    QTest::newRow("Original") << "Original"
                              << "Annotated.png";
}

void TestScreenShotTool::mailFormats()
{
    QFETCH(QString, format);
    QFETCH(QString, file);
    SnapshotStage snap(Mail);
    if (!format.isNull())
        QSettings().setValue(QStringLiteral("General/AttachmentFormat"), format);
    const QString path = dataFolder(temporaryFolder) + file;
    store(path, "an earlier one");
    QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther));
    snap.drag({80, 60});
    QCOMPARE(snap.host.mailed, QStringList{QDir::toNativeSeparators(path)});
    QVERIFY(bytesIn(path).startsWith(file.endsWith(QLatin1String("png")) ? "\x89PNG" : "%PDF-"));
    QVERIFY(!(QFileInfo(path).permissions() & (QFile::ReadGroup | QFile::ReadOther)));
    QCOMPARE(snap.host.restored, 1);
    QVERIFY(SnapshotStage::clipboard().isNull());
}

void TestScreenShotTool::mailedPdf()
{
    SnapshotStage snap(Mail);
    QSettings().setValue(QStringLiteral("General/AttachmentFormat"), QStringLiteral("PDF"));
    snap.drag({80, 60});
    const PdfProbe pdf(dataFolder(temporaryFolder) + QStringLiteral("Annotated.pdf"));
    QCOMPARE(pdf.pages(), 1);
    QCOMPARE(pdf.pageSize().toSize(), QSize(595, 842));
    QCOMPARE(pdf.images(), 0);
    const QImage sheet = pdf.picture(1, 96);
    QCOMPARE(sheet.pixel(18 + 20, 18 + 15), markRed);
    QVERIFY(sheet.pixel(14, 14) != markRed);
}

void TestScreenShotTool::unwritableAttachmentIsNotMailed()
{
    SnapshotStage snap(Mail);
    const QString path = dataFolder(temporaryFolder) + QStringLiteral("Annotated.png");
    QVERIFY(QDir().mkpath(path));
    DialogAnswers answers;
    answers.click(QMessageBox::Ok);
    snap.drag({80, 60});
    QVERIFY(QDir().rmdir(path));
    QCOMPARE(answers.texts(), QStringList("Can't save file " + QDir::toNativeSeparators(path)));
    QVERIFY(snap.host.mailed.isEmpty());
    QCOMPARE(snap.host.restored, 1);
}

void TestScreenShotTool::hugeArea_data()
{
    QTest::addColumn<QSizeF>("size");
    QTest::newRow("20,000 by 20,000") << QSizeF(20000, 20000);
    QTest::newRow("beyond all integers") << QSizeF(1e12, 1e12);
}

void TestScreenShotTool::hugeArea()
{
    QFETCH(QSizeF, size);
    SnapshotStage snap;
    DialogAnswers answers;
    QGraphicsSceneMouseEvent event(QEvent::GraphicsSceneMouseMove);
    event.setScenePos(corner);
    snap.tool.mousePressed(&event, &snap.stage.page);
    event.setScenePos(corner + QPointF(size.width(), size.height()));
    snap.tool.mouseMoved(&event, &snap.stage.page);
    snap.tool.mouseReleased(&event, nullptr);
    QVERIFY(SnapshotStage::clipboard().isNull());
    QVERIFY(answers.seen().isEmpty());
    QCOMPARE(snap.host.restored, 1);
    // The next picture is taken as usual.
    snap.drag({80, 60});
    QCOMPARE(SnapshotStage::clipboard().size(), QSize(76, 56));
}

void TestScreenShotTool::tallArea()
{
    GestureStage stage;
    stage.page.setSceneRect(0, 0, 900, 50000);
    for (const double y : {0.0, 16380.0, 32760.0, 39990.0}) {
        auto *mark = new RectangleAnn;
        mark->setRect(0, 0, 10, 10);
        mark->setPos(10, y);
        mark->setPen(Qt::NoPen);
        mark->setBrush(Qt::red);
        stage.page.putOnScene(mark);
    }
    const QImage picture = Snapshot(&stage.page, {0, 0, 100, 40000}).picture();
    QCOMPARE(picture.size(), QSize(100, 40000));
    for (const int y : {0, 16380, 32760, 39990}) {
        QCOMPARE(countPixels(picture.copy(10, y, 10, 10), markRed), 100);
        QCOMPARE(picture.pixel(9, y + 5), qRgb(255, 255, 255));
    }
    QCOMPARE(countPixels(picture, markRed), 400);
}

void TestScreenShotTool::fractionsAreCut()
{
    SnapshotStage snap;
    const QImage picture = Snapshot(&snap.stage.page, {110, 110, 60.75, 50.9}).picture();
    QCOMPARE(picture.size(), QSize(60, 50));
    // Nothing is scaled to the fraction.
    QCOMPARE(countPixels(picture, markRed), 40 * 30);
    QCOMPARE(picture.pixel(10, 10), markRed);
    QCOMPARE(picture.pixel(49, 39), markRed);
}

REGISTER_TEST(TestScreenShotTool)
#include "tst_screenshottool.moc"

// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/activeelement.h"
#include "annotations/bracketann.h"
#include "annotations/ellipseann.h"
#include "annotations/lineann.h"
#include "annotations/markerline.h"
#include "annotations/penline.h"
#include "annotations/rectangleann.h"
#include "annotations/textboxann.h"
#include "documents/documentitem.h"
#include "documents/page.h"
#include "persistence/oxnfiles.h"
#include "persistence/oxnwriter.h"
#include "support/fakehost.h"
#include "support/golden.h"
#include "support/testmain.h"

#include <QBuffer>
#include <QDir>
#include <QDomDocument>
#include <QFont>
#include <QGraphicsTextItem>
#include <QLocale>
#include <QPen>
#include <QPixmap>
#include <QTest>
#include <QTextCursor>
#include <QTextDocument>
#include <QUndoStack>

#include <clocale>
#include <memory>

namespace {

/// Characters that are lost or changed easily, each in a text of its own.
void addTexts()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << "";
    QTest::newRow("one line") << "int main();";
    QTest::newRow("trailing line feeds") << "a\n\n";
    QTest::newRow("line feeds only") << "\n\n\n";
    QTest::newRow("blanks only") << "   ";
    QTest::newRow("blanks around") << " \t a\t \n\t\n  b ";
    QTest::newRow("markup") << "<a b=\"c\" d='e'>&amp;&#12;</a><!-- --><?x?>";
    QTest::newRow("end of a section") << "a]]>b";
    QTest::newRow("many ends of sections") << "]]>]]>]]]>]]";
    QTest::newRow("section in a section") << "<![CDATA[x]]>";
    QTest::newRow("end of a section between lines") << "]]\n>";
    QTest::newRow("our own element") << "<char code=\"12\"/>";
    QTest::newRow("form feed") << "a\fb";
    QTest::newRow("escape") << "\x1B[31mred\x1B[0m";
    QTest::newRow("null") << QString(QStringLiteral("a") + QChar(0) + "b");
    QTest::newRow("nulls only") << QString(3, QChar(0));
    QTest::newRow("all control characters") << [] {
        QString all;
        for (ushort c = 0; c < 0xA1; ++c)
            all += c == '\r' ? QChar('-') : QChar(c);
        return all;
    }();
    QTest::newRow("form feed in a section's end") << "]]\f>";
    QTest::newRow("form feed beside a section's end") << "\f]]>\f";
    QTest::newRow("no-break space") << QStringLiteral("a\u00A0b\u202Fc");
    QTest::newRow("line separator") << QStringLiteral("a\u2028b");
    QTest::newRow("lone high surrogate") << QString(QStringLiteral("a") + QChar(0xD83D) + "b");
    QTest::newRow("lone low surrogate") << QString(QStringLiteral("a") + QChar(0xDE00));
    QTest::newRow("surrogates the wrong way round") << QString(QChar(0xDE00)) + QChar(0xD83D);
    QTest::newRow("high surrogate before a pair") << QString(QChar(0xD83D)) + QStringLiteral("\U0001F600");
    QTest::newRow("beyond the basic plane") << QStringLiteral("\U0001F600\U0010FFFF");
    QTest::newRow("non-characters") << QString(QChar(0xFFFE)) + QChar(0xFFFF) + QChar(0xFDD2);
    QTest::newRow("replacement characters") << QStringLiteral("\uFFFC\uFFFD");
    QTest::newRow("byte order mark") << QStringLiteral("\uFEFFa\uFEFF");
    QTest::newRow("combining") << QStringLiteral("e\u0301 \u0301");
    QTest::newRow("joiners and directions") << QStringLiteral("\u202E\u05D0\u200F\U0001F468\u200D\U0001F4BB");
    QTest::newRow("long") << QString(100'000, 'x') + '\n' + QString(100'000, QChar(0x17C));
}

/// One of each kind, bottom first.
void addMarks(Page &page)
{
    auto *pen = new PenLine;
    pen->setPen(QPen(QColor(1, 2, 3, 4), 5));
    pen->setPolygon(QPolygonF{{0, 0}, {0.1, -2}, {1234.5, 1e-7}});
    auto *marker = new MarkerLine;
    marker->setPen(QPen(QColor(255, 255, 0, 120), 17));
    marker->setAntialiasing(true);
    auto *bracket = new BracketAnn;
    bracket->setLine(0, 0, 0, 100);
    auto *line = new LineAnn;
    line->setStyle(4);
    line->setLinePen(QPen(Qt::red, 2, Qt::DashLine));
    line->setLine(0, 0, 100, 0);
    auto *ellipse = new EllipseAnn;
    ellipse->setRect(0, 0, 30, 40);
    ellipse->setBrush(QColor(9, 8, 7, 6));
    auto *rectangle = new RectangleAnn;
    rectangle->setRounded(true);
    rectangle->setVisible(false);
    auto *box = new TextBoxAnn;
    box->setFont(QFont(QStringLiteral("Arial"), 12));
    box->setPlainText(QStringLiteral("two\nlines"));
    auto *tag = new ActiveElement;
    tag->setCategory(2);
    tag->setAuthor(QStringLiteral("Zoë & Co"));
    tag->setPlainText(QStringLiteral("why\n]]> \f?"));
    tag->setShowDate(true);
    tag->setDate(QDate(2008, 12, 24));
    tag->setTime(QTime(1, 2, 3));
    double y = 0;
    for (QGraphicsItem *item :
         std::initializer_list<QGraphicsItem *>{pen, marker, bracket, line, ellipse, rectangle, box, tag}) {
        item->setPos(10.25, y += 1.0 / 3.0);
        page.addItem(item);
    }
}

} // namespace

/// What stands in an annotated file, and that nothing of it is lost on the way back.
class TestOxnWriting : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void textFile();
    void pictureFile();
    void fileOfNeitherKind();
    void rootOfAText();
    void treeAsOthersReadIt();
    void textComesBack_data() { addTexts(); }
    void textComesBack();
    void textBoxComesBack_data() { addTexts(); }
    void textBoxComesBack();
    void othersCanReadTheText_data() { addTexts(); }
    void othersCanReadTheText();
    void odditiesOfAttributes();
    void lineEndsOfTheOriginalAreLineFeeds();
    void sameDocumentSameBytes();
    void secondSaveGivesTheSameBytes();
    void commaLocaleChangesNothing();
    void stackingComesBack();
    void undoneMarksAreNotWritten();
    void hiddenMarksAreWritten();
    void pictureIsNotInTheFile();
    void nothingChangesOnThePage();
    void checkSeesWhatIsMissing_data();
    void checkSeesWhatIsMissing();

private:
    QByteArray savedText(const QString &text);
    /// Reads what was saved into m_page.
    void reload(const QByteArray &bytes);

    std::unique_ptr<OxnFiles> m_files;
    std::unique_ptr<FakeHost> m_host;
    std::unique_ptr<Page> m_page;
};

void TestOxnWriting::init()
{
    m_page.reset();
    m_files = std::make_unique<OxnFiles>();
    m_host = std::make_unique<FakeHost>();
    m_page = std::make_unique<Page>(m_host.get());
}

QByteArray TestOxnWriting::savedText(const QString &text)
{
    m_page->setTextContents(QStringLiteral("a.cpp"), text, QStringLiteral("1\n"));
    m_page->setFileType(QStringLiteral("cpp"));
    return m_files->saved(*m_page);
}

void TestOxnWriting::reload(const QByteArray &bytes)
{
    m_page = std::make_unique<Page>(m_host.get());
    QVERIFY(m_page->loadFile(m_files->write("reloaded.oxn", bytes)));
}

void TestOxnWriting::textFile()
{
    m_page->setDocumentFont(QFont(QStringLiteral("Courier"), 10));
    addMarks(*m_page);
    const QByteArray bytes = savedText(QStringLiteral("zażółć\n<tag> & ]]> \fend\n"));
    const QString difference = differenceFromGolden("oxn/text.oxn", Oxn::withoutSize(bytes));
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
}

void TestOxnWriting::pictureFile()
{
    QPixmap(40, 30).save(m_files->path("p.png"));
    QVERIFY(m_page->setImageContents(m_files->path("p.png"), QString()));
    m_page->setFileType(QStringLiteral("png"));
    addMarks(*m_page);
    QByteArray bytes = m_files->saved(*m_page);
    bytes.replace(m_files->path("p.png").toUtf8(), "/pictures/p.png");
    const QString difference = differenceFromGolden("oxn/picture.oxn", bytes);
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
}

void TestOxnWriting::fileOfNeitherKind()
{
    const QString difference = differenceFromGolden("oxn/empty.oxn", m_files->saved(*m_page));
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
}

void TestOxnWriting::rootOfAText()
{
    m_page->setDocumentFont(QFont(QStringLiteral("Arial"), 17));
    QDomDocument document;
    QVERIFY(document.setContent(savedText(QStringLiteral("a\nbb"))));
    const QDomElement root = document.documentElement();
    QCOMPARE(root.attributes().size(), 6);
    QCOMPARE(root.attribute("zettel_werk_type"), QStringLiteral("v12042008"));
    QCOMPARE(root.attribute("width").toDouble(), m_page->contentsWidth());
    QCOMPARE(root.attribute("height").toDouble(), m_page->contentsHeight());
    QVERIFY(m_page->contentsHeight() > 10);
    QCOMPARE(root.attribute("font_family"), QStringLiteral("Arial"));
    QCOMPARE(root.attribute("font_size"), QStringLiteral("17"));
    QCOMPARE(root.attribute("file_type"), QStringLiteral("cpp"));
}

void TestOxnWriting::treeAsOthersReadIt()
{
    addMarks(*m_page);
    QDomDocument document;
    QVERIFY(document.setContent(savedText(QStringLiteral("a\nbb"))));
    QCOMPARE(document.doctype().name(), QStringLiteral("Zettelwerk_2008"));
    const QDomElement root = document.documentElement();
    QCOMPARE(root.tagName(), QStringLiteral("Zettelwerk-xml"));
    const QDomNodeList nodes = root.childNodes();
    QCOMPARE(nodes.size(), 10);
    QVERIFY(nodes.at(0).isComment());
    QCOMPARE(nodes.at(0).nodeValue(), QStringLiteral("This file was generated automatically. Do not modify it!"));
    QCOMPARE(nodes.at(1).nodeName(), QStringLiteral("text_contents"));
    QCOMPARE(nodes.at(1).childNodes().size(), 1);
    QVERIFY(nodes.at(1).firstChild().isCDATASection());
    QCOMPARE(nodes.at(1).toElement().text(), QStringLiteral("a\nbb"));
    // Each mark reads its own element back through the tree.
    const QList<Annotation *> marks = Oxn::marks(*m_page);
    for (int i = 0; i < marks.size(); ++i) {
        const std::unique_ptr<Annotation> copy(marks.at(i)->clone());
        copy->loadFromXml(nodes.at(i + 2).toElement(), QPointF(m_page->marginX(), m_page->marginY()));
        QCOMPARE(float(Oxn::item(copy.get())->x()), float(Oxn::item(marks.at(i))->x()));
        QCOMPARE(float(Oxn::item(copy.get())->y()), float(Oxn::item(marks.at(i))->y()));
    }
}

void TestOxnWriting::textComesBack()
{
    QFETCH(const QString, text);
    const QByteArray bytes = savedText(text);
    QCOMPARE(m_page->plainText(), text);
    reload(bytes);
    QCOMPARE(m_page->plainText(), text);
    QCOMPARE(m_files->saved(*m_page), bytes);
}

void TestOxnWriting::textBoxComesBack()
{
    QFETCH(const QString, text);
    auto *box = new TextBoxAnn;
    box->setPlainText(text);
    m_page->addItem(box);
    const QByteArray bytes = savedText(QStringLiteral("a"));
    reload(bytes);
    QCOMPARE(Oxn::marks(*m_page).size(), 1);
    QCOMPARE(dynamic_cast<TextBoxAnn *>(Oxn::marks(*m_page).first())->document()->toRawText(),
             QString(text).replace('\n', QChar::ParagraphSeparator));
    QCOMPARE(m_files->saved(*m_page), bytes);
}

void TestOxnWriting::othersCanReadTheText()
{
    QFETCH(const QString, text);
    QDomDocument document;
    QVERIFY(document.setContent(savedText(text)));
    // All but the characters that XML has no place for.
    const QString read = document.documentElement().firstChildElement("text_contents").text();
    QString legal;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        const bool paired = c.isHighSurrogate() ? i + 1 < text.size() && text.at(i + 1).isLowSurrogate()
                                                : i > 0 && text.at(i - 1).isHighSurrogate();
        const bool forbidden =
            (c < ' ' && c != '\t' && c != '\n') || (c.isSurrogate() && !paired) || c >= QChar(0xFFFE);
        if (!forbidden)
            legal += c;
    }
    QCOMPARE(read, legal);
}

void TestOxnWriting::odditiesOfAttributes()
{
    m_page->setFileType(QStringLiteral("<\"&'>\t\n\r \u017C"));
    m_page->newDocument();
    reload(m_files->saved(*m_page));
    QCOMPARE(m_page->fileType(), QStringLiteral("<\"&'>\t\n\r \u017C"));
    // What an attribute cannot hold is replaced, and does not spoil the file.
    m_page->setFileType(QStringLiteral("a\fb") + QChar(0xD800));
    reload(m_files->saved(*m_page));
    QCOMPARE(m_page->fileType(), QStringLiteral("a\uFFFDb\uFFFD"));
}

void TestOxnWriting::lineEndsOfTheOriginalAreLineFeeds()
{
    QVERIFY(m_page->loadFile(m_files->write("a.txt", "\xEF\xBB\xBFone\r\ntwo\rthree\r\n")));
    const QByteArray bytes = m_files->saved(*m_page);
    QVERIFY(bytes.contains("<![CDATA[one\ntwo\nthree]]>"));
    QVERIFY(!bytes.contains('\r'));
    reload(bytes);
    QCOMPARE(m_page->plainText(), QStringLiteral("one\ntwo\nthree"));
    QCOMPARE(m_page->fileType(), QStringLiteral("txt"));
}

void TestOxnWriting::sameDocumentSameBytes()
{
    QByteArray first;
    for (int i = 0; i < 3; ++i) {
        m_page = std::make_unique<Page>(m_host.get());
        addMarks(*m_page);
        const QByteArray bytes = savedText(QStringLiteral("text\n"));
        if (i == 0)
            first = bytes;
        QVERIFY(!bytes.isEmpty());
        QCOMPARE(bytes, first);
    }
}

void TestOxnWriting::secondSaveGivesTheSameBytes()
{
    addMarks(*m_page);
    // Coordinates come back in single precision, so the first save may differ from the second, but not that one
    // from the third.
    reload(savedText(QStringLiteral("text\n\u00A0]]>\f")));
    const QByteArray second = m_files->saved(*m_page);
    reload(second);
    QCOMPARE(m_files->saved(*m_page), second);
}

void TestOxnWriting::commaLocaleChangesNothing()
{
    addMarks(*m_page);
    const QByteArray bytes = savedText(QStringLiteral("text"));
    reload(bytes);
    const QByteArray again = m_files->saved(*m_page);
    const QLocale former;
    const QByteArray formerC = std::setlocale(LC_ALL, nullptr);
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    std::setlocale(LC_ALL, "de_DE.UTF-8");
    reload(bytes);
    const QByteArray inGerman = m_files->saved(*m_page);
    std::setlocale(LC_ALL, formerC.constData());
    QLocale::setDefault(former);
    QCOMPARE(inGerman, again);
}

void TestOxnWriting::stackingComesBack()
{
    m_page->newDocument();
    for (int i = 0; i < 50; ++i) {
        auto *rectangle = new RectangleAnn;
        rectangle->setPen(QPen(Qt::black, i));
        m_page->addItem(rectangle);
    }
    QList<Annotation *> marks = Oxn::marks(*m_page);
    Oxn::item(marks.at(7))->stackBefore(Oxn::item(marks.at(3)));
    QList<int> before;
    for (Annotation *mark : Oxn::marks(*m_page))
        before.append(dynamic_cast<RectangleAnn *>(mark)->pen().width());
    QCOMPARE(before.at(3), 7);
    reload(m_files->saved(*m_page));
    QList<int> after;
    for (Annotation *mark : Oxn::marks(*m_page))
        after.append(dynamic_cast<RectangleAnn *>(mark)->pen().width());
    QCOMPARE(after, before);
}

void TestOxnWriting::undoneMarksAreNotWritten()
{
    m_page->newDocument();
    m_page->addAnnotation(new PenLine);
    m_page->addAnnotation(new RectangleAnn);
    QUndoStack *undo = m_host->group->stacks().constFirst();
    undo->undo();
    QVERIFY(!m_files->saved(*m_page).contains("<rectangle"));
    QVERIFY(m_files->saved(*m_page).contains("<pen_line"));
    undo->redo();
    QVERIFY(m_files->saved(*m_page).contains("<rectangle"));
}

void TestOxnWriting::hiddenMarksAreWritten()
{
    m_page->newDocument();
    addMarks(*m_page);
    const QByteArray shown = m_files->saved(*m_page);
    m_page->setAnnotationsHidden(true);
    QCOMPARE(m_files->saved(*m_page), shown);
    reload(shown);
    for (Annotation *mark : Oxn::marks(*m_page))
        QVERIFY(Oxn::item(mark)->isVisible());
}

void TestOxnWriting::pictureIsNotInTheFile()
{
    QPixmap(400, 300).save(m_files->path("p.png"));
    QVERIFY(m_page->loadFile(m_files->path("p.png")));
    const QByteArray bytes = m_files->saved(*m_page);
    QVERIFY(bytes.size() < 1000);
    QVERIFY(bytes.contains(" width=\"400\" height=\"300\" file_type=\"png\""));
    QVERIFY(!bytes.contains("font"));
    reload(bytes);
    QCOMPARE(m_page->documentKind(), Page::ImageDocument);
    QCOMPARE(m_page->imageLink(), m_files->path("p.png"));
    QCOMPARE(m_files->saved(*m_page), bytes);
}

void TestOxnWriting::nothingChangesOnThePage()
{
    m_page->newDocument();
    addMarks(*m_page);
    m_page->setModified(true);
    QGraphicsItem *mark = Oxn::item(Oxn::marks(*m_page).first());
    mark->setFlag(QGraphicsItem::ItemIsSelectable);
    mark->setSelected(true);
    const QRectF scene = m_page->sceneRect();
    QVERIFY(!m_files->saved(*m_page).isEmpty());
    QVERIFY(m_page->isModified());
    QCOMPARE(m_page->fileName(), QStringLiteral("noname"));
    QVERIFY(mark->isSelected());
    QCOMPARE(m_page->sceneRect(), scene);
    QCOMPARE(m_host->bar->value(), m_host->bar->minimum() - 1);
}

void TestOxnWriting::checkSeesWhatIsMissing_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::newRow("end") << QByteArray("</Zettelwerk-xml>") << QByteArray();
    QTest::newRow("a mark") << QByteArray("<rectangle ") << QByteArray("<!--");
    QTest::newRow("a point") << QByteArray("<p x=\"0\" y=\"0\"/>") << QByteArray();
    QTest::newRow("text of the document") << QByteArray("[text]") << QByteArray("[next]");
    QTest::newRow("the text's element") << QByteArray("text_contents") << QByteArray("other_contents");
    QTest::newRow("the version") << QByteArray("zettel_werk_type") << QByteArray("zettel_werk");
    QTest::newRow("a byte of the coding") << QByteArray("<bracket") << QByteArray("<bracke\xC5");
    QTest::newRow("everything") << QByteArray() << QByteArray();
}

void TestOxnWriting::checkSeesWhatIsMissing()
{
    QFETCH(const QByteArray, before);
    QFETCH(const QByteArray, after);
    addMarks(*m_page);
    m_page->setTextContents(QStringLiteral("a.txt"), QStringLiteral("text"), QStringLiteral("1\n"));
    OxnWriter writer(*m_page);
    QBuffer buffer;
    QVERIFY(buffer.open(QIODevice::ReadWrite));
    QVERIFY(writer.write(buffer));
    buffer.seek(0);
    QVERIFY(writer.check(buffer));
    QByteArray damaged = buffer.data();
    if (before.isEmpty())
        damaged.clear();
    else
        damaged.replace(before, after);
    QVERIFY(damaged != buffer.data());
    QBuffer other(&damaged);
    QVERIFY(other.open(QIODevice::ReadOnly));
    QVERIFY(!writer.check(other));
}

REGISTER_TEST(TestOxnWriting)
#include "tst_oxnwriting.moc"

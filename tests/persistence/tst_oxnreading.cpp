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
#include "persistence/iosystem.h"
#include "persistence/oxnfiles.h"
#include "support/dialogs.h"
#include "support/fakehost.h"
#include "support/testmain.h"

#include <QFont>
#include <QGraphicsPixmapItem>
#include <QGraphicsTextItem>
#include <QPixmap>
#include <QStringEncoder>
#include <QTest>
#include <QTextDocument>
#include <QUndoStack>

#include <memory>

namespace {

const QByteArray textElement = "<text_contents><![CDATA[one\ntwo]]></text_contents>";

template<class Mark> bool isA(Annotation *mark)
{
    return dynamic_cast<Mark *>(mark) != nullptr;
}

} // namespace

/// What a page is like once an annotated file has been read into it.
class TestOxnReading : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void documentOfAText();
    void rootDefaults();
    void rootFields();
    void fileTypeNamesNoFolder_data();
    void fileTypeNamesNoFolder();
    void versionIsNotCompared_data();
    void versionIsNotCompared();
    void otherXmlIsText_data();
    void otherXmlIsText();
    void neitherTextNorPicture();
    void oneNumberForEachLine_data();
    void oneNumberForEachLine();
    void picture();
    void pictureWithoutLink_data();
    void pictureWithoutLink();
    void missingPictureKeepsLinkAndMarks();
    void textAndPictureAreKept_data();
    void textAndPictureAreKept();
    void lastTextCounts();
    void marksOfAllKinds_data();
    void marksOfAllKinds();
    void activeTagsComeBack_data();
    void activeTagsComeBack();
    void activeTagsEnterThroughThePage();
    void activeTagsBesideALaterFailure();
    void manyActiveTags();
    void unknownNodesAreIgnored_data();
    void unknownNodesAreIgnored();
    void marksBeforeTheText_data();
    void marksBeforeTheText();
    void stackingIsTheOrderOfTheFile();
    void isNeitherUndoableNorModified();
    void progressIsShown();
    void encodings_data();
    void encodings();
    void missingFile();

private:
    /// Reads a file with these contents; what boxes came up is in m_boxes.
    bool load(const QByteArray &bytes, const QString &name = QStringLiteral("a.oxn"));
    bool loadInside(const QByteArray &inside) { return load(Oxn::file(inside)); }
    QString numbers() const { return m_page->documentItem()->lineNumbersItem()->toPlainText(); }

    std::unique_ptr<OxnFiles> m_files;
    std::unique_ptr<FakeHost> m_host;
    std::unique_ptr<Page> m_page;
    QList<SeenDialog> m_boxes;
};

void TestOxnReading::init()
{
    m_files = std::make_unique<OxnFiles>();
    m_host = std::make_unique<FakeHost>();
    m_page = std::make_unique<Page>(m_host.get());
    m_boxes.clear();
}

void TestOxnReading::cleanup()
{
    m_page.reset();
    m_host.reset();
}

bool TestOxnReading::load(const QByteArray &bytes, const QString &name)
{
    DialogAnswers answers;
    answers.accept();
    const bool loaded = m_page->loadFile(m_files->write(name, bytes));
    m_boxes = answers.seen();
    return loaded;
}

void TestOxnReading::documentOfAText()
{
    QVERIFY(loadInside(textElement));
    QCOMPARE(m_boxes.size(), 0);
    QCOMPARE(m_page->documentKind(), Page::TextDocument);
    QCOMPARE(m_page->plainText(), QStringLiteral("one\ntwo"));
    QCOMPARE(m_page->fileName(), m_files->path("a.oxn"));
    QCOMPARE(m_page->imageLink(), QString());
}

void TestOxnReading::rootDefaults()
{
    QVERIFY(load(Oxn::file(textElement, "zettel_werk_type='x'")));
    QCOMPARE(m_page->fileType(), QStringLiteral("[null_type]"));
    QCOMPARE(m_page->documentFont().family(), QStringLiteral("Courier"));
    QCOMPARE(m_page->documentFont().pointSize(), 10);
}

void TestOxnReading::rootFields()
{
    QVERIFY(load(Oxn::file(textElement, "file_type='cpp' font_size=' 17 ' height='1e9' width='nan' "
                                        "font_family='Arial' zettel_werk_type='x' later='y'")));
    QCOMPARE(m_page->fileType(), QStringLiteral("cpp"));
    QCOMPARE(m_page->documentFont().family(), QStringLiteral("Arial"));
    QCOMPARE(m_page->documentFont().pointSize(), 17);
}

void TestOxnReading::fileTypeNamesNoFolder_data()
{
    QTest::addColumn<QByteArray>("written");
    QTest::addColumn<QString>("read");
    QTest::newRow("suffix") << QByteArray("cpp") << "cpp";
    QTest::newRow("empty") << QByteArray() << "";
    QTest::newRow("way up") << QByteArray("../../cpp") << "cpp";
    QTest::newRow("absolute") << QByteArray("/etc/passwd") << "passwd";
    QTest::newRow("folder only") << QByteArray("/etc/") << "";
}

void TestOxnReading::fileTypeNamesNoFolder()
{
    QFETCH(const QByteArray, written);
    QFETCH(const QString, read);
    QVERIFY(load(Oxn::file(textElement, "zettel_werk_type='x' file_type='" + written + "'")));
    QCOMPARE(m_page->fileType(), read);
}

void TestOxnReading::versionIsNotCompared_data()
{
    QTest::addColumn<QByteArray>("version");
    QTest::newRow("present") << QByteArray("v12042008");
    QTest::newRow("later") << QByteArray("v99");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("nearly the default") << QByteArray("not_zettel_werk_type ");
}

void TestOxnReading::versionIsNotCompared()
{
    QFETCH(const QByteArray, version);
    QVERIFY(load(Oxn::file(textElement + "<pen_line/>", "zettel_werk_type='" + version + "'")));
    QCOMPARE(m_page->plainText(), QStringLiteral("one\ntwo"));
    QCOMPARE(Oxn::marks(*m_page).size(), 1);
}

void TestOxnReading::otherXmlIsText_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("name");
    QTest::newRow("another root") << QByteArray("<html>\n<p>&lt;</p>\n</html>") << "a.oxn";
    QTest::newRow("our root without a version")
        << Oxn::file(textElement + "<pen_line/>", "a='b'").chopped(1) << "a.OXN";
    QTest::newRow("the default as version")
        << Oxn::file("<pen_line/>", "zettel_werk_type='not_zettel_werk_type'").chopped(1) << "a.Oxn";
    QTest::newRow("other name with the same end") << QByteArray("<a x:zettel_werk_type='v'/>") << "a.oxn";
    QTest::newRow("declaration and comment") << QByteArray("<?xml version='1.0'?>\n<!-- a --><a/>") << "a.oxn";
}

void TestOxnReading::otherXmlIsText()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, name);
    QVERIFY(load(bytes, name));
    QCOMPARE(m_boxes.size(), 0);
    QCOMPARE(m_page->plainText(), QString::fromUtf8(bytes));
    QCOMPARE(m_page->documentKind(), Page::TextDocument);
    QCOMPARE(m_page->fileType(), name.section('.', 1));
    QVERIFY(!m_page->hasAnnotations());
}

void TestOxnReading::neitherTextNorPicture()
{
    QVERIFY(loadInside("<rectangle pos_x='3'/>"));
    QCOMPARE(m_boxes.size(), 0);
    QCOMPARE(m_page->documentKind(), Page::NoDocument);
    QCOMPARE(m_page->items().size(), 1);
    QCOMPARE(m_page->items().first()->pos(), QPointF(3, 0));
    QVERIFY(load("<Zettelwerk-xml zettel_werk_type=''/>"));
}

void TestOxnReading::oneNumberForEachLine_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("numbers");
    QTest::newRow("empty") << QByteArray() << "1\n";
    QTest::newRow("one line") << QByteArray("a") << "1\n";
    QTest::newRow("trailing line feed") << QByteArray("a\n") << "1\n2\n";
    QTest::newRow("two trailing line feeds") << QByteArray("a\n\n") << "1\n2\n3\n";
    QTest::newRow("line feeds only") << QByteArray("\n\n") << "1\n2\n3\n";
    QTest::newRow("carriage returns in the file") << QByteArray("a\r\nb\rc") << "1\n2\n3\n";
    QTest::newRow("paragraph separators") << QByteArray("a\u2029b\u2029") << "1\n2\n3\n";
    QTest::newRow("line separator") << QByteArray("a\u2028b") << "1\n";
}

void TestOxnReading::oneNumberForEachLine()
{
    QFETCH(const QByteArray, text);
    QFETCH(const QString, numbers);
    QVERIFY(loadInside("<text_contents><![CDATA[" + text + "]]></text_contents>"));
    QCOMPARE(this->numbers(), numbers);
    QCOMPARE(m_page->textDocument()->blockCount(), int(numbers.count('\n')));
}

void TestOxnReading::picture()
{
    QPixmap(40, 30).save(m_files->path("p.png"));
    QVERIFY(loadInside("<img_contents img_file_link='" + m_files->path("p.png").toUtf8() + "'/><pen_line/>"));
    QCOMPARE(m_boxes.size(), 0);
    QCOMPARE(m_page->documentKind(), Page::ImageDocument);
    QCOMPARE(m_page->imageLink(), m_files->path("p.png"));
    QCOMPARE(m_page->fileName(), m_files->path("a.oxn"));
    QCOMPARE(m_page->sceneRect(), QRectF(0, 0, 40, 30));
    QCOMPARE(m_page->documentItem()->pixmapItem()->pixmap().size(), QSize(40, 30));
    QCOMPARE(Oxn::marks(*m_page).size(), 1);
}

void TestOxnReading::pictureWithoutLink_data()
{
    QTest::addColumn<QByteArray>("element");
    QTest::newRow("no attribute") << QByteArray("<img_contents/>");
    QTest::newRow("the default as link") << QByteArray("<img_contents img_file_link='[NULL]'/>");
    QTest::newRow("attribute of another name") << QByteArray("<img_contents link='p.png'/>");
}

void TestOxnReading::pictureWithoutLink()
{
    QFETCH(const QByteArray, element);
    QVERIFY(!loadInside("<pen_line/>" + element + "<pen_line/><pen_line/>"));
    QCOMPARE(m_boxes.size(), 1);
    QCOMPARE(m_boxes.first().title, QStringLiteral("Kestrin 7 I/O Error"));
    QCOMPARE(m_boxes.first().text, QStringLiteral("Link to image file [[NULL]] doesn't exist!"));
    QCOMPARE(m_boxes.first().buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(m_boxes.first().icon, QMessageBox::Warning);
    QCOMPARE(m_boxes.first().parent, nullptr);
    QCOMPARE(Oxn::marks(*m_page).size(), 1);
}

void TestOxnReading::missingPictureKeepsLinkAndMarks()
{
    const QByteArray element = "<img_contents img_file_link=\"/gone/&lt;p&gt; &quot;ż&quot; &amp;.png\"/>";
    QVERIFY(loadInside(element + "<pen_line pos_x='7'/><text_box/>"));
    QCOMPARE(m_boxes.size(), 1);
    QCOMPARE(m_boxes.first().title, QStringLiteral("I/O Error"));
    QCOMPARE(m_boxes.first().text,
             QStringLiteral("File %1 not found or its format is currently unsupported!").arg(m_files->path("a.oxn")));
    QCOMPARE(m_page->imageLink(), QStringLiteral("/gone/<p> \"ż\" &.png"));
    const QByteArray once = m_files->saved(*m_page);
    QVERIFY2(once.contains(element), once);
    QVERIFY(once.contains("<pen_line w=\"0\""));
    QVERIFY(once.contains("<text_box "));

    Page second(m_host.get());
    DialogAnswers answers;
    answers.accept();
    QVERIFY(second.loadFile(m_files->write("b.oxn", once)));
    QCOMPARE(Oxn::marks(second).size(), 2);
    QCOMPARE(m_files->saved(second), once);
}

void TestOxnReading::textAndPictureAreKept_data()
{
    QTest::addColumn<bool>("textFirst");
    QTest::addColumn<bool>("pictureIsThere");
    QTest::addColumn<int>("kind");
    QTest::newRow("text, picture") << true << true << int(Page::ImageDocument);
    QTest::newRow("text, missing picture") << true << false << int(Page::TextDocument);
    QTest::newRow("picture, text") << false << true << int(Page::TextDocument);
    QTest::newRow("missing picture, text") << false << false << int(Page::TextDocument);
}

void TestOxnReading::textAndPictureAreKept()
{
    QFETCH(const bool, textFirst);
    QFETCH(const bool, pictureIsThere);
    QFETCH(const int, kind);
    const QString link = m_files->path("p.png");
    if (pictureIsThere)
        QPixmap(40, 30).save(link);
    const QByteArray picture = "<img_contents img_file_link=\"" + link.toUtf8() + "\"/>";
    QVERIFY(loadInside((textFirst ? textElement + picture : picture + textElement) + "<pen_line/>"));
    QCOMPARE(m_boxes.size(), pictureIsThere ? 0 : 1);
    QCOMPARE(int(m_page->documentKind()), kind);
    const QByteArray saved = m_files->saved(*m_page);
    QVERIFY2(saved.contains(picture) && saved.contains(textElement), saved);
    m_page = std::make_unique<Page>(m_host.get());
    QVERIFY(load(saved));
    QCOMPARE(m_boxes.size(), pictureIsThere ? 0 : 1);
    QCOMPARE(int(m_page->documentKind()), kind);
    QCOMPARE(m_page->imageLink(), link);
    QCOMPARE(m_page->plainText(), QStringLiteral("one\ntwo"));
    QCOMPARE(m_files->saved(*m_page), saved);
}

void TestOxnReading::lastTextCounts()
{
    QVERIFY(loadInside(textElement + "<text_contents>plain &lt;text&gt;</text_contents>"));
    QCOMPARE(m_page->plainText(), QStringLiteral("plain <text>"));
    QCOMPARE(numbers(), QStringLiteral("1\n"));
}

void TestOxnReading::marksOfAllKinds_data()
{
    using IsExpected = bool (*)(Annotation *);
    QTest::addColumn<IsExpected>("isExpected");
    QTest::newRow("pen_line") << IsExpected(isA<PenLine>);
    QTest::newRow("marker_line") << IsExpected(isA<MarkerLine>);
    QTest::newRow("bracket") << IsExpected(isA<BracketAnn>);
    QTest::newRow("line") << IsExpected(isA<LineAnn>);
    QTest::newRow("ellipse") << IsExpected(isA<EllipseAnn>);
    QTest::newRow("rectangle") << IsExpected(isA<RectangleAnn>);
    QTest::newRow("text_box") << IsExpected(isA<TextBoxAnn>);
    QTest::newRow("active_tag") << IsExpected(isA<ActiveElement>);
}

void TestOxnReading::marksOfAllKinds()
{
    using IsExpected = bool (*)(Annotation *);
    QFETCH(const IsExpected, isExpected);
    const QByteArray tag = QTest::currentDataTag();
    QVERIFY(loadInside(textElement + "<" + tag + " pos_x='12.5' pos_y='8'/>"));
    const QList<Annotation *> marks = Oxn::marks(*m_page);
    QCOMPARE(marks.size(), 1);
    QVERIFY(isExpected(marks.first()));
    QGraphicsItem *item = Oxn::item(marks.first());
    // The page's margins are handed over, but nobody adds them.
    QCOMPARE(item->pos(), QPointF(12.5, 8));
    const bool isText = tag == "text_box";
    QVERIFY(item->flags().testFlag(QGraphicsItem::ItemIsMovable));
    QVERIFY(item->flags().testFlag(QGraphicsItem::ItemIsSelectable));
    const bool isTag = tag == "active_tag";
    QCOMPARE(item->flags().testFlag(QGraphicsItem::ItemIsFocusable), isText || isTag);
    if (isText) {
        QCOMPARE(dynamic_cast<TextBoxAnn *>(item)->textInteractionFlags(),
                 Qt::TextInteractionFlags(Qt::TextEditorInteraction));
    } else {
        QCOMPARE(marks.first()->antialiasing(), !isTag);
    }
    QVERIFY(item->isVisible());
    QVERIFY(!item->isSelected());
}

void TestOxnReading::activeTagsComeBack_data()
{
    QTest::addColumn<QByteArray>("read");
    QTest::addColumn<QByteArray>("written");
    const QByteArray full =
        "<active_tag category=\"Bug\" pos_x=\"12.5\" pos_y=\"-3\" b_red=\"1\" b_green=\"2\" b_blue=\"3\" "
        "b_alpha=\"120\" t_red=\"5\" t_green=\"6\" t_blue=\"7\" t_alpha=\"8\" desc_font=\"A\" desc_font_size=\"9\" "
        "author=\"&lt;Zo\u00EB&gt;\" author_font=\"B\" author_font_size=\"10\" show_date=\"no\" date=\"24.12.2008\" "
        "time=\"01:02:03\" date_font=\"C\" date_font_size=\"11\">\n"
        "    <desc><![CDATA[ two\nlines ]]]]><![CDATA[>]]><char code=\"12\"/><![CDATA[]]></desc>\n  </active_tag>";
    const QByteArray plain =
        "<active_tag category=\"Idea\" pos_x=\"0\" pos_y=\"0\" b_red=\"0\" b_green=\"0\" b_blue=\"0\" b_alpha=\"120\" "
        "t_red=\"0\" t_green=\"0\" t_blue=\"0\" t_alpha=\"255\" desc_font=\"Arial\" desc_font_size=\"12\" "
        "author=\"NoName\" author_font=\"Arial\" author_font_size=\"12\" show_date=\"yes\" date=\"\" "
        "time=\"\" date_font=\"Arial\" date_font_size=\"12\">\n    <desc><![CDATA[]]></desc>\n  </active_tag>";
    QTest::newRow("all fields") << full << full;
    QTest::newRow("no fields") << QByteArray("<active_tag/>") << plain;
}

void TestOxnReading::activeTagsComeBack()
{
    QFETCH(const QByteArray, read);
    QFETCH(const QByteArray, written);
    QVERIFY(loadInside(textElement + "<pen_line/>" + read + "<rectangle/>"));
    QCOMPARE(m_page->plainText(), QStringLiteral("one\ntwo"));
    QCOMPARE(Oxn::marks(*m_page).size(), 3);
    const QByteArray saved = m_files->saved(*m_page);
    QVERIFY2(saved.contains("\n  " + written + "\n  <rectangle "), saved);
    // It follows the text as every mark does.
    Oxn::item(Oxn::marks(*m_page).at(1))->moveBy(0.0, 20.0);
    QVERIFY(!m_files->saved(*m_page).contains(written));
    QVERIFY(load(saved));
    QVERIFY(m_files->saved(*m_page).contains(written));
}

void TestOxnReading::activeTagsEnterThroughThePage()
{
    QVERIFY(loadInside(textElement + "<pen_line/><active_tag><desc>a</desc></active_tag>"
                                     "<active_tag><desc>b</desc></active_tag><rectangle/>"));
    QCOMPARE(m_host->registeredTags.size(), 2);
    const QList<Annotation *> marks = Oxn::marks(*m_page);
    QCOMPARE(marks.size(), 4);
    for (const int i : {0, 1}) {
        const auto [tag, page] = m_host->registeredTags.at(i);
        QCOMPARE(tag, dynamic_cast<ActiveElement *>(marks.at(i + 1)));
        QCOMPARE(page, m_page.get());
        QCOMPARE(tag->description(), i == 0 ? "a" : "b");
    }
    // Unlike all other marks they can be undone away, and make the document modified.
    QVERIFY(m_page->isModified());
    m_page->activateUndoStack();
    QCOMPARE(m_host->group->activeStack()->count(), 2);
    m_host->group->undo();
    m_host->group->undo();
    QVERIFY(!m_host->group->canUndo());
    QCOMPARE(Oxn::marks(*m_page), (QList<Annotation *>{marks.at(0), marks.at(3)}));
    QVERIFY(!m_files->saved(*m_page).contains("active_tag"));
    m_host->group->redo();
    QCOMPARE(m_files->saved(*m_page).count("<active_tag "), 1);
}

void TestOxnReading::activeTagsBesideALaterFailure()
{
    QVERIFY(!loadInside("<active_tag><desc>a</desc></active_tag><img_contents/>"));
    QCOMPARE(m_boxes.size(), 1);
    QCOMPARE(m_host->registeredTags.size(), 1);
    QCOMPARE(Oxn::marks(*m_page).size(), 1);
    m_page.reset();
    // One that cannot be read at all leaves nothing behind.
    m_page = std::make_unique<Page>(m_host.get());
    QVERIFY(!loadInside(textElement + "<active_tag><desc>a</desc></active_tag><active_tag>"));
    QCOMPARE(m_host->registeredTags.size(), 1);
    QVERIFY(Oxn::marks(*m_page).isEmpty());
}

void TestOxnReading::manyActiveTags()
{
    constexpr int count = 2000;
    QVERIFY(loadInside(textElement + QByteArray("<active_tag><desc>word</desc></active_tag>").repeated(count)));
    QCOMPARE(m_host->registeredTags.size(), count);
    const QByteArray once = m_files->saved(*m_page);
    QCOMPARE(once.count("<active_tag "), count);
    QVERIFY(load(once));
    QCOMPARE(m_files->saved(*m_page).count("<active_tag "), 2 * count);
}

void TestOxnReading::unknownNodesAreIgnored_data()
{
    QTest::addColumn<QByteArray>("node");
    QTest::newRow("element") << QByteArray("<later_mark pos_x='1'>a<b/>c</later_mark>");
    QTest::newRow("element with marks inside")
        << QByteArray("<group><pen_line/><text_contents>x</text_contents></group>");
    QTest::newRow("all kinds inside a mark") << QByteArray();
    QTest::newRow("comment") << QByteArray("<!-- <pen_line/> -->");
    QTest::newRow("instruction") << QByteArray("<?pen_line?>");
    QTest::newRow("text") << QByteArray("free text &amp; more");
    QTest::newRow("section") << QByteArray("<![CDATA[<pen_line/>]]>");
    QTest::newRow("capital letters") << QByteArray("<Pen_Line/><PEN_LINE/><TEXT_CONTENTS/>");
    QTest::newRow("prefix") << QByteArray("<a:pen_line/><a:text_contents xmlns:a='b'/>");
    QTest::newRow("nearly a name") << QByteArray("<pen_lines/><pen-line/><pen_/>");
}

void TestOxnReading::unknownNodesAreIgnored()
{
    QFETCH(const QByteArray, node);
    const QByteArray pen = node.isEmpty()
                               ? "<pen_line later='1' w='3' xmlns='u' a:pos_x='9'><pen_line><p x='8'/></pen_line>"
                                 "<!-- --><?p?>x<p later='1' x='5'><p x='7'/></p><a:p x='6'/></pen_line>"
                               : "<pen_line w='3'>" + node + "<p x='5'/>" + node + "</pen_line>";
    QVERIFY(loadInside(node + textElement + node + pen + node));
    QCOMPARE(m_boxes.size(), 0);
    QCOMPARE(m_page->plainText(), QStringLiteral("one\ntwo"));
    const QList<Annotation *> marks = Oxn::marks(*m_page);
    QCOMPARE(marks.size(), 1);
    const auto *line = dynamic_cast<PenLine *>(marks.first());
    QVERIFY(line);
    QCOMPARE(line->pen().width(), 3);
    QCOMPARE(line->pos(), QPointF(0, 0));
    QCOMPARE(line->polygon(), QPolygonF({{5, 0}}));
}

void TestOxnReading::marksBeforeTheText_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("moves");
    QTest::newRow("empty text") << QByteArray("<text_contents/>") << false;
    QTest::newRow("one line") << QByteArray("<text_contents>one</text_contents>") << false;
    QTest::newRow("three lines") << QByteArray("<text_contents>1\n2\n3</text_contents>") << false;
    QTest::newRow("as many lines once more")
        << QByteArray("<text_contents>one</text_contents><text_contents>two</text_contents>") << false;
    QTest::newRow("more lines later") << QByteArray(
                                             "<text_contents>one</text_contents><text_contents>1\n2\n3</text_contents>")
                                      << true;
}

void TestOxnReading::marksBeforeTheText()
{
    QFETCH(const QByteArray, text);
    QFETCH(const bool, moves);
    QVERIFY(loadInside("<pen_line pos_y='40'/>" + text + "<pen_line pos_y='40'/>"));
    const QList<Annotation *> marks = Oxn::marks(*m_page);
    QCOMPARE(marks.size(), 2);
    const double y = Oxn::item(marks.first())->y();
    QVERIFY2(moves ? y > 40 && y < 400 : y == 40, qPrintable(QString::number(y)));
    QCOMPARE(Oxn::item(marks.last())->y(), 40);
}

void TestOxnReading::stackingIsTheOrderOfTheFile()
{
    QVERIFY(loadInside("<rectangle w='1'/>" + textElement + "<ellipse/><pen_line/><rectangle w='2'/>"));
    const QList<Annotation *> marks = Oxn::marks(*m_page);
    QCOMPARE(marks.size(), 4);
    QCOMPARE(dynamic_cast<RectangleAnn *>(marks.at(0))->pen().width(), 1);
    QVERIFY(isA<EllipseAnn>(marks.at(1)));
    QVERIFY(isA<PenLine>(marks.at(2)));
    QCOMPARE(dynamic_cast<RectangleAnn *>(marks.at(3))->pen().width(), 2);
}

void TestOxnReading::isNeitherUndoableNorModified()
{
    QVERIFY(loadInside(textElement + "<pen_line/><text_box><txt>x</txt></text_box>"));
    QVERIFY(!m_page->isModified());
    for (const QUndoStack *stack : m_host->group->stacks())
        QCOMPARE(stack->count(), 0);
    QVERIFY(m_page->hasAnnotations());
}

void TestOxnReading::progressIsShown()
{
    QList<int> values;
    connect(m_host->bar, &QProgressBar::valueChanged, this, [&values](int value) { values.append(value); });
    QVERIFY(load("<Zettelwerk-xml zettel_werk_type='x'><!-- -->\n<?a?><later/>" + textElement +
                 "<pen_line/><pen_line/><pen_line/>x<pen_line/></Zettelwerk-xml>"));
    // Nine nodes, white space aside.
    QCOMPARE(values, (QList<int>{0, 11, 22, 33, 44, 55, 66, 77, 88, 100}));
    QVERIFY(!loadInside("<pen_line"));
    QVERIFY(m_host->bar->value() < m_host->bar->minimum());
}

void TestOxnReading::encodings_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QString text = QStringLiteral("<a zettel_werk_type='x'><text_contents>zażółć €</text_contents></a>");
    const auto coded = [&](QStringConverter::Encoding encoding, const QString &start) {
        QStringEncoder encode(encoding, QStringConverter::Flag::WriteBom);
        return QByteArray(encode(start + text));
    };
    QTest::newRow("UTF-8 declared") << "<?xml version='1.0' encoding='UTF-8'?>\n" + text.toUtf8();
    QTest::newRow("UTF-8 with mark") << "\xEF\xBB\xBF" + text.toUtf8();
    QTest::newRow("UTF-16 LE") << coded(QStringConverter::Utf16LE, {});
    QTest::newRow("UTF-16 BE, declared") << coded(QStringConverter::Utf16BE, "<?xml version='1.0' encoding='utf-16'?>");
    QTest::newRow("Latin-2 declared") << QByteArray("<?xml version='1.0' encoding='ISO-8859-2'?>") +
                                             "<a zettel_werk_type='x'><text_contents>za\xbf\xf3\xb3\xe6 "
                                             "&#x20ac;</text_contents></a>";
    QTest::newRow("no line end at the end, many before") << QByteArray("\n\n\n") + text.toUtf8();
}

void TestOxnReading::encodings()
{
    QFETCH(const QByteArray, bytes);
    QVERIFY(load(bytes));
    QCOMPARE(m_boxes.size(), 0);
    QCOMPARE(m_page->plainText(), QStringLiteral("zażółć €"));
}

void TestOxnReading::missingFile()
{
    DialogAnswers answers;
    answers.accept();
    QVERIFY(!m_page->loadFile(m_files->path("gone.oxn")));
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(answers.seen().first().title, QStringLiteral("Kestrin 7 I/O Error"));
    QCOMPARE(answers.seen().first().text, QStringLiteral("Cannot open file %1!").arg(m_files->path("gone.oxn")));
    QCOMPARE(answers.seen().first().parent, nullptr);
    QCOMPARE(m_page->items().size(), 0);
}

REGISTER_TEST(TestOxnReading)
#include "tst_oxnreading.moc"

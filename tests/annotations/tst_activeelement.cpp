// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/activeelement.h"
#include "annotations/markxml.h"
#include "annotations/tageditor.h"
#include "support/markpicture.h"
#include "support/testmain.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QPainter>
#include <QStyleOptionGraphicsItem>
#include <QTest>
#include <QTextCursor>

#include <functional>
#include <memory>

namespace {

const QRectF noteCanvas(-60, -80, 300, 220);
const QColor amberFill(255, 214, 102, 120);
const QColor amberLine(177, 140, 69);

struct Category
{
    int number;
    const char *name;
    QColor frame;
    QColor background;
    const char *icon;
    bool bringsIcon;
};

const QList<Category> &categories()
{
    static const QList<Category> table{
        {0, "Idea", amberLine, {255, 214, 102}, ":/active_tags/idea.png", true},
        {1, "Note", amberLine, {255, 214, 102}, ":/active_tags/note.png", true},
        {2, "Question", amberLine, {255, 214, 102}, ":/active_tags/question.png", false},
        {3, "Important", amberLine, {255, 214, 102}, ":/active_tags/important.png", false},
        {4, "Bug", {180, 4, 2}, {255, 150, 150}, ":/active_tags/bug.png", false},
    };
    return table;
}

/// A note as it should look, drawn from the rules alone.
struct ExpectedNote
{
    QString author;
    QString text;
    QString date; ///< Null when the stamp is not shown.
    QString time;
    QColor frame = amberLine;
    QColor fill = amberFill;
    QColor textColor = Qt::black;
    QPixmap icon;
    QFont authorFont{"Arial", 8, QFont::Bold};
    QFont dateFont{"Arial", 7, QFont::Light};
    QFont font{"Arial", 12, QFont::Light};

    QImage picture() const
    {
        return MarkPicture::ofPainting(noteCanvas, [this](QPainter &painter) { paint(painter); });
    }

private:
    void paint(QPainter &painter) const
    {
        QGraphicsTextItem item;
        item.setFont(font);
        item.setTextWidth(180);
        item.setDefaultTextColor(textColor);
        item.setPlainText(text);
        const QRectF b = item.boundingRect();
        const int authorHeight = QFontMetrics(QFont("Arial", 8, QFont::Bold)).height();
        const int dateHeight = QFontMetrics(QFont("Arial", 7, QFont::Light)).height();
        painter.drawPixmap(-26, -30 - QFontMetrics(authorFont).height(), icon);
        painter.save();
        painter.setPen(QPen(frame, 0));
        painter.setBrush(fill);
        painter.drawRect(
            QRectF(b.x(), b.y() - 4 - authorHeight, b.width(), b.height() + dateHeight + 8 + authorHeight));
        painter.setFont(authorFont);
        painter.drawText(QPointF(2, -4), author);
        if (!date.isNull()) {
            const QFontMetrics metrics(dateFont);
            const double y = b.height() + 2 + metrics.height();
            painter.setFont(dateFont);
            painter.drawText(QPointF(5, y), date);
            painter.drawText(QPointF(b.width() - 5 - metrics.horizontalAdvance(time), y), time);
        }
        painter.setPen(QPen(frame, 0, Qt::DotLine));
        painter.drawLine(QPointF(4, b.height() + 2), QPointF(b.width() - 4, b.height() + 2));
        painter.restore();
        QStyleOptionGraphicsItem option;
        option.exposedRect = b;
        item.paint(&painter, &option, nullptr);
    }
};

/// A scene that notes which notes it was to edit.
class EditingScene : public QGraphicsScene, public TagEditor
{
public:
    void editActiveElement(ActiveElement *element, Qt::WindowFlags flags) override
    {
        edited.append(element);
        flagsGiven.append(flags);
        if (meanwhile)
            meanwhile(element);
    }

    QList<ActiveElement *> edited;
    QList<Qt::WindowFlags> flagsGiven;
    std::function<void(ActiveElement *)> meanwhile;
};

/// A note on a scene that can edit it, in a view at 100 %; scene and view coordinates are the same.
struct Stage
{
    Stage()
    {
        scene.setSceneRect(0, 0, 400, 300);
        view.setScene(&scene);
        view.setFrameShape(QFrame::NoFrame);
        view.setAlignment(Qt::AlignLeft | Qt::AlignTop);
        view.resize(420, 320);
        note->setPos(100, 100);
        note->setPlainText("some words");
        note->setFlag(QGraphicsItem::ItemIsSelectable);
        note->setFlag(QGraphicsItem::ItemIsMovable);
        scene.addItem(note);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
    }
    /// On the note's edge, where it is selected and moved; inside, its text is.
    QPoint edge() const { return note->sceneBoundingRect().topLeft().toPoint() + QPoint(2, 10); }
    QPoint inside() const { return note->pos().toPoint() + QPoint(60, 10); }

    EditingScene scene;
    QPointer<ActiveElement> note = new ActiveElement; ///< The scene's.
    QGraphicsView view;                               ///< Goes before the scene.
};

QByteArray element(const QByteArray &attributes, const QByteArray &inside = "<desc>words</desc>")
{
    return "<active_tag " + attributes + ">" + inside + "</active_tag>";
}

std::unique_ptr<ActiveElement> loaded(const QByteArray &attributes)
{
    auto note = std::make_unique<ActiveElement>();
    MarkXml::readStreamed(*note, element(attributes));
    return note;
}

} // namespace

class TestActiveElement : public QObject
{
    Q_OBJECT

private slots:
    void freshNote();
    void textIsBlackInADarkPalette();
    void categoriesHaveTheirLook_data();
    void categoriesHaveTheirLook();
    void unknownCategories_data();
    void unknownCategories();
    void backgroundReplacesTheFrame();
    void boundsLeaveRoomForIconAndLines_data();
    void boundsLeaveRoomForIconAndLines();
    void isHitAnywhereInItsBounds();
    void boundsFollowTheFonts();
    void picture_data();
    void picture();
    void separatorWithoutADate();
    void nothingIsPaintedBesideTheNote_data();
    void nothingIsPaintedBesideTheNote();
    void isNotPaintedInTheMaking();
    void attributesStandInTheirOrder();
    void textComesBack_data();
    void textComesBack();
    void fieldsOfAFile_data();
    void fieldsOfAFile();
    void loadedNoteHasTheFrameOfItsBackground();
    void iconsOfLoadedNotes_data();
    void iconsOfLoadedNotes();
    void fontOfTheTextIsLost();
    void missingStampIsEmpty();
    void cloneIsEmpty();
    void ctrlPressOpensTheDialog_data();
    void ctrlPressOpensTheDialog();
    void plainClickOnlySelects();
    void selectionIsFramedRoundAllOfIt();
    void textIsSelectedByTheMouse();
    void doubleClickOpensTheDialog();
    void nextPressIsNotSwallowed_data();
    void nextPressIsNotSwallowed();
    void dyingInItsDialog_data();
    void dyingInItsDialog();
    void leavingTheSceneInItsDialog();
    void withoutAnEditor();
    void hugeTexts();
};

void TestActiveElement::freshNote()
{
    const ActiveElement note;
    QCOMPARE(note.category(), 0);
    QVERIFY(note.icon().isNull());
    QCOMPARE(note.author(), QString());
    QCOMPARE(note.description(), QString());
    QVERIFY(!note.showDate());
    QCOMPARE(note.authorFont(), QFont("Arial", 8, QFont::Bold));
    QCOMPARE(note.dateFont(), QFont("Arial", 7, QFont::Light));
    QCOMPARE(note.descriptionFont(), QFont("Arial", 12, QFont::Light));
    QCOMPARE(note.font(), note.descriptionFont());
    QCOMPARE(note.background(), amberFill);
    QCOMPARE(note.iconSize(), (std::pair<int, int>(24, 24)));
    QCOMPARE(note.textWidth(), 180.0);
    QCOMPARE(note.textInteractionFlags(), Qt::TextSelectableByMouse | Qt::LinksAccessibleByMouse);
    QVERIFY(note.openExternalLinks());
    QVERIFY(!note.flags().testFlag(QGraphicsItem::ItemIsMovable));
    QVERIFY(!note.flags().testFlag(QGraphicsItem::ItemIsSelectable));
}

void TestActiveElement::textIsBlackInADarkPalette()
{
    const QPalette before = QApplication::palette();
    QPalette dark(QColor(40, 40, 40));
    dark.setColor(QPalette::Text, Qt::white);
    QApplication::setPalette(dark);
    const ActiveElement note;
    QApplication::setPalette(before);
    QCOMPARE(note.defaultTextColor(), QColor(Qt::black));
}

void TestActiveElement::categoriesHaveTheirLook_data()
{
    QTest::addColumn<Category>("category");
    for (const Category &category : categories())
        QTest::newRow(category.name) << category;
}

void TestActiveElement::categoriesHaveTheirLook()
{
    QFETCH(const Category, category);
    ActiveElement note;
    note.setBackground(Qt::green);
    note.setCategory(category.number);
    QCOMPARE(note.category(), category.number);
    QColor fill = category.background;
    fill.setAlpha(120);
    QCOMPARE(note.background(), fill);
    QCOMPARE(MarkXml::attributes(MarkXml::streamed(note)).value("category"), category.name);
    QCOMPARE(ActiveElement::iconFile(category.number), category.icon);
    const QPixmap icon(category.icon);
    QVERIFY(!icon.isNull());
    QCOMPARE(note.icon().toImage(), category.bringsIcon ? icon.toImage() : QImage());
    note.setIcon(icon);
    ExpectedNote expected;
    expected.frame = category.frame;
    expected.fill = fill;
    expected.icon = icon;
    QCOMPARE(MarkPicture::difference(MarkPicture::ofItem(&note, noteCanvas), expected.picture()), QString());
    // A category leaves the icon that it does not bring.
    note.setCategory(2);
    QCOMPARE(note.icon().toImage(), icon.toImage());
}

void TestActiveElement::unknownCategories_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("behind the last") << 5;
    QTest::newRow("negative") << -1;
    QTest::newRow("largest") << INT_MAX;
    QTest::newRow("smallest") << INT_MIN;
}

void TestActiveElement::unknownCategories()
{
    QFETCH(const int, number);
    ActiveElement note;
    note.setCategory(4);
    note.setCategory(number);
    QCOMPARE(note.category(), number);
    QCOMPARE(note.background(), QColor(255, 150, 150, 120));
    QVERIFY(note.icon().isNull());
    QCOMPARE(ActiveElement::iconFile(number), QString());
    QCOMPARE(MarkXml::attributes(MarkXml::streamed(note)).value("category"), "Idea");
}

void TestActiveElement::backgroundReplacesTheFrame()
{
    ActiveElement note;
    note.setCategory(4);
    note.setBackground(QColor(10, 200, 30, 77));
    QCOMPARE(note.background(), QColor(10, 200, 30, 120));
    ExpectedNote expected;
    expected.frame = QColor(10, 200, 30, 77);
    expected.fill = QColor(10, 200, 30, 120);
    QCOMPARE(MarkPicture::difference(MarkPicture::ofItem(&note, noteCanvas), expected.picture()), QString());
}

void TestActiveElement::boundsLeaveRoomForIconAndLines_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::newRow("fonts of a new note") << QByteArray("author_font_size='8' date_font_size='7' desc_font_size='12'");
    QTest::newRow("default sizes") << QByteArray();
    QTest::newRow("large fonts") << QByteArray("author_font_size='30' date_font_size='40' desc_font_size='20'");
}

void TestActiveElement::boundsLeaveRoomForIconAndLines()
{
    QFETCH(const QByteArray, attributes);
    const std::unique_ptr<ActiveElement> note = loaded(attributes);
    QGraphicsTextItem text;
    text.setFont(note->font());
    text.setTextWidth(180);
    text.setPlainText("words");
    const QRectF b = text.boundingRect();
    const double top = QFontMetrics(note->authorFont()).height() + 24 + 6;
    const double bottom = QFontMetrics(note->dateFont()).height() + 4;
    const QRectF expected(b.x() - 26, b.y() - top, b.width() + 26, b.height() + top + bottom);
    QCOMPARE(note->boundingRect(), expected);
    QPainterPath path;
    path.addRect(expected);
    QCOMPARE(note->shape(), path);
    QVERIFY(b.width() >= 180);
}

void TestActiveElement::isHitAnywhereInItsBounds()
{
    QGraphicsScene scene;
    auto *note = new ActiveElement;
    note->setPos(200, 100);
    scene.addItem(note);
    const QRectF bounds = note->sceneBoundingRect();
    for (const QPointF &corner : {QPointF(1, 1), QPointF(bounds.width() - 1, 1), QPointF(1, bounds.height() - 1),
                                  QPointF(bounds.width() - 1, bounds.height() - 1), QPointF(13, 13)})
        QCOMPARE(scene.itemAt(bounds.topLeft() + corner, {}), note);
    for (const QPointF &beside : {QPointF(-3, 5), QPointF(5, -3), QPointF(bounds.width() + 3, 5)})
        QCOMPARE(scene.itemAt(bounds.topLeft() + beside, {}), nullptr);
}

void TestActiveElement::boundsFollowTheFonts()
{
    QGraphicsScene scene;
    auto *note = new ActiveElement;
    scene.addItem(note);
    QVERIFY(!scene.itemAt(QPointF(-13, -90), {}));
    MarkXml::load(*note, element("author_font_size='60' date_font_size='60'"));
    QCOMPARE(scene.itemAt(QPointF(-13, -90), {}), note);
    QCOMPARE(scene.itemAt(QPointF(13, 90), {}), note);
}

void TestActiveElement::picture_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QString>("text");
    QTest::addColumn<ExpectedNote>("expected");

    ExpectedNote plain;
    plain.author = "Anna";
    plain.text = "A remark on this line";
    const QByteArray colors = " b_red='255' b_green='214' b_blue='102' t_alpha='255'";
    const QByteArray fonts = " author_font_size='8' date_font_size='7' desc_font_size='12'";
    plain.frame = QColor(255, 214, 102);
    QTest::newRow("without a date") << "author='Anna' show_date='no'" + colors + fonts << plain.text << plain;

    ExpectedNote dated = plain;
    dated.date = "Wed Dec 24 2008";
    dated.time = "01:02";
    QTest::newRow("with a date") << "author='Anna' date='24.12.2008' time='01:02:03'" + colors + fonts << plain.text
                                 << dated;

    ExpectedNote unstamped = plain;
    unstamped.date = unstamped.time = "";
    QTest::newRow("date shown, but there is none") << "author='Anna'" + colors + fonts << plain.text << unstamped;

    ExpectedNote large = dated;
    large.authorFont.setPointSize(14);
    large.dateFont.setPointSize(11);
    large.font.setPointSize(20);
    QTest::newRow("frame of the first fonts")
        << "author='Anna' date='24.12.2008' time='01:02:03' author_font_size='14' date_font_size='11' "
           "desc_font_size='20'" +
               colors
        << plain.text << large;

    ExpectedNote wrapped = plain;
    wrapped.text = "a long text that goes on over several lines, since a note is 180 units wide\nand a second one";
    QTest::newRow("several lines") << "author='Anna' show_date='no'" + colors + fonts << wrapped.text << wrapped;

    ExpectedNote translucent = plain;
    translucent.frame = QColor(20, 40, 200, 90);
    translucent.fill = QColor(20, 40, 200, 120);
    translucent.textColor = QColor(200, 0, 0, 128);
    QTest::newRow("translucent")
        << "author='Anna' show_date='no' b_red='20' b_green='40' b_blue='200' b_alpha='90' t_red='200' t_alpha='128'" +
               fonts
        << plain.text << translucent;

    ExpectedNote empty;
    empty.frame = QColor(255, 214, 102);
    QTest::newRow("empty") << "author='' show_date='no'" + colors + fonts << QString() << empty;
}

void TestActiveElement::picture()
{
    QFETCH(const QByteArray, attributes);
    QFETCH(const QString, text);
    QFETCH(const ExpectedNote, expected);
    const std::unique_ptr<ActiveElement> note = loaded("category='Bug' " + attributes);
    note->setPlainText(text);
    QCOMPARE(MarkPicture::difference(MarkPicture::ofItem(note.get(), noteCanvas), expected.picture()), QString());
}

void TestActiveElement::separatorWithoutADate()
{
    ActiveElement note;
    note.setPlainText("x");
    QVERIFY(!note.showDate());
    const QImage image = MarkPicture::ofItem(&note, noteCanvas);
    const QRectF bounds = note.boundingRect();
    const int dateHeight = QFontMetrics(note.dateFont()).height();
    const int row = int(bounds.bottom() - dateHeight - 4 + 2 - noteCanvas.top());
    const QColor ground = image.pixelColor(100, row + 3);
    int dots = 0;
    int gaps = 0;
    for (int x = int(4 - noteCanvas.left()); x < int(bounds.right() - 4 - noteCanvas.left()); ++x)
        ++(image.pixelColor(x, row) == ground ? gaps : dots);
    QVERIFY2(dots > 40 && gaps > 40, qPrintable(QStringLiteral("%1 dots, %2 gaps").arg(dots).arg(gaps)));
}

void TestActiveElement::nothingIsPaintedBesideTheNote_data()
{
    QTest::addColumn<QString>("author");
    QTest::addColumn<bool>("dated");
    QTest::newRow("short author") << "Anna" << false;
    QTest::newRow("long author") << QString(200, 'W') << false;
    QTest::newRow("many lines of author") << QString("a\n").repeated(50) << true;
    QTest::newRow("thin letters") << QString(5000, 'i') << true;
}

void TestActiveElement::nothingIsPaintedBesideTheNote()
{
    QFETCH(const QString, author);
    QFETCH(const bool, dated);
    ActiveElement note;
    note.setAuthor(author);
    note.setShowDate(dated);
    note.setDate(QDate(2026, 11, 21));
    note.setTime(QTime(9, 5));
    QImage image = MarkPicture::ofItem(&note, QRectF(-100, -120, 600, 300));
    const QRect covered = note.boundingRect().translated(100, 120).toAlignedRect().adjusted(0, 0, 1, 1);
    QPainter painter(&image);
    painter.fillRect(covered, Qt::white);
    painter.end();
    QImage blank(image.size(), image.format());
    blank.fill(Qt::white);
    QCOMPARE(MarkPicture::difference(image, blank), QString());
}

void TestActiveElement::isNotPaintedInTheMaking()
{
    ActiveElement note;
    note.setPlainText("words");
    QCOMPARE(MarkPicture::ofPainting(noteCanvas, [&](QPainter &painter) { note.paintContent(&painter); }),
             MarkPicture::ofPainting(noteCanvas, [](QPainter &) {}));
}

void TestActiveElement::attributesStandInTheirOrder()
{
    ActiveElement note;
    note.setCategory(3);
    note.setPos(12, 0.5);
    note.setBackground(QColor(1, 2, 3, 4));
    note.setDefaultTextColor(QColor(5, 6, 7, 8));
    note.setAuthor("A & B");
    note.setShowDate(true);
    note.setDate(QDate(2026, 1, 9));
    note.setTime(QTime(7, 8, 9));
    note.setPlainText("one & two\nthree");
    QCOMPARE(MarkXml::streamed(note),
             QByteArray("<active_tag category=\"Important\" pos_x=\"12\" pos_y=\"0.5\" b_red=\"1\" b_green=\"2\""
                        " b_blue=\"3\" b_alpha=\"120\" t_red=\"5\" t_green=\"6\" t_blue=\"7\" t_alpha=\"8\""
                        " desc_font=\"Arial\" desc_font_size=\"12\" author=\"A &amp; B\" author_font=\"Arial\""
                        " author_font_size=\"8\" show_date=\"yes\" date=\"09.01.2026\" time=\"07:08:09\""
                        " date_font=\"Arial\" date_font_size=\"7\">\n"
                        "  <desc><![CDATA[one & two\nthree]]></desc>\n</active_tag>\n"));
}

void TestActiveElement::textComesBack_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("lines") << QStringLiteral("one\ntwo\n\nfour\n");
    QTest::newRow("blanks alone") << QStringLiteral("   \n  ");
    QTest::newRow("no-break space") << QStringLiteral("10\u00a0km");
    QTest::newRow("soft line break") << QStringLiteral("a\u2028b");
    QTest::newRow("control characters") << QStringLiteral("\f a\x1b \f\f\tb\f");
    QTest::newRow("end of a section") << QStringLiteral("<b>&amp;]]></b>]]>");
    QTest::newRow("other scripts") << QStringLiteral("zażółć \u65e5\u672c \u0645\u0631");
}

void TestActiveElement::textComesBack()
{
    QFETCH(QString, text);
    ActiveElement note;
    note.setPlainText(text);
    note.setAuthor("author");
    QCOMPARE(note.description(), text);
    ActiveElement streamed;
    MarkXml::readStreamed(streamed, MarkXml::streamed(note));
    QCOMPARE(streamed.description(), text);
    QCOMPARE(streamed.author(), "author");
    ActiveElement read;
    MarkXml::load(read, MarkXml::saved(note));
    QCOMPARE(read.description(), text);
}

void TestActiveElement::fieldsOfAFile_data()
{
    QTest::addColumn<QByteArray>("read");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("written");
    const auto row = [](const char *title, const QByteArray &read, const QByteArray &name, const char *written) {
        QTest::newRow(title) << read << name << QString::fromUtf8(written);
    };
    row("no category", "", "category", "Idea");
    row("category", "category='Question'", "category", "Question");
    row("blanks around it", "category='  Important\t'", "category", "Important");
    row("unknown category", "category='Wish'", "category", "Bug");
    row("other case", "category='note'", "category", "Bug");
    row("number as category", "category='1'", "category", "Bug");
    row("empty category", "category=''", "category", "Bug");
    row("no date shown", "show_date='no'", "show_date", "no");
    row("nothing said", "", "show_date", "yes");
    row("not exactly yes", "show_date=' yes'", "show_date", "no");
    row("capital yes", "show_date='Yes'", "show_date", "no");
    row("date", "date='29.02.2024'", "date", "29.02.2024");
    row("no date", "", "date", "");
    row("date that never was", "date='30.02.2024'", "date", "");
    row("date in another form", "date='2024-02-29'", "date", "");
    row("short date", "date='1.2.2024'", "date", "");
    row("text behind the date", "date='29.02.2024 x'", "date", "");
    row("date far away", "date='01.01.9999'", "date", "01.01.9999");
    row("time", "time='23:59:58'", "time", "23:59:58");
    row("no time", "", "time", "");
    row("time without seconds", "time='23:59'", "time", "");
    row("time too late", "time='24:00:00'", "time", "");
    row("no author", "", "author", "NoName");
    row("empty author", "author=''", "author", "");
    row("blanks around the author", "author=' A '", "author", " A ");
    row("no fonts", "", "author_font", "Arial");
    row("font", "desc_font='Courier'", "desc_font", "Courier");
    row("size", "desc_font_size=' 20 '", "desc_font_size", "20");
    row("no author size", "", "author_font_size", "12");
    row("no date size", "", "date_font_size", "12");
    row("size 0 keeps the size", "author_font_size='0'", "author_font_size", "8");
    row("negative size keeps the size", "date_font_size='-1'", "date_font_size", "7");
    row("size is no number", "desc_font_size='big'", "desc_font_size", "12");
    row("alpha of the fill is not read", "b_alpha='7'", "b_alpha", "120");
    row("text colour", "t_red='10' t_alpha='20'", "t_alpha", "20");
    row("no text colour", "", "t_alpha", "255");
}

void TestActiveElement::fieldsOfAFile()
{
    QFETCH(const QByteArray, read);
    QFETCH(const QByteArray, name);
    QFETCH(const QString, written);
    ActiveElement streamed;
    streamed.setCategory(4);
    MarkXml::readStreamed(streamed, element(read));
    QCOMPARE(MarkXml::attributes(MarkXml::streamed(streamed)).value(name), written);
    ActiveElement fromTree;
    fromTree.setCategory(4);
    MarkXml::load(fromTree, element(read));
    QCOMPARE(MarkXml::streamed(fromTree), MarkXml::streamed(streamed));
}

void TestActiveElement::loadedNoteHasTheFrameOfItsBackground()
{
    ActiveElement note;
    note.setCategory(4);
    ActiveElement copy;
    MarkXml::readStreamed(copy, MarkXml::streamed(note));
    QCOMPARE(copy.category(), 4);
    QCOMPARE(copy.background(), note.background());
    ExpectedNote expected;
    expected.fill = expected.frame = QColor(255, 150, 150, 120);
    QCOMPARE(MarkPicture::difference(MarkPicture::ofItem(&copy, noteCanvas), expected.picture()), QString());
}

void TestActiveElement::iconsOfLoadedNotes_data()
{
    categoriesHaveTheirLook_data();
}

void TestActiveElement::iconsOfLoadedNotes()
{
    QFETCH(const Category, category);
    const std::unique_ptr<ActiveElement> note = loaded("category='" + QByteArray(category.name) + "'");
    QCOMPARE(note->icon().isNull(), !category.bringsIcon);
}

void TestActiveElement::fontOfTheTextIsLost()
{
    ActiveElement note;
    QFont chosen("Courier");
    chosen.setPixelSize(30);
    note.setFont(chosen);
    ActiveElement copy;
    MarkXml::readStreamed(copy, MarkXml::streamed(note));
    QCOMPARE(copy.font(), QFont("Arial", 12, QFont::Light));
    QCOMPARE(note.descriptionFont(), copy.descriptionFont());
}

void TestActiveElement::missingStampIsEmpty()
{
    const std::unique_ptr<ActiveElement> note = loaded("author='A'");
    QVERIFY(note->showDate());
    const QImage withEmptyStamp = MarkPicture::ofItem(note.get(), noteCanvas);
    note->setShowDate(false);
    QCOMPARE(MarkPicture::difference(MarkPicture::ofItem(note.get(), noteCanvas), withEmptyStamp), QString());
    const QByteArray written = MarkXml::streamed(*note);
    ActiveElement copy;
    MarkXml::readStreamed(copy, written);
    QCOMPARE(MarkXml::streamed(copy), written);
}

void TestActiveElement::cloneIsEmpty()
{
    ActiveElement note;
    note.setCategory(4);
    note.setPos(5, 6);
    note.setPlainText("text");
    note.setAuthor("author");
    note.setShowDate(true);
    note.setIcon(QPixmap(":/active_tags/bug.png"));
    const std::unique_ptr<ActiveElement> copy(note.clone());
    const ActiveElement fresh;
    QCOMPARE(MarkXml::streamed(*copy), MarkXml::streamed(fresh));
    QVERIFY(copy->icon().isNull());
    QCOMPARE(copy->pos(), QPointF(0, 0));
    QCOMPARE(copy->font(), fresh.font());
}

void TestActiveElement::ctrlPressOpensTheDialog_data()
{
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<bool>("opens");
    QTest::newRow("Ctrl") << int(Qt::ControlModifier) << true;
    QTest::newRow("none") << int(Qt::NoModifier) << false;
    QTest::newRow("Shift") << int(Qt::ShiftModifier) << false;
    QTest::newRow("Ctrl and Shift") << int(Qt::ControlModifier | Qt::ShiftModifier) << false;
    QTest::newRow("Ctrl and Alt") << int(Qt::ControlModifier | Qt::AltModifier) << false;
}

void TestActiveElement::ctrlPressOpensTheDialog()
{
    QFETCH(const int, modifiers);
    QFETCH(const bool, opens);
    const Stage stage;
    bool selectedInDialog = true;
    const_cast<EditingScene &>(stage.scene).meanwhile = [&](ActiveElement *note) {
        selectedInDialog = note->isSelected();
    };
    QTest::mouseClick(stage.view.viewport(), Qt::LeftButton, Qt::KeyboardModifiers(modifiers), stage.edge());
    QCOMPARE(stage.scene.edited, opens ? QList<ActiveElement *>{stage.note} : QList<ActiveElement *>());
    if (opens) {
        QCOMPARE(stage.scene.flagsGiven, QList<Qt::WindowFlags>{Qt::WindowFlags()});
        QVERIFY(!selectedInDialog);
    }
}

void TestActiveElement::plainClickOnlySelects()
{
    Stage stage;
    QTest::mouseClick(stage.view.viewport(), Qt::LeftButton, {}, stage.edge());
    QVERIFY(stage.note->isSelected());
    QVERIFY(stage.scene.edited.isEmpty());
}

void TestActiveElement::selectionIsFramedRoundAllOfIt()
{
    ActiveElement note;
    note.setFlag(QGraphicsItem::ItemIsSelectable);
    const QImage selected = MarkPicture::ofItem(&note, noteCanvas, true);
    const QImage plain = MarkPicture::ofItem(&note, noteCanvas, false);
    QRegion changed;
    for (int y = 0; y < plain.height(); ++y) {
        for (int x = 0; x < plain.width(); ++x) {
            if (selected.pixel(x, y) != plain.pixel(x, y))
                changed += QRect(x, y, 1, 1);
        }
    }
    const QRect bounds = note.boundingRect().translated(-noteCanvas.topLeft()).toAlignedRect();
    QVERIFY(changed.boundingRect().contains(bounds.adjusted(2, 2, -2, -2)));
    QVERIFY(bounds.adjusted(-1, -1, 1, 1).contains(changed.boundingRect()));
}

void TestActiveElement::textIsSelectedByTheMouse()
{
    Stage stage;
    QWidget *viewport = stage.view.viewport();
    const QPoint start = stage.note->pos().toPoint() + QPoint(6, 12);
    QTest::mousePress(viewport, Qt::LeftButton, {}, start);
    const QPoint end = start + QPoint(120, 0);
    QMouseEvent move(QEvent::MouseMove, end, viewport->mapToGlobal(end), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(viewport, &move);
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, end);
    QCOMPARE(stage.note->textCursor().selectedText(), "some words");
    QCOMPARE(stage.note->pos(), QPointF(100, 100));
    // The text can be selected, but not typed in.
    QTest::keyClick(viewport, Qt::Key_A);
    QCOMPARE(stage.note->description(), "some words");
}

void TestActiveElement::doubleClickOpensTheDialog()
{
    Stage stage;
    QTest::mouseClick(stage.view.viewport(), Qt::LeftButton, {}, stage.inside());
    QTest::mouseDClick(stage.view.viewport(), Qt::LeftButton, {}, stage.inside());
    QCOMPARE(stage.scene.edited, QList<ActiveElement *>{stage.note});
    QCOMPARE(stage.scene.flagsGiven,
             QList<Qt::WindowFlags>{Qt::Drawer | Qt::WindowTitleHint | Qt::CustomizeWindowHint});
    // The base class, which would select the word, is not asked.
    QVERIFY(!stage.note->textCursor().hasSelection());
}

void TestActiveElement::nextPressIsNotSwallowed_data()
{
    QTest::addColumn<bool>("doubleClick");
    QTest::newRow("Ctrl and press") << false;
    QTest::newRow("double click") << true;
}

void TestActiveElement::nextPressIsNotSwallowed()
{
    QFETCH(const bool, doubleClick);
    Stage stage;
    QWidget *viewport = stage.view.viewport();
    auto *other = stage.scene.addRect(0, 0, 20, 20);
    other->setPos(10, 10);
    other->setFlag(QGraphicsItem::ItemIsSelectable);
    // The release goes to the dialog, not to the view.
    const QPoint pos = stage.edge();
    QMouseEvent press(doubleClick ? QEvent::MouseButtonDblClick : QEvent::MouseButtonPress, pos,
                      viewport->mapToGlobal(pos), Qt::LeftButton, Qt::LeftButton,
                      doubleClick ? Qt::NoModifier : Qt::ControlModifier);
    QApplication::sendEvent(viewport, &press);
    QCOMPARE(stage.scene.edited.size(), 1);
    QVERIFY(!stage.scene.mouseGrabberItem());
    QTest::mouseClick(viewport, Qt::LeftButton, {}, QPoint(20, 20));
    QVERIFY(other->isSelected());
    QCOMPARE(stage.scene.edited.size(), 1);
}

void TestActiveElement::dyingInItsDialog_data()
{
    nextPressIsNotSwallowed_data();
}

void TestActiveElement::dyingInItsDialog()
{
    QFETCH(const bool, doubleClick);
    Stage stage;
    stage.scene.meanwhile = [](ActiveElement *note) { delete note; };
    if (doubleClick)
        QTest::mouseDClick(stage.view.viewport(), Qt::LeftButton, {}, stage.inside());
    else
        QTest::mouseClick(stage.view.viewport(), Qt::LeftButton, Qt::ControlModifier, stage.inside());
    QVERIFY(stage.note.isNull());
    QCOMPARE(stage.scene.edited.size(), 1);
    QVERIFY(stage.scene.items().isEmpty());
    auto *other = stage.scene.addRect(100, 100, 20, 20);
    other->setFlag(QGraphicsItem::ItemIsSelectable);
    QTest::mouseClick(stage.view.viewport(), Qt::LeftButton, {}, QPoint(110, 110));
    QVERIFY(other->isSelected());
}

void TestActiveElement::leavingTheSceneInItsDialog()
{
    Stage stage;
    stage.scene.meanwhile = [&](ActiveElement *note) { stage.scene.removeItem(note); };
    QTest::mouseClick(stage.view.viewport(), Qt::LeftButton, Qt::ControlModifier, stage.inside());
    const std::unique_ptr<ActiveElement> note(stage.note);
    QVERIFY(!note->scene());
    QVERIFY(!stage.scene.mouseGrabberItem());
}

void TestActiveElement::withoutAnEditor()
{
    QGraphicsScene scene(0, 0, 400, 300);
    auto *note = new ActiveElement;
    note->setPos(100, 100);
    note->setFlag(QGraphicsItem::ItemIsSelectable);
    scene.addItem(note);
    QGraphicsView view(&scene);
    view.resize(420, 320);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    const QPoint edge = view.mapFromScene(note->sceneBoundingRect().topLeft() + QPointF(2, 10));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::ControlModifier, edge);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, edge);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, edge);
    QVERIFY(note->isSelected());
}

void TestActiveElement::hugeTexts()
{
    ActiveElement note;
    note.setAuthor(QString(2'000'000, 'W'));
    note.setPlainText(QString("word ").repeated(2000));
    QElapsedTimer timer;
    timer.start();
    const QImage image = MarkPicture::ofItem(&note, noteCanvas);
    QVERIFY(!image.isNull());
    QVERIFY2(timer.elapsed() < 5000, "painting must not take longer for what cannot be seen");
    ActiveElement copy;
    MarkXml::readStreamed(copy, MarkXml::streamed(note));
    QCOMPARE(copy.author(), note.author());
    QCOMPARE(copy.description(), note.description());
}

REGISTER_TEST(TestActiveElement)
#include "tst_activeelement.moc"

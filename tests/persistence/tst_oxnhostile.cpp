// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/annotation.h"
#include "annotations/penline.h"
#include "documents/page.h"
#include "persistence/oxnfiles.h"
#include "persistence/oxnreader.h"
#include "support/dialogs.h"
#include "support/testmain.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QFile>
#include <QGraphicsItem>
#include <QImage>
#include <QPainter>
#include <QSet>
#include <QSettings>
#include <QTest>

#include <sys/stat.h>

#include <cmath>
#include <memory>

namespace {

/// Far longer than any of these files may take, also under sanitizers on a busy machine.
constexpr qint64 patience = 60'000;

QByteArray attributes(int count)
{
    QByteArray text;
    for (int i = 0; i < count; ++i)
        text += " a" + QByteArray::number(i) + "=''";
    return text;
}

/// A mark of @p tag with @p value in every field that holds a number.
QByteArray markWith(const QByteArray &tag, const QByteArray &value)
{
    static const QList<QByteArray> fields{"w",  "pen_style", "pos_x", "pos_y", "red",    "green",    "blue", "alpha",
                                          "x",  "p_red",     "b_red", "y",     "width",  "height",   "x1",   "y1",
                                          "x2", "y2",        "style", "alpha", "p_blue", "font_size"};
    QByteArray xml = "<" + tag;
    for (const QByteArray &field : QSet<QByteArray>(fields.begin(), fields.end()).values())
        xml += " " + field + "='" + value + "'";
    return xml + "><p x='" + value + "' y='" + value + "'/><p x='1' y='2'/><txt>text</txt></" + tag + ">";
}

/// A mark of @p tag that reaches from -@p reach to @p reach and is drawn with this pen.
QByteArray reachingMark(const QByteArray &tag, const QByteArray &reach, int penStyle, const QByteArray &penWidth)
{
    return "<" + tag + " w='" + penWidth + "' pen_style='" + QByteArray::number(penStyle) + "' x='-" + reach +
           "' y='-" + reach + "' width='" + reach + "' height='" + reach + "' x1='-" + reach + "' y1='1' x2='" + reach +
           "' y2='3' style='fc_arrow'><p x='-" + reach + "' y='2'/><p x='" + reach + "' y='3'/><p x='7' y='-" + reach +
           "'/></" + tag + ">";
}

bool isReadable(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return OxnReader().walk(buffer);
}

bool isFinite(const QRectF &rect)
{
    return std::isfinite(rect.left()) && std::isfinite(rect.top()) && std::isfinite(rect.right()) &&
           std::isfinite(rect.bottom());
}

/// A disk that fails after so many bytes, and goes on saying that there is more.
class FailingDevice : public QIODevice
{
public:
    FailingDevice(const QByteArray &bytes, qint64 good) : m_bytes(bytes), m_left(good) { open(ReadOnly | Unbuffered); }

    bool isSequential() const override { return true; }
    bool atEnd() const override { return false; }

protected:
    qint64 readData(char *data, qint64 maxSize) override
    {
        const qint64 size = std::min(maxSize, m_left);
        if (size == 0)
            return -1;
        std::copy_n(m_bytes.constBegin() + m_read, size, data);
        m_read += size;
        m_left -= size;
        return size;
    }
    qint64 writeData(const char * /*data*/, qint64 /*maxSize*/) override { return -1; }

private:
    QByteArray m_bytes;
    qint64 m_left;
    qint64 m_read = 0;
};

void ignoreMessage(QtMsgType /*type*/, const QMessageLogContext & /*context*/, const QString & /*text*/) {}

} // namespace

/// Files that were damaged, or made to do harm.
class TestOxnHostile : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_page.reset(); }
    void refused_data();
    void refused();
    void refusedWithoutOpening_data();
    void refusedWithoutOpening();
    void truncatedAnywhere();
    void everyByteChanged();
    void readErrorAnywhere();
    void largeButHarmless_data();
    void largeButHarmless();
    void oddNumbers_data();
    void oddNumbers();
    void extremeMarksAreDrawn_data();
    void extremeMarksAreDrawn();
    void numbersThatAreNone();

private:
    bool load(const QString &name);
    /// Has the corner of the page painted.
    void look();

    std::unique_ptr<OxnFiles> m_files;
    std::unique_ptr<Page> m_page;
    QList<SeenDialog> m_boxes;
};

void TestOxnHostile::init()
{
    m_files = std::make_unique<OxnFiles>();
    m_page = std::make_unique<Page>(nullptr);
}

bool TestOxnHostile::load(const QString &name)
{
    DialogAnswers answers;
    answers.accept();
    const bool loaded = m_page->loadFile(name);
    m_boxes = answers.seen();
    return loaded;
}

void TestOxnHostile::look()
{
    QImage picture(200, 100, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    m_page->render(&painter, picture.rect(), picture.rect());
}

void TestOxnHostile::refused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray good = Oxn::file("<pen_line/>");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("white space") << QByteArray(" \n\t");
    QTest::newRow("no XML") << QByteArray("plain text");
    QTest::newRow("null bytes") << QByteArray(1000, '\0');
    QTest::newRow("null byte inside") << Oxn::file(QByteArray("<pen_line/>\0", 12));
    QTest::newRow("null byte behind") << good + QByteArray(1, '\0');
    QTest::newRow("form feed in a section") << Oxn::file("<text_contents><![CDATA[a\fb]]></text_contents>");
    QTest::newRow("two roots") << good + "<a/>";
    QTest::newRow("text behind") << good + "x";
    QTest::newRow("attribute twice") << Oxn::file("<pen_line w='1' w='2'/>");
    QTest::newRow("not UTF-8") << Oxn::file("<text_contents>\xFC</text_contents>");
    QTest::newRow("overlong UTF-8") << Oxn::file("<text_contents>\xC0\x80</text_contents>");
    QTest::newRow("declared as what it is not") << "<?xml version='1.0' encoding='UTF-16'?>" + good;
    for (const char *encoding : {"IBM037", "UTF-7", "UTF-16LE", "UTF-16BE", "UTF-32", "Shift_JIS", "utf8x"})
        QTest::addRow("declared as %s", encoding)
            << QByteArray("<?xml version='1.0' encoding='") + encoding + "'?>" + good;
    QTest::newRow("unknown encoding") << "<?xml version='1.0' encoding='none'?>" + good;
    QTest::newRow("unknown entity") << Oxn::file("<text_contents>&boo;</text_contents>");
    QTest::newRow("forbidden character by number") << Oxn::file("<text_contents>&#12;</text_contents>");
    QTest::newRow("entity") << "<!DOCTYPE a [<!ENTITY b 'c'>]>" + good.mid(good.indexOf('\n'));
    QTest::newRow("file as entity") << QByteArray("<!DOCTYPE a [<!ENTITY b SYSTEM 'file:///etc/passwd'>]>"
                                                  "<a zettel_werk_type='x'><text_contents>&b;</text_contents></a>");
    QTest::newRow("entities within entities")
        << QByteArray("<!DOCTYPE a [<!ENTITY a 'aaaaaaaaaa'><!ENTITY b '&a;&a;&a;&a;&a;&a;&a;&a;&a;'><!ENTITY c "
                      "'&b;&b;&b;&b;&b;&b;&b;&b;&b;'><!ENTITY d '&c;&c;&c;&c;&c;&c;&c;&c;&c;'>]><a>&d;</a>");
    QTest::newRow("declared attributes") << QByteArray(
        "<!DOCTYPE a [<!ATTLIST a b CDATA 'c'>]><a zettel_werk_type='x'/>");
    QTest::newRow("80000 attributes") << Oxn::file("<pen_line" + attributes(80'000) + "/>");
    QTest::newRow("80000 attributes of the root") << Oxn::file("", attributes(80'000));
    QTest::newRow("80000 attributes of a point") << Oxn::file("<pen_line><p" + attributes(80'000) + "/></pen_line>");
    QTest::newRow("80000 attributes behind the root") << good + "<a" + attributes(80'000) + "/>";
    const QByteArray text = "<text_contents>a</text_contents>";
    const QByteArray picture = "<img_contents img_file_link='gone.png'/>";
    QTest::newRow("a text too many") << Oxn::file(text.repeated(17));
    QTest::newRow("a picture too many") << Oxn::file(picture.repeated(17));
    QTest::newRow("texts and pictures") << Oxn::file((text + picture).repeated(8) + "<pen_line/>" + text);
    QTest::newRow("10000 missing pictures") << Oxn::file(picture.repeated(10'000));
    QTest::newRow("deep nesting") << Oxn::file(QByteArray("<a>").repeated(100'000) +
                                               QByteArray("</a>").repeated(100'000));
    QTest::newRow("deep nesting in a mark") << Oxn::file("<pen_line>" + QByteArray("<p>").repeated(100'000) +
                                                         QByteArray("</p>").repeated(100'000) + "</pen_line>");
    QTest::newRow("deep nesting in the text") << Oxn::file("<text_contents>" + QByteArray("<p>").repeated(100'000) +
                                                           QByteArray("</p>").repeated(100'000) + "</text_contents>");
    QTest::newRow("deep nesting without an end") << QByteArray("<a>").repeated(1'000'000);
}

void TestOxnHostile::refused()
{
    QFETCH(const QByteArray, bytes);
    const QString path = m_files->write("a.oxn", bytes);
    QElapsedTimer clock;
    clock.start();
    QVERIFY(!load(path));
    QVERIFY2(clock.elapsed() < patience, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(m_boxes.size(), 1);
    QCOMPARE(m_boxes.first().title, QStringLiteral("Kestrin 7 Parse Error"));
    QCOMPARE(m_boxes.first().text, QStringLiteral("Wrong format of OXN file %1!").arg(path));
    QCOMPARE(m_boxes.first().buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(m_boxes.first().icon, QMessageBox::Warning);
    QCOMPARE(m_boxes.first().parent, nullptr);
    QCOMPARE(m_page->items().size(), 0);
    QCOMPARE(m_page->documentKind(), Page::NoDocument);
}

void TestOxnHostile::refusedWithoutOpening_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("folder") << "folder.oxn";
    QTest::newRow("pipe") << "pipe.oxn";
    QTest::newRow("link to a device") << "zero.oxn";
    QTest::newRow("link to itself") << "loop.oxn";
    QTest::newRow("markup and percent signs in the name") << "<b>%1%2.oxn";
}

void TestOxnHostile::refusedWithoutOpening()
{
    QFETCH(const QString, name);
    QVERIFY(QDir().mkdir(m_files->path("folder.oxn")));
    QCOMPARE(mkfifo(QFile::encodeName(m_files->path("pipe.oxn")).constData(), 0600), 0);
    QVERIFY(QFile::link("/dev/zero", m_files->path("zero.oxn")));
    QVERIFY(QFile::link(m_files->path("loop.oxn"), m_files->path("loop.oxn")));
    QVERIFY(!load(m_files->path(name)));
    QCOMPARE(m_boxes.size(), 1);
    QCOMPARE(m_boxes.first().title, QStringLiteral("Kestrin 7 I/O Error"));
    QCOMPARE(m_boxes.first().text, "Cannot open file " + m_files->path(name) + "!");
}

void TestOxnHostile::truncatedAnywhere()
{
    const QByteArray whole = Oxn::file("<!-- c --><text_contents><![CDATA[a]]]]><![CDATA[>ż]]><char code='12'/>"
                                       "</text_contents><pen_line w='3'><p x='1' y='2'/></pen_line>"
                                       "<text_box><txt>&lt;a&#10;</txt></text_box><later/><?a b?>")
                                 .trimmed();
    for (qsizetype size = 0; size < whole.size(); ++size)
        QVERIFY2(!isReadable(whole.left(size)), qPrintable(QString::number(size)));
    QVERIFY(load(m_files->write("a.oxn", whole)));
    QCOMPARE(Oxn::marks(*m_page).size(), 2);
    QVERIFY(!load(m_files->write("a.oxn", whole.chopped(20))));
    QCOMPARE(m_boxes.size(), 1);
}

void TestOxnHostile::readErrorAnywhere()
{
    const QByteArray bytes = Oxn::file("<text_contents>a text</text_contents><pen_line><p x='1' y='2'/></pen_line>");
    for (qint64 good = 0; good <= bytes.size(); ++good) {
        FailingDevice device(bytes, good);
        OxnReader reader;
        QVERIFY2(!reader.walk(device), qPrintable(QString::number(good)));
        QVERIFY(!reader.errorString().isEmpty());
    }
}

void TestOxnHostile::everyByteChanged()
{
    const QByteArray whole = Oxn::file("<text_contents><![CDATA[a]]></text_contents><pen_line w='3'><p x='1'/>"
                                       "</pen_line><text_box font_size='9'><txt>&lt;a</txt></text_box>");
    for (qsizetype i = 0; i < whole.size(); ++i) {
        for (const char c : {'\0', '<', '"', '9', '\xFF'}) {
            QByteArray bytes = whole;
            bytes[i] = c;
            if (!isReadable(bytes))
                continue;
            // What could be read can be written.
            m_page = std::make_unique<Page>(nullptr);
            QVERIFY2(load(m_files->write("a.oxn", bytes)), bytes);
            QCOMPARE(m_boxes.size(), 0);
            QVERIFY2(!m_files->saved(*m_page).isEmpty(), bytes);
        }
    }
}

void TestOxnHostile::largeButHarmless_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("marks");
    QTest::newRow("300000 nodes") << Oxn::file(QByteArray("<a/><!-- --><?b?>").repeated(100'000)) << 0;
    QTest::newRow("30000 marks") << Oxn::file(QByteArray("<pen_line/>").repeated(30'000)) << 30'000;
    QTest::newRow("100000 points") << Oxn::file("<pen_line>" + QByteArray("<p x='1'/>").repeated(100'000) +
                                                "</pen_line>")
                                   << 1;
    QTest::newRow("16 texts among marks")
        << Oxn::file(QByteArray("<pen_line pos_y='50'/>").repeated(20'000) +
                     QByteArray("<text_contents>1</text_contents><text_contents>1\n2</text_contents>").repeated(8))
        << 20'000;
    QTest::newRow("text box of many lines")
        << Oxn::file("<text_box><txt>" + QByteArray("a line\n").repeated(100'000) + "</txt></text_box>") << 1;
    QTest::newRow("text box of one long line")
        << Oxn::file("<text_box><txt>" + QByteArray("one word ").repeated(100'000) + "</txt></text_box>") << 1;
    QTest::newRow("text box of many texts")
        << Oxn::file("<text_box>" + QByteArray("<txt>a</txt>").repeated(100'000) + "</text_box>") << 1;
    QTest::newRow("one huge value") << Oxn::file("<text_box font_family='" + QByteArray(5'000'000, 'f') + "'/>") << 1;
    QTest::newRow("one huge number") << Oxn::file("<pen_line pos_x='" + QByteArray(5'000'000, '1') + "'/>") << 1;
    QTest::newRow("many pieces of text") << Oxn::file("<text_contents>" +
                                                      QByteArray("<![CDATA[a]]><char code='12'/>").repeated(100'000) +
                                                      "</text_contents>")
                                         << 0;
    QTest::newRow("nesting within bounds")
        << Oxn::file(QByteArray("<a>").repeated(900) + QByteArray("</a>").repeated(900) + "<pen_line/>") << 1;
}

void TestOxnHostile::largeButHarmless()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const int, marks);
    const QString path = m_files->write("a.oxn", bytes);
    QElapsedTimer clock;
    clock.start();
    QVERIFY(load(path));
    QCOMPARE(Oxn::marks(*m_page).size(), marks);
    QVERIFY(!m_files->saved(*m_page).isEmpty());
    QVERIFY2(clock.elapsed() < patience, qPrintable(QString::number(clock.elapsed())));
}

void TestOxnHostile::oddNumbers_data()
{
    QTest::addColumn<QByteArray>("value");
    for (const char *value :
         {"inf",   "-inf",   "nan",  "-nan",       "1e38",        "-1e38",      "1e39",
          "1e999", "1e-999", "-0.0", "2147483647", "-2147483648", "2147483648", "99999999999999999999",
          "0x7f",  "1,5",    "",     " 7 ",        "seven",       "1e5",        "1000000",
          "-1",    "--1",    "١"})
        QTest::newRow(value) << QByteArray(value);
}

void TestOxnHostile::oddNumbers()
{
    QFETCH(const QByteArray, value);
    // Colours that are none and the like are told to the log.
    const QtMessageHandler former = qInstallMessageHandler(ignoreMessage);
    QByteArray inside = "<text_contents>a</text_contents>";
    for (const char *tag : {"pen_line", "marker_line", "bracket", "line", "ellipse", "rectangle", "text_box"})
        inside += markWith(tag, value);
    QElapsedTimer clock;
    clock.start();
    QVERIFY(load(m_files->write("a.oxn", Oxn::file(inside, "zettel_werk_type='x' font_size='" + value + "' width='" +
                                                               value + "' height='" + value + "'"))));
    QCOMPARE(m_boxes.size(), 0);
    const QList<Annotation *> marks = Oxn::marks(*m_page);
    QCOMPARE(marks.size(), 7);
    for (Annotation *mark : marks)
        QVERIFY(isFinite(Oxn::item(mark)->sceneBoundingRect()));
    look();
    // And saved, with the same result each time.
    const QByteArray once = m_files->saved(*m_page);
    QVERIFY(!once.isEmpty());
    QVERIFY(!once.contains("inf") && !once.contains("nan"));
    Page second(nullptr);
    QVERIFY(second.loadFile(m_files->write("b.oxn", once)));
    QCOMPARE(m_files->saved(second), once);
    qInstallMessageHandler(former);
    QVERIFY2(clock.elapsed() < patience, qPrintable(QString::number(clock.elapsed())));
}

void TestOxnHostile::extremeMarksAreDrawn_data()
{
    QTest::addColumn<QByteArray>("tag");
    QTest::addColumn<QByteArray>("reach");
    for (const char *tag : {"pen_line", "marker_line", "bracket", "line", "ellipse", "rectangle"}) {
        for (const char *reach : {"1e-38", "30000", "40000", "1e7", "2e9", "1e18", "1e38"})
            QTest::addRow("%s, %s", tag, reach) << QByteArray(tag) << QByteArray(reach);
    }
}

void TestOxnHostile::extremeMarksAreDrawn()
{
    QFETCH(const QByteArray, tag);
    QFETCH(const QByteArray, reach);
    QByteArray inside = "<text_contents>a</text_contents>";
    for (int style = Qt::SolidLine; style <= Qt::DashDotDotLine; ++style) {
        for (const char *width : {"0", "1", "50", "32767"})
            inside += reachingMark(tag, reach, style, width);
    }
    QVERIFY(load(m_files->write("a.oxn", Oxn::file(inside))));
    // Selected, each has a dashed frame as well.
    QSettings settings;
    for (const char *key : {"PenTool/DrawSelection", "MarkerTool/ShowSelection", "LineTool/ShowSelection"})
        settings.setValue(QLatin1String(key), true);
    QElapsedTimer clock;
    clock.start();
    for (const bool selected : {false, true}) {
        for (Annotation *mark : Oxn::marks(*m_page))
            Oxn::item(mark)->setSelected(selected);
        look();
    }
    settings.clear();
    QVERIFY2(clock.elapsed() < patience, qPrintable(QString::number(clock.elapsed())));
}

void TestOxnHostile::numbersThatAreNone()
{
    QVERIFY(load(m_files->write("a.oxn", Oxn::file("<pen_line w='many' pos_x='NaN' pos_y='infinity' red='x'>"
                                                   "<p x='-inf' y='1e39'/><p x='12abc' y='3.5'/></pen_line>"))));
    const auto *line = dynamic_cast<PenLine *>(Oxn::marks(*m_page).value(0));
    QVERIFY(line);
    QCOMPARE(line->pen().width(), 0);
    QCOMPARE(line->pos(), QPointF(0, 0));
    QCOMPARE(line->polygon(), QPolygonF({{0, 0}, {0, 3.5}}));
}

REGISTER_TEST(TestOxnHostile)
#include "tst_oxnhostile.moc"

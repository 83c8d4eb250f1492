// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/installedprogram.h"
#include "support/testmain.h"

#include <QDomDocument>
#include <QLineF>
#include <QPolygonF>
#include <QTest>

#include <algorithm>

namespace {

const QByteArray source = "int main()\n{\n    return 0;\n}";
const QColor penColor(220, 20, 30);
const QColor fillColor(30, 160, 250);
/// Screen pixels from the window's top left corner, all on the page.
const QList<QPoint> wave{{200, 300}, {230, 270}, {260, 330}, {290, 270}, {320, 330}, {350, 300}};
const QPoint boxStart(500, 250);
const QPoint boxEnd(640, 330);
const QPoint lineStart(300, 500);
const QPoint lineEnd(500, 560);
const QPoint textPlace(700, 450);
const QPoint freePlace(900, 650);
/// Holds all that is drawn, and the text of the document.
const QRect pageArea(50, 70, 1000, 600);

/// How far @p point is from the nearest place on the way from one point of @p path to the next.
double distanceFrom(const QPolygonF &path, const QPointF &point)
{
    double least = 1e9;
    for (qsizetype i = 1; i < path.size(); ++i) {
        const QPointF way = path.at(i) - path.at(i - 1);
        const double along = QPointF::dotProduct(point - path.at(i - 1), way) / QPointF::dotProduct(way, way);
        least = std::min(least, QLineF(point, path.at(i - 1) + std::clamp(along, 0.0, 1.0) * way).length());
    }
    return least;
}

double number(const QDomElement &element, const char *name)
{
    return element.attribute(QLatin1String(name)).toDouble();
}

QPointF position(const QDomElement &element)
{
    return {number(element, "pos_x"), number(element, "pos_y")};
}

QList<QDomElement> elementsIn(const QDomElement &parent)
{
    QList<QDomElement> found;
    for (QDomElement child = parent.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        found.append(child);
    return found;
}

/// Places where the two pictures differ.
int differingPixels(const QImage &one, const QImage &other)
{
    int count = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x)
            count += one.pixel(x, y) == other.pixel(x, y) ? 0 : 1;
    }
    return count;
}

} // namespace

/// Marks drawn in the real window, what is saved of them, and what the screen shows.
class TestDrawing : public QObject
{
    Q_OBJECT

private slots:
    void marksAreDrawnSavedAndShownAgain();
    void boxInMidStrokeKeepsIt();

private:
    /// Where the mouse is to go for these places of the window.
    QList<QPoint> onScreen(const QList<QPoint> &places) const;
    void setLook(const InstalledProgram &program) const;
    /// Opens the leftmost menu and goes on from there: "Right" to the next menu, with its first entry marked.
    void walkMenus(const QStringList &keys);
    void drawAll();
    /// Saves and answers the question about the marks with Yes.
    void saveAnnotated();
    void verifyFile(const QByteArray &bytes) const;
    void verifyStroke(const QDomElement &stroke, QPointF sceneCorner) const;
    void verifyColors(const QImage &page) const;
    /// The page as it is with nothing selected and no caret.
    QImage quietPage();
    QPoint onScreen(QPoint place) const { return m_corner + place; }
    /// Where a place of the window lies on the scene.
    static QPointF onScene(QPoint place, QPointF sceneCorner) { return QPointF(place) - sceneCorner; }

    XSession m_session;
    QPoint m_corner; ///< Of the window, on the screen.
};

void TestDrawing::setLook(const InstalledProgram &program) const
{
    program.setSetting(QStringLiteral("General/WindowMaximized"), false);
    program.setSetting(QStringLiteral("General/WindowSize"), QSize(1200, 800));
    program.setSetting(QStringLiteral("General/PenColor"), penColor.name());
    program.setSetting(QStringLiteral("General/BrushColor"), fillColor.name());
    program.setSetting(QStringLiteral("PenTool/LineWidth"), 7);
    program.setSetting(QStringLiteral("PenTool/Transparency"), 0);
    program.setSetting(QStringLiteral("ShapeTool/LineWidth"), 5);
    program.setSetting(QStringLiteral("ShapeTool/Transparency"), 0);
    program.setSetting(QStringLiteral("LineTool/LineWidth"), 5);
    program.setSetting(QStringLiteral("TextBoxTool/DefaultFontSize"), 16);
}

QList<QPoint> TestDrawing::onScreen(const QList<QPoint> &places) const
{
    QList<QPoint> path;
    for (const QPoint &place : places)
        path.append(onScreen(place));
    return path;
}

void TestDrawing::walkMenus(const QStringList &keys)
{
    m_session.click(onScreen({15, 12}));
    for (const QString &key : keys) {
        m_session.waitUntilQuiet();
        m_session.key(key);
    }
    m_session.waitUntilQuiet();
}

void TestDrawing::drawAll()
{
    m_session.key(QStringLiteral("alt+p"));
    m_session.drag(onScreen(wave));
    m_session.key(QStringLiteral("alt+r"));
    m_session.drag({onScreen(boxEnd), onScreen(boxStart + QPoint(30, 30)), onScreen(boxStart)});
    walkMenus({"Right", "Right", "Down", "Down", "Down", "Right", "Return"});
    m_session.drag({onScreen(lineStart), onScreen(lineEnd - QPoint(40, 9)), onScreen(lineEnd)});
    walkMenus({"Right", "Right", "Down", "Down", "Return"});
    m_session.click(onScreen(textPlace));
    m_session.waitUntilQuiet();
    m_session.key(QStringLiteral("ctrl+a"));
    m_session.type(QStringLiteral("drawn"));
    m_session.key(QStringLiteral("Return"));
    m_session.type(QStringLiteral("by hand & <eye>"));
}

void TestDrawing::saveAnnotated()
{
    m_session.key(QStringLiteral("ctrl+s"));
    QVERIFY(!m_session.waitForWindow(QStringLiteral("^Kestrin 7$")).isEmpty());
    m_session.key(QStringLiteral("alt+y"));
}

QImage TestDrawing::quietPage()
{
    m_session.key(QStringLiteral("alt+s"));
    m_session.click(onScreen(freePlace));
    m_session.waitUntilQuiet();
    return m_session.grab().copy(pageArea.translated(m_corner));
}

void TestDrawing::verifyFile(const QByteArray &bytes) const
{
    QDomDocument file;
    QVERIFY2(file.setContent(bytes), bytes);
    const QList<QDomElement> elements = elementsIn(file.documentElement());
    QStringList tags;
    for (const QDomElement &element : elements)
        tags.append(element.tagName());
    QCOMPARE(tags, (QStringList{"text_contents", "pen_line", "rectangle", "line", "text_box"}));
    QCOMPARE(elements.at(0).text(), QString::fromUtf8(source));
    QCOMPARE(file.documentElement().attribute(QStringLiteral("file_type")), QStringLiteral("cpp"));

    // The stroke lies where the mouse was pressed: that tells where the scene begins in the window.
    const QPointF corner = QPointF(wave.first()) - position(elements.at(1));
    // Right of the tools, below those above the page.
    QVERIFY2(QRect(30, 50, 30, 30).contains(corner.toPoint()),
             qPrintable(QStringLiteral("%1, %2").arg(corner.x()).arg(corner.y())));
    verifyStroke(elements.at(1), corner);

    const QDomElement box = elements.at(2);
    QCOMPARE(position(box), onScene(boxStart, corner));
    QCOMPARE(QSizeF(number(box, "width"), number(box, "height")),
             QSizeF(boxEnd.x() - boxStart.x(), boxEnd.y() - boxStart.y()));
    QCOMPARE(box.attribute(QStringLiteral("rounded")), QStringLiteral("no"));
    QCOMPARE(box.attribute(QStringLiteral("b_blue")), QString::number(fillColor.blue()));

    const QDomElement line = elements.at(3);
    QCOMPARE(line.attribute(QStringLiteral("style")), QStringLiteral("s_line"));
    QCOMPARE(position(line), onScene(lineStart, corner));
    QCOMPARE(QPointF(number(line, "x1"), number(line, "y1")), QPointF(0, 0));
    QCOMPARE(QPointF(number(line, "x2"), number(line, "y2")), QPointF(lineEnd - lineStart));

    const QDomElement text = elements.at(4);
    QCOMPARE(position(text), onScene(textPlace - QPoint(2, 2), corner));
    QCOMPARE(text.firstChildElement(QStringLiteral("txt")).text(), QStringLiteral("drawn\nby hand & <eye>"));
    QCOMPARE(text.attribute(QStringLiteral("font_size")), QStringLiteral("16"));
}

void TestDrawing::verifyStroke(const QDomElement &stroke, QPointF sceneCorner) const
{
    QPolygonF points;
    for (const QDomElement &point : elementsIn(stroke))
        points.append(position(stroke) + QPointF(number(point, "x"), number(point, "y")));
    QVERIFY2(points.size() >= wave.size() - 1, "no move is lost");
    QPolygonF path;
    for (const QPoint &place : wave)
        path.append(onScene(place, sceneCorner));
    for (const QPointF &point : std::as_const(points))
        QVERIFY2(distanceFrom(path, point) < 0.5, qPrintable(QStringLiteral("%1, %2").arg(point.x()).arg(point.y())));
    // It goes all the way: to each turn, in order.
    qsizetype turn = 1;
    for (const QPointF &point : std::as_const(points))
        turn += turn < path.size() && point == path.at(turn) ? 1 : 0;
    QCOMPARE(turn, path.size());
    QCOMPARE(stroke.attribute(QStringLiteral("w")), QStringLiteral("7"));
    QCOMPARE(stroke.attribute(QStringLiteral("red")), QString::number(penColor.red()));
    QCOMPARE(stroke.attribute(QStringLiteral("alpha")), QStringLiteral("255"));
}

void TestDrawing::verifyColors(const QImage &page) const
{
    const auto colorAt = [&page](QPoint place) { return page.pixelColor(place - pageArea.topLeft()); };
    for (qsizetype i = 1; i < wave.size(); ++i)
        QCOMPARE(colorAt((wave.at(i - 1) + wave.at(i)) / 2), i == 1 ? QColor(Qt::white) : penColor);
    QCOMPARE(colorAt((boxStart + boxEnd) / 2), fillColor);
    QCOMPARE(colorAt({boxStart.x(), (boxStart.y() + boxEnd.y()) / 2}), penColor);
    QCOMPARE(colorAt({(boxStart.x() + boxEnd.x()) / 2, boxEnd.y()}), penColor);
    QCOMPARE(colorAt((lineStart + lineEnd) / 2), penColor);
    QCOMPARE(colorAt((lineStart + lineEnd) / 2 + QPoint(0, 8)), QColor(Qt::white));
    QCOMPARE(colorAt(freePlace), QColor(Qt::white));
    int inked = 0;
    for (int y = 0; y < 50; ++y) {
        for (int x = 0; x < 150; ++x)
            inked += colorAt(textPlace + QPoint(x, y)) == penColor ? 1 : 0;
    }
    QVERIFY2(inked > 50, "the text box is written in the pen's colour");
}

void TestDrawing::marksAreDrawnSavedAndShownAgain()
{
    InstalledProgram program(m_session);
    setLook(program);
    const QString path = program.writeDocument(QStringLiteral("drawn.cpp"), source);
    const QString annotated = program.document(QStringLiteral("drawn.oxn"));
    QVERIFY(!program.start({path}).isEmpty());
    m_session.waitUntilQuiet();
    m_corner = m_session.geometry(program.window()).topLeft();
    drawAll();
    saveAnnotated();
    QTRY_VERIFY(m_session.title(program.window()).contains(annotated));
    verifyFile(InstalledProgram::read(annotated));
    QCOMPARE(InstalledProgram::read(path), source);
    const QImage drawn = quietPage();
    verifyColors(drawn);
    QVERIFY(program.closeRegularly());

    QVERIFY(!program.start({annotated}).isEmpty());
    m_session.waitUntilQuiet();
    m_corner = m_session.geometry(program.window()).topLeft();
    const QImage reopened = quietPage();
    QCOMPARE(reopened.size(), drawn.size());
    QCOMPARE(differingPixels(reopened, drawn), 0);
    QVERIFY(program.closeRegularly());
}

void TestDrawing::boxInMidStrokeKeepsIt()
{
    InstalledProgram program(m_session);
    setLook(program);
    const QString path = program.writeDocument(QStringLiteral("held.cpp"), source);
    const QString annotated = program.document(QStringLiteral("held.oxn"));
    QVERIFY(!program.start({path}).isEmpty());
    m_session.waitUntilQuiet();
    m_corner = m_session.geometry(program.window()).topLeft();
    m_session.key(QStringLiteral("alt+r"));
    m_session.drag(onScreen({boxStart, boxEnd}));
    m_session.key(QStringLiteral("alt+p"));
    m_session.hold(onScreen(wave));
    m_session.keyWhileHeld(QStringLiteral("ctrl+s"));
    QVERIFY(!m_session.waitForWindow(QStringLiteral("^Kestrin 7$")).isEmpty());
    m_session.letGo();
    m_session.key(QStringLiteral("alt+y"));
    QTRY_VERIFY(m_session.title(program.window()).contains(annotated));

    QDomDocument file;
    QVERIFY(file.setContent(InstalledProgram::read(annotated)));
    QList<QDomElement> elements = elementsIn(file.documentElement());
    QCOMPARE(elements.size(), 3);
    const QDomElement stroke = elements.at(2);
    QCOMPARE(stroke.tagName(), QStringLiteral("pen_line"));
    verifyStroke(stroke, QPointF(wave.first()) - position(stroke));

    // The mouse moves on without drawing; the next press does.
    m_session.click(onScreen(freePlace), 2);
    m_session.drag(onScreen({lineStart, lineStart + QPoint(30, 5), lineEnd, lineEnd + QPoint(10, 0)}));
    m_session.key(QStringLiteral("ctrl+s"));
    QTRY_COMPARE(InstalledProgram::read(annotated).count("<pen_line "), 2);
    QVERIFY(file.setContent(InstalledProgram::read(annotated)));
    elements = elementsIn(file.documentElement());
    QCOMPARE(position(elements.at(3)) - position(stroke), QPointF(lineStart - wave.first()));
    QCOMPARE(elementsIn(elements.at(2)).size(), elementsIn(stroke).size());
    QVERIFY(program.closeRegularly());
}

REGISTER_TEST(TestDrawing)
#include "tst_drawing.moc"

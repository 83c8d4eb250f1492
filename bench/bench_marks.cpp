// SPDX-License-Identifier: GPL-3.0-or-later
// How fast pages with many marks are to draw on, to look at, to drag marks on and to type in.
#include "annotations/markitem.h"
#include "annotations/penline.h"
#include "documents/documenthost.h"
#include "documents/documentitem.h"
#include "documents/page.h"
#include "documents/pageview.h"
#include "measure.h"
#include "tools/linetool.h"
#include "tools/pentool.h"

#include <QApplication>
#include <QGraphicsTextItem>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPixmapCache>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QStyleHints>
#include <QTextCursor>
#include <QTextDocument>

#include <memory>

namespace {

const QString milliseconds = QStringLiteral("ms");
const QString microseconds = QStringLiteral("us");
constexpr int pageWidth = 1000;
constexpr int viewHeight = 800;
/// So many scene units of height come with each stroke: 80 strokes are in view at a time.
constexpr int heightOfAStroke = 10;
constexpr int pointsOfAStroke = 40;

/// A window that has a mode and a tool, and nothing else.
class BareHost final : public DocumentHost
{
public:
    int mode() const override { return currentMode; }
    Tool *currentTool() const override { return tool; }
    QUndoGroup *undoGroup() const override { return nullptr; }
    QMenu *popupMenu() const override { return nullptr; }
    QProgressBar *progressBar() const override { return nullptr; }
    QWidget *hostWindow() override { return nullptr; }
    QString title() const override { return {}; }
    QList<Annotation *> *annotationClipboard() override { return &m_noMarks; }
    void clearAnnotationClipboard() override {}
    void addToAnnotationClipboard(Annotation * /*annotation*/) override {}
    void updateMenus() override {}
    void setCurrentFile(const QString & /*path*/) override {}
    QString lastOpenDir() const override { return {}; }
    bool isFullScreen() const override { return false; }
    void toggleFullScreen() override {}
    void registerActiveElement(ActiveElement * /*element*/, Page * /*page*/) override {}
    bool editActiveElement(ActiveElement * /*element*/, Qt::WindowFlags /*flags*/) override { return false; }

    int currentMode = TransformMode;
    Tool *tool = nullptr;

private:
    QList<Annotation *> m_noMarks;
};

/// Strokes as the pen draws them, spread over the area.
class Strokes
{
public:
    explicit Strokes(const QRectF &area) : m_area(area) {}

    PenLine *next()
    {
        auto *stroke = new PenLine;
        QPolygonF points{QPointF()};
        while (points.size() < pointsOfAStroke)
            points.append(points.constLast() + QPointF(m_random.bounded(8) - 2, m_random.bounded(7) - 3));
        stroke->setPolygon(points);
        stroke->setPen(QPen(QColor(200, 30, 30, 150), 2));
        stroke->setAntialiasing(true);
        stroke->setPos(m_area.x() + m_random.bounded(m_area.width()), m_area.y() + m_random.bounded(m_area.height()));
        MarkItem::makeHandy(*stroke);
        return stroke;
    }

private:
    QRectF m_area;
    QRandomGenerator m_random{7};
};

/// A page with a text and strokes all over it, in a view as in a tab of the window.
class MarkedPage
{
public:
    /// A text at least @p height scene units high; strokes will go into @p area.
    MarkedPage(int height, const QRectF &area) : m_page(&m_host), m_view(&m_page, nullptr), m_area(area)
    {
        m_page.setPageView(&m_view);
        m_view.resize(pageWidth, viewHeight);
        m_view.setAlignment(Qt::AlignLeft | Qt::AlignTop);
        constexpr int leastLineHeight = 10;
        const int lines = height / leastLineHeight + 1;
        m_page.setTextContents(QStringLiteral("a.txt"), QStringLiteral("some text in a line\n").repeated(lines),
                               QString());
        m_view.show();
        paint();
    }
    /// A page as high as @p strokes strokes need.
    explicit MarkedPage(int strokes)
        : MarkedPage(strokes * heightOfAStroke, QRectF(0, 0, pageWidth, strokes * heightOfAStroke))
    {
    }

    void add(int count)
    {
        Strokes strokes(m_area);
        for (int i = 0; i < count; ++i)
            m_page.addAnnotation(strokes.next());
        paint();
    }

    void paint() { QCoreApplication::processEvents(); }

    void mouse(QEvent::Type type, const QPointF &scenePos, Qt::MouseButtons buttons)
    {
        const QPointF local = m_view.mapFromScene(scenePos);
        const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, local, m_view.viewport()->mapToGlobal(local), button, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(m_view.viewport(), &event);
    }

    void key(int key, const QString &text)
    {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(&m_view, &press);
    }

    BareHost &host() { return m_host; }
    Page &page() { return m_page; }
    PageView &view() { return m_view; }

private:
    BareHost m_host;
    Page m_page;
    PageView m_view;
    QRectF m_area; ///< Where strokes go.
};

/// Shows the whole page, one view's height after the other.
void paintAll(MarkedPage *page, int height)
{
    for (int top = 0; top < height; top += viewHeight) {
        page->view().verticalScrollBar()->setValue(top);
        page->paint();
    }
}

void hitAll(MarkedPage *page)
{
    int hits = 0;
    for (const QGraphicsItem *item : page->page().items()) {
        const auto *stroke = dynamic_cast<const PenLine *>(item);
        if (stroke && page->page().itemAt(stroke->mapToScene(stroke->polygon().at(20)), page->view().transform()))
            ++hits;
    }
    if (hits == 0)
        qFatal("no stroke was hit");
}

/// Figures for one stroke; the reference is the figure with 1,000 of them.
void benchStrokes()
{
    printTitle(QStringLiteral("One of many strokes of 40 points; reference: one of 1000"));
    constexpr double perMillisecond = 1000.0;
    double adding = 0.0;
    double painting = 0.0;
    double hitting = 0.0;
    for (const int count : {1'000, 10'000, 50'000}) {
        const int runs = count > 10'000 ? 2 : 5;
        std::unique_ptr<MarkedPage> page;
        const double scale = perMillisecond / count;
        const double added = scale * leastCpu(
                                         runs, [&] { page->add(count); },
                                         [&] {
                                             page.reset();
                                             page = std::make_unique<MarkedPage>(count);
                                         });
        // As if they were seen for the first time.
        const double painted =
            scale * leastCpu(
                        runs, [&] { paintAll(page.get(), count * heightOfAStroke); }, [] { QPixmapCache::clear(); });
        const double hit = scale * leastCpu(runs, [&] { hitAll(page.get()); });
        if (count == 1'000) {
            adding = added;
            painting = painted;
            hitting = hit;
        }
        printRow(QStringLiteral("%1 strokes: adding one").arg(count), added, adding, microseconds);
        printRow(QStringLiteral("%1 strokes: painting one").arg(count), painted, painting, microseconds);
        printRow(QStringLiteral("%1 strokes: hitting one").arg(count), hit, hitting, microseconds);
    }
}

/// Mean CPU time of a mouse move with the left button held, its painting included.
double moveTime(MarkedPage *page, const QPointF &from)
{
    constexpr int moves = 200;
    page->mouse(QEvent::MouseButtonPress, from, Qt::LeftButton);
    const double whole = leastCpu(1, [&] {
        for (int i = 0; i < moves; ++i) {
            page->mouse(QEvent::MouseMove, from + QPointF(i % 50, i % 37), Qt::LeftButton);
            page->paint();
        }
    });
    page->mouse(QEvent::MouseButtonRelease, from, Qt::NoButton);
    page->paint();
    return whole / moves;
}

void benchMoves(const QString &title, MarkedPage *page)
{
    printTitle(title);
    PenTool pen(Qt::blue, 2, false);
    LineTool line(4);
    const QPointF middle(400, 400);
    page->host().currentMode = ToolMode;
    page->host().tool = &pen;
    printRow(QStringLiteral("a mouse move while the pen draws"), moveTime(page, middle), milliseconds);
    page->host().tool = &line;
    printRow(QStringLiteral("a mouse move while a line is drawn"), moveTime(page, middle), milliseconds);
    page->host().currentMode = TransformMode;
    auto *dragged = new PenLine;
    dragged->setPolygon(QPolygonF{{0, 0}, {60, 0}, {60, 60}, {0, 60}});
    dragged->setPos(380, 380);
    MarkItem::makeHandy(*dragged);
    page->page().addAnnotation(dragged);
    printRow(QStringLiteral("a mouse move while one mark is dragged"), moveTime(page, middle), milliseconds);
    if (dragged->pos() == QPointF(380, 380))
        qFatal("the mark was not dragged");
    page->host().tool = nullptr;
}

void benchReturn()
{
    constexpr int lines = 100'000;
    constexpr int runs = 10;
    printTitle(QStringLiteral("Return at the top of 100000 lines; reference: without marks"));
    MarkedPage page(lines * 10, QRectF(0, 100, pageWidth, lines * 10));
    page.host().currentMode = TextMode;
    page.page().focusDocument();
    const auto key = [&] { page.key(Qt::Key_Return, QStringLiteral("\r")); };
    const auto paint = [&] { page.paint(); };
    const double bare = leastCpu(runs, key, paint);
    const double barePainting = leastCpu(runs, paint, key);
    page.add(10'000);
    page.page().focusDocument();
    printRow(QStringLiteral("with 10000 marks below"), leastCpu(runs, key, paint), bare, milliseconds);
    printRow(QStringLiteral("    painting that follows"), leastCpu(runs, paint, key), barePainting, milliseconds);
}

} // namespace

int main(int argc, char **argv)
{
    prepareBenchmark();
    const QApplication application(argc, argv);
    QGuiApplication::styleHints()->setCursorFlashTime(0);
    benchStrokes();
    {
        MarkedPage page(10'000);
        page.add(10'000);
        benchMoves(QStringLiteral("10000 strokes all over a long text"), &page);
    }
    {
        MarkedPage page(viewHeight, QRectF(0, 0, pageWidth, viewHeight));
        page.add(10'000);
        benchMoves(QStringLiteral("10000 strokes on one screen"), &page);
    }
    benchReturn();
    return 0;
}

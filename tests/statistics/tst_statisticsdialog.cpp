// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/page.h"
#include "documents/pagestack.h"
#include "documents/pageview.h"
#include "statistics/statisticschart.h"
#include "statistics/statisticsdialog.h"
#include "statistics/statisticshost.h"
#include "support/fakehost.h"
#include "support/testmain.h"
#include "support/textrecorder.h"

#include <QElapsedTimer>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QSplitter>
#include <QStandardItemModel>
#include <QTableView>
#include <QTest>

#include <memory>

namespace {

const char *const noPrintSlot = "QObject::connect: No such slot StatisticsDialog::printStat\\(\\)";
const char *const noExportSlot = "QObject::connect: No such slot StatisticsDialog::exportStat\\(\\)";

/// A window with a stack of documents, which may be missing.
class StatisticsWindow : public QWidget, public StatisticsHost
{
public:
    PageStack *pageStack() const override { return stack; }
    PageStack *stack = nullptr;
};

/// A dialog on a window, and the parts of it that a user sees.
struct Statistics
{
    Statistics() { window.stack = &stack; }

    void addDocument(const QString &name, const QString &text)
    {
        auto *page = new Page(&host);
        page->setTextContents(name, text, QStringLiteral("1\n"));
        stack.addTab(new PageView(page, &stack), name);
    }
    StatisticsDialog &open()
    {
        if (!dialog) {
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(noPrintSlot));
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(noExportSlot));
            dialog = new StatisticsDialog(&window);
        }
        dialog->show();
        return *dialog;
    }
    QTableView *table() const { return dialog->findChild<QTableView *>(); }
    StatisticsChart *chart() const { return dialog->findChild<StatisticsChart *>(); }
    QAbstractItemModel *model() const { return table()->model(); }
    QList<QVariantList> rows() const
    {
        QList<QVariantList> all;
        for (int row = 0; row < model()->rowCount(); ++row) {
            QVariantList cells;
            for (int column = 0; column < model()->columnCount(); ++column)
                cells.append(model()->index(row, column).data(Qt::EditRole));
            all.append(cells);
        }
        return all;
    }
    QList<int> selectedRows() const
    {
        QList<int> selected;
        for (const QModelIndex &index : table()->selectionModel()->selectedRows())
            selected.append(index.row());
        return selected;
    }
    /// The chart as a picture, without its frame.
    QImage chartPicture() const { return chart()->viewport()->grab().toImage(); }
    bool hasWedges() const
    {
        // The middle of the left half of the pie.
        return chartPicture().pixelColor(8 + 40, 8 + 120) != QColor(Qt::white);
    }
    bool hasCircle() const
    {
        const QImage image = chartPicture();
        for (int x = 0; x < 20; ++x) {
            if (image.pixelColor(x, 8 + 142) != QColor(Qt::white))
                return true;
        }
        return false;
    }

    FakeHost host;
    StatisticsWindow window;
    PageStack stack{&host};
    StatisticsDialog *dialog = nullptr; ///< The window's.
};

QVariantList oneLineOf(const QString &name)
{
    return {name, 1, 1, 0, 0};
}

} // namespace

class TestStatisticsDialog : public QObject
{
    Q_OBJECT

private slots:
    void twoWarningsAtConstruction();
    void partsAndTexts();
    void tableAndModel();
    void textsAreLookedUp();
    void everyControlHasAName();
    void nothingIsCutOff();
    void withoutAWindow_data();
    void withoutAWindow();
    void noDocumentAtFirst();
    void noDocumentAnyMore();
    void threeDocuments();
    void documentsOfAnySizeCountAlike_data();
    void documentsOfAnySizeCountAlike();
    void tabsThatAreNoDocuments();
    void everyShowingFillsAnew();
    void chartFollowsTheSelection();
    void chartFollowsTheKeyboard();
    void sortingKeepsRowsTogether();
    void fillingWhileSorted();
    void buttonsWithoutEffect_data();
    void buttonsWithoutEffect();
    void okAccepts_data();
    void okAccepts();
    void manyDocuments();
};

void TestStatisticsDialog::twoWarningsAtConstruction()
{
    static QStringList messages;
    messages.clear();
    const auto before = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext &, const QString &text) { messages.append(text); });
    {
        const StatisticsDialog dialog(nullptr);
    }
    qInstallMessageHandler(before);
    QCOMPARE(messages.size(), 2);
    QVERIFY2(messages.at(0).contains(QRegularExpression(noPrintSlot)), qPrintable(messages.at(0)));
    QVERIFY2(messages.at(1).contains(QRegularExpression(noExportSlot)), qPrintable(messages.at(1)));
}

void TestStatisticsDialog::partsAndTexts()
{
    Statistics statistics;
    const StatisticsDialog &dialog = statistics.open();
    QCOMPARE(dialog.windowTitle(), "Zettelwerk - Source Code Statistics");
    QCOMPARE(dialog.size(), QSize(640, 400));
    const QList<QPushButton *> buttons = dialog.findChildren<QPushButton *>(QString(), Qt::FindDirectChildrenOnly);
    QCOMPARE(buttons.size(), 3);
    QStringList texts;
    for (const QPushButton *button : buttons)
        texts.append(button->text());
    QCOMPARE(texts, (QStringList{"Print", "Export to PDF", "OK"}));
    // One row: print, export, a gap, OK.
    QCOMPARE(buttons.at(0)->y(), buttons.at(2)->y());
    QVERIFY(buttons.at(0)->x() < buttons.at(1)->x());
    QVERIFY(buttons.at(1)->geometry().right() + 100 < buttons.at(2)->x());
    const auto *splitter = dialog.findChild<QSplitter *>();
    QCOMPARE(splitter->orientation(), Qt::Horizontal);
    QCOMPARE(splitter->widget(0), statistics.table());
    QCOMPARE(splitter->widget(1), statistics.chart());
    QVERIFY(splitter->geometry().bottom() < buttons.at(0)->y());
    QCOMPARE(splitter->widget(0)->sizePolicy().horizontalStretch(), 0);
    QCOMPARE(splitter->widget(1)->sizePolicy().horizontalStretch(), 2);
}

void TestStatisticsDialog::tableAndModel()
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(noPrintSlot));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(noExportSlot));
    const StatisticsDialog dialog(nullptr);
    const auto *table = dialog.findChild<QTableView *>();
    const auto *chart = dialog.findChild<StatisticsChart *>();
    const auto *model = dialog.findChild<QStandardItemModel *>();
    QCOMPARE(model->parent(), &dialog);
    QCOMPARE(model->rowCount(), 8);
    QCOMPARE(model->columnCount(), 5);
    QStringList headers;
    for (int column = 0; column < 5; ++column)
        headers.append(model->headerData(column, Qt::Horizontal).toString());
    QCOMPARE(headers, (QStringList{"File", "Tot Lines", "Cod Lines", "Com Lines", "Emp Lines"}));
    QCOMPARE(table->model(), model);
    QCOMPARE(chart->model(), model);
    QCOMPARE(table->selectionModel(), chart->selectionModel());
    QCOMPARE(table->selectionBehavior(), QAbstractItemView::SelectRows);
    QVERIFY(table->isSortingEnabled());
    QVERIFY(!table->isCornerButtonEnabled());
    for (int column = 0; column < 5; ++column)
        QCOMPARE(table->isColumnHidden(column), column >= 2);
    // Neither slots nor signals of its own.
    QCOMPARE(StatisticsDialog::staticMetaObject.methodCount(), QDialog::staticMetaObject.methodCount());
}

void TestStatisticsDialog::textsAreLookedUp()
{
    const TextRecorder recorder;
    Statistics statistics;
    statistics.addDocument("a.txt", "a");
    statistics.open();
    QVERIFY(statistics.hasWedges());
    for (const char *text : {"File", "Tot Lines", "Cod Lines", "Com Lines", "Emp Lines", "Print", "Export to PDF",
                             "Zettelwerk - Source Code Statistics"})
        QVERIFY2(recorder.has("StatisticsDialog", text), text);
    QVERIFY(!recorder.has("StatisticsDialog", "OK"));
    for (const char *text : {"comments", "code", "empty lines", "%1 %", "Total # of lines: %1"})
        QVERIFY2(recorder.has("StatisticsChart", text), text);
}

void TestStatisticsDialog::everyControlHasAName()
{
    Statistics statistics;
    statistics.open();
    QVERIFY(!statistics.table()->accessibleName().isEmpty());
    QVERIFY(!statistics.chart()->accessibleName().isEmpty());
    QVERIFY(statistics.table()->accessibleName() != statistics.chart()->accessibleName());
    // From the table on to the buttons.
    QTRY_VERIFY(statistics.dialog->isActiveWindow());
    QCOMPARE(statistics.dialog->focusWidget(), statistics.table());
}

void TestStatisticsDialog::nothingIsCutOff()
{
    Statistics statistics;
    statistics.addDocument("a.txt", "a");
    statistics.open();
    const QFontMetrics metrics(statistics.chart()->font());
    const int right =
        8 + 284 +
        qMax(30 + metrics.horizontalAdvance("empty lines"), 10 + metrics.horizontalAdvance("Total # of lines: 100"));
    QVERIFY2(statistics.chart()->viewport()->width() > right,
             qPrintable(QString::number(statistics.chart()->viewport()->width())));
    QVERIFY(statistics.chart()->viewport()->height() > 8 + 284 + metrics.descent());
    const QHeaderView *header = statistics.table()->horizontalHeader();
    for (const int column : {0, 1})
        QVERIFY(header->sectionSize(column) >= metrics.horizontalAdvance("Tot Lines"));
    QVERIFY(header->length() <= statistics.table()->viewport()->width());
}

void TestStatisticsDialog::withoutAWindow_data()
{
    QTest::addColumn<bool>("hasWindow");
    QTest::newRow("no window") << false;
    QTest::newRow("no stack of documents") << true;
}

void TestStatisticsDialog::withoutAWindow()
{
    QFETCH(const bool, hasWindow);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(noPrintSlot));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(noExportSlot));
    StatisticsWindow window;
    QWidget other;
    StatisticsDialog dialog(hasWindow ? &window : &other);
    dialog.show();
    const auto *table = dialog.findChild<QTableView *>();
    QCOMPARE(table->model()->rowCount(), 8);
    QVERIFY(!table->model()->index(0, 0).data().isValid());
}

void TestStatisticsDialog::noDocumentAtFirst()
{
    Statistics statistics;
    statistics.open();
    QCOMPARE(statistics.model()->rowCount(), 0);
    QVERIFY(statistics.selectedRows().isEmpty());
    QVERIFY(!statistics.hasWedges());
    QVERIFY(!statistics.hasCircle());
}

void TestStatisticsDialog::noDocumentAnyMore()
{
    Statistics statistics;
    statistics.addDocument("a.txt", "a");
    statistics.open();
    QVERIFY(statistics.hasWedges());
    statistics.dialog->hide();
    statistics.stack.closeAllTabs();
    statistics.open();
    QCOMPARE(statistics.model()->rowCount(), 0);
    QVERIFY(!statistics.hasWedges());
    QVERIFY(statistics.hasCircle());
}

void TestStatisticsDialog::threeDocuments()
{
    Statistics statistics;
    statistics.addDocument("/home/a.cpp", "int a;\n// b\n\n");
    statistics.addDocument("b.txt", "");
    statistics.addDocument("c.txt", "// all\n// comment");
    statistics.open();
    QCOMPARE(statistics.rows(),
             (QList<QVariantList>{oneLineOf("/home/a.cpp"), oneLineOf("b.txt"), oneLineOf("c.txt")}));
    for (int column = 1; column < 5; ++column)
        QCOMPARE(statistics.model()->index(0, column).data(Qt::EditRole).typeId(), int(QMetaType::Int));
    QCOMPARE(statistics.selectedRows(), QList{0});
    // A full wedge of code: green all round.
    const QImage image = statistics.chartPicture();
    for (const QPoint place : {QPoint(50, 100), QPoint(230, 100), QPoint(150, 240), QPoint(150, 40)})
        QVERIFY(image.pixelColor(place).green() > image.pixelColor(place).red() + 60);
}

void TestStatisticsDialog::documentsOfAnySizeCountAlike_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("one line") << "a";
    QTest::newRow("line feed") << "\n";
    QTest::newRow("many lines, comments and blank lines")
        << QString("code\n// comment\n\n /* block */\n").repeated(5000);
    QTest::newRow("one long line") << QString(1'000'000, 'x');
}

void TestStatisticsDialog::documentsOfAnySizeCountAlike()
{
    QFETCH(const QString, text);
    Statistics statistics;
    statistics.addDocument("a.cpp", text);
    statistics.open();
    QCOMPARE(statistics.rows(), QList<QVariantList>{oneLineOf("a.cpp")});
}

void TestStatisticsDialog::tabsThatAreNoDocuments()
{
    Statistics statistics;
    QGraphicsScene foreign;
    statistics.stack.addTab(new QLabel("no view"), "0");
    statistics.addDocument("1", "a");
    statistics.stack.addTab(new QLabel("no view"), "2");
    statistics.stack.addTab(new PageView(&foreign, &statistics.stack), "3");
    statistics.addDocument("4", "b");
    statistics.open();
    QCOMPARE(statistics.rows(), (QList<QVariantList>{oneLineOf("1"), oneLineOf("4")}));
}

void TestStatisticsDialog::everyShowingFillsAnew()
{
    Statistics statistics;
    statistics.addDocument("a.txt", "a");
    statistics.open();
    statistics.addDocument("b.txt", "b");
    // Nothing updates the table while it is shown.
    QCOMPARE(statistics.model()->rowCount(), 1);
    statistics.dialog->hide();
    statistics.open();
    QCOMPARE(statistics.rows(), (QList<QVariantList>{oneLineOf("a.txt"), oneLineOf("b.txt")}));
    statistics.table()->selectRow(1);
    statistics.dialog->hide();
    statistics.stack.removeTab(0);
    statistics.open();
    QCOMPARE(statistics.rows(), QList<QVariantList>{oneLineOf("b.txt")});
    QCOMPARE(statistics.selectedRows(), QList{0});
}

void TestStatisticsDialog::chartFollowsTheSelection()
{
    Statistics statistics;
    statistics.addDocument("a.txt", "a");
    statistics.addDocument("b.txt", "b");
    statistics.open();
    // Other numbers than every document gives, to tell the rows apart.
    statistics.model()->setData(statistics.model()->index(1, 2), 0);
    statistics.model()->setData(statistics.model()->index(1, 3), 1);
    const QImage first = statistics.chartPicture();
    QTableView *table = statistics.table();
    const auto click = [&](int row, Qt::KeyboardModifiers modifiers) {
        QTest::mouseClick(table->viewport(), Qt::LeftButton, modifiers,
                          table->visualRect(table->model()->index(row, 0)).center());
    };
    click(1, {});
    QCOMPARE(statistics.selectedRows(), QList{1});
    const QImage second = statistics.chartPicture();
    QVERIFY(second != first);
    click(0, Qt::ControlModifier);
    QCOMPARE(statistics.selectedRows().size(), 2);
    QVERIFY(statistics.chartPicture() != second);
    click(0, {});
    QCOMPARE(statistics.chartPicture(), first);
}

void TestStatisticsDialog::chartFollowsTheKeyboard()
{
    Statistics statistics;
    statistics.addDocument("a.txt", "a");
    statistics.addDocument("b.txt", "b");
    statistics.open();
    QVERIFY(QTest::qWaitForWindowActive(statistics.dialog));
    statistics.table()->setFocus();
    QCoreApplication::processEvents();
    struct : QObject
    {
        bool eventFilter(QObject *, QEvent *event) override
        {
            painted = painted || event->type() == QEvent::Paint;
            return false;
        }
        bool painted = false;
    } watcher;
    statistics.chart()->viewport()->installEventFilter(&watcher);
    QTest::keyClick(statistics.table(), Qt::Key_Down);
    QCOMPARE(statistics.selectedRows(), QList{1});
    QTRY_VERIFY(watcher.painted);
}

void TestStatisticsDialog::sortingKeepsRowsTogether()
{
    Statistics statistics;
    for (const char *name : {"b.txt", "a.txt", "c.txt"})
        statistics.addDocument(name, "x");
    statistics.open();
    statistics.model()->setData(statistics.model()->index(0, 1), 7);
    QCOMPARE(statistics.selectedRows(), QList{0});
    const QImage before = statistics.chartPicture();
    statistics.table()->sortByColumn(0, Qt::AscendingOrder);
    QStringList names;
    for (const QVariantList &row : statistics.rows())
        names.append(row.first().toString());
    QCOMPARE(names, (QStringList{"a.txt", "b.txt", "c.txt"}));
    QCOMPARE(statistics.rows().at(1).at(1).toInt(), 7);
    // The same document is selected, in another row, and the chart is about it.
    QCOMPARE(statistics.selectedRows(), QList{1});
    QCOMPARE(statistics.chartPicture(), before);
}

void TestStatisticsDialog::fillingWhileSorted()
{
    Statistics statistics;
    for (const char *name : {"b.txt", "a.txt", "c.txt"})
        statistics.addDocument(name, "x");
    statistics.open();
    QStringList names;
    for (const Qt::SortOrder order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
        statistics.table()->sortByColumn(0, order);
        statistics.dialog->hide();
        statistics.open();
        QCOMPARE(statistics.rows(), (QList<QVariantList>{oneLineOf("b.txt"), oneLineOf("a.txt"), oneLineOf("c.txt")}));
        QCOMPARE(statistics.selectedRows(), QList{0});
    }
}

void TestStatisticsDialog::buttonsWithoutEffect_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("print") << "Print";
    QTest::newRow("export") << "Export to PDF";
}

void TestStatisticsDialog::buttonsWithoutEffect()
{
    QFETCH(const QString, text);
    Statistics statistics;
    statistics.addDocument("a.txt", "a");
    const StatisticsDialog &dialog = statistics.open();
    const QList<QVariantList> before = statistics.rows();
    for (QPushButton *button : dialog.findChildren<QPushButton *>()) {
        if (button->text() == text)
            QTest::mouseClick(button, Qt::LeftButton);
    }
    QVERIFY(dialog.isVisible());
    QVERIFY(!QApplication::activeModalWidget());
    QVERIFY(!QApplication::activePopupWidget());
    QCOMPARE(statistics.rows(), before);
    QCOMPARE(dialog.result(), 0);
}

void TestStatisticsDialog::okAccepts_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("button") << false;
    QTest::newRow("Return") << true;
}

void TestStatisticsDialog::okAccepts()
{
    QFETCH(const bool, byKey);
    Statistics statistics;
    StatisticsDialog &dialog = statistics.open();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    if (byKey)
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    else
        QTest::mouseClick(dialog.findChildren<QPushButton *>(QString(), Qt::FindDirectChildrenOnly).at(2),
                          Qt::LeftButton);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
}

void TestStatisticsDialog::manyDocuments()
{
    constexpr int count = 150;
    Statistics statistics;
    for (int i = 0; i < count; ++i)
        statistics.addDocument(QStringLiteral("/some/long/path/to/a/document/number %1.txt").arg(i), "x");
    QElapsedTimer timer;
    timer.start();
    statistics.open();
    QCOMPARE(statistics.model()->rowCount(), count);
    QVERIFY2(timer.elapsed() < 5000, "filling the table takes too long");
}

REGISTER_TEST(TestStatisticsDialog)
#include "tst_statisticsdialog.moc"

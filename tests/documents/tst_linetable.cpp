// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/linetable.h"

#include "support/testmain.h"

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>

class TestLineTable : public QObject
{
    Q_OBJECT

private slots:
    void emptyTableHasNoSize();
    void findsLinesByPosition();
    void agreesWithAPlainList_data();
    void agreesWithAPlainList();
};

void TestLineTable::emptyTableHasNoSize()
{
    LineTable table;
    table.replace(0, 0, {});
    QCOMPARE(table.count(), 0);
    QCOMPARE(table.height(), 0);
    QCOMPARE(table.width(), qint64(0));
    QCOMPARE(table.top(5), 0);
    QCOMPARE(table.indexAt(0.0), -1);
}

void TestLineTable::findsLinesByPosition()
{
    LineTable table;
    const std::vector<LineTable::Line> lines{{640, 10, false}, {64, 20, true}, {128, 5, false}};
    table.replace(0, 0, lines);
    QCOMPARE(table.height(), 35);
    QCOMPARE(table.width(), qint64(640));
    QCOMPARE(table.indexAt(-3.0), 0);
    QCOMPARE(table.indexAt(9.99), 0);
    QCOMPARE(table.indexAt(10.0), 1);
    QCOMPARE(table.indexAt(29.0), 1);
    QCOMPARE(table.indexAt(30.5), 2);
    QCOMPARE(table.indexAt(1000.0), 2);
    QCOMPARE(table.top(-1), 0);
    QCOMPARE(table.top(2), 30);
    QCOMPARE(table.top(3), 35);
    QVERIFY(table.at(1).formatted);
    QVERIFY(!table.at(2).formatted);
}

void TestLineTable::agreesWithAPlainList_data()
{
    QTest::addColumn<int>("largest");
    // Within a chunk, over some, over many.
    QTest::newRow("few lines at a time") << 3;
    QTest::newRow("hundreds of lines at a time") << 700;
    QTest::newRow("thousands of lines at a time") << 9000;
}

void TestLineTable::agreesWithAPlainList()
{
    QFETCH(int, largest);
    QRandomGenerator random(static_cast<quint32>(largest));
    LineTable table;
    std::vector<LineTable::Line> list;
    for (int step = 0; step < 300; ++step) {
        const int count = static_cast<int>(list.size());
        const int first = random.bounded(count + 1);
        const int removed = std::min(count - first, random.bounded(largest));
        std::vector<LineTable::Line> lines(static_cast<size_t>(step % 4 == 0 ? removed : random.bounded(largest)));
        for (LineTable::Line &line : lines)
            line = {random.bounded(100'000), random.bounded(1, 40), random.bounded(2) == 1};
        table.replace(first, removed, lines);
        list.erase(list.begin() + first, list.begin() + first + removed);
        list.insert(list.begin() + first, lines.begin(), lines.end());

        qint64 height = 0;
        qint64 width = 0;
        const int probe = list.empty() ? 0 : random.bounded(static_cast<int>(list.size()));
        qint64 probeTop = 0;
        for (size_t i = 0; i < list.size(); ++i) {
            if (static_cast<int>(i) == probe)
                probeTop = height;
            height += list[i].height;
            width = std::max(width, list[i].width);
        }
        QCOMPARE(table.count(), static_cast<int>(list.size()));
        QCOMPARE(table.height(), height);
        QCOMPARE(table.width(), width);
        if (list.empty())
            continue;
        const LineTable::Line &expected = list[static_cast<size_t>(probe)];
        QCOMPARE(table.at(probe).height, expected.height);
        QCOMPARE(table.at(probe).width, expected.width);
        QCOMPARE(table.at(probe).formatted, expected.formatted);
        QCOMPARE(table.top(probe), probeTop);
        QCOMPARE(table.indexAt(static_cast<double>(probeTop)), probe);
        QCOMPARE(table.indexAt(static_cast<double>(probeTop + expected.height) - 0.5), probe);
    }
}

REGISTER_TEST(TestLineTable)
#include "tst_linetable.moc"

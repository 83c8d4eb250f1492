// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ringbuffer.h"
#include "support/testmain.h"

#include <QTest>

#include <sstream>

namespace {

std::string dumpOf(const RingBuffer &ring)
{
    std::ostringstream out;
    ring.dump(out);
    return out.str();
}

/// "1\n2\n3\n" for @p from 1 and @p to 3.
std::string numbers(int from, int to)
{
    std::string text;
    for (int i = from; i <= to; ++i)
        text += std::to_string(i) + '\n';
    return text;
}

} // namespace

class TestRingBuffer : public QObject
{
    Q_OBJECT

private slots:
    void keepsTheLastLines_data();
    void keepsTheLastLines();
    void zeroByteCutsALine();
    void dumpChangesNothing();
    void emptyLinesCount();
};

void TestRingBuffer::keepsTheLastLines_data()
{
    QTest::addColumn<int>("capacity");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("first");
    QTest::newRow("empty") << 3 << 0 << 1;
    QTest::newRow("some") << 3 << 2 << 1;
    QTest::newRow("exactly full") << 3 << 3 << 1;
    QTest::newRow("one over") << 3 << 4 << 2;
    QTest::newRow("twice round") << 3 << 6 << 4;
    QTest::newRow("more") << 3 << 11 << 9;
    QTest::newRow("room for one") << 1 << 5 << 5;
    QTest::newRow("500 of 500") << 500 << 500 << 1;
    QTest::newRow("501 of 500") << 500 << 501 << 2;
}

void TestRingBuffer::keepsTheLastLines()
{
    QFETCH(int, capacity);
    QFETCH(int, count);
    QFETCH(int, first);
    RingBuffer ring(capacity, nullptr);
    for (int i = 1; i <= count; ++i)
        ring.push(std::to_string(i).c_str());
    QCOMPARE(dumpOf(ring), numbers(first, count));
}

void TestRingBuffer::zeroByteCutsALine()
{
    RingBuffer ring(2, nullptr);
    ring.push("a longer line that was here first");
    ring.push("b");
    ring.push("cut\0here");
    QCOMPARE(dumpOf(ring), std::string("b\ncut\n"));
}

void TestRingBuffer::dumpChangesNothing()
{
    RingBuffer ring(2, nullptr);
    for (int i = 1; i <= 3; ++i)
        ring.push(std::to_string(i).c_str());
    QCOMPARE(dumpOf(ring), numbers(2, 3));
    QCOMPARE(dumpOf(ring), numbers(2, 3));
    ring.push("4");
    QCOMPARE(dumpOf(ring), numbers(3, 4));
}

void TestRingBuffer::emptyLinesCount()
{
    RingBuffer ring(3, nullptr);
    ring.push("");
    ring.push("a");
    ring.push("");
    QCOMPARE(dumpOf(ring), std::string("\na\n\n"));
}

REGISTER_TEST(TestRingBuffer)
#include "tst_ringbuffer.moc"

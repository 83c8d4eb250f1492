// SPDX-License-Identifier: GPL-3.0-or-later
// How fast annotated files with many pen strokes are saved and loaded, and what memory that needs beside the strokes,
// against the bare stream classes of Qt handling the same bytes.
#include "annotations/markitem.h"
#include "annotations/penline.h"
#include "documents/page.h"
#include "measure.h"
#include "persistence/iosystem.h"

#include <QApplication>
#include <QFile>
#include <QPen>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <array>
#include <cmath>
#include <memory>
#include <utility>

namespace {

const QString milliseconds = QStringLiteral("ms");
const QString megabytes = QStringLiteral("MB");

constexpr int shapeCount = 100;
constexpr int pointCount = 40;

/// One of the shapes that the strokes have, in turn; coordinates with as many digits as a mouse on a zoomed page gives.
QPolygonF shape(int number)
{
    QPolygonF points;
    for (int i = 0; i < pointCount; ++i)
        points.append({i * (1.0 + number / 7.0), 20.0 * std::sin(i / 3.0 + number)});
    return points;
}

QPointF place(int stroke)
{
    return {(stroke % 700) + 0.25, stroke / 50.0};
}

/// A text with this many strokes on it.
std::unique_ptr<Page> annotatedPage(int strokes)
{
    auto page = std::make_unique<Page>(nullptr);
    page->newDocument();
    for (int i = 0; i < strokes; ++i) {
        auto *line = new PenLine;
        line->setPen(QPen(QColor(200, 30, 40, 180), 3));
        line->setPolygon(shape(i % shapeCount));
        line->setPos(place(i));
        MarkItem::makeHandy(*line);
        page->addItem(line);
    }
    return page;
}

QString number(double value)
{
    return QString::number(value, 'g', 17);
}

/// The elements of the strokes, written by the bare class; everything that can be is prepared beforehand.
class BareWriter
{
public:
    BareWriter()
    {
        for (int i = 0; i < shapeCount; ++i) {
            for (const QPointF &point : shape(i))
                m_points[std::size_t(i)].append({number(point.x()), number(point.y())});
        }
    }

    void write(const QString &path, int strokes) const
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly))
            qFatal("cannot write the reference file");
        QXmlStreamWriter xml(&file);
        xml.setAutoFormatting(true);
        xml.setAutoFormattingIndent(2);
        xml.writeStartElement(QStringLiteral("Zettelwerk-xml"));
        for (int i = 0; i < strokes; ++i)
            writeStroke(xml, i);
        xml.writeEndElement();
    }

private:
    void writeStroke(QXmlStreamWriter &xml, int stroke) const
    {
        xml.writeStartElement(QStringLiteral("pen_line"));
        xml.writeAttribute(QStringLiteral("w"), QStringLiteral("3"));
        xml.writeAttribute(QStringLiteral("red"), QStringLiteral("200"));
        xml.writeAttribute(QStringLiteral("green"), QStringLiteral("30"));
        xml.writeAttribute(QStringLiteral("blue"), QStringLiteral("40"));
        xml.writeAttribute(QStringLiteral("alpha"), QStringLiteral("180"));
        xml.writeAttribute(QStringLiteral("pos_x"), number(place(stroke).x()));
        xml.writeAttribute(QStringLiteral("pos_y"), number(place(stroke).y()));
        xml.writeAttribute(QStringLiteral("antialias"), QStringLiteral("0"));
        for (const auto &[x, y] : m_points[std::size_t(stroke % shapeCount)]) {
            xml.writeStartElement(QStringLiteral("p"));
            xml.writeAttribute(QStringLiteral("x"), x);
            xml.writeAttribute(QStringLiteral("y"), y);
            xml.writeEndElement();
        }
        xml.writeEndElement();
    }

    std::array<QList<std::pair<QString, QString>>, shapeCount> m_points;
};

void readBare(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read the sample file");
    QXmlStreamReader xml(&file);
    while (!xml.atEnd())
        xml.readNext();
    if (xml.hasError())
        qFatal("the sample file is damaged");
}

void save(Page *page, const QString &path)
{
    if (!IoSystem::instance()->save(page, path))
        qFatal("cannot save the sample file");
}

std::unique_ptr<Page> load(const QString &path)
{
    auto page = std::make_unique<Page>(nullptr);
    if (!IoSystem::instance()->load(page.get(), path))
        qFatal("cannot load the sample file");
    return page;
}

/// The part of @p time, in milliseconds, that falls to one of the strokes, in microseconds.
double perStroke(double time, int strokes)
{
    return time * 1e3 / strokes;
}

void benchTimes(const QTemporaryDir &folder, int strokes)
{
    constexpr int runs = 3;
    const QString path = folder.filePath(QStringLiteral("strokes%1.oxn").arg(strokes));
    const QString reference = folder.filePath(QStringLiteral("reference.xml"));
    const BareWriter bareWriter;
    std::unique_ptr<Page> page = annotatedPage(strokes);
    const double saving = leastCpu(runs, [&] { save(page.get(), path); });
    const double bareWriting = leastCpu(runs, [&] { bareWriter.write(reference, strokes); });
    const double bareReading = leastCpu(runs, [&] { readBare(path); });
    const double loading = leastCpu(
        runs, [&] { page = load(path); }, [&] { page.reset(); });

    printTitle(QStringLiteral("%1 strokes of %2 points, %3 MB; reference: %4 MB, bare stream classes")
                   .arg(strokes)
                   .arg(pointCount)
                   .arg(double(QFile(path).size()) / 1e6, 0, 'f', 1)
                   .arg(double(QFile(reference).size()) / 1e6, 0, 'f', 1));
    printRow(QStringLiteral("save: write, read back, compare"), saving, bareWriting, milliseconds);
    printRow(QStringLiteral("load"), loading, bareReading, milliseconds);
    printRow(QStringLiteral("both"), saving + loading, bareWriting + bareReading, milliseconds);
    printRow(QStringLiteral("save, for one stroke"), perStroke(saving, strokes), QStringLiteral("us"));
    printRow(QStringLiteral("load, for one stroke"), perStroke(loading, strokes), QStringLiteral("us"));
}

void benchMemory(const QTemporaryDir &folder, int strokes)
{
    const QString path = folder.filePath(QStringLiteral("strokes%1.oxn").arg(strokes));
    printTitle(QStringLiteral("Peak memory of %1 strokes beside the strokes themselves").arg(strokes));
    PeakMemory loadPeak;
    const std::unique_ptr<Page> page = load(path);
    printRow(QStringLiteral("load"), loadPeak.aboveNow(), megabytes);
    PeakMemory savePeak;
    save(page.get(), path);
    printRow(QStringLiteral("save"), savePeak.aboveNow(), megabytes);
}

} // namespace

int main(int argc, char **argv)
{
    prepareBenchmark();
    const QApplication application(argc, argv);
    const QTemporaryDir folder;
    for (const int strokes : {1'000, 10'000, 50'000})
        benchTimes(folder, strokes);
    benchMemory(folder, 50'000);
    return 0;
}

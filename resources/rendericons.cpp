// SPDX-License-Identifier: GPL-3.0-or-later
//
// rendericons SOURCES TARGET
//
// Draws every SVG below the folder SOURCES into the folder TARGET, at one, two and three times the size that the SVG
// states ("new.png", "new@2x.png", "new@3x.png"), and lists the pictures in TARGET/icons.qrc under the same relative
// paths. Runs on the build machine only. Ends with 1, naming the file and the fault, when a drawing is broken, blank,
// or uses what Qt's SVG module leaves out without a word.
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QSaveFile>
#include <QString>
#include <QStringList>
#include <QSvgRenderer>
#include <QXmlStreamReader>

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace {

constexpr int largestScale = 3;

/// A picture counts as blank when fewer of its pixels than this share are at least half opaque.
constexpr double leastCoverage = 0.04;

/// What the SVG module had to say since it was last cleared. It reports through the message log and nowhere else.
QStringList complaints;

void collectComplaint(QtMsgType, const QMessageLogContext &, const QString &message)
{
    complaints.append(message);
}

[[noreturn]] void fail(const QString &file, const QString &fault)
{
    std::fprintf(stderr, "rendericons: %s: %s\n", qPrintable(file), qPrintable(fault));
    std::exit(1);
}

QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        fail(path, file.errorString());
    return file.readAll();
}

/// What is wrong with an attribute, or an empty string. Qt draws the rest of a path up to the first fault in it, and a
/// colour that it does not know in black, both in silence.
QString attributeFault(const QXmlStreamAttribute &attribute)
{
    static const QRegularExpression pathData(QStringLiteral("\\A[MLHVCSQTAZmlhvcsqtaz0-9., +-]*\\z"));
    static const QRegularExpression colour(QStringLiteral("\\A(none|#[0-9a-f]{6}|url\\(#\\w+\\))\\z"));
    static const QStringList colours{"fill", "stroke", "stop-color"};
    const QString name = attribute.name().toString();
    const QString value = attribute.value().toString();
    const bool ok = name == QLatin1String("d") ? pathData.match(value).hasMatch()
                    : colours.contains(name)   ? colour.match(value).hasMatch()
                                               : true;
    return ok ? QString() : QStringLiteral("%1=\"%2\" is not what an icon may say there").arg(name, value);
}

/// Fails unless the text is well-formed XML of known size and holds only what is certain to be drawn.
void checkSource(const QString &path, const QByteArray &svg)
{
    static const QStringList drawn{"svg",     "g",    "path",           "rect",           "circle",
                                   "ellipse", "defs", "linearGradient", "radialGradient", "stop"};
    QXmlStreamReader reader(svg);
    const auto failHere = [&](const QString &fault) {
        fail(path, QStringLiteral("line %1: %2").arg(reader.lineNumber()).arg(fault));
    };
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QString element = reader.name().toString();
        const QXmlStreamAttributes attributes = reader.attributes();
        if (!drawn.contains(element))
            failHere(QStringLiteral("<%1> is not among the elements that icons may use").arg(element));
        if (element == QLatin1String("svg") && !(attributes.hasAttribute("width") && attributes.hasAttribute("height")))
            failHere(QStringLiteral("the drawing states no width and height"));
        for (const QXmlStreamAttribute &attribute : attributes) {
            if (const QString fault = attributeFault(attribute); !fault.isEmpty())
                failHere(fault);
        }
    }
    if (reader.hasError())
        failHere(reader.errorString());
}

QImage render(QSvgRenderer &renderer, int scale)
{
    QImage image(renderer.defaultSize() * scale, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    return image;
}

bool isBlank(const QImage &image)
{
    qint64 opaque = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            opaque += qAlpha(image.pixel(x, y)) >= 128 ? 1 : 0;
    return static_cast<double>(opaque) < leastCoverage * image.width() * image.height();
}

/// Draws one SVG at all scales; returns the paths of the pictures, relative to the target folder.
QStringList renderFile(const QDir &sources, const QDir &target, const QString &name)
{
    const QString path = sources.filePath(name);
    const QByteArray svg = contentsOf(path);
    checkSource(path, svg);

    complaints.clear();
    QSvgRenderer renderer(svg);
    if (!renderer.isValid() || !complaints.isEmpty())
        fail(path, QStringLiteral("not a valid drawing. ") + complaints.join(QLatin1Char(' ')));

    const QString base = name.chopped(4);
    target.mkpath(QFileInfo(target.filePath(base)).path());
    QStringList pictures;
    for (int scale = 1; scale <= largestScale; ++scale) {
        const QImage image = render(renderer, scale);
        if (isBlank(image))
            fail(path, QStringLiteral("renders blank at scale %1").arg(scale));
        const QString suffix = scale == 1 ? QString() : QStringLiteral("@%1x").arg(scale);
        pictures.append(base + suffix + QStringLiteral(".png"));
        if (!image.save(target.filePath(pictures.constLast())))
            fail(target.filePath(pictures.constLast()), QStringLiteral("cannot be written"));
    }
    return pictures;
}

void writeList(const QDir &target, const QStringList &pictures)
{
    QSaveFile list(target.filePath(QStringLiteral("icons.qrc")));
    if (!list.open(QIODevice::WriteOnly))
        fail(list.fileName(), list.errorString());
    list.write("<RCC>\n    <qresource prefix=\"/\">\n");
    for (const QString &picture : pictures)
        list.write(QStringLiteral("        <file>%1</file>\n").arg(picture).toUtf8());
    list.write("    </qresource>\n</RCC>\n");
    if (!list.commit())
        fail(list.fileName(), list.errorString());
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: rendericons SOURCES TARGET\n");
        return 2;
    }
    const QDir sources(QDir(QString::fromLocal8Bit(argv[1])).absolutePath());
    const QDir target(QString::fromLocal8Bit(argv[2]));
    qInstallMessageHandler(collectComplaint);

    QStringList names;
    QDirIterator files(sources.path(), {QStringLiteral("*.svg")}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext())
        names.append(sources.relativeFilePath(files.next()));
    // Folders are read in no fixed order; the outcome must not depend on it.
    names.sort();
    if (names.isEmpty())
        fail(sources.path(), QStringLiteral("holds no drawings"));

    QStringList pictures;
    for (const QString &name : std::as_const(names))
        pictures.append(renderFile(sources, target, name));
    writeList(target, pictures);
    return 0;
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/testmain.h"

#include <QColor>
#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>
#include <cmath>

namespace {

struct Picture
{
    QString name;
    int size; ///< Width and height at scale 1.
};

/// Every picture that is embedded, without ":/" and ".png".
const QList<Picture> &pictures()
{
    static const QList<Picture> table{
        {"active_tags/bug", 24},
        {"active_tags/idea", 24},
        {"active_tags/important", 24},
        {"active_tags/note", 24},
        {"active_tags/question", 24},
        {"config_icons/line4", 24},
        {"config_icons/mail", 24},
        {"config_icons/marker", 24},
        {"config_icons/other", 24},
        {"config_icons/page", 24},
        {"config_icons/pen", 24},
        {"config_icons/printer", 24},
        {"config_icons/round_rect", 24},
        {"config_icons/screenshot", 24},
        {"config_icons/syntax", 24},
        {"config_icons/textbox", 24},
        {"dialog_icons/forward", 32},
        {"dialog_icons/ok", 32},
        {"dialog_icons/window_new", 24},
        {"general/images/my/about", 120},
        {"images/c/email_32x32", 32},
        {"images/c/othersett_32x32", 32},
        {"images/c/reminder_32x32", 32},
        {"images/kestrin7", 256},
        {"images/kestrin7_16", 16},
        {"images/kestrin7_24", 24},
        {"images/kestrin7_32", 32},
        {"images/qttoolbardialog/back", 24},
        {"images/qttoolbardialog/down", 24},
        {"images/qttoolbardialog/forward", 24},
        {"images/qttoolbardialog/minus", 24},
        {"images/qttoolbardialog/plus", 24},
        {"images/qttoolbardialog/up", 24},
        {"main_window/book", 24},
        {"main_window/close", 24},
        {"main_window/copy", 24},
        {"main_window/cut", 24},
        {"main_window/delete", 24},
        {"main_window/find", 24},
        {"main_window/fullscreen", 24},
        {"main_window/highsyntax", 24},
        {"main_window/lock", 24},
        {"main_window/new", 24},
        {"main_window/open", 24},
        {"main_window/paste", 24},
        {"main_window/printer", 24},
        {"main_window/redo", 24},
        {"main_window/save", 24},
        {"main_window/topdf", 24},
        {"main_window/undo", 24},
        {"main_window/website", 24},
        {"main_window/zoom_in", 24},
        {"main_window/zoom_out", 24},
        {"search_icons/backward", 24},
        {"search_icons/close", 24},
        {"search_icons/forward", 24},
        {"tool_icons/arrow1", 24},
        {"tool_icons/arrow2", 24},
        {"tool_icons/arrow3", 24},
        {"tool_icons/arrow4", 24},
        {"tool_icons/black_pen", 24},
        {"tool_icons/blue_marker", 24},
        {"tool_icons/blue_pen", 24},
        {"tool_icons/curly_bracket", 24},
        {"tool_icons/ellipse", 24},
        {"tool_icons/eraser", 24},
        {"tool_icons/green_marker", 24},
        {"tool_icons/green_pen", 24},
        {"tool_icons/line1", 24},
        {"tool_icons/line2", 24},
        {"tool_icons/line3", 24},
        {"tool_icons/line4", 24},
        {"tool_icons/medium_black_pen", 24},
        {"tool_icons/medium_blue_pen", 24},
        {"tool_icons/medium_green_pen", 24},
        {"tool_icons/medium_red_pen", 24},
        {"tool_icons/move", 24},
        {"tool_icons/rect_bracket", 24},
        {"tool_icons/rectangle", 24},
        {"tool_icons/red_marker", 24},
        {"tool_icons/red_pen", 24},
        {"tool_icons/round_rect", 24},
        {"tool_icons/screenshot", 24},
        {"tool_icons/text_box", 24},
        {"tool_icons/text_mode", 24},
        {"tool_icons/textbox2", 24},
        {"tool_icons/yellow_marker", 24},
    };
    return table;
}

/// The picture as drawn for a scale, with the pixels counted one by one whatever the screen.
QImage load(const QString &name, int scale = 1)
{
    const QString suffix = scale == 1 ? QString() : QStringLiteral("@%1x").arg(scale);
    QFile file(QStringLiteral(":/%1%2.png").arg(name, suffix));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QImage::fromData(file.readAll(), "PNG").convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

double coverage(const QImage &image)
{
    int opaque = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            opaque += qAlpha(image.pixel(x, y)) >= 128 ? 1 : 0;
    return static_cast<double>(opaque) / (image.width() * image.height());
}

QImage onGround(const QImage &image, const QColor &ground)
{
    QImage result(image.size(), QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb over = image.pixel(x, y); // not premultiplied: pixel() undoes that
            const double a = qAlpha(over) / 255.0;
            const auto mix = [a](int top, int below) {
                return static_cast<int>(std::lround(a * top + (1 - a) * below));
            };
            result.setPixel(x, y,
                            qRgb(mix(qRed(over), ground.red()), mix(qGreen(over), ground.green()),
                                 mix(qBlue(over), ground.blue())));
        }
    }
    return result;
}

/// Relative luminance of an sRGB colour, 0 for black to 1 for white.
double luminance(QRgb colour)
{
    const auto linear = [](int component) {
        const double c = component / 255.0;
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) + 0.0722 * linear(qBlue(colour));
}

/// Contrast of two colours as the Web Content Accessibility Guidelines define it: 1 for equal ones, 21 at most.
double contrast(QRgb a, QRgb b)
{
    const double la = luminance(a);
    const double lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

/// What an icon shows on a ground.
struct Legibility
{
    double share;      ///< Pixels that stand out, as a share of the drawn ones.
    QRect drawn;       ///< Smallest rectangle around the drawn pixels.
    QRect standingOut; ///< Smallest rectangle around those that stand out.
};

/// A pixel is drawn if it is at least half opaque; a drawn one stands out at a contrast of `least` to the ground.
Legibility legibility(const QImage &image, const QColor &ground, double least)
{
    const QImage shown = onGround(image, ground);
    int drawn = 0;
    int standing = 0;
    Legibility result{0, {}, {}};
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) < 128)
                continue;
            ++drawn;
            result.drawn |= QRect(x, y, 1, 1);
            if (contrast(shown.pixel(x, y), ground.rgb()) < least)
                continue;
            ++standing;
            result.standingOut |= QRect(x, y, 1, 1);
        }
    }
    result.share = drawn == 0 ? 0 : static_cast<double>(standing) / drawn;
    return result;
}

/// The largest distance between like edges of two rectangles.
int edgeDistance(const QRect &a, const QRect &b)
{
    return std::max({std::abs(a.left() - b.left()), std::abs(a.top() - b.top()), std::abs(a.right() - b.right()),
                     std::abs(a.bottom() - b.bottom())});
}

/// Mean difference of two pictures of one size over all pixels and channels, alpha included: 0 to 255.
double difference(const QImage &a, const QImage &b)
{
    qint64 sum = 0;
    for (int y = 0; y < a.height(); ++y) {
        const QRgb *rowA = reinterpret_cast<const QRgb *>(a.constScanLine(y));
        const QRgb *rowB = reinterpret_cast<const QRgb *>(b.constScanLine(y));
        for (int x = 0; x < a.width(); ++x) {
            sum += std::abs(qRed(rowA[x]) - qRed(rowB[x])) + std::abs(qGreen(rowA[x]) - qGreen(rowB[x])) +
                   std::abs(qBlue(rowA[x]) - qBlue(rowB[x])) + std::abs(qAlpha(rowA[x]) - qAlpha(rowB[x]));
        }
    }
    return static_cast<double>(sum) / (4.0 * a.width() * a.height());
}

QImage small(const QString &name)
{
    return load(name).scaled(16, 16, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

/// Mean colour of the drawn pixels.
QColor meanColour(const QImage &image)
{
    qint64 red = 0, green = 0, blue = 0, count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            if (qAlpha(pixel) < 128)
                continue;
            red += qRed(pixel);
            green += qGreen(pixel);
            blue += qBlue(pixel);
            ++count;
        }
    }
    if (count == 0)
        return {};
    return QColor(static_cast<int>(red / count), static_cast<int>(green / count), static_cast<int>(blue / count));
}

/// Names under ":/" in a source text or a form; what belongs to Qt itself is left out.
QStringList resourceNamesIn(const QString &text)
{
    static const QRegularExpression pattern(QStringLiteral("(?<!\\w):/(?=[A-Za-z])([A-Za-z0-9_./-]+)"));
    QStringList names;
    QRegularExpressionMatchIterator it = pattern.globalMatch(text);
    while (it.hasNext()) {
        const QString name = it.next().captured(1);
        if (!name.startsWith(QLatin1String("qt-project.org")))
            names.append(name);
    }
    return names;
}

/// "name (file)" of every name used in the sources that leads to nothing.
QStringList danglingNames(int *found)
{
    QStringList dangling;
    const QDir root(QStringLiteral(KESTRIN_SOURCE_DIR "/src"));
    QDirIterator it(root.path(), {"*.cpp", "*.h", "*.ui"}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile file(it.next());
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QStringList names = resourceNamesIn(QString::fromUtf8(file.readAll()));
        *found += static_cast<int>(names.size());
        for (const QString &name : names) {
            if (!QFile::exists(QStringLiteral(":/") + name))
                dangling.append(QStringLiteral(":/%1 (%2)").arg(name, root.relativeFilePath(file.fileName())));
        }
    }
    return dangling;
}

} // namespace

class TestIcons : public QObject
{
    Q_OBJECT

private slots:
    void everyPictureIsThereInThreeSizes_data();
    void everyPictureIsThereInThreeSizes();
    void nothingElseIsEmbedded();
    void scannerFindsNames();
    void namesUsedInTheSourcesExist();
    void measureOfContrastCanFail();
    void iconsStandOutFromTheBar_data();
    void iconsStandOutFromTheBar();
    void coloursOfOneKindDiffer_data();
    void coloursOfOneKindDiffer();
    void thinAndMediumPensDiffer();
    void colourIsTheOneNamed_data();
    void colourIsTheOneNamed();
    void onlyTwinsLookTheSame();
    void directionsMirrorEachOther_data();
    void directionsMirrorEachOther();
    void cursorHasItsTipAtTheHotSpot();
};

void TestIcons::everyPictureIsThereInThreeSizes_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("size");
    for (const Picture &picture : pictures())
        QTest::newRow(qPrintable(picture.name)) << picture.name << picture.size;
}

void TestIcons::everyPictureIsThereInThreeSizes()
{
    QFETCH(QString, name);
    QFETCH(int, size);
    for (int scale = 1; scale <= 3; ++scale) {
        const QImage image = load(name, scale);
        QCOMPARE(image.size(), QSize(size, size) * scale);
        QVERIFY2(coverage(image) > 0.06, qPrintable(QStringLiteral("%1 of the pixels drawn").arg(coverage(image))));
        QVERIFY2(qAlpha(image.pixel(0, 0)) < 128, "no transparent ground");
    }
}

void TestIcons::nothingElseIsEmbedded()
{
    QStringList expected;
    for (const Picture &picture : pictures())
        expected << picture.name << picture.name + "@2x" << picture.name + "@3x";
    QStringList present;
    QDirIterator it(":/", {"*.png"}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        if (!path.startsWith(":/qt-project.org"))
            present << path.mid(2).chopped(4);
    }
    expected.sort();
    present.sort();
    QCOMPARE(present, expected);
}

void TestIcons::scannerFindsNames()
{
    QCOMPARE(resourceNamesIn("QIcon(\":/main_window/new.png\")"), QStringList("main_window/new.png"));
    QCOMPARE(resourceNamesIn("<pixmap>:/general/images/my/about.png</pixmap>"),
             QStringList("general/images/my/about.png"));
    QCOMPARE(resourceNamesIn("\":/no_such/one.png\" \":/txt/text/About.html\""),
             QStringList({"no_such/one.png", "txt/text/About.html"}));
    QCOMPARE(resourceNamesIn("\"https://example.org/a.png\", \":/\", \":/qt-project.org/x.png\""), QStringList());
}

void TestIcons::namesUsedInTheSourcesExist()
{
    int found = 0;
    const QStringList dangling = danglingNames(&found);
    QVERIFY2(dangling.isEmpty(),
             qPrintable("draw resources/icons/<name>.svg, or mend the name: " + dangling.join(", ")));
    QVERIFY2(found > 0, "the scan found no names at all");
}

void TestIcons::measureOfContrastCanFail()
{
    QImage pale(24, 24, QImage::Format_ARGB32_Premultiplied);
    pale.fill(QColor("#e0e0e0"));
    QCOMPARE(legibility(pale, QColor("#efefef"), 2.0).share, 0.0);
    QCOMPARE(legibility(pale, QColor("#2b2b2b"), 2.0).share, 1.0);
    // A dark dot in the middle of a pale square does not show how large the square is.
    pale.setPixelColor(12, 12, QColor("#000000"));
    const Legibility dot = legibility(pale, QColor("#efefef"), 2.0);
    QCOMPARE(edgeDistance(dot.drawn, dot.standingOut), 12);
    QVERIFY(std::abs(contrast(qRgb(0, 0, 0), qRgb(255, 255, 255)) - 21.0) < 0.001);
}

void TestIcons::iconsStandOutFromTheBar_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QColor>("ground");
    QTest::addColumn<int>("size");
    for (const Picture &picture : pictures()) {
        // The about picture stands on a dialog and the cursor on a page, never on a bar.
        if (picture.size > 32 || picture.name == QLatin1String("tool_icons/text_box"))
            continue;
        for (const char *ground : {"#efefef", "#2b2b2b"})
            for (const int size : {16, 22, 24})
                QTest::addRow("%s %s %d", qPrintable(picture.name), ground, size)
                    << picture.name << QColor(ground) << size;
    }
}

/// Outlines contrast 3 to 1 and more with both grounds as drawn; smoothing at the edges takes some of it away. So at
/// least 30 of 100 drawn pixels must contrast 2.2 to 1 and more, and they must show the icon in its full extent.
void TestIcons::iconsStandOutFromTheBar()
{
    QFETCH(QString, name);
    QFETCH(QColor, ground);
    QFETCH(int, size);
    const QImage image = load(name).scaled(size, size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const Legibility result = legibility(image, ground, 2.2);
    QVERIFY2(result.share >= 0.3, qPrintable(QStringLiteral("%1 of the drawn pixels stand out").arg(result.share)));
    QVERIFY2(edgeDistance(result.drawn, result.standingOut) <= 1, "parts of the outline are lost on this ground");
}

void TestIcons::coloursOfOneKindDiffer_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::newRow("thin pens") << QStringList{"black_pen", "red_pen", "green_pen", "blue_pen"};
    QTest::newRow("medium pens") << QStringList{"medium_black_pen", "medium_red_pen", "medium_green_pen",
                                                "medium_blue_pen"};
    QTest::newRow("markers") << QStringList{"yellow_marker", "red_marker", "green_marker", "blue_marker"};
}

void TestIcons::coloursOfOneKindDiffer()
{
    QFETCH(QStringList, names);
    for (const QString &a : names) {
        for (const QString &b : names) {
            if (a >= b)
                continue;
            const QColor colourA = meanColour(small("tool_icons/" + a));
            const QColor colourB = meanColour(small("tool_icons/" + b));
            const int apart = std::abs(colourA.red() - colourB.red()) + std::abs(colourA.green() - colourB.green()) +
                              std::abs(colourA.blue() - colourB.blue());
            QVERIFY2(apart >= 90, qPrintable(QStringLiteral("%1 and %2 are %3 apart").arg(a, b).arg(apart)));
        }
    }
}

void TestIcons::thinAndMediumPensDiffer()
{
    for (const QString colour : {"black", "red", "green", "blue"}) {
        const QImage thin = small("tool_icons/" + colour + "_pen");
        const QImage medium = small("tool_icons/medium_" + colour + "_pen");
        QVERIFY2(coverage(medium) > 1.3 * coverage(thin), qPrintable(colour));
    }
}

void TestIcons::colourIsTheOneNamed_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("hue");
    const QHash<QString, int> hues{{"red", 0}, {"yellow", 50}, {"green", 145}, {"blue", 212}};
    for (const Picture &picture : pictures()) {
        for (auto it = hues.cbegin(); it != hues.cend(); ++it)
            if (picture.name.contains(QRegularExpression("[/_]" + it.key() + "_(pen|marker)$")))
                QTest::newRow(qPrintable(picture.name)) << picture.name << it.value();
    }
}

void TestIcons::colourIsTheOneNamed()
{
    QFETCH(QString, name);
    QFETCH(int, hue);
    const QColor colour = meanColour(load(name));
    const int turn = std::abs(colour.hsvHue() - hue) % 360;
    QVERIFY2(std::min(turn, 360 - turn) <= 15, qPrintable(colour.name()));
    QVERIFY2(colour.hsvSaturation() >= 80, qPrintable(colour.name()));
}

void TestIcons::onlyTwinsLookTheSame()
{
    // The settings page of a tool carries the tool's own picture; arrows mean the same wherever they stand.
    const QHash<QString, QString> twins{
        {"config_icons/line4", "tool_icons/line4"},
        {"config_icons/printer", "main_window/printer"},
        {"config_icons/round_rect", "tool_icons/round_rect"},
        {"config_icons/screenshot", "tool_icons/screenshot"},
        {"config_icons/textbox", "tool_icons/textbox2"},
        {"images/qttoolbardialog/back", "search_icons/backward"},
        {"images/qttoolbardialog/forward", "search_icons/forward"},
    };
    for (const Picture &a : pictures()) {
        for (const Picture &b : pictures()) {
            // The program's own sign differs from size to size only in detail.
            const bool signs = a.name.startsWith("images/kestrin7") && b.name.startsWith("images/kestrin7");
            if (a.name >= b.name || signs)
                continue;
            const double apart = difference(small(a.name), small(b.name));
            if (twins.value(a.name) == b.name)
                QCOMPARE(apart, 0.0);
            else
                QVERIFY2(apart >= 1.5,
                         qPrintable(QStringLiteral("%1 and %2 are %3 apart").arg(a.name, b.name).arg(apart)));
        }
    }
}

void TestIcons::directionsMirrorEachOther_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("other");
    QTest::addColumn<bool>("horizontally");
    QTest::newRow("undo") << "main_window/undo"
                          << "main_window/redo" << true;
    QTest::newRow("search") << "search_icons/backward"
                            << "search_icons/forward" << true;
    QTest::newRow("back") << "images/qttoolbardialog/back"
                          << "images/qttoolbardialog/forward" << true;
    QTest::newRow("up") << "images/qttoolbardialog/up"
                        << "images/qttoolbardialog/down" << false;
}

void TestIcons::directionsMirrorEachOther()
{
    QFETCH(QString, name);
    QFETCH(QString, other);
    QFETCH(bool, horizontally);
    const QImage mirrored = load(other).mirrored(horizontally, !horizontally);
    QVERIFY(difference(load(name), load(other)) > 5.0);
    // Edge smoothing rounds differently from the left and from the right.
    QVERIFY(difference(load(name), mirrored) < 1.5);
}

void TestIcons::cursorHasItsTipAtTheHotSpot()
{
    const QImage cursor = load("tool_icons/text_box");
    QVERIFY(qAlpha(cursor.pixel(1, 1)) >= 128);
    QCOMPARE(qAlpha(cursor.pixel(0, 0)), 0);
    QVERIFY2(cursor.height() <= 32, "some displays cut larger cursors off");
}

REGISTER_TEST(TestIcons)

#include "tst_icons.moc"

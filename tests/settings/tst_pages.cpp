// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/settingsprobe.h"
#include "settings/settingstab.h"
#include "support/testmain.h"
#include "widgets/qtcolorpicker.h"

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QFontComboBox>
#include <QFontDatabase>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QSlider>
#include <QSpinBox>
#include <QTest>
#include <QToolButton>

#include <functional>
#include <memory>

namespace {

/// One control. Its text is its own, or that of the label which belongs to it.
struct Control
{
    PageIndex page;
    const char *name;
    const QMetaObject *kind;
    const char *text;
    QVariant formState; ///< Before anything was loaded; invalid if it is not stated.
    QPoint range = {};  ///< From x to y.
};

const QList<Control> &controls()
{
    const auto *spin = &QSpinBox::staticMetaObject;
    const auto *slider = &QSlider::staticMetaObject;
    const auto *check = &QCheckBox::staticMetaObject;
    const auto *radio = &QRadioButton::staticMetaObject;
    const auto *combo = &QComboBox::staticMetaObject;
    const auto *fonts = &QFontComboBox::staticMetaObject;
    const auto *push = &QPushButton::staticMetaObject;
    const auto *tool = &QToolButton::staticMetaObject;
    const auto *picker = &QtColorPicker::staticMetaObject;
    static const QList<Control> rows{
        {Pen, "penWidthSpinBox", spin, "Line width:", 1, {1, 10}},
        {Pen, "horizontalSlider_3", slider, "", 1, {1, 10}},
        {Pen, "penTransparencySpinBox", spin, "Transparency [%]:", 0, {0, 100}},
        {Pen, "horizontalSlider_4", slider, "", 0, {0, 100}},
        {Pen, "penAntCheckBox", check, "Switch on antialiasing", true},
        {Pen, "penSmoothCheckBox", check, "Switch on line smoothing (reduces size of output file)", false},
        {Pen, "showSelectionCheckBox", check, "Show selection", false},
        {Marker, "markerWidthSpinBox", spin, "Line width:", 1, {1, 50}},
        {Marker, "horizontalSlider", slider, "", 1, {1, 50}},
        {Marker, "markerTransparencySpinBox", spin, "Transparency [%]:", 0, {0, 100}},
        {Marker, "horizontalSlider_2", slider, "", 0, {0, 100}},
        {Marker, "markerAntCheckBox", check, "Switch on antialiasing", true},
        {Marker, "markerSmoothCheckBox", check, "Switch on line smoothing (reduces size of output file)", false},
        {Marker, "showSelectionCheckBox", check, "Show selection", false},
        {TextBox, "fontFamilyComboBox", fonts, "Font family:", {}},
        {TextBox, "fontSizeComboBox", combo, "Font size:", "10"},
        {TextBox, "useTextBoxOnceCheckBox", check, "Use TextBox tool once (switch to previous tool)", false},
        {Line, "lineWidthSpinBox", spin, "Line width:", 1, {1, 5}},
        {Line, "horizontalSlider_3", slider, "", 1, {1, 5}},
        {Line, "lineStyleComboBox", combo, "Line style:", "Solid"},
        {Line, "lineAntialiasingCheckBox", check, "Switch on antialiasing", true},
        {Line, "showSelectionCheckBox", check, "Show selection", false},
        {Shape, "shapeLineWidthSpinBox", spin, "Line width:", 1, {1, 10}},
        {Shape, "horizontalSlider", slider, "", 1, {1, 10}},
        {Shape, "shapeLineStyleComboBox", combo, "Line style:", "Solid"},
        {Shape, "shapeTransparencySpinBox", spin, "Transparency [%]:", 0, {0, 100}},
        {Shape, "horizontalSlider_2", slider, "", 0, {0, 100}},
        {Shape, "shapeAntialiasingCheckBox", check, "Switch on antialiasing", true},
        {Shape, "showSelectionCheckBox", check, "Show selection", false},
        {Screenshot, "saveViewToClipboardRadio", radio, "Copy captured view to clipboard", true},
        {Screenshot, "saveViewToFileRadio", radio, "Save captured view to file", false},
        {Screenshot, "sendViewViaEmailRadio", radio, "Send captured view via e-mail", false},
        {Screenshot, "useScreenShootOnceCheckBox", check, "Use Snapshot tool once (switch to previous tool)", true},
        {Screenshot, "informInClipboardCheckBox", check, "Inform about captured view in clipboard", false},
        {PageView, "showLinesNumCheckBox", check, "Show line numbers", true},
        {PageView, "bgColorPicker", picker, "Background color:", {}},
        {PageView, "textColorPicker", picker, "Text color:", {}},
        {PageView, "fontFamilyComboBox", fonts, "Font family:", {}},
        {PageView, "fontSizeComboBox", combo, "Font size:", "10"},
        {PageView, "currFontFamilyComboBox", fonts, "Font family:", {}},
        {PageView, "currFontSizeComboBox", combo, "Font size:", "10"},
        {Syntax, "extensionComboBox", combo, "File extension:", ""},
        {Syntax, "newButton", push, "New...", {}},
        {Syntax, "elementsListWidget", &QListWidget::staticMetaObject, "Highlighted elements:", {}},
        {Syntax, "editButton", push, "Edit...", {}},
        {Syntax, "fontToolButton", tool, "Font...", {}},
        {Syntax, "colorToolButton", tool, "Color...", {}},
        {Syntax, "bgColorToolButton", tool, "Background Color...", {}},
        {Syntax, "defaultHighlightCheckBox", check, "Highlight syntax by default", true},
        {Print, "printHeaderCheckBox", check, "Print header:", true},
        {Print, "printFileNameCheckBox", check, "File name", true},
        {Print, "printDateCheckBox", check, "Date and time", true},
        {Print, "printPageNumbersCheckBox", check, "Page numbers", true},
        {Print, "printAnnotationsCheckBox", check, "Print Annotations", false},
        {Print, "printLineNumbersCheckBox", check, "Print line numbers", true},
        {Other, "pdfRadioButton", radio, "PDF (Portable Document Format)", true},
        {Other, "psRadioButton", radio, "PS (PostScript)", false},
        {Other, "recentFilesSpinBox", spin, "Number of recent files:", 5, {0, 99}},
        {Other, "tabsComboBox", combo, "Tabs position:", "Left"},
        {Other, "fullscreenAtStartCheckBox", check, "Switch to fullscreen mode at startup", false},
        {Other, "keepSynchroCheckBox", check, "Synchronize Annotations with text", false},
        {Other, "warnAllRemoveCheckBox", check, "Warn before all Annotations removal", false},
        {Email, "emailClientEdit", &QLineEdit::staticMetaObject, "Client:", ""},
        {Email, "browseButton", push, "Browse...", {}},
        {Email, "defaultButton", push, "Use Default", false},
        {Email, "attachFileCheckBox", check, "Attach current file to e-mail", true},
        {Email, "oxnRadio", radio, "OXN  (Annotated file)", true},
        {Email, "pdfRadio", radio, "PDF  (Portable Document Format)", false},
        {Email, "pngRadio", radio, "PNG  (Portable Network Graphics)", false},
        {Email, "originalRadio", radio, "Keep original format", false},
    };
    return rows;
}

const QLabel *labelOf(const QWidget *control)
{
    for (const auto *label : control->parentWidget()->findChildren<QLabel *>()) {
        if (label->buddy() == control)
            return label;
    }
    return nullptr;
}

QString textOf(const QWidget *control)
{
    if (const QLabel *label = labelOf(control))
        return label->text();
    const auto *button = qobject_cast<const QAbstractButton *>(control);
    return button != nullptr ? button->text() : QString();
}

/// The parts of a page that take the focus, but not those that the toolkit puts inside of them.
QWidgetList focusParts(const QWidget *page)
{
    QWidgetList parts;
    for (auto *part : page->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
        if (part->focusPolicy() != Qt::NoFocus && !part->isWindow())
            parts.append(part);
    }
    return parts;
}

QString accessibleNameOf(QWidget *widget)
{
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(widget);
    return interface == nullptr ? QString() : interface->text(QAccessible::Name);
}

} // namespace

/// The eleven pages as they are made, before anything is loaded.
class TestPages : public QObject
{
    Q_OBJECT

private slots:
    void forms_data();
    void forms();
    void controls_data();
    void controls();
    void nothingElseTakesTheFocus();
    void everyPartHasAName_data();
    void everyPartHasAName();
    void tabOrderGoesDown_data();
    void tabOrderGoesDown();
    void titleBars();
    void spinBoxesFollowTheirSliders_data();
    void spinBoxesFollowTheirSliders();
    void fontSizes();
    void lineStyles_data();
    void lineStyles();
    void lineStylePictures();
    void colorPickers();
    void tabSides();
    void elementRows();
    void flatButton();
    void headerPartsFollowTheHeader();
    void formatsFollowTheAttachment();
    void infoFollowsTheClipboard();
    void exportFormatsExclude();
    void languageChange_data();
    void languageChange();
};

void TestPages::forms_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("className");
    QTest::addColumn<QString>("formName");
    QTest::addColumn<QString>("title");
    QTest::newRow("pen") << int(Pen) << "PenTab"
                         << "PenSettPanel"
                         << "Pen Settings";
    QTest::newRow("marker") << int(Marker) << "MarkerTab"
                            << "MarkerSettPanel"
                            << "Marker Settings";
    QTest::newRow("text box") << int(TextBox) << "TextBoxTab"
                              << "TextBoxSettPanel"
                              << "TextBox Settings";
    QTest::newRow("line") << int(Line) << "LineAndBracketTab"
                          << "LineAndBracketSettPanel"
                          << "";
    QTest::newRow("shape") << int(Shape) << "ShapeTab"
                           << "ShapeSettPanel"
                           << "";
    QTest::newRow("snapshot") << int(Screenshot) << "ScreenshotTab"
                              << "ScreenshotSettPanel"
                              << "";
    QTest::newRow("page") << int(PageView) << "PageViewTab"
                          << "PageViewSettPanel"
                          << "";
    QTest::newRow("syntax") << int(Syntax) << "SyntaxTab"
                            << "SyntaxSettPanel"
                            << "";
    QTest::newRow("print") << int(Print) << "PrintTab"
                           << "PrintSettPanel"
                           << "";
    QTest::newRow("other") << int(Other) << "OtherTab"
                           << "OtherSettPanel"
                           << "";
    QTest::newRow("mail") << int(Email) << "EmailTab"
                          << "EmailSettPanel"
                          << "";
}

void TestPages::forms()
{
    QFETCH(const int, page);
    const auto tab = makePage(page);
    QTEST(QString::fromLatin1(tab->metaObject()->className()), "className");
    QTEST(tab->objectName(), "formName");
    QTEST(tab->windowTitle(), "title");
}

void TestPages::controls_data()
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < ::controls().size(); ++row)
        QTest::addRow("%d %s", int(::controls().at(row).page), ::controls().at(row).name) << row;
}

void TestPages::controls()
{
    QFETCH(const int, row);
    const Control &expected = ::controls().at(row);
    const auto tab = makePage(expected.page);
    const QWidget *control = partOf(tab.get(), QString::fromLatin1(expected.name));
    QCOMPARE(control->metaObject()->className(), expected.kind->className());
    QCOMPARE(textOf(control), QString::fromLatin1(expected.text));
    if (expected.formState.isValid())
        QCOMPARE(shownBy(control), expected.formState);
    if (const auto *box = qobject_cast<const QSpinBox *>(control))
        QCOMPARE(QPoint(box->minimum(), box->maximum()), expected.range);
    if (const auto *slider = qobject_cast<const QSlider *>(control))
        QCOMPARE(QPoint(slider->minimum(), slider->maximum()), expected.range);
}

void TestPages::nothingElseTakesTheFocus()
{
    for (int page = 0; page < pageCount; ++page) {
        const auto tab = makePage(page);
        QStringList expected;
        for (const Control &control : ::controls()) {
            if (control.page == page)
                expected.append(QString::fromLatin1(control.name));
        }
        QStringList found;
        for (const QWidget *part : focusParts(tab.get()))
            found.append(part->objectName());
        expected.sort();
        found.sort();
        QCOMPARE(found, expected);
    }
}

void TestPages::everyPartHasAName_data()
{
    forms_data();
}

void TestPages::everyPartHasAName()
{
    QFETCH(const int, page);
    const auto tab = makePage(page);
    tab->show();
    for (QWidget *part : focusParts(tab.get()))
        QVERIFY2(!accessibleNameOf(part).isEmpty(), qPrintable(part->objectName()));
}

void TestPages::tabOrderGoesDown_data()
{
    forms_data();
}

void TestPages::tabOrderGoesDown()
{
    QFETCH(const int, page);
    const auto tab = makePage(page);
    tab->resize(410, 320);
    tab->show();
    const QWidgetList parts = focusParts(tab.get());
    // The chain goes round through all widgets; only those of the page itself count.
    QWidgetList order;
    for (QWidget *next = tab->nextInFocusChain(); next != tab.get(); next = next->nextInFocusChain()) {
        if (parts.contains(next))
            order.append(next);
    }
    QCOMPARE(order.size(), parts.size());
    for (int i = 1; i < order.size(); ++i) {
        const QPoint before = order.at(i - 1)->geometry().center();
        const QPoint after = order.at(i)->geometry().center();
        // Beside each other, or in the next line; of the syntax page the buttons stand beside the list.
        const bool onward = after.y() > before.y() + 2 || after.x() > before.x();
        QVERIFY2(onward, qPrintable(order.at(i - 1)->objectName() + " -> " + order.at(i)->objectName()));
    }
}

void TestPages::titleBars()
{
    const QList<QStringList> titles{
        {"  Pen settings:"},
        {"  Marker settings:"},
        {"  TextBox settings:"},
        {"  Line / Bracket settings:"},
        {"  Rectangle / Ellipse settings:"},
        {"  Snapshot tool settings:"},
        {"  Default page settings:", "  Current page font settings:"},
        {"  Syntax highlighting:"},
        {"  Printout settings:"},
        {"  Export to:", "  Other settings:"},
        {"  E-mail settings:", "  Format of attachment:"},
    };
    for (int page = 0; page < pageCount; ++page) {
        const auto tab = makePage(page);
        tab->show();
        QStringList found;
        int icons = 0;
        for (const auto *label : tab->findChildren<QLabel *>()) {
            if (label->styleSheet() == QLatin1String("background-color: rgb(0, 85, 127);\ncolor: rgb(240, 240, 255);"))
                found.append(label->text());
            if (!label->pixmap().isNull()) {
                QCOMPARE(label->size(), QSize(22, 22));
                ++icons;
            }
        }
        QCOMPARE(found, titles.at(page));
        QCOMPARE(icons, titles.at(page).size());
    }
    QCOMPARE(makePage(PageView)->findChild<QLabel *>("pageViewLabel")->text(), "  Default page settings:");
    QCOMPARE(makePage(PageView)->findChild<QLabel *>("currPageViewLabel")->text(), "  Current page font settings:");
    QCOMPARE(makePage(Email)->findChild<QLabel *>("attachmentLabel")->text(), "  Format of attachment:");
}

void TestPages::spinBoxesFollowTheirSliders_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("slider");
    QTest::newRow("pen width") << int(Pen) << "penWidthSpinBox"
                               << "horizontalSlider_3";
    QTest::newRow("pen transparency") << int(Pen) << "penTransparencySpinBox"
                                      << "horizontalSlider_4";
    QTest::newRow("marker width") << int(Marker) << "markerWidthSpinBox"
                                  << "horizontalSlider";
    QTest::newRow("marker transparency") << int(Marker) << "markerTransparencySpinBox"
                                         << "horizontalSlider_2";
    QTest::newRow("line width") << int(Line) << "lineWidthSpinBox"
                                << "horizontalSlider_3";
    QTest::newRow("shape width") << int(Shape) << "shapeLineWidthSpinBox"
                                 << "horizontalSlider";
    QTest::newRow("shape transparency") << int(Shape) << "shapeTransparencySpinBox"
                                        << "horizontalSlider_2";
}

void TestPages::spinBoxesFollowTheirSliders()
{
    QFETCH(const int, page);
    QFETCH(const QString, box);
    QFETCH(const QString, slider);
    const auto tab = makePage(page);
    QWidget *spin = partOf(tab.get(), box);
    QWidget *bar = partOf(tab.get(), slider);
    choose(spin, 3);
    QCOMPARE(shownBy(bar), QVariant(3));
    choose(bar, 4);
    QCOMPARE(shownBy(spin), QVariant(4));
    choose(bar, 1000);
    QCOMPARE(shownBy(spin).toInt(), qobject_cast<QSpinBox *>(spin)->maximum());
}

void TestPages::fontSizes()
{
    for (const auto &[page, name] : {std::pair(TextBox, "fontSizeComboBox"), std::pair(PageView, "fontSizeComboBox"),
                                     std::pair(PageView, "currFontSizeComboBox")}) {
        const auto tab = makePage(page);
        const auto *box = tab->findChild<QComboBox *>(QString::fromLatin1(name));
        const QList<int> sizes = QFontDatabase::standardSizes();
        QCOMPARE(box->count(), sizes.size());
        for (int i = 0; i < sizes.size(); ++i)
            QCOMPARE(box->itemText(i), QString::number(sizes.at(i)));
    }
}

void TestPages::lineStyles_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("name");
    QTest::newRow("line") << int(Line) << "lineStyleComboBox";
    QTest::newRow("shape") << int(Shape) << "shapeLineStyleComboBox";
}

void TestPages::lineStyles()
{
    QFETCH(const int, page);
    QFETCH(const QString, name);
    const auto tab = makePage(page);
    const auto *box = tab->findChild<QComboBox *>(name);
    const QStringList names{"Solid", "Dash", "Dot", "Dash Dot", "Dash Dot Dot"};
    QCOMPARE(box->count(), names.size());
    for (int i = 0; i < names.size(); ++i) {
        QCOMPARE(box->itemText(i), names.at(i));
        const QIcon icon = box->itemIcon(i);
        QCOMPARE(icon.availableSizes(), QList<QSize>{QSize(50, 16)});
    }
    QCOMPARE(box->iconSize(), QSize(50, 16));
}

void TestPages::lineStylePictures()
{
    const auto tab = makePage(Line);
    const auto *box = tab->findChild<QComboBox *>(QStringLiteral("lineStyleComboBox"));
    const Qt::PenStyle styles[]{Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine, Qt::DashDotDotLine};
    const QColor frame(120, 120, 255, 102);
    for (int i = 0; i < box->count(); ++i) {
        const QImage picture = box->itemIcon(i).pixmap(QSize(50, 16), 1.0).toImage();
        QImage expected(50, 16, QImage::Format_ARGB32_Premultiplied);
        expected.fill(Qt::white);
        QPainter painter(&expected);
        painter.setPen(QPen(Qt::black, 1, styles[i]));
        painter.drawLine(3, 8, 46, 8);
        painter.end();
        // The line is where it belongs, and only there; the frame goes round it from (0, 1) to (48, 14).
        for (int x = 2; x < 47; ++x)
            QCOMPARE(picture.pixelColor(x, 8), expected.pixelColor(x, 8));
        QCOMPARE(picture.pixelColor(2, 8), QColor(Qt::white));
        QCOMPARE(picture.pixelColor(47, 8), QColor(Qt::white));
        QCOMPARE(picture.pixelColor(10, 7), QColor(Qt::white));
        QCOMPARE(picture.pixelColor(10, 9), QColor(Qt::white));
        for (const QPoint &point : {QPoint(0, 1), QPoint(48, 1), QPoint(0, 14), QPoint(48, 14), QPoint(20, 14)})
            QVERIFY(picture.pixelColor(point) != QColor(Qt::white));
        for (const QPoint &point : {QPoint(0, 0), QPoint(49, 1), QPoint(20, 15), QPoint(1, 2), QPoint(47, 13)})
            QCOMPARE(picture.pixelColor(point), QColor(Qt::white));
        const QColor onWhite = picture.pixelColor(20, 1);
        QVERIFY(qAbs(onWhite.red() - (120 * 102 + 255 * 153) / 255) <= 1);
        QCOMPARE(onWhite.blue(), 255);
    }
}

void TestPages::colorPickers()
{
    const auto tab = makePage(PageView);
    const auto *background = qobject_cast<QtColorPicker *>(partOf(tab.get(), QStringLiteral("bgColorPicker")));
    const auto *text = qobject_cast<QtColorPicker *>(partOf(tab.get(), QStringLiteral("textColorPicker")));
    QCOMPARE(background->toolTip(), QStringLiteral("Background Color"));
    QCOMPARE(text->toolTip(), QStringLiteral("Font Color"));
    QVERIFY(background->colorDialogEnabled());
    QVERIFY(text->colorDialogEnabled());
    QCOMPARE(labelOf(background)->objectName(), QStringLiteral("bgColorLabel"));
    QCOMPARE(labelOf(text)->objectName(), QStringLiteral("textColorLabel"));
    // The standard colours bring black to the top.
    QCOMPARE(background->currentColor(), QColor(Qt::black));
}

void TestPages::tabSides()
{
    const auto tab = makePage(Other);
    const auto *box = tab->findChild<QComboBox *>(QStringLiteral("tabsComboBox"));
    QStringList sides;
    for (int i = 0; i < box->count(); ++i)
        sides.append(box->itemText(i));
    QCOMPARE(sides, QStringList({"Left", "Bottom", "Top", "Right"}));
}

void TestPages::elementRows()
{
    const auto tab = makePage(Syntax);
    const auto *list = tab->findChild<QListWidget *>(QStringLiteral("elementsListWidget"));
    QStringList rows;
    for (int i = 0; i < list->count(); ++i)
        rows.append(list->item(i)->text());
    QCOMPARE(rows, QStringList({"Keywords", "Types", "Comments", "Text"}));
    QCOMPARE(list->currentRow(), 0);
    QCOMPARE(labelOf(list)->objectName(), QStringLiteral("highElementsLabel"));
    QCOMPARE(labelOf(partOf(tab.get(), QStringLiteral("extensionComboBox")))->objectName(),
             QStringLiteral("fileExtensionLabel"));
}

void TestPages::flatButton()
{
    const auto tab = makePage(Email);
    const auto *button = tab->findChild<QPushButton *>(QStringLiteral("defaultButton"));
    QVERIFY(button->isCheckable());
    QVERIFY(button->isFlat());
}

void TestPages::headerPartsFollowTheHeader()
{
    const auto tab = makePage(Print);
    const QStringList parts{"printFileNameCheckBox", "printDateCheckBox", "printPageNumbersCheckBox"};
    choose(partOf(tab.get(), parts.at(1)), false);
    for (const bool header : {false, true}) {
        choose(partOf(tab.get(), QStringLiteral("printHeaderCheckBox")), header);
        for (const QString &part : parts) {
            QCOMPARE(partOf(tab.get(), part)->isEnabled(), header);
            QCOMPARE(shownBy(partOf(tab.get(), part)), QVariant(part != parts.at(1)));
        }
        QVERIFY(partOf(tab.get(), QStringLiteral("printAnnotationsCheckBox"))->isEnabled());
        QVERIFY(partOf(tab.get(), QStringLiteral("printLineNumbersCheckBox"))->isEnabled());
    }
}

void TestPages::formatsFollowTheAttachment()
{
    const auto tab = makePage(Email);
    for (const bool attach : {false, true}) {
        choose(partOf(tab.get(), QStringLiteral("attachFileCheckBox")), attach);
        for (const char *part : {"attachmentLabel", "oxnRadio", "pdfRadio", "pngRadio", "originalRadio"})
            QCOMPARE(partOf(tab.get(), QString::fromLatin1(part))->isEnabled(), attach);
        QVERIFY(partOf(tab.get(), QStringLiteral("emailClientEdit"))->isEnabled());
    }
}

void TestPages::infoFollowsTheClipboard()
{
    const auto tab = makePage(Screenshot);
    const QWidget *info = partOf(tab.get(), QStringLiteral("informInClipboardCheckBox"));
    QVERIFY(info->isEnabled());
    choose(partOf(tab.get(), QStringLiteral("saveViewToFileRadio")), true);
    QVERIFY(!info->isEnabled());
    QCOMPARE(shownBy(partOf(tab.get(), QStringLiteral("saveViewToClipboardRadio"))), QVariant(false));
    choose(partOf(tab.get(), QStringLiteral("saveViewToClipboardRadio")), true);
    QVERIFY(info->isEnabled());
}

void TestPages::exportFormatsExclude()
{
    const auto tab = makePage(Other);
    QWidget *pdf = partOf(tab.get(), QStringLiteral("pdfRadioButton"));
    QWidget *ps = partOf(tab.get(), QStringLiteral("psRadioButton"));
    choose(ps, true);
    QCOMPARE(shownBy(pdf), QVariant(false));
    choose(pdf, true);
    QCOMPARE(shownBy(ps), QVariant(false));
}

void TestPages::languageChange_data()
{
    forms_data();
}

/// All that a page shows is in the new language; what it stores is not.
void TestPages::languageChange()
{
    QFETCH(const int, page);
    const auto tab = makePage(page);
    QSettings settings;
    settings.clear();
    settings.setValue(QStringLiteral("LineTool/LineStyle"), QStringLiteral("Dash Dot"));
    settings.setValue(QStringLiteral("ShapeTool/LineStyle"), QStringLiteral("Dot"));
    settings.setValue(QStringLiteral("Other/TabsPosition"), QStringLiteral("Top"));
    tab->load(settings);
    const MarkedLanguage language;
    language.announceTo(tab.get());
    for (const auto *label : tab->findChildren<QLabel *>())
        QVERIFY2(!label->pixmap().isNull() || label->text().startsWith(language.mark), qPrintable(label->text()));
    for (const auto *button : tab->findChildren<QAbstractButton *>()) {
        const bool isOurs = !button->objectName().startsWith("qt_") && !qobject_cast<const QtColorPicker *>(button);
        if (isOurs)
            QVERIFY2(button->text().startsWith(language.mark), qPrintable(button->text()));
    }
    for (const auto *picker : tab->findChildren<QtColorPicker *>())
        QVERIFY(picker->toolTip().startsWith(language.mark));
    for (const auto *slider : tab->findChildren<QSlider *>(QString(), Qt::FindDirectChildrenOnly))
        QVERIFY(slider->accessibleName().startsWith(language.mark));
    for (const char *name : {"lineStyleComboBox", "shapeLineStyleComboBox", "tabsComboBox"}) {
        if (const auto *box = tab->findChild<QComboBox *>(QString::fromLatin1(name)))
            QVERIFY(box->currentText().startsWith(language.mark));
    }
    settings.clear();
    tab->store(settings);
    for (const QString &key : settings.allKeys())
        QVERIFY2(!settings.value(key).toString().startsWith(language.mark), qPrintable(key));
    const QHash<int, std::pair<QString, QString>> stored{{Line, {"LineTool/LineStyle", "Dash Dot"}},
                                                         {Shape, {"ShapeTool/LineStyle", "Dot"}},
                                                         {Other, {"Other/TabsPosition", "Top"}}};
    if (stored.contains(page))
        QCOMPARE(settings.value(stored.value(page).first).toString(), stored.value(page).second);
}

REGISTER_TEST(TestPages)
#include "tst_pages.moc"

// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/configdialog.h"
#include "settings/settingsprobe.h"
#include "settings/settingstab.h"
#include "support/files.h"
#include "support/plainuser.h"
#include "support/testmain.h"

#include <QComboBox>
#include <QFileInfo>
#include <QPointF>
#include <QRect>
#include <QSettings>
#include <QTest>

namespace {

/// A control and the key that it stands for.
struct Bound
{
    int page;
    const char *control;
    const char *key;
    QVariant usual;  ///< Shown from an empty store, and stored from there.
    QVariant other;  ///< Another value that the store may have.
    QVariant shown;  ///< How the control shows it.
    QVariant chosen; ///< What a user may choose in the control.
    QVariant stored; ///< What is stored then.
};

/// A control that shows and stores one and the same value.
Bound plain(int page, const char *control, const char *key, const QVariant &usual, const QVariant &other)
{
    return {page, control, key, usual, other, other, other, other};
}

Bound truth(int page, const char *control, const char *key, bool usual)
{
    return plain(page, control, key, usual, !usual);
}

const QList<Bound> &boundControls()
{
    static const QList<Bound> rows{
        plain(0, "penWidthSpinBox", "PenTool/LineWidth", 1, 7),
        plain(0, "penTransparencySpinBox", "PenTool/Transparency", 60, 0),
        truth(0, "penAntCheckBox", "PenTool/Antialiasing", true),
        truth(0, "penSmoothCheckBox", "PenTool/Smoothing", false),
        truth(0, "showSelectionCheckBox", "PenTool/DrawSelection", false),
        plain(1, "markerWidthSpinBox", "MarkerTool/LineWidth", 14, 50),
        plain(1, "markerTransparencySpinBox", "MarkerTool/Transparency", 60, 100),
        truth(1, "markerAntCheckBox", "MarkerTool/Antialiasing", true),
        truth(1, "markerSmoothCheckBox", "MarkerTool/Smoothing", false),
        truth(1, "showSelectionCheckBox", "MarkerTool/ShowSelection", false),
        plain(2, "fontFamilyComboBox", "TextBoxTool/DefaultFontFamily", "Courier", "DejaVu Sans"),
        plain(2, "fontSizeComboBox", "TextBoxTool/DefaultFontSize", "10", "24"),
        truth(2, "useTextBoxOnceCheckBox", "TextBoxTool/UseOnce", false),
        plain(3, "lineWidthSpinBox", "LineTool/LineWidth", 1, 5),
        plain(3, "lineStyleComboBox", "LineTool/LineStyle", "Solid", "Dash Dot Dot"),
        truth(3, "lineAntialiasingCheckBox", "LineTool/Antialiasing", true),
        truth(3, "showSelectionCheckBox", "LineTool/ShowSelection", false),
        plain(4, "shapeLineWidthSpinBox", "ShapeTool/LineWidth", 1, 10),
        plain(4, "shapeLineStyleComboBox", "ShapeTool/LineStyle", "Solid", "Dash"),
        plain(4, "shapeTransparencySpinBox", "ShapeTool/Transparency", 60, 1),
        truth(4, "shapeAntialiasingCheckBox", "ShapeTool/Antialiasing", true),
        truth(5, "useScreenShootOnceCheckBox", "ScreenshotTool/UseOnce", true),
        truth(5, "informInClipboardCheckBox", "ScreenshotTool/InfoViewInClipboard", true),
        truth(6, "showLinesNumCheckBox", "PageView/ShowLineNumbers", true),
        {6, "bgColorPicker", "PageView/DefaultBgColor", "#ffffff", "navy", "#000080", "#102030", "#102030"},
        {6, "textColorPicker", "PageView/DefaultTextColor", "#000000", "#fff", "#ffffff", "red", "#ff0000"},
        plain(6, "fontFamilyComboBox", "PageView/DefaultFontFamily", "Courier", "Liberation Mono"),
        plain(6, "fontSizeComboBox", "PageView/DefaultFontSize", "10", "72"),
        truth(7, "defaultHighlightCheckBox", "Syntax/HighlightByDefault", true),
        truth(8, "printHeaderCheckBox", "Printing/PrintHeader", true),
        truth(8, "printFileNameCheckBox", "Printing/PrintFileName", true),
        truth(8, "printDateCheckBox", "Printing/PrintDate", true),
        truth(8, "printPageNumbersCheckBox", "Printing/PrintPageNumbers", true),
        truth(8, "printAnnotationsCheckBox", "Printing/PrintAnnotations", true),
        truth(8, "printLineNumbersCheckBox", "Printing/PrintLineNumbers", true),
        truth(9, "pdfRadioButton", "Other/ExportToPdfFile", true),
        {9, "psRadioButton", "Other/ExportToPdfFile", false, false, true, true, false},
        plain(9, "recentFilesSpinBox", "Other/MaxRecentFiles", 5, 0),
        plain(9, "tabsComboBox", "Other/TabsPosition", "Right", "Top"),
        truth(9, "fullscreenAtStartCheckBox", "Other/FullscreenAtStart", false),
        truth(9, "keepSynchroCheckBox", "Other/SynchAnnotations", true),
        truth(9, "warnAllRemoveCheckBox", "General/WarnRemoveAllAnnotations", true),
        plain(10, "emailClientEdit", "General/EmailClient", "(empty)", "/usr/bin/mail -x \"y\""),
        truth(10, "attachFileCheckBox", "General/AttachFileByDefault", false),
        {10, "oxnRadio", "General/AttachmentFormat", true, "OXN", true, true, "OXN"},
        {10, "pdfRadio", "General/AttachmentFormat", false, "PDF", true, true, "PDF"},
        {10, "pngRadio", "General/AttachmentFormat", false, "PNG", true, true, "PNG"},
        {10, "originalRadio", "General/AttachmentFormat", false, "Original", true, true, "Original"},
        truth(5, "saveViewToClipboardRadio", "ScreenshotTool/SaveViewToClipboard", true),
        {5, "saveViewToFileRadio", "ScreenshotTool/SaveViewToFile", false, false, false, true, true},
        {5, "sendViewViaEmailRadio", "ScreenshotTool/SendViewViaEmail", false, false, false, true, true},
    };
    return rows;
}

/// A page that shows the store as it is when this is made.
class LoadedPage
{
public:
    explicit LoadedPage(int index) : m_tab(makePage(index)) { reload(); }

    QWidget *control(const QString &name) const { return partOf(m_tab.get(), name); }
    QVariant shown(const QString &name) const { return shownBy(control(name)); }
    void reload() { m_tab->load(QSettings()); }
    void accept()
    {
        QSettings settings;
        m_tab->store(settings);
    }

private:
    std::unique_ptr<SettingsTab> m_tab;
};

void addRows()
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < boundControls().size(); ++row)
        QTest::addRow("%s %s", boundControls().at(row).key, boundControls().at(row).control) << row;
}

QString storedText(const char *key)
{
    return QSettings().value(QLatin1String(key)).toString();
}

void storeOnly(const char *key, const QVariant &value)
{
    QSettings settings;
    settings.clear();
    settings.setValue(QLatin1String(key), value);
}

} // namespace

/// What the pages show of the store and what they write into it.
class TestStoredSettings : public QObject
{
    Q_OBJECT

private slots:
    void init() { QSettings().clear(); }
    void emptyStore_data() { addRows(); }
    void emptyStore();
    void okOnEmptyStore();
    void storedValues_data() { addRows(); }
    void storedValues();
    void choices_data() { addRows(); }
    void choices();
    void cancelledChoices_data() { addRows(); }
    void cancelledChoices();
    void numbers_data();
    void numbers();
    void truths_data();
    void truths();
    void keptValues_data();
    void keptValues();
    void choosingReplacesKeptValues_data();
    void choosingReplacesKeptValues();
    void oddSizesStandInTheirPlace();
    void oddSizesGoWithTheirValue();
    void opaqueChoiceOfATranslucentColor();
    void severalSnapshotTargets_data();
    void severalSnapshotTargets();
    void greyedBoxesAreStored();
    void otherKeysStay();
    void readOnlyStore();
    void iniStore();
};

void TestStoredSettings::emptyStore()
{
    QFETCH(const int, row);
    const Bound &bound = boundControls().at(row);
    const LoadedPage page(bound.page);
    QCOMPARE(page.shown(QString::fromLatin1(bound.control)), bound.usual);
    QCOMPARE(QSettings().allKeys(), QStringList());
}

void TestStoredSettings::okOnEmptyStore()
{
    ConfigDialog dialog(0, nullptr);
    dialog.updateAndClose();
    QSet<QString> expected;
    for (const Bound &bound : boundControls()) {
        expected.insert(QString::fromLatin1(bound.key));
        // Several buttons stand for one key.
        const bool isShared =
            bound.key == QByteArray("General/AttachmentFormat") || bound.control == QByteArray("psRadioButton");
        if (!isShared)
            QCOMPARE(storedText(bound.key), bound.usual.toString());
    }
    QCOMPARE(storedText("General/AttachmentFormat"), QStringLiteral("OXN"));
    const QStringList stored = QSettings().allKeys();
    QCOMPARE(QSet<QString>(stored.begin(), stored.end()), expected);
}

void TestStoredSettings::storedValues()
{
    QFETCH(const int, row);
    const Bound &bound = boundControls().at(row);
    storeOnly(bound.key, bound.other);
    LoadedPage page(bound.page);
    QCOMPARE(page.shown(QString::fromLatin1(bound.control)), bound.shown);
    page.accept();
    if (bound.control == QByteArray("bgColorPicker") || bound.control == QByteArray("textColorPicker"))
        QCOMPARE(storedText(bound.key), bound.shown.toString());
    else
        QCOMPARE(storedText(bound.key), bound.other.toString());
}

void TestStoredSettings::choices()
{
    QFETCH(const int, row);
    const Bound &bound = boundControls().at(row);
    LoadedPage page(bound.page);
    // Of radio buttons the user can only choose the one that is to be on.
    QWidget *control = page.control(QString::fromLatin1(bound.control));
    if (control->inherits("QRadioButton") && bound.chosen == QVariant(false))
        control->setProperty("autoExclusive", false);
    choose(control, bound.chosen);
    QCOMPARE(QSettings().allKeys(), QStringList());
    page.accept();
    QCOMPARE(storedText(bound.key), bound.stored.toString());
}

void TestStoredSettings::cancelledChoices()
{
    QFETCH(const int, row);
    const Bound &bound = boundControls().at(row);
    LoadedPage page(bound.page);
    const QVariant before = page.shown(QString::fromLatin1(bound.control));
    choose(page.control(QString::fromLatin1(bound.control)), bound.chosen);
    page.reload();
    QCOMPARE(QSettings().allKeys(), QStringList());
    QCOMPARE(page.shown(QString::fromLatin1(bound.control)), before);
}

void TestStoredSettings::numbers_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<int>("shown");
    const auto add = [](const char *name, int page, const char *control, const char *key, const QVariant &stored,
                        int shown) {
        QTest::newRow(name) << page << QString::fromLatin1(control) << QString::fromLatin1(key) << stored << shown;
    };
    add("pen of no width", 0, "penWidthSpinBox", "PenTool/LineWidth", 0, 1);
    add("line of no width", 3, "lineWidthSpinBox", "LineTool/LineWidth", 0, 1);
    add("pen too wide", 0, "penWidthSpinBox", "PenTool/LineWidth", 11, 10);
    add("marker too wide", 1, "markerWidthSpinBox", "MarkerTool/LineWidth", 51, 50);
    add("line too wide", 3, "lineWidthSpinBox", "LineTool/LineWidth", 6, 5);
    add("shape too wide", 4, "shapeLineWidthSpinBox", "ShapeTool/LineWidth", 11, 10);
    add("negative", 4, "shapeLineWidthSpinBox", "ShapeTool/LineWidth", -3, 1);
    add("transparent beyond", 1, "markerTransparencySpinBox", "MarkerTool/Transparency", 101, 100);
    add("transparent below", 1, "markerTransparencySpinBox", "MarkerTool/Transparency", -1, 0);
    add("largest number", 9, "recentFilesSpinBox", "Other/MaxRecentFiles", INT_MAX, 99);
    add("smallest number", 9, "recentFilesSpinBox", "Other/MaxRecentFiles", INT_MIN, 0);
    add("as text", 0, "penWidthSpinBox", "PenTool/LineWidth", "8", 8);
    add("no number", 1, "markerWidthSpinBox", "MarkerTool/LineWidth", "wide", 14);
    add("empty", 1, "markerTransparencySpinBox", "MarkerTool/Transparency", "", 60);
    add("a rectangle", 9, "recentFilesSpinBox", "Other/MaxRecentFiles", QRect(1, 2, 3, 4), 5);
}

/// Numbers come into the range of their control, and are stored so.
void TestStoredSettings::numbers()
{
    QFETCH(const int, page);
    QFETCH(const QString, control);
    QFETCH(const QString, key);
    QFETCH(const QVariant, stored);
    QFETCH(const int, shown);
    storeOnly(key.toLatin1().constData(), stored);
    LoadedPage loaded(page);
    QCOMPARE(loaded.shown(control), QVariant(shown));
    loaded.accept();
    QCOMPARE(QSettings().value(key).toInt(), shown);
}

void TestStoredSettings::truths_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<bool>("shown");
    QTest::newRow("word") << QVariant("false") << false;
    QTest::newRow("capitals") << QVariant("FALSE") << false;
    QTest::newRow("number") << QVariant(0) << false;
    QTest::newRow("other number") << QVariant(7) << true;
    QTest::newRow("no truth") << QVariant("perhaps") << true;
    QTest::newRow("empty") << QVariant("") << true;
    QTest::newRow("list") << QVariant(QStringList{"false", "false"}) << true;
}

void TestStoredSettings::truths()
{
    QFETCH(const QVariant, stored);
    QFETCH(const bool, shown);
    // Two of them are written by the boxes that ask whether to be shown again.
    for (const Bound &bound : boundControls()) {
        const bool defaultsToTrue = bound.usual == QVariant(true) && bound.other == QVariant(false);
        if (!defaultsToTrue)
            continue;
        storeOnly(bound.key, stored);
        const LoadedPage page(bound.page);
        QVERIFY2(page.shown(QString::fromLatin1(bound.control)) == QVariant(shown), bound.key);
    }
}

void TestStoredSettings::keptValues_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("other");
    const auto add = [](const char *name, int page, const char *control, const char *key, const QVariant &stored,
                        const char *shown, const char *other) {
        QTest::newRow(name) << page << QString::fromLatin1(control) << QString::fromLatin1(key) << stored
                            << QString::fromLatin1(shown) << QString::fromLatin1(other);
    };
    add("missing family", 2, "fontFamilyComboBox", "TextBoxTool/DefaultFontFamily", "No Such Family", "No Such Family",
        "DejaVu Sans");
    add("no family", 6, "fontFamilyComboBox", "PageView/DefaultFontFamily", "", "", "DejaVu Sans");
    add("family in other letters", 6, "fontFamilyComboBox", "PageView/DefaultFontFamily", "dejavu sans", "dejavu sans",
        "DejaVu Sans");
    add("family with a line end", 6, "fontFamilyComboBox", "PageView/DefaultFontFamily", "A\nB", "A\nB", "DejaVu Sans");
    add("odd size", 2, "fontSizeComboBox", "TextBoxTool/DefaultFontSize", 13, "13", "12");
    add("small size", 6, "fontSizeComboBox", "PageView/DefaultFontSize", 1, "1", "12");
    add("no size", 6, "fontSizeComboBox", "PageView/DefaultFontSize", 0, "0", "12");
    add("huge size", 6, "fontSizeComboBox", "PageView/DefaultFontSize", 4000, "500", "12");
    add("negative size", 6, "fontSizeComboBox", "PageView/DefaultFontSize", -4, "0", "12");
    add("unreadable size", 6, "fontSizeComboBox", "PageView/DefaultFontSize", "big", "10", "12");
    add("hyphenated style", 4, "shapeLineStyleComboBox", "ShapeTool/LineStyle", "Dash-Dot", "Dash-Dot", "Dot");
    add("unknown style", 3, "lineStyleComboBox", "LineTool/LineStyle", "Wavy", "Wavy", "Dot");
    add("style in other letters", 3, "lineStyleComboBox", "LineTool/LineStyle", "dot", "dot", "Dot");
    add("no style", 3, "lineStyleComboBox", "LineTool/LineStyle", "", "", "Dot");
    add("unknown side", 9, "tabsComboBox", "Other/TabsPosition", "Middle", "Middle", "Top");
    add("no side", 9, "tabsComboBox", "Other/TabsPosition", "", "", "Top");
    add("bad colour", 6, "bgColorPicker", "PageView/DefaultBgColor", "no colour", "#ffffff", "#0000ff");
    add("bad text colour", 6, "textColorPicker", "PageView/DefaultTextColor", "no colour", "#000000", "#0000ff");
    add("translucent colour", 6, "bgColorPicker", "PageView/DefaultBgColor", "#80ff0000", "#ff0000", "#0000ff");
    add("mail client of two lines", 10, "emailClientEdit", "General/EmailClient", "a\nb", "a\nb", "c");
    add("list as style", 3, "lineStyleComboBox", "LineTool/LineStyle", QStringList{"Dot", "Dash"}, "Solid", "Dot");
}

/// What a control cannot show as it is stored stays in the store, however often the window is accepted.
void TestStoredSettings::keptValues()
{
    QFETCH(const int, page);
    QFETCH(const QString, control);
    QFETCH(const QString, key);
    QFETCH(const QVariant, stored);
    QFETCH(const QString, shown);
    storeOnly(key.toLatin1().constData(), stored);
    LoadedPage loaded(page);
    const QVariant before = QSettings().value(key);
    for (int round = 0; round < 2; ++round) {
        QCOMPARE(loaded.shown(control), QVariant(shown));
        loaded.accept();
        QCOMPARE(QSettings().value(key), before);
        loaded.reload();
    }
}

void TestStoredSettings::choosingReplacesKeptValues_data()
{
    keptValues_data();
    // An attachment format that no button has leaves the buttons as they are.
    QTest::newRow("unknown format") << 10 << "pngRadio"
                                    << "General/AttachmentFormat" << QVariant("GIF") << "false"
                                    << "PNG";
    QTest::newRow("format in small letters") << 10 << "pdfRadio"
                                             << "General/AttachmentFormat" << QVariant("pdf") << "false"
                                             << "PDF";
}

void TestStoredSettings::choosingReplacesKeptValues()
{
    QFETCH(const int, page);
    QFETCH(const QString, control);
    QFETCH(const QString, key);
    QFETCH(const QVariant, stored);
    QFETCH(const QString, shown);
    QFETCH(const QString, other);
    storeOnly(key.toLatin1().constData(), stored);
    LoadedPage loaded(page);
    QCOMPARE(loaded.shown(control).toString(), shown);
    const bool isButton = control.endsWith(QLatin1String("Radio"));
    loaded.accept();
    QCOMPARE(QSettings().value(key), stored);
    loaded.reload();
    choose(loaded.control(control), isButton ? QVariant(true) : QVariant(other));
    loaded.accept();
    QCOMPARE(QSettings().value(key).toString(), other);
}

void TestStoredSettings::oddSizesStandInTheirPlace()
{
    storeOnly("PageView/DefaultFontSize", 13);
    const LoadedPage page(PageView);
    const auto *box = qobject_cast<QComboBox *>(page.control(QStringLiteral("fontSizeComboBox")));
    const int place = box->findText(QStringLiteral("13"));
    QCOMPARE(box->itemText(place - 1), QStringLiteral("12"));
    QCOMPARE(box->itemText(place + 1), QStringLiteral("14"));
}

void TestStoredSettings::oddSizesGoWithTheirValue()
{
    storeOnly("PageView/DefaultFontSize", 13);
    LoadedPage page(PageView);
    storeOnly("PageView/DefaultFontSize", 12);
    page.reload();
    const auto *box = qobject_cast<QComboBox *>(page.control(QStringLiteral("fontSizeComboBox")));
    QCOMPARE(box->findText(QStringLiteral("13")), -1);
    QCOMPARE(box->currentText(), QStringLiteral("12"));
}

void TestStoredSettings::opaqueChoiceOfATranslucentColor()
{
    storeOnly("PageView/DefaultBgColor", "#80ff0000");
    LoadedPage page(PageView);
    choose(page.control(QStringLiteral("bgColorPicker")), QStringLiteral("#ff0000"));
    page.accept();
    QCOMPARE(storedText("PageView/DefaultBgColor"), QStringLiteral("#ff0000"));
}

void TestStoredSettings::severalSnapshotTargets_data()
{
    QTest::addColumn<bool>("clipboard");
    QTest::addColumn<bool>("file");
    QTest::addColumn<bool>("mail");
    QTest::addColumn<QString>("checked");
    QTest::newRow("none") << false << false << false << "";
    QTest::newRow("clipboard") << true << false << false << "saveViewToClipboardRadio";
    QTest::newRow("file") << false << true << false << "saveViewToFileRadio";
    QTest::newRow("mail") << false << false << true << "sendViewViaEmailRadio";
    QTest::newRow("clipboard and file") << true << true << false << "saveViewToClipboardRadio";
    QTest::newRow("clipboard and mail") << true << false << true << "saveViewToClipboardRadio";
    QTest::newRow("file and mail") << false << true << true << "saveViewToFileRadio";
    QTest::newRow("all") << true << true << true << "saveViewToClipboardRadio";
}

/// The button that is checked is the one that the tool would look at, whatever was checked before.
void TestStoredSettings::severalSnapshotTargets()
{
    QFETCH(const bool, clipboard);
    QFETCH(const bool, file);
    QFETCH(const bool, mail);
    QFETCH(const QString, checked);
    const QStringList buttons{"saveViewToClipboardRadio", "saveViewToFileRadio", "sendViewViaEmailRadio"};
    QSettings settings;
    settings.setValue(QStringLiteral("ScreenshotTool/SaveViewToClipboard"), clipboard);
    settings.setValue(QStringLiteral("ScreenshotTool/SaveViewToFile"), file);
    settings.setValue(QStringLiteral("ScreenshotTool/SendViewViaEmail"), mail);
    LoadedPage page(Screenshot);
    for (const QString &before : buttons) {
        choose(page.control(before), true);
        page.reload();
        for (const QString &button : buttons)
            QCOMPARE(page.shown(button), QVariant(button == checked));
    }
    QCOMPARE(page.control(QStringLiteral("informInClipboardCheckBox"))->isEnabled(), clipboard);
    page.accept();
    QCOMPARE(settings.value(QStringLiteral("ScreenshotTool/SaveViewToClipboard")).toBool(), checked == buttons.at(0));
    QCOMPARE(settings.value(QStringLiteral("ScreenshotTool/SaveViewToFile")).toBool(), checked == buttons.at(1));
    QCOMPARE(settings.value(QStringLiteral("ScreenshotTool/SendViewViaEmail")).toBool(), checked == buttons.at(2));
}

void TestStoredSettings::greyedBoxesAreStored()
{
    ConfigDialog dialog(8, nullptr);
    const QWidget *page = pageAt(dialog, 8);
    choose(partOf(page, QStringLiteral("printFileNameCheckBox")), false);
    choose(partOf(page, QStringLiteral("printHeaderCheckBox")), false);
    QVERIFY(!partOf(page, QStringLiteral("printFileNameCheckBox"))->isEnabled());
    dialog.updateAndClose();
    QCOMPARE(storedText("Printing/PrintHeader"), QStringLiteral("false"));
    QCOMPARE(storedText("Printing/PrintFileName"), QStringLiteral("false"));
    QCOMPARE(storedText("Printing/PrintDate"), QStringLiteral("true"));
}

void TestStoredSettings::otherKeysStay()
{
    QSettings().setValue(QStringLiteral("General/PenColor"), QStringLiteral("#123456"));
    QSettings().setValue(QStringLiteral("General/WarnRemoveAllAnnotationsAnswerIsYes"), QStringLiteral("false"));
    QSettings().setValue(QStringLiteral("Strange/Key"), 5);
    ConfigDialog dialog(0, nullptr);
    dialog.updateAndClose();
    QCOMPARE(storedText("General/PenColor"), QStringLiteral("#123456"));
    QCOMPARE(storedText("General/WarnRemoveAllAnnotationsAnswerIsYes"), QStringLiteral("false"));
    QCOMPARE(storedText("Strange/Key"), QStringLiteral("5"));
}

/// Nobody is told; the file stays as it is.
void TestStoredSettings::readOnlyStore()
{
    storeOnly("PenTool/LineWidth", 4);
    const QString path = [] {
        QSettings settings;
        settings.sync();
        return settings.fileName();
    }();
    const QByteArray before = bytesIn(path);
    QVERIFY(before.contains("LineWidth=4"));
    const auto readOnly = QFileDevice::ReadOwner | QFileDevice::ReadGroup | QFileDevice::ReadOther;
    const auto folderRights = readOnly | QFileDevice::ExeOwner | QFileDevice::ExeGroup | QFileDevice::ExeOther;
    const QString folder = QFileInfo(path).path();
    const auto oldRights = QFile::permissions(folder);
    QVERIFY(QFile::setPermissions(path, readOnly));
    QVERIFY(QFile::setPermissions(folder, folderRights));
    {
        const PlainUser user;
        ConfigDialog dialog(0, nullptr);
        choose(partOf(pageAt(dialog, 0), QStringLiteral("penWidthSpinBox")), 7);
        dialog.updateAndClose();
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
    }
    QCOMPARE(bytesIn(path), before);
    QVERIFY(QFile::setPermissions(folder, oldRights));
    QVERIFY(QFile::setPermissions(path, readOnly | QFileDevice::WriteOwner));
}

/// Values come back from a text file as text.
void TestStoredSettings::iniStore()
{
    ConfigDialog dialog(0, nullptr);
    choose(partOf(pageAt(dialog, 0), QStringLiteral("penWidthSpinBox")), 7);
    choose(partOf(pageAt(dialog, 8), QStringLiteral("printDateCheckBox")), false);
    choose(partOf(pageAt(dialog, 2), QStringLiteral("fontFamilyComboBox")), QStringLiteral("A, B"));
    dialog.updateAndClose();
    const QString path = QSettings().fileName();
    const QSettings file(path, QSettings::IniFormat);
    QCOMPARE(file.value(QStringLiteral("PenTool/LineWidth")).toInt(), 7);
    QCOMPARE(file.value(QStringLiteral("Printing/PrintDate")).toBool(), false);
    QCOMPARE(file.value(QStringLiteral("TextBoxTool/DefaultFontFamily")).toString(), QStringLiteral("A, B"));
}

REGISTER_TEST(TestStoredSettings)
#include "tst_storedsettings.moc"

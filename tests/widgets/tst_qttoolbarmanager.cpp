// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/testmain.h"
#include "widgets/qtfulltoolbarmanager.h"
#include "widgets/qttoolbarmanager.h"
#include "widgets/toolbarstate.h"

#include <QAction>
#include <QMainWindow>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QToolBar>
#include <QtEndian>

namespace {

QByteArray int32Bytes(quint32 value)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(value, bytes.data());
    return bytes;
}

/// A string as it lies in the bytes: its length in bytes, then big-endian UTF-16.
QByteArray stringBytes(const QString &text)
{
    QByteArray bytes = int32Bytes(static_cast<quint32>(2 * text.size()));
    for (const QChar c : text) {
        bytes.append(static_cast<char>(c.unicode() >> 8));
        bytes.append(static_cast<char>(c.unicode() & 0xff));
    }
    return bytes;
}

QByteArray header(quint32 version = 0)
{
    return QByteArray::fromHex("000000ff") + int32Bytes(version);
}

QByteArray noCustomBars()
{
    return QByteArray::fromHex("fd00000000");
}

/// The bytes of one ordinary tool bar with these actions and no custom ones.
QByteArray oneBar(const QString &name, const QStringList &actions)
{
    QByteArray bytes = header() + QByteArray::fromHex("fe00000001") + stringBytes(name) +
                       int32Bytes(static_cast<quint32>(actions.size()));
    for (const QString &action : actions)
        bytes += stringBytes(action);
    return bytes + noCustomBars();
}

/// The bytes of no ordinary tool bar and one custom one.
QByteArray oneCustomBar(const QString &name, const QString &title, const QStringList &actions)
{
    QByteArray bytes = header() + QByteArray::fromHex("fe00000000fd00000001") + stringBytes(name) + stringBytes(title) +
                       int32Bytes(static_cast<quint32>(actions.size()));
    for (const QString &action : actions)
        bytes += stringBytes(action);
    return bytes;
}

/// Names of the actions that really stand in the bar; a separator is "-".
QStringList shown(const QToolBar *toolBar)
{
    QStringList names;
    for (const QAction *action : toolBar->actions())
        names.append(action->isSeparator() ? QStringLiteral("-") : action->objectName());
    return names;
}

/// A window with two managed tool bars, as the program has four.
class ManagedWindow : public QMainWindow
{
public:
    explicit ManagedWindow(bool named = true)
    {
        for (const char *name : {"actionA", "actionB", "actionC", "actionD"})
            addNamed(QLatin1String(name));
        lines = makeBar("LinesBar", "Lines");
        lines->addAction(action("actionA"));
        lines->addSeparator();
        lines->addAction(action("actionB"));
        shapes = makeBar("ShapesBar", "Shapes");
        shapes->addAction(action("actionC"));
        shapes->addAction(action("actionD"));
        unmanaged = makeBar("FileBar", "File");
        if (!named)
            lines->setObjectName(QString());
        manager = new QtToolBarManager(this);
        manager->setMainWindow(this);
        manager->addToolBar(lines, "Lines");
        manager->addToolBar(shapes, "Shapes");
    }

    QAction *action(const char *name) const { return findChild<QAction *>(QLatin1String(name)); }
    QtFullToolBarManager *full() const { return manager->fullManager(); }

    QToolBar *lines;
    QToolBar *shapes;
    QToolBar *unmanaged;
    QtToolBarManager *manager;

private:
    void addNamed(const QString &name)
    {
        auto *made = new QAction("&" + name.mid(6), this);
        made->setObjectName(name);
    }
    QToolBar *makeBar(const QString &name, const QString &title)
    {
        QToolBar *bar = addToolBar(title);
        bar->setObjectName(name);
        return bar;
    }
};

} // namespace

class TestQtToolBarManager : public QObject
{
    Q_OBJECT

private slots:
    void registersBarsAndCategories();
    void goldenBytes();
    void goldenBytesWithCustomBar();
    void warnsAboutMissingNames();

    void restoresWhatItSaved();
    void restoresACustomBar();
    void customBarsSurviveRestarts();
    void refusesOtherVersions();
    void refusesDamage_data();
    void refusesDamage();
    void everyCutIsRefused();
    void everyFlippedByteIsHarmless();
    void skipsMissingActions();
    void skipsMissingBars();
    void matchesTitlesAndTexts();
    void customNameDoesNotSeizeABar_data();
    void customNameDoesNotSeizeABar();
    void storedDuplicatesAreOne();
    void nullStringsAreSeparatorsToo();
    void customBarsNeedAWindow();

    void customNamesAreCounted();
    void actionStandsOnce();
    void setActionsReplacesSeparators();
    void resets();
    void signalsTellOfChanges();
    void removedActionLeavesTheBars();
    void removedBarStaysAsItIs();
    void deletedObjectsAreForgotten();
};

void TestQtToolBarManager::registersBarsAndCategories()
{
    const ManagedWindow window;
    QtFullToolBarManager *full = window.full();
    QCOMPARE(window.manager->mainWindow(), &window);
    QCOMPARE(full->categories(), QStringList({"Lines", "Shapes"}));
    QCOMPARE(full->categoryActions("Lines"), QList({window.action("actionA"), window.action("actionB")}));
    QVERIFY(full->categoryActions("None").isEmpty());
    QCOMPARE(full->toolBars(), QList({window.lines, window.shapes}));
    const QList<QAction *> expected{window.action("actionA"), nullptr, window.action("actionB")};
    QCOMPARE(full->actions(window.lines), expected);
    QCOMPARE(full->defaultActions(window.lines), expected);
    QVERIFY(full->actions(window.unmanaged).isEmpty());
    QVERIFY(!full->isCustom(window.lines));

    // Registered twice, an action keeps its category and a tool bar its defaults.
    window.manager->addAction(window.action("actionA"), "Other");
    window.manager->addToolBar(window.lines, "Other");
    QCOMPARE(full->categories(), QStringList({"Lines", "Shapes"}));
    QCOMPARE(full->toolBars().size(), 2);
    QAction extra("Extra");
    window.manager->addAction(&extra, "Shapes");
    QCOMPARE(full->categoryActions("Shapes").last(), &extra);
}

void TestQtToolBarManager::goldenBytes()
{
    const ManagedWindow window;
    const QByteArray expected = QByteArray::fromHex("000000ff"                             // marker
                                                    "00000000"                             // version
                                                    "fe"                                   // tool bars
                                                    "00000002"                             // how many
                                                    "00000010"                             // "LinesBar"
                                                    "004c0069006e00650073004200610072"     //
                                                    "00000003"                             // actions
                                                    "0000000e0061006300740069006f006e0041" // "actionA"
                                                    "00000000"                             // separator
                                                    "0000000e0061006300740069006f006e0042" // "actionB"
                                                    "00000012"                             // "ShapesBar"
                                                    "005300680061007000650073004200610072" //
                                                    "00000002"                             // actions
                                                    "0000000e0061006300740069006f006e0043" // "actionC"
                                                    "0000000e0061006300740069006f006e0044" // "actionD"
                                                    "fd"                                   // custom tool bars
                                                    "00000000");
    const QByteArray saved = window.manager->saveState(0);
    QCOMPARE(saved.toHex(), expected.toHex());
    QCOMPARE(window.manager->saveState(0x01020304).mid(4, 4).toHex(), QByteArray("01020304"));
}

void TestQtToolBarManager::goldenBytesWithCustomBar()
{
    const ManagedWindow window;
    QToolBar *custom = window.full()->createToolBar("Mine");
    window.full()->setActions(custom, {window.action("actionD"), nullptr});
    window.manager->removeToolBar(window.lines);
    window.manager->removeToolBar(window.shapes);
    const QByteArray actions = int32Bytes(2) + stringBytes("actionD") + int32Bytes(0);
    const QByteArray expected = header() + QByteArray::fromHex("fe00000001") + stringBytes("_Custom_Toolbar_1") +
                                actions + QByteArray::fromHex("fd00000001") + stringBytes("_Custom_Toolbar_1") +
                                stringBytes("Mine") + actions;
    QCOMPARE(window.manager->saveState(0).toHex(), expected.toHex());
}

void TestQtToolBarManager::warnsAboutMissingNames()
{
    const ManagedWindow window(false);
    window.action("actionB")->setText("Bé");
    window.action("actionB")->setObjectName(QString());
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression("^QtToolBarManager::saveState\\(\\): 'objectName' not set for QToolBar "
                                            "0x[0-9a-f]+ 'Lines', using 'windowTitle' instead$"));
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression("^QtToolBarManager::saveState\\(\\): 'objectName' not set for QAction "
                                            "0x[0-9a-f]+ 'Bé', using 'text' instead$"));
    QTest::failOnWarning(QRegularExpression("QtToolBarManager"));
    const QByteArray saved = window.manager->saveState(0);
    QVERIFY(saved.contains(stringBytes("Lines") + int32Bytes(3) + stringBytes("actionA") + int32Bytes(0) +
                           stringBytes("Bé")));
}

void TestQtToolBarManager::restoresWhatItSaved()
{
    QByteArray saved;
    {
        const ManagedWindow window;
        window.full()->setActions(window.lines, {window.action("actionD"), nullptr, nullptr, window.action("actionA")});
        window.full()->setActions(window.shapes, {});
        saved = window.manager->saveState(0);
    }
    QTest::failOnWarning(QRegularExpression("QtToolBarManager"));
    const ManagedWindow window;
    QVERIFY(window.manager->restoreState(saved, 0));
    QCOMPARE(shown(window.lines), QStringList({"actionD", "-", "-", "actionA"}));
    QCOMPARE(shown(window.shapes), QStringList());
    QCOMPARE(window.manager->saveState(0), saved);
}

void TestQtToolBarManager::restoresACustomBar()
{
    const ManagedWindow window;
    QVERIFY(window.manager->restoreState(oneCustomBar("_Custom_Toolbar_4", "Mine", {"actionC", ""}), 0));
    const auto *custom = window.findChild<QToolBar *>("_Custom_Toolbar_4");
    QVERIFY(custom);
    QCOMPARE(custom->windowTitle(), "Mine");
    QCOMPARE(shown(custom), QStringList({"actionC", "-"}));

    // A second restore takes the one that is there.
    QVERIFY(window.manager->restoreState(oneCustomBar("_Custom_Toolbar_4", "Renamed", {"actionB"}), 0));
    QCOMPARE(window.findChildren<QToolBar *>("_Custom_Toolbar_4").size(), 1);
    QCOMPARE(custom->windowTitle(), "Renamed");
    QCOMPARE(shown(custom), QStringList({"actionB"}));
}

void TestQtToolBarManager::customBarsSurviveRestarts()
{
    QTest::failOnWarning(QRegularExpression("QtToolBarManager"));
    QByteArray saved;
    {
        const ManagedWindow window;
        QToolBar *first = window.full()->createToolBar("Mine");
        QToolBar *second = window.full()->createToolBar("Mine");
        window.full()->setActions(first, {window.action("actionA")});
        window.full()->setActions(second, {window.action("actionB"), nullptr});
        saved = window.manager->saveState(0);
    }
    for (int restart = 0; restart < 3; ++restart) {
        ManagedWindow window;
        QVERIFY(window.manager->restoreState(saved, 0));
        QCOMPARE(shown(window.findChild<QToolBar *>("_Custom_Toolbar_1")), QStringList({"actionA"}));
        QCOMPARE(shown(window.findChild<QToolBar *>("_Custom_Toolbar_2")), QStringList({"actionB", "-"}));
        window.show();
        QTRY_VERIFY(window.findChild<QToolBar *>("_Custom_Toolbar_2")->isVisible());
        QCOMPARE(window.manager->saveState(0), saved);
        QCOMPARE(window.full()->createToolBar("Another")->objectName(), "_Custom_Toolbar_3");
    }
}

void TestQtToolBarManager::refusesOtherVersions()
{
    const ManagedWindow window;
    window.full()->setActions(window.lines, {});
    const QByteArray changed = window.manager->saveState(1);
    window.full()->resetAllToolBars();
    QVERIFY(!window.manager->restoreState(changed, 0));
    QVERIFY(!window.manager->restoreState(changed, 2));
    QCOMPARE(shown(window.lines), QStringList({"actionA", "-", "actionB"}));
    QVERIFY(window.manager->restoreState(changed, 1));
    QCOMPARE(shown(window.lines), QStringList());
}

void TestQtToolBarManager::refusesDamage_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray name = stringBytes("LinesBar");
    const QByteArray bars = QByteArray::fromHex("fe00000001");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("not a state at all");
    QTest::newRow("other marker") << QByteArray::fromHex("000000fe00000000fe00000000fd00000000");
    QTest::newRow("other bars marker") << header() + QByteArray::fromHex("fc00000000fd00000000");
    QTest::newRow("other custom marker") << header() + bars + name + int32Bytes(0) + QByteArray::fromHex("fe00000000");
    QTest::newRow("two billion bars") << header() + QByteArray::fromHex("fe7fffffff") + name;
    QTest::newRow("negative number of bars") << header() + QByteArray::fromHex("feffffffff") + noCustomBars();
    QTest::newRow("two billion actions") << header() + bars + name + QByteArray::fromHex("7fffffff") + noCustomBars();
    QTest::newRow("negative number of actions")
        << header() + bars + name + QByteArray::fromHex("80000000") + noCustomBars();
    QTest::newRow("one action too many") << header() + bars + name + int32Bytes(2) + stringBytes("actionB") +
                                                noCustomBars();
    QTest::newRow("huge string") << header() + bars + QByteArray::fromHex("7ffffffe0041") + noCustomBars();
    QTest::newRow("odd string") << header() + bars + QByteArray::fromHex("00000003004100") + noCustomBars();
    QTest::newRow("two billion custom bars")
        << header() + bars + name + int32Bytes(0) + QByteArray::fromHex("fd7fffffff");
}

void TestQtToolBarManager::refusesDamage()
{
    QFETCH(QByteArray, bytes);
    const ManagedWindow window;
    const QByteArray before = window.manager->saveState(0);
    QVERIFY(!window.manager->restoreState(bytes, 0));
    QCOMPARE(window.manager->saveState(0), before);
    QCOMPARE(window.findChildren<QToolBar *>().size(), 3);
}

void TestQtToolBarManager::everyCutIsRefused()
{
    const ManagedWindow window;
    window.full()->setActions(window.full()->createToolBar("Mine"), {window.action("actionA")});
    window.full()->setActions(window.lines, {window.action("actionC")});
    const QByteArray saved = window.manager->saveState(0);
    window.full()->resetAllToolBars();
    const QByteArray before = window.manager->saveState(0);
    for (qsizetype length = 0; length < saved.size(); ++length) {
        QVERIFY2(!window.manager->restoreState(saved.first(length), 0), qPrintable(QString::number(length)));
        QCOMPARE(window.manager->saveState(0), before);
    }
    QVERIFY(window.manager->restoreState(saved, 0));
}

void TestQtToolBarManager::everyFlippedByteIsHarmless()
{
    const ManagedWindow source;
    source.full()->setActions(source.full()->createToolBar("Mine"), {source.action("actionA"), nullptr});
    const QByteArray saved = source.manager->saveState(0);
    const QtMessageHandler before =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    int refused = 0;
    for (qsizetype i = 0; i < saved.size(); ++i) {
        const ManagedWindow window;
        const QByteArray arrangement = window.manager->saveState(0);
        QByteArray damaged = saved;
        damaged[i] = static_cast<char>(~damaged.at(i));
        if (!window.manager->restoreState(damaged, 0)) {
            ++refused;
            QCOMPARE(window.manager->saveState(0), arrangement);
        }
        QVERIFY(window.full()->toolBars().size() >= 2);
    }
    qInstallMessageHandler(before);
    QVERIFY(refused > 20);
}

void TestQtToolBarManager::skipsMissingActions()
{
    const ManagedWindow window;
    QTest::ignoreMessage(QtWarningMsg, "QtToolBarManager::restoreState(): cannot find a QAction named 'actionGone', "
                                       "trying to match using 'text' instead.");
    QTest::ignoreMessage(QtWarningMsg, "QtToolBarManager::restoreState(): cannot find a QAction with matching 'text' "
                                       "(looking for 'actionGone').");
    QTest::failOnWarning(QRegularExpression("QtToolBarManager"));
    QVERIFY(window.manager->restoreState(oneBar("LinesBar", {"actionD", "actionGone", "", "actionA"}), 0));
    QCOMPARE(shown(window.lines), QStringList({"actionD", "-", "actionA"}));
}

void TestQtToolBarManager::skipsMissingBars()
{
    const ManagedWindow window;
    QTest::ignoreMessage(QtWarningMsg, "QtToolBarManager::restoreState(): cannot find a QToolBar named 'Gone é', "
                                       "trying to match using 'windowTitle' instead.");
    QTest::ignoreMessage(QtWarningMsg, "QtToolBarManager::restoreState(): cannot find a QToolBar with matching "
                                       "'windowTitle' (looking for 'Gone é').");
    QTest::failOnWarning(QRegularExpression("QtToolBarManager"));
    const QByteArray bytes = header() + QByteArray::fromHex("fe00000002") + stringBytes("Gone é") + int32Bytes(1) +
                             stringBytes("alsoGone") + stringBytes("LinesBar") + int32Bytes(1) +
                             stringBytes("actionC") + noCustomBars();
    QVERIFY(window.manager->restoreState(bytes, 0));
    QCOMPARE(shown(window.lines), QStringList({"actionC"}));
    QCOMPARE(shown(window.shapes), QStringList({"actionC", "actionD"}));
}

void TestQtToolBarManager::matchesTitlesAndTexts()
{
    const ManagedWindow window(false);
    QTest::ignoreMessage(QtWarningMsg, "QtToolBarManager::restoreState(): cannot find a QToolBar named 'Lines', "
                                       "trying to match using 'windowTitle' instead.");
    QTest::ignoreMessage(QtWarningMsg, "QtToolBarManager::restoreState(): cannot find a QAction named '&D', "
                                       "trying to match using 'text' instead.");
    QTest::failOnWarning(QRegularExpression("QtToolBarManager"));
    QVERIFY(window.manager->restoreState(oneBar("Lines", {"&D"}), 0));
    QCOMPARE(shown(window.lines), QStringList({"actionD"}));
}

void TestQtToolBarManager::customNameDoesNotSeizeABar_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("managed bar") << "ShapesBar";
    QTest::newRow("bar that is not managed") << "FileBar";
    QTest::newRow("no name") << "";
}

void TestQtToolBarManager::customNameDoesNotSeizeABar()
{
    QFETCH(QString, name);
    const ManagedWindow window;
    const QByteArray before = window.manager->saveState(0);
    QVERIFY(window.manager->restoreState(oneCustomBar(name, "Seized", {"actionA"}), 0));
    QCOMPARE(window.manager->saveState(0), before);
    QCOMPARE(window.findChildren<QToolBar *>().size(), 3);
    QCOMPARE(window.shapes->windowTitle(), "Shapes");
    QCOMPARE(window.unmanaged->windowTitle(), "File");
    QVERIFY(!window.full()->isCustom(window.shapes));
}

void TestQtToolBarManager::storedDuplicatesAreOne()
{
    const ManagedWindow window;
    QVERIFY(window.manager->restoreState(oneBar("LinesBar", {"actionA", "actionB", "actionA"}), 0));
    QCOMPARE(shown(window.lines), QStringList({"actionB", "actionA"}));
    const QList<QAction *> expected{window.action("actionB"), window.action("actionA")};
    QCOMPARE(window.full()->actions(window.lines), expected);
}

void TestQtToolBarManager::nullStringsAreSeparatorsToo()
{
    const ManagedWindow window;
    const QByteArray bytes = header() + QByteArray::fromHex("fe00000001") + stringBytes("LinesBar") +
                             QByteArray::fromHex("00000001ffffffff") + noCustomBars();
    QVERIFY(window.manager->restoreState(bytes, 0));
    QCOMPARE(shown(window.lines), QStringList("-"));
}

void TestQtToolBarManager::customBarsNeedAWindow()
{
    QtToolBarManager manager;
    QVERIFY(!manager.fullManager()->createToolBar("Mine"));
    QVERIFY(manager.restoreState(oneCustomBar("_Custom_Toolbar_1", "Mine", {}), 0));
    QVERIFY(manager.fullManager()->toolBars().isEmpty());
}

void TestQtToolBarManager::customNamesAreCounted()
{
    ManagedWindow window;
    QToolBar *first = window.full()->createToolBar("Mine");
    QToolBar *second = window.full()->createToolBar("Mine");
    QCOMPARE(first->objectName(), "_Custom_Toolbar_1");
    QCOMPARE(second->objectName(), "_Custom_Toolbar_2");
    QCOMPARE(first->windowTitle(), "Mine");
    QCOMPARE(first->parent(), &window);
    QCOMPARE(window.toolBarArea(first), Qt::TopToolBarArea);
    QVERIFY(window.full()->isCustom(first));
    QVERIFY(window.full()->actions(first).isEmpty());
    QVERIFY(window.full()->defaultActions(first).isEmpty());

    window.full()->deleteToolBar(first);
    QCOMPARE(window.full()->createToolBar("Again")->objectName(), "_Custom_Toolbar_1");
    // A name that somebody else has is not free.
    window.addToolBar("Foreign")->setObjectName("_Custom_Toolbar_3");
    QCOMPARE(window.full()->createToolBar("Fourth")->objectName(), "_Custom_Toolbar_4");
}

void TestQtToolBarManager::actionStandsOnce()
{
    const ManagedWindow window;
    QAction *a = window.action("actionA");
    QAction *c = window.action("actionC");
    window.full()->setActions(window.lines, {a, c, nullptr, a});
    QCOMPARE(shown(window.lines), QStringList({"actionC", "-", "actionA"}));
    // In several tool bars it may stand.
    window.full()->setActions(window.shapes, {a});
    QCOMPARE(shown(window.shapes), QStringList({"actionA"}));
    QCOMPARE(shown(window.lines), QStringList({"actionC", "-", "actionA"}));
    QAction stranger("Stranger");
    window.full()->setActions(window.shapes, {&stranger, c});
    QCOMPARE(shown(window.shapes), QStringList({"actionC"}));
    // A bar that is not managed is left alone.
    window.full()->setActions(window.unmanaged, {a});
    QVERIFY(window.unmanaged->actions().isEmpty());
}

void TestQtToolBarManager::setActionsReplacesSeparators()
{
    const ManagedWindow window;
    const auto separators = [&window] {
        qsizetype count = 0;
        for (const QAction *action : window.lines->findChildren<QAction *>())
            count += action->isSeparator();
        return count;
    };
    QCOMPARE(separators(), 1);
    window.full()->setActions(window.lines, {nullptr, nullptr});
    QCOMPARE(separators(), 2);
    window.full()->resetToolBar(window.lines);
    QCOMPARE(separators(), 1);
}

void TestQtToolBarManager::resets()
{
    const ManagedWindow window;
    const QByteArray before = window.manager->saveState(0);
    window.full()->setActions(window.lines, {});
    window.full()->setActions(window.shapes, {window.action("actionA")});
    QToolBar *custom = window.full()->createToolBar("Mine");
    window.full()->setActions(custom, {window.action("actionB")});
    window.full()->resetToolBar(window.lines);
    QCOMPARE(shown(window.lines), QStringList({"actionA", "-", "actionB"}));
    QCOMPARE(shown(window.shapes), QStringList({"actionA"}));
    window.full()->resetToolBar(custom);
    QCOMPARE(shown(custom), QStringList());
    window.full()->resetAllToolBars();
    QCOMPARE(window.manager->saveState(0), before);
    QVERIFY(!window.findChild<QToolBar *>("_Custom_Toolbar_1"));
}

void TestQtToolBarManager::signalsTellOfChanges()
{
    qRegisterMetaType<QToolBar *>();
    qRegisterMetaType<QList<QAction *>>();
    const ManagedWindow window;
    QSignalSpy created(window.full(), &QtFullToolBarManager::toolBarCreated);
    QSignalSpy removed(window.full(), &QtFullToolBarManager::toolBarRemoved);
    QSignalSpy changed(window.full(), &QtFullToolBarManager::toolBarChanged);
    QToolBar *custom = window.full()->createToolBar("Mine");
    QCOMPARE(created.count(), 1);
    QCOMPARE(created.at(0).at(0).value<QToolBar *>(), custom);
    const QList<QAction *> actions{window.action("actionA")};
    window.full()->setActions(custom, actions);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(1).value<QList<QAction *>>(), actions);
    window.full()->setActions(custom, actions);
    QCOMPARE(changed.count(), 1);
    window.full()->deleteToolBar(custom);
    QCOMPARE(removed.count(), 1);
    window.full()->deleteToolBar(window.lines);
    QCOMPARE(removed.count(), 1);
    QCOMPARE(shown(window.lines), QStringList({"actionA", "-", "actionB"}));
}

void TestQtToolBarManager::removedActionLeavesTheBars()
{
    const ManagedWindow window;
    QAction *a = window.action("actionA");
    window.full()->setActions(window.shapes, {a, window.action("actionC")});
    window.manager->removeAction(a);
    QCOMPARE(shown(window.lines), QStringList({"-", "actionB"}));
    QCOMPARE(shown(window.shapes), QStringList({"actionC"}));
    QVERIFY(!window.full()->isKnown(a));
    QVERIFY(!window.full()->categoryActions("Lines").contains(a));
    window.full()->resetAllToolBars();
    QCOMPARE(shown(window.lines), QStringList({"-", "actionB"}));
    window.manager->removeAction(window.action("actionB"));
    QCOMPARE(window.full()->categories(), QStringList("Shapes"));
    window.manager->removeAction(a);
}

void TestQtToolBarManager::removedBarStaysAsItIs()
{
    const ManagedWindow window;
    window.manager->removeToolBar(window.lines);
    QCOMPARE(shown(window.lines), QStringList({"actionA", "-", "actionB"}));
    QCOMPARE(window.full()->toolBars(), QList{window.shapes});
    QVERIFY(window.full()->isKnown(window.action("actionA")));
    window.manager->removeToolBar(window.unmanaged);
}

void TestQtToolBarManager::deletedObjectsAreForgotten()
{
    const ManagedWindow window;
    QToolBar *custom = window.full()->createToolBar("Mine");
    delete window.action("actionA");
    QCOMPARE(shown(window.lines), QStringList({"-", "actionB"}));
    delete window.shapes;
    delete custom;
    QCOMPARE(window.full()->toolBars(), QList{window.lines});
    const QByteArray expected = oneBar("LinesBar", {"", "actionB"});
    QCOMPARE(window.manager->saveState(0).toHex(), expected.toHex());
    window.full()->resetAllToolBars();
}

REGISTER_TEST(TestQtToolBarManager)
#include "tst_qttoolbarmanager.moc"

// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/windowprobe.h"
#include "support/dialogs.h"
#include "support/testmain.h"

#include <QSettings>
#include <QTest>
#include <QTreeWidget>

namespace {

/// What the dialog for the tool bars has above the actions of each bar.
QStringList categories(const WindowProbe &window)
{
    QStringList texts;
    DialogAnswers answers;
    answers.handle([&texts](QDialog *dialog) {
        const auto *tree = dialog->findChild<QTreeWidget *>(QStringLiteral("actionTree"));
        for (int i = 1; i < tree->topLevelItemCount(); ++i)
            texts.append(tree->topLevelItem(i)->text(0));
        dialog->reject();
    });
    window->customizeToolBars();
    return texts;
}

QStringList titles(const WindowProbe &window)
{
    QStringList texts;
    for (const char *name : {"ScvShapesToolBar", "ScvLinesToolBar", "ScvBracketsToolBar"})
        texts.append(window.bar(name)->windowTitle());
    return texts;
}

} // namespace

class TestToolBarCategories : public QObject
{
    Q_OBJECT

private slots:
    void init() { QSettings().clear(); }
    void followTheLanguage_data();
    void followTheLanguage();
    void haveTheirNamesInEnglish();
};

void TestToolBarCategories::followTheLanguage_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<bool>("fromTheStart");
    for (const char *language : {"pl", "fr"}) {
        QTest::addRow("%s from the start", language) << QString::fromLatin1(language) << true;
        QTest::addRow("%s chosen later", language) << QString::fromLatin1(language) << false;
    }
}

/// They are the titles of the bars, which follow it too.
void TestToolBarCategories::followTheLanguage()
{
    QFETCH(const QString, language);
    QFETCH(const bool, fromTheStart);
    QSettings().setValue(QStringLiteral("Other/AppLanguage"), fromTheStart ? language : QStringLiteral("en"));
    const WindowProbe window;
    if (!fromTheStart) {
        QAction action;
        action.setData(language);
        window->switchLanguage(&action);
    }
    const QStringList shown = categories(window);
    QCOMPARE(shown.size(), 4);
    QCOMPARE(shown.first(3), titles(window));
    QVERIFY(shown.first() != QLatin1String("Shapes"));
}

void TestToolBarCategories::haveTheirNamesInEnglish()
{
    QSettings().setValue(QStringLiteral("Other/AppLanguage"), QStringLiteral("en"));
    const WindowProbe window;
    QCOMPARE(categories(window), QStringList({"Shapes", "Lines", "Brackets", "StdTools"}));
}

REGISTER_TEST(TestToolBarCategories)
#include "tst_toolbarcategories.moc"
